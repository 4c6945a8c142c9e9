// The commands of the vernaculars tab, and the save of what they entered.
#include "editor/vernacular_tab.h"
#include "tab_fixture.h"

namespace quillon::editor {
namespace {

using Texts = std::vector<std::string>;

class VernacularCommands : public TabTest {
protected:
    VernacularCommands() {
        tab.Connect(data.state, data.prompter);
        tab.NamesChanged.Connect([this](const auto& names) {
            offered.clear();
            for (const auto& name : names) offered += name.text + "=" + std::to_string(name.itemData) + ";";
        });
        tab.NameDeleted.Connect([this](const std::string& name) { events += "deleted " + name + ";"; });
        tab.NameRenamed.Connect([this](int id, const std::string& name) {
            events += "renamed " + std::to_string(id) + " " + name + ";";
        });
        tab.NewNameRenamed.Connect([this](const std::string& old, const std::string& name) {
            events += "renamed " + old + " " + name + ";";
        });
        tab.txtVName.OnTakeFocus([this] { events += "focus;"; });
        AddName("3, 5, 77, 7001, 'orca', 'English', True, '6F726361'");
        AddName("3, 6, Null, 7001, 'orque', 'French', False, '6F72717565'");
        AddName("2, 7, 78, Null, 'beluga', 'English', True, '62656C756761'");
    }
    void AddName(const std::string& values) {
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vern_id, tsn, vernacular_name, language, "
            "approved_ind, hex_vernacular_name) VALUES (" +
            values + ")");
    }
    // A link of the name to the expert 4.
    void AddLink(const std::string& ids) {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, documentation_id, tsn) VALUES (" +
            ids + ", 'EXP', 4, 40, 7001)");
    }
    void Enter(std::string_view name, std::string_view language, bool approved = false) {
        tab.txtVName.UserSetText(name);
        tab.cboLanguage.UserSetText(language);
        tab.chkApproved.UserSetValue(approved);
    }
    std::string Rows() const { return RowsOf(tab.grdVernacular); }
    std::string Fields() const {
        return tab.txtVName.Text() + "|" + tab.cboLanguage.Text() + "|" +
               (tab.chkApproved.Value() ? "on" : "off");
    }
    std::string Stored() {
        return data.Dump(
            "SELECT qb_id, qb_vern_id, vern_id, tsn, vernacular_name, language, approved_ind, "
            "hex_vernacular_name FROM qb_vernaculars ORDER BY qb_vern_id");
    }

    VernacularTab tab{form};
    std::string offered, events;
    const std::string both = "orca|English|Yes|3|5|77\norque|French|No|3|6|0\n";
    const std::string beluga = "2\t7\t78\t\\N\tbeluga\tEnglish\tTrue\t62656C756761\n";
};

TEST_F(VernacularCommands, WaitForADataSet) {
    const auto enabled = [this] {
        std::string names;
        for (const ButtonControl* command : {&tab.cmdVAdd, &tab.cmdVModify, &tab.cmdVDelete})
            if (command->Enabled()) names += command->Name() + ";";
        return names;
    };
    EXPECT_EQ(enabled(), "");
    tab.EnterMode(EditorMode::Input);
    EXPECT_EQ(enabled(), "cmdVAdd;cmdVModify;cmdVDelete;");
    tab.EnterMode(EditorMode::None);
    EXPECT_EQ(enabled(), "");
    tab.EnterMode(EditorMode::Edit);
    EXPECT_EQ(enabled(), "cmdVAdd;cmdVModify;cmdVDelete;");
}

TEST_F(VernacularCommands, ANameIsAddedAsTheLastRowAndSelected) {
    Edit(tab, 3, 7001);
    Enter("killer whale", "English", true);
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Rows(), both + "killer whale|English|Yes|0|0|0\n|||||\n");
    EXPECT_EQ(tab.grdVernacular.SelectedRow(), 2);
    EXPECT_EQ(Fields(), "killer whale|English|on");
    EXPECT_EQ(offered, "orca [English]=5;orque [French]=6;killer whale [English]=0;");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Said(), Texts());
}

TEST_F(VernacularCommands, ANameIsRequired) {
    Edit(tab, 3, 7001);
    for (const char* name : {"", "  "}) {
        events.clear();
        Enter(name, "");
        tab.cmdVAdd.UserClick();
        EXPECT_EQ(Said(), Texts{"A vernacular name is required!"});
        EXPECT_EQ(events, "focus;");
        EXPECT_TRUE(data.state.RecordDirty);
    }
    EXPECT_EQ(Rows(), both + "|||||\n");
}

TEST_F(VernacularCommands, AMissingLanguageIsAWarningOnly) {
    Edit(tab, 3, 7001);
    Enter("ballena", "");
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Said(), Texts{"A language should be selected!"});
    Enter("baleine", "unspecified");
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Said(), Texts{"A language should be selected!"});
    EXPECT_EQ(Rows(), both + "ballena|unspecified|No|0|0|0\nbaleine|unspecified|No|0|0|0\n|||||\n");
    EXPECT_EQ(Fields(), "baleine|unspecified|off");
    Enter("ballena", "");
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Said(),
              (Texts{"A language should be selected!", "Attempting to insert a duplicate Vernacular"}));
}

TEST_F(VernacularCommands, DuplicatesAreThoseOfTheGrid) {
    Edit(tab, 3, 7001);
    Enter("orca", "English", false);
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Said(), Texts{"Attempting to insert a duplicate Vernacular"});
    EXPECT_EQ(Rows(), both + "|||||\n");
    Enter("orca", "Spanish");
    tab.cmdVAdd.UserClick();
    Enter("Orca", "English");
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Rows(), both + "orca|Spanish|No|0|0|0\nOrca|English|No|0|0|0\n|||||\n");
    tab.grdVernacular.UserSelectRow(0);
    tab.cmdVDelete.UserClick();
    Enter("orca", "English");
    tab.cmdVAdd.UserClick();
    EXPECT_EQ(Said(), Texts()) << "the stored one is going";
}

TEST_F(VernacularCommands, ModifyRewritesTheSelectedRowAndKeepsItsIds) {
    Edit(tab, 3, 7001);
    tab.grdVernacular.UserSelectRow(0);
    tab.chkApproved.UserSetValue(false);
    tab.cmdVModify.UserClick();
    EXPECT_EQ(Rows(), "orca|English|No|3|5|77\norque|French|No|3|6|0\n|||||\n");
    EXPECT_EQ(events, "") << "the name is the same";
    tab.txtVName.UserSetText("killer whale");
    tab.cmdVModify.UserClick();
    EXPECT_EQ(Rows(), "killer whale|English|No|3|5|77\norque|French|No|3|6|0\n|||||\n");
    EXPECT_EQ(tab.grdVernacular.SelectedRow(), 0);
    EXPECT_EQ(offered, "killer whale [English]=5;orque [French]=6;");
    EXPECT_EQ(events, "renamed 5 killer whale [English];");
    Enter("orque", "French");
    tab.cmdVModify.UserClick();
    EXPECT_EQ(Said(), Texts{"Attempting to insert a duplicate Vernacular"});
    EXPECT_EQ(Rows(), "killer whale|English|No|3|5|77\norque|French|No|3|6|0\n|||||\n");
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(VernacularCommands, ModifyWithoutARowChangesNothing) {
    Edit(tab, 3, 7001);
    tab.cmdVModify.UserClick();
    tab.grdVernacular.UserSelectRow(2);
    Enter("killer whale", "English");
    tab.cmdVModify.UserClick();
    EXPECT_EQ(Rows(), both + "|||||\n");
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(Said(), Texts());
}

TEST_F(VernacularCommands, ANewNameIsRenamedByItsText) {
    Edit(tab, 3, 7001);
    Enter("killer whale", "English");
    tab.cmdVAdd.UserClick();
    tab.txtVName.UserSetText("grampus");
    tab.cmdVModify.UserClick();
    EXPECT_EQ(events, "renamed killer whale [English] grampus [English];");
    EXPECT_EQ(Rows(), both + "grampus|English|No|0|0|0\n|||||\n");
}

TEST_F(VernacularCommands, DeleteSelectsTheNextRow) {
    Edit(tab, 3, 7001);
    tab.cmdVDelete.UserClick();
    tab.grdVernacular.UserSelectRow(2);
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), both + "|||||\n") << "no row, and the empty one";
    EXPECT_FALSE(data.state.RecordDirty);
    tab.grdVernacular.UserSelectRow(0);
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), "orque|French|No|3|6|0\n|||||\n");
    EXPECT_EQ(Fields(), "orque|French|off");
    EXPECT_EQ(tab.removed, std::vector<int>{5});
    EXPECT_EQ(offered, "orque [French]=6;");
    EXPECT_EQ(events, "deleted orca [English];");
    EXPECT_TRUE(data.state.RecordDirty);
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), "|||||\n");
    EXPECT_EQ(Fields(), "||off");
    EXPECT_EQ(tab.removed, (std::vector<int>{5, 6}));
    EXPECT_EQ(Said(), Texts());
}

TEST_F(VernacularCommands, ANameWithLinksGoesAfterAQuestion) {
    AddLink("3, 5, 77");
    Edit(tab, 3, 7001);
    tab.grdVernacular.UserSelectRow(0);
    data.prompter.yesNo = {false, true};
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), both + "|||||\n");
    EXPECT_EQ(tab.removed, std::vector<int>());
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(events, "");
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), "orque|French|No|3|6|0\n|||||\n");
    EXPECT_EQ(
        data.prompter.losses,
        Texts(2,
              "The vernacular you are deleting is currently linked to 1 vernacular reference links(s).  "
              "Deleting the vernacular will also delete the vernacular reference link(s).  Do you wish to "
              "proceed?"));
    EXPECT_EQ(data.prompter.titles, Texts(2, "Deleting Vernacular and Vernacular References"));
    EXPECT_EQ(data.Dump("SELECT qb_vern_id FROM qb_vern_ref_links"), "5\n") << "until the save";
}

TEST_F(VernacularCommands, LinksThatCannotBeReadKeepTheName) {
    Edit(tab, 3, 7001);
    data.db().DeleteQueryDef("Get VReference Links");
    tab.grdVernacular.UserSelectRow(0);
    tab.cmdVDelete.UserClick();
    EXPECT_EQ(Rows(), both + "|||||\n");
    EXPECT_EQ(Said().size(), 1U);
}

TEST_F(VernacularCommands, ASaveRemovesRewritesAndAdds) {
    AddLink("3, 5, 77");
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert) "
        "VALUES ('EXP', 4, 40, 'Smith')");
    Edit(tab, 3, 7001);
    tab.grdVernacular.UserSelectRow(0);
    data.prompter.yesNo = {true};
    tab.cmdVDelete.UserClick();
    Enter("épaulard", "French", true);
    tab.cmdVModify.UserClick();
    Enter("d'\"Or|", "");
    tab.cmdVAdd.UserClick();
    SaveChanges(tab);
    EXPECT_EQ(Stored(), "3\t6\t\\N\t7001\tépaulard\tFrench\tTrue\tE97061756C617264\n" + beluga +
                            "3\t8\t\\N\t7001\td'\"Or|\tunspecified\tFalse\t6427224F727C\n");
    EXPECT_EQ(data.Dump("SELECT qb_vern_id FROM qb_vern_ref_links"), "");
    EXPECT_EQ(data.Dump("SELECT expert FROM qb_experts"), "");
    EXPECT_EQ(Tombstones(),
              "vernaculars\t7001\t77\t\\N\t\\N\nexperts\tEXP\t40\t\\N\t\\N\n"
              "vern_ref_links\tEXP\t40\t7001\t77\n");
    EXPECT_EQ(Said(), Texts{"A language should be selected!"});
}

TEST_F(VernacularCommands, ANameOfALocalTaxonLeavesNoTombstone) {
    Edit(tab, 2);
    tab.grdVernacular.UserSelectRow(0);
    tab.cmdVDelete.UserClick();
    SaveChanges(tab);
    EXPECT_EQ(data.Dump("SELECT qb_vern_id FROM qb_vernaculars WHERE qb_id = 2"), "");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(VernacularCommands, ANameAddedAgainByHandLeavesTheTombstone) {
    Edit(tab, 3, 7001);
    tab.grdVernacular.UserSelectRow(0);
    tab.cmdVDelete.UserClick();
    Enter("orca", "English", true);
    tab.cmdVAdd.UserClick();
    SaveChanges(tab);
    EXPECT_EQ(Stored(), "3\t6\t\\N\t7001\torque\tFrench\tFalse\t6F72717565\n" + beluga +
                            "3\t8\t\\N\t7001\torca\tEnglish\tTrue\t6F726361\n");
    EXPECT_EQ(Tombstones(), "vernaculars\t7001\t77\t\\N\t\\N\n");
}

TEST_F(VernacularCommands, AStoredNameThatIsGoneIsAddedAgainAndLosesItsTombstone) {
    Edit(tab, 3, 7001);
    Run("DELETE * FROM qb_vernaculars WHERE qb_vern_id = 5");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('vernaculars', '7001', '77')");
    SaveChanges(tab);
    EXPECT_EQ(Stored(), "3\t6\t\\N\t7001\torque\tFrench\tFalse\t6F72717565\n" + beluga +
                            "3\t8\t77\t7001\torca\tEnglish\tTrue\t6F726361\n");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(VernacularCommands, ANameWithoutLanguageKeepsItUnset) {
    AddName("4, 9, Null, Null, 'narwhal', Null, False, Null");
    Edit(tab, 4);
    SaveChanges(tab);
    EXPECT_EQ(data.Dump("SELECT vernacular_name, language FROM qb_vernaculars WHERE qb_id = 4"),
              "narwhal\t\\N\n");
}

TEST_F(VernacularCommands, NamesThatANewRecordKeepsAreNewRows) {
    Edit(tab, 3, 7001);
    tab.grdVernacular.UserSelectRow(1);
    tab.cmdVDelete.UserClick();
    SetTaxon(0);
    tab.EnterMode(EditorMode::Input);
    EXPECT_EQ(Rows(), "orca|English|Yes|0|0|0\n|||||\n");
    EXPECT_EQ(offered, "orca [English]=0;");
    EXPECT_EQ(tab.removed, std::vector<int>());
    tab.grdVernacular.UserSelectRow(0);
    tab.txtVName.UserSetText("grampus");
    tab.cmdVModify.UserClick();
    SetTaxon(4);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Stored(),
              "3\t5\t77\t7001\torca\tEnglish\tTrue\t6F726361\n"
              "3\t6\t\\N\t7001\torque\tFrench\tFalse\t6F72717565\n" +
                  beluga + "4\t8\t\\N\t\\N\tgrampus\tEnglish\tTrue\t6772616D707573\n");
}

TEST_F(VernacularCommands, ANewTaxonWithoutAnIdSavesNothing) {
    tab.EnterMode(EditorMode::Input);
    Enter("grampus", "English");
    tab.cmdVAdd.UserClick();
    const std::string before = Stored();
    SetTaxon(0);
    EXPECT_FALSE(SaveNew(tab));
    EXPECT_EQ(Stored(), before);
}

TEST_F(VernacularCommands, AFailedRowIsReportedAndTheOthersAreSaved) {
    tab.EnterMode(EditorMode::Input);
    tab.grdVernacular.AddDataRow({"grampus", "longer than the field", "No", "0", "0", "0"});
    tab.grdVernacular.AddDataRow({"narwhal", "English", "No", "0", "0", "0"});
    SetTaxon(4);
    EXPECT_FALSE(SaveNew(tab));
    EXPECT_EQ(data.Dump("SELECT vernacular_name FROM qb_vernaculars WHERE qb_id = 4"), "narwhal\n");
    const Texts said = Said();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0].substr(0, 7), "Failed ");
}

TEST_F(VernacularCommands, ASaveMakesTheLanguagesStale) {
    tab.OfferLists();
    EXPECT_EQ(ChoicesOf(tab.cboLanguage), "English=0\nFrench=0\n");
    Edit(tab, 3, 7001);
    Enter("ballena", "Spanish");
    tab.cmdVAdd.UserClick();
    SaveChanges(tab);
    tab.RefreshLists();
    EXPECT_TRUE(tab.cboLanguage.ChoicesPending());
    EXPECT_EQ(ChoicesOf(tab.cboLanguage), "English=0\nFrench=0\nSpanish=0\n");
}

}  // namespace
}  // namespace quillon::editor
