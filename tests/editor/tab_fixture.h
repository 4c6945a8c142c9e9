// What the tests of the tabs share: a DataSet, a form to put a tab on, saves of one tab, and the text of a
// grid.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/controls.h"
#include "core/record_tab.h"
#include "records/record_store.h"
#include "store/command.h"
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

    // The record on the form; a tsn of 0 is that of a name that was never published.
    void SetTaxon(int qb_id, int tsn = 0) {
        data.state.currentTaxon.qb_id = qb_id;
        data.state.currentTaxon.tsn = tsn;
    }
    void Edit(RecordTab& tab, int qb_id, int tsn = 0) {
        SetTaxon(qb_id, tsn);
        tab.EnterMode(EditorMode::Edit);
        tab.Load(qb_id);
        data.state.RecordDirty = false;
    }
    records::RecordStore Records() { return {data.engine, data.db(), data.prompter}; }
    void SaveChanges(RecordTab& tab) {
        store::Command command(data.engine);
        tab.SaveChanges(Records());
        command.Commit();
    }
    bool SaveNew(RecordTab& tab) {
        store::Command command(data.engine);
        const bool saved = tab.SaveNew(Records());
        command.Commit();
        return saved;
    }
    std::string Tombstones() { return data.Dump("SELECT table_name, pk1, pk2, pk3, pk4 FROM db_tombstone"); }
    // The messages since the last call.
    std::vector<std::string> Said() { return std::exchange(data.prompter.messages, {}); }

    testkit::DataSetFixture data;
    Form form{"RecView"};
};

}  // namespace quillon::editor
