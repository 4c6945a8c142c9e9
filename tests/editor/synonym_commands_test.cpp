// The commands of the synonyms tab, and the save of the links.
#include "editor/synonym_tab.h"
#include "tab_fixture.h"

namespace quillon::editor {
namespace {

using Texts = std::vector<std::string>;

class SynonymCommands : public TabTest {
protected:
    SynonymCommands() {
        AddTaxon(2, "unit_name2, usage, tsn", "'beta', 'valid', 100");
        AddTaxon(3, "unit_name2, usage, tsn", "'gamma', 'invalid', 300");
        AddTaxon(4, "unit_name2, usage", "'delta', 'valid'");
        AddTaxon(5, "unit_name2, usage, tsn", "'alpha', 'valid', 500");
        AddTaxon(6, "unit_name2, usage", "'zeta', 'invalid'");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) "
            "VALUES (3, 2, 300, 100)");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn) VALUES (3, 4, 300)");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn_accepted) VALUES (6, 2, 100)");
        tab.Connect(data.state, data.prompter);
        tab.cboSSciName.OnTakeFocus([this] { focus += "focus;"; });
        data.state.gPrefRank = "Species";
        tab.OfferLists();
    }
    void EditTaxon(int qb_id, int tsn, const char* usage) {
        data.state.currentTaxon.usage = usage;
        data.state.currentTaxon.rank_name = "Species";
        Edit(tab, qb_id, tsn);
    }
    // Chooses the candidate and adds it.
    void Add(std::string_view candidate) {
        tab.cboSRName.UserSetText(candidate);
        tab.cmdSAdd.UserClick();
    }
    std::string Rows() const { return RowsOf(tab.grdSynonyms); }
    std::string Links() {
        return data.Dump(
            "SELECT qb_id, qb_id_accepted, tsn, tsn_accepted FROM qb_synonym_links "
            "ORDER BY qb_id, qb_id_accepted");
    }

    SynonymTab tab{form};
    std::string focus;
    const std::string both = "Orca beta||2|100|A\nOrca delta||4||A\n";
};

TEST_F(SynonymCommands, AreForNamesThatAreNotAccepted) {
    EXPECT_FALSE(tab.cmdSAdd.Enabled() || tab.cmdSDelete.Enabled());
    EditTaxon(3, 300, "invalid");
    EXPECT_TRUE(tab.cmdSAdd.Enabled() && tab.cmdSDelete.Enabled());
    EditTaxon(2, 100, "valid");
    EXPECT_FALSE(tab.cmdSAdd.Enabled() || tab.cmdSDelete.Enabled());
}

TEST_F(SynonymCommands, TheChosenCandidateIsAddedWithItsTsn) {
    EditTaxon(3, 300, "invalid");
    Add("Orca alpha");
    EXPECT_EQ(Rows(), both + "Orca alpha||5|500|A\n||||\n");
    EXPECT_EQ(tab.grdSynonyms.SelectedRow(), 2);
    EXPECT_EQ(tab.cboSSciName.Text(), "Orca alpha");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Said(), Texts());
}

TEST_F(SynonymCommands, ANameThatIsThereIsPutInItsPlaceAgain) {
    EditTaxon(3, 300, "invalid");
    tab.grdSynonyms.SetCell(0, SynonymColumn::kName, "Orca beta (old)");
    Add("Orca beta");
    EXPECT_EQ(Rows(), both + "||||\n");
    EXPECT_EQ(tab.grdSynonyms.SelectedRow(), 0);
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(SynonymCommands, ANameIsRequired) {
    EditTaxon(3, 300, "invalid");
    tab.cmdSAdd.UserClick();
    EXPECT_EQ(Said(), Texts{"A Scientific Name is required!"});
    EXPECT_EQ(focus, "focus;");
    tab.cboSSciName.UserSetText("a text that is no name");
    tab.cmdSAdd.UserClick();
    EXPECT_EQ(Said(), Texts{"A Scientific Name is required!"});
    EXPECT_EQ(Rows(), both + "||||\n");
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(SynonymCommands, DeleteTakesTheSelectedRow) {
    EditTaxon(3, 300, "invalid");
    tab.cmdSDelete.UserClick();
    EXPECT_EQ(Said(), Texts{"You must select the value to delete."});
    EXPECT_FALSE(data.state.RecordDirty);
    tab.grdSynonyms.UserSelectRow(2);
    tab.cmdSDelete.UserClick();
    EXPECT_EQ(Rows(), both + "||||\n") << "the empty row";
    EXPECT_TRUE(data.state.RecordDirty);
    tab.grdSynonyms.UserSelectRow(0);
    tab.cmdSDelete.UserClick();
    EXPECT_EQ(Rows(), "Orca delta||4||A\n||||\n");
    EXPECT_EQ(tab.cboSSciName.Text(), "Orca delta");
    tab.cmdSDelete.UserClick();
    EXPECT_EQ(Rows(), "||||\n");
    EXPECT_EQ(tab.cboSSciName.Text(), "");
    EXPECT_EQ(Said(), Texts());
}

TEST_F(SynonymCommands, AnotherUsageEmptiesTheGrid) {
    EditTaxon(2, 100, "valid");
    tab.UsageChosen(true);
    EXPECT_EQ(Rows(), "||||\n");
    EXPECT_EQ(tab.lblSynonyms.Caption() + ", " + tab.lblSRName.Caption(), "Valid Names, Valid Name");
    EXPECT_TRUE(tab.cmdSAdd.Enabled() && tab.cboSRName.Enabled());
    Add("Orca alpha");
    EXPECT_EQ(Rows(), "Orca alpha||5|500|A\n||||\n");
    data.state.currentTaxon.usage = "invalid";
    tab.UsageChosen(false);
    EXPECT_EQ(Rows(), "||||\n");
    EXPECT_EQ(tab.lblSynonyms.Caption(), "Synonyms");
    EXPECT_EQ(tab.cboSSciName.Text(), "");
    EXPECT_FALSE(tab.cmdSAdd.Enabled() || tab.cboSRName.Enabled());
}

TEST_F(SynonymCommands, ASaveRewritesTheLinksAndLeavesTombstones) {
    EditTaxon(3, 300, "invalid");
    tab.grdSynonyms.UserSelectRow(0);
    tab.cmdSDelete.UserClick();
    Add("Orca alpha");
    SaveChanges(tab);
    EXPECT_EQ(Links(), "3\t4\t300\t\\N\n3\t5\t300\t500\n6\t2\t\\N\t100\n");
    EXPECT_EQ(Tombstones(), "synonym_links\t300\t100\t\\N\t\\N\n");
    EditTaxon(3, 300, "invalid");
    Add("Orca beta");
    SaveChanges(tab);
    EXPECT_EQ(Links(), "3\t2\t300\t100\n3\t4\t300\t\\N\n3\t5\t300\t500\n6\t2\t\\N\t100\n");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(SynonymCommands, ANameWithoutRowsKeepsNoLink) {
    EditTaxon(6, 0, "invalid");
    tab.grdSynonyms.UserSelectRow(0);
    tab.cmdSDelete.UserClick();
    SaveChanges(tab);
    EXPECT_EQ(Links(), "3\t2\t300\t100\n3\t4\t300\t\\N\n");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(SynonymCommands, SynonymsAreNeverWritten) {
    EditTaxon(2, 100, "valid");
    EXPECT_EQ(Rows(), "Orca gamma||3||S\nOrca zeta||6||S\n||||\n");
    SaveChanges(tab);
    EXPECT_EQ(Links(), "3\t2\t300\t100\n3\t4\t300\t\\N\n6\t2\t\\N\t100\n");
}

TEST_F(SynonymCommands, ANewRecordKeepsAcceptedNamesButNoSynonyms) {
    EditTaxon(2, 100, "valid");
    SetTaxon(0);
    tab.EnterMode(EditorMode::Input);
    EXPECT_EQ(Rows(), "||||\n");
    EditTaxon(3, 300, "invalid");
    SetTaxon(0);
    tab.EnterMode(EditorMode::Input);
    EXPECT_EQ(Rows(), both + "||||\n");
    EXPECT_FALSE(SaveNew(tab)) << "a taxon that was not stored";
    SetTaxon(8);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(data.Dump("SELECT qb_id_accepted, tsn, tsn_accepted FROM qb_synonym_links WHERE qb_id = 8"),
              "2\t\\N\t100\n4\t\\N\t\\N\n");
}

TEST_F(SynonymCommands, AFailedLinkEndsTheSave) {
    SetTaxon(6);
    tab.ReplaceAccepted(0, nullptr);
    for (const int qb_id : {4, 2, 5}) {
        const SynonymTab::Accepted name{qb_id, 0, "name"};
        tab.ReplaceAccepted(0, &name);
    }
    EXPECT_FALSE(SaveNew(tab));
    EXPECT_EQ(
        data.Dump("SELECT qb_id_accepted FROM qb_synonym_links WHERE qb_id = 6 ORDER BY qb_id_accepted"),
        "2\n4\n")
        << "the link to 2 is there already";
    const Texts said = Said();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0].substr(0, 7), "Failed ");
}

TEST_F(SynonymCommands, ASaveReadsNoCandidates) {
    EditTaxon(3, 300, "invalid");
    EXPECT_TRUE(tab.cboSRName.ChoicesPending());
    tab.RefreshLists();
    EXPECT_TRUE(tab.cboSRName.ChoicesPending());
}

}  // namespace
}  // namespace quillon::editor
