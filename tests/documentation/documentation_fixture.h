// A DataSet with the taxon 2, "Orcinus orca", under edit, and what the tests of the three tabs read from
// them.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/controls.h"
#include "documentation/named_tabs.h"
#include "testkit/testkit.h"

namespace quillon::documentation {

class DocumentationTest : public testing::Test {
protected:
    DocumentationTest() {
        data.Make();
        data.state.currentTaxon.qb_id = 2;
        data.state.currentTaxon.unit_name1 = "Orcinus";
        data.state.currentTaxon.unit_name2 = "orca";
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
            "VALUES (2, 5, 'Killer whale', 'English', true)");
    }
    void Run(const std::string& sql) { data.db().Execute(sql); }
    // A vernacular of the taxon 2.
    void AddVernacular(int qb_vern_id, const std::string& name, const std::string& language = "English",
                       const std::string& vern_id = "NULL") {
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vern_id, vernacular_name, language, "
            "approved_ind) "
            "VALUES (2, " +
            std::to_string(qb_vern_id) + ", " + vern_id + ", '" + name + "', '" + language + "', true)");
    }
    // Makes `control` report its requests for the focus in `focused`.
    void WatchFocus(Form& watched) {
        for (Control* control : watched.Controls())
            control->OnTakeFocus([this, control] { focused = control->Name(); });
    }
    std::string TakeMessages() {
        std::string text;
        for (const std::string& message : data.prompter.messages) text += message + "\n";
        data.prompter.messages.clear();
        return text;
    }
    std::string focused;
    // The names of the controls that take no input.
    std::string Disabled() const {
        std::string names;
        for (const Control* control : form.Controls())
            if (!control->Enabled()) names += control->Name() + " ";
        return names;
    }

    testkit::DataSetFixture data;
    Form form{"RecView"};
};

// The cells of a row, with bars between them.
inline std::string TextOf(const GridControl::Row& row) {
    std::string text;
    for (const std::string& cell : row) text += (&cell == row.data() ? "" : "|") + cell;
    return text;
}
// One line a row.
inline std::string TextOf(const GridControl& grid) {
    std::string text;
    for (const GridControl::Row& row : grid.Rows()) text += TextOf(row) + "\n";
    return text;
}
// The headings, those of hidden columns in brackets.
inline std::string HeadingsOf(const GridControl& grid) {
    GridControl::Row headings;
    for (const auto& column : grid.Columns())
        headings.push_back(column.hidden ? "(" + column.heading + ")" : column.heading);
    return TextOf(headings);
}
inline std::string TextOf(const ChoiceControl& list) {
    GridControl::Row texts;
    for (const auto& choice : list.Choices()) texts.push_back(choice.text);
    return TextOf(texts);
}

}  // namespace quillon::documentation
