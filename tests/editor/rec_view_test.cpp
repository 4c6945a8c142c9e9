// The rules of the main form, without its window.
#include "editor/rec_view.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"

namespace quillon::editor {
namespace {

// Writes down what the progress dialog is told.
class Progress : public ProgressDialog {
public:
    std::string told;
    void NewTask(std::string_view caption) override { told += "task " + std::string(caption) + ";"; }
    void SetStatus(std::string_view status) override { told += "status " + std::string(status) + ";"; }
    void SetMin(int) override {}
    void SetMax(int) override {}
    void UpdateValue(int) override {}
    void Increment(int) override {}
    void EndTask() override { told += "end;"; }
};

class RecViewRules : public testing::Test {
protected:
    RecViewRules() {
        recView.RebuildExplorer = [this] { events += "rebuild;"; };
        recView.DataSetReopened = [this] { events += "reopened;"; };
        recView.ReselectLater = [this](int id) { events += "reselect " + std::to_string(id) + ";"; };
    }
    void Make() {
        data.Make("Animalia");
        data.db().Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (1, 'Gray')");
        data.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, unit_name2, usage, rank_id, "
            "parent_qb_id, qb_taxon_author_id, kingdom_id) "
            "VALUES (2, 'Orca', 'alpha', 'valid', 220, 1, 1, 5)");
        recView.ShowDataSet();
        events.clear();
    }
    std::string Fields() const {
        return form.txtSciName.Text() + "|" + form.txtRank.Text() + "|" + form.txtAuthor.Text() + "|" +
               form.txtUsage.Text() + "|" + form.txtParent.Text();
    }
    std::string Panels() const {
        return form.name.Caption() + "|" + form.taxa.Caption() + "|" + form.mode.Caption();
    }

    testkit::DataSetFixture data;
    Progress progress;
    RecView recView{data.state, data.prompter, progress, data.lifecycle};
    RecViewForm& form = recView.Controls();
    std::string events;
};

TEST_F(RecViewRules, BeginsWithoutADataSet) {
    EXPECT_EQ(form.form.Title(), "Taxonomic Quillon - No Open DataSet");
    EXPECT_EQ(Panels(), "||");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_TRUE(form.hierarchy.Value());
    form.mnuFSaveAs.UserClick();
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>{"No DataSet is Open"});
}

TEST_F(RecViewRules, ANewDataSetIsReadyForInput) {
    Make();
    EXPECT_EQ(form.form.Title(), "Taxonomic Quillon - " + data.state.gDataSetPath);
    EXPECT_EQ(Panels(), "|TAXA: 2|INPUT");
    EXPECT_EQ(Fields(), "||||");
    EXPECT_EQ(progress.told, "task Loading Taxon Data;status Loading...;end;");
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(RecViewRules, AnItemShowsItsRecord) {
    Make();
    recView.SelectExplorerItem({2, 0, 0}, true);
    EXPECT_EQ(Fields(), "Orca alpha|Species|Gray|valid|Animalia  ");
    EXPECT_EQ(Panels(), "Orca alpha|TAXA: 2|EDIT");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save Changes");
    EXPECT_TRUE(form.RVPanel4.Enabled());
    EXPECT_EQ(data.state.currentTaxon.parent_rank_name, "Kingdom");
}

TEST_F(RecViewRules, TheSameItemIsNotLoadedAgain) {
    Make();
    recView.SelectExplorerItem({2, 0, 0}, true);
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'invalid' WHERE qb_id = 2");
    recView.SelectExplorerItem({2, 0, 0}, true);
    EXPECT_EQ(form.txtUsage.Text(), "valid");
}

TEST_F(RecViewRules, AnUnsavedRecordMayBeKept) {
    Make();
    recView.SelectExplorerItem({2, 0, 0}, true);
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    recView.SelectExplorerItem({1, 1, 1}, true);
    EXPECT_EQ(events, "reselect 2;");
    EXPECT_EQ(data.state.currentTaxon.qb_id, 2);
    EXPECT_TRUE(data.state.RecordDirty);
    data.prompter.yesNo = {true};
    recView.SelectExplorerItem({1, 1, 1}, true);
    EXPECT_EQ(data.state.currentTaxon.qb_id, 1);
    EXPECT_FALSE(data.state.RecordDirty);
    data.state.RecordDirty = true;
    recView.SelectExplorerItem({2, 0, 0}, false);
    EXPECT_EQ(data.state.currentTaxon.qb_id, 2);
}

TEST_F(RecViewRules, ATaxonThatIsGoneIsTold) {
    Make();
    recView.SelectExplorerItem({77, 0, 0}, true);
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>{"Not Found, qb_id: 77"});
}

TEST_F(RecViewRules, AMissingAuthorIsToldAndTheRestIsShown) {
    Make();
    data.db().Execute("DELETE * FROM qb_taxon_authors_lookup");
    recView.SelectExplorerItem({2, 0, 0}, true);
    EXPECT_EQ(data.prompter.messages,
              std::vector<std::string>{"No Author name in dataset for author id '1'!"});
    EXPECT_EQ(Fields(), "Orca alpha|Species||valid|Animalia  ");
}

TEST_F(RecViewRules, APanelThatDoesNotExistIsIgnored) {
    recView.StatusPanelSet("children", "CHILDREN: 5");
    recView.StatusPanelSet("rank", "RANK: Genus");
    EXPECT_EQ(Panels(), "||");
    recView.StatusPanelSet("mode", "EDIT");
    EXPECT_EQ(Panels(), "||EDIT");
}

TEST_F(RecViewRules, TheDistributionIsForSpeciesAndBelow) {
    Make();
    form.TabStrip1.UserSelect(4);
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    recView.SelectExplorerItem({2, 0, 0}, true);
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    recView.SelectExplorerItem({1, 0, 0}, true);
    EXPECT_EQ(data.prompter.messages.size(), 2u);
    form.TabStrip1.UserSelect(4);
    EXPECT_EQ(data.prompter.messages.size(), 2u) << "a click on the tab that is shown";
    form.TabStrip1.UserSelect(3);
    EXPECT_EQ(data.prompter.messages.size(), 2u);
}

TEST_F(RecViewRules, AnImportRebuildsUnlessItWasCanceled) {
    Make();
    recView.SelectExplorerItem({2, 0, 0}, true);
    recView.ImportCommand = [] { return ImportEnd::NotStarted; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    recView.ImportCommand = [] { return ImportEnd::Canceled; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
    recView.ImportCommand = [] { return ImportEnd::Done; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "rebuild;");
}

TEST_F(RecViewRules, SaveAsTellsThatTheDataSetWasReopened) {
    Make();
    data.prompter.filesToSave.push_back(data.dir.File("copy.mdb"));
    form.mnuFSaveAs.UserClick();
    EXPECT_EQ(events, "reopened;");
    recView.SelectExplorerItem({2, 0, 0}, true);
    EXPECT_EQ(form.txtRank.Text(), "Species");
}

TEST_F(RecViewRules, OpenAndNewShowTheOtherDataSet) {
    Make();
    const std::string first = data.state.gDataSetPath;
    data.prompter.filesToSave.push_back(data.dir.File("second.mdb"));
    form.mnuFNew.UserClick();
    EXPECT_EQ(events, "rebuild;");
    EXPECT_EQ(Panels(), "|TAXA: 1|INPUT");
    data.prompter.filesToOpen.push_back(first);
    form.mnuFOpen.UserClick();
    EXPECT_EQ(events, "rebuild;rebuild;");
    EXPECT_EQ(Panels(), "|TAXA: 2|INPUT");
    data.prompter.filesToOpen.push_back(std::nullopt);
    form.mnuFOpen.UserClick();
    EXPECT_EQ(events, "rebuild;rebuild;");
}

TEST_F(RecViewRules, QuitClosesTheDataSetAndTheForm) {
    Make();
    int closed = 0;
    form.form.OnClosed([&] { ++closed; });
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    form.mnuFQuit.UserClick();
    EXPECT_EQ(closed, 0);
    EXPECT_TRUE(data.state.gDataSetOpen);
    data.prompter.yesNo = {true};
    form.form.UserClose();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(data.state.gDataSetOpen);
}

TEST_F(RecViewRules, HelpAboutShowsItsBox) {
    form.mnuHAbout.UserClick();
    EXPECT_EQ(data.prompter.forms, std::vector<std::string>{"FrmAbout"});
    FrmAbout about("4.0.6");
    EXPECT_EQ(about.lblVersion.Caption(), "Taxonomic Quillon Version 4.0.6 (SR6)");
}

}  // namespace
}  // namespace quillon::editor
