// What the tests of the tabs share: a DataSet, a form to put a tab on, and the text of a grid.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/controls.h"
#include "testkit/testkit.h"

namespace quillon::editor {

class TabTest : public testing::Test {
protected:
    TabTest() { data.Make("Animalia"); }

    void Run(std::string_view sql) { data.db().Execute(sql); }
    // A taxon; `more` continues the fields, `values` their values.
    void AddTaxon(int qb_id, std::string_view more, std::string_view values) {
        Run("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, kingdom_id, rank_id, " + std::string(more) +
            ") VALUES (" + std::to_string(qb_id) + ", 'Orca', 5, 220, " + std::string(values) + ")");
    }

    // Cells split by bars, one row a line.
    static std::string RowsOf(const GridControl& grid) {
        std::string text;
        for (const auto& row : grid.Rows()) {
            for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : "|") + row[i];
            text += '\n';
        }
        return text;
    }
    static std::string HeadingsOf(const GridControl& grid) {
        std::string text;
        for (const auto& column : grid.Columns())
            text += column.heading + (column.hidden ? "(hidden);" : ";");
        return text;
    }
    // Text and item data of each choice, one a line.
    static std::string ChoicesOf(const ChoiceControl& list) {
        std::string text;
        for (const auto& choice : list.Choices())
            text += choice.text + "=" + std::to_string(choice.itemData) + "\n";
        return text;
    }

    testkit::DataSetFixture data;
    Form form{"RecView"};
};

}  // namespace quillon::editor
