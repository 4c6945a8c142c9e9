// The file commands of the main form: what another DataSet, a refused one and an import leave on the form.
#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

constexpr const char* kQuestion =
    "A new or modified record was not saved.  Continuing will lose that record!  Continue?";

class RecViewFiles : public RecViewFixture {};

TEST_F(RecViewFiles, AfterACopyAnotherStartHasCutAndCopyAgain) {
    Make();
    const auto copyAnd = [this](ButtonControl& command) {
        explorer.NodeClick(Node(3));
        form.mnuCopy.UserClick();
        EXPECT_EQ(Disabled(), "cut copy paste undo moveprev movenext addnew");
        command.UserClick();
        return Disabled();
    };
    recView.ImportCommand = [] { return ImportEnd::Done; };
    EXPECT_EQ(copyAnd(form.mnuFImport), "paste undo");
    const std::string first = data.state.gDataSetPath;
    data.prompter.filesToSave.push_back(data.dir.File("second.mdb"));
    EXPECT_EQ(copyAnd(form.mnuFNew), "paste undo moveprev") << "the explorer begins at its first name";
    data.prompter.filesToOpen = {first, first};
    form.mnuFOpen.UserClick();
    EXPECT_EQ(copyAnd(form.mnuFOpen), "paste undo moveprev");
}

TEST_F(RecViewFiles, AStartThatFailsIsReported) {
    Make();
    data.db().DeleteQueryDef("Get Kingdom Index");
    recView.ShowDataSet();
    ASSERT_EQ(data.prompter.messages.size(), 1u);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
}

TEST_F(RecViewFiles, ARecordGivenUpForARefusedFileIsLoadedAgain) {
    Make();
    const std::string refused = data.dir.File("refused.mdb");
    testkit::WriteFile(refused, "no DataSet");
    Select(2);
    tab.txtName1.UserSetText("Orka");
    data.prompter.yesNo = {true, true, true};
    data.prompter.filesToOpen = {std::nullopt, refused, refused};
    form.mnuFOpen.UserClick();
    EXPECT_EQ(tab.txtName1.Text(), "Orka") << "no file was chosen";
    EXPECT_TRUE(data.state.RecordDirty);
    form.mnuFOpen.UserClick();
    EXPECT_EQ(tab.txtName1.Text(), "Orca");
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    form.mnuAdd.UserClick();
    tab.txtName1.UserSetText("Orka");
    form.mnuFOpen.UserClick();
    EXPECT_EQ(tab.txtName1.Text(), "") << "a new record has nothing to be loaded";
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(Panels(), "|TAXA: 6|INPUT");
    EXPECT_EQ(data.prompter.questions, Messages(3, kQuestion));
}

TEST_F(RecViewFiles, ARefusedFileLeavesAnUnchangedRecordOnTheForm) {
    Make();
    const std::string refused = data.dir.File("refused.mdb");
    testkit::WriteFile(refused, "no DataSet");
    Select(2);
    form.comments.txtComment.UserSetText("not added yet");
    data.prompter.filesToOpen = {refused};
    form.mnuFOpen.UserClick();
    EXPECT_EQ(form.comments.txtComment.Text(), "not added yet");
    EXPECT_EQ(events, "reopened;");
}

TEST_F(RecViewFiles, SaveAsReportsThatTheDataSetWasReopened) {
    Make();
    data.prompter.filesToSave.push_back(data.dir.File("copy.mdb"));
    form.mnuFSaveAs.UserClick();
    EXPECT_EQ(events, "reopened;");
    Select(3);
    EXPECT_EQ(tab.cboRank.Text(), "Species");
    EXPECT_EQ(Texts(tab.cboAuth), "Brown|Gray, 1846");
}

TEST_F(RecViewFiles, OpenAndNewShowTheOtherDataSet) {
    Make();
    const std::string first = data.state.gDataSetPath;
    Select(3);
    data.prompter.filesToSave.push_back(data.dir.File("second.mdb"));
    form.mnuFNew.UserClick();
    EXPECT_EQ(events, "rebuild;");
    EXPECT_EQ(Panels(), "|TAXA: 1|INPUT");
    EXPECT_EQ(tab.cboName1.Text() + tab.txtName2.Text() + tab.cboParentName.Text(), "");
    data.prompter.filesToOpen.push_back(first);
    form.mnuFOpen.UserClick();
    EXPECT_EQ(events, "rebuild;rebuild;");
    EXPECT_EQ(Panels(), "|TAXA: 6|INPUT");
    data.prompter.filesToOpen.push_back(std::nullopt);
    form.mnuFOpen.UserClick();
    EXPECT_EQ(events, "rebuild;rebuild;");
}

TEST_F(RecViewFiles, AnImportRebuildsAndACanceledOneLeavesTheRecord) {
    Make();
    Select(3);
    recView.ImportCommand = [] { return ImportEnd::NotStarted; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    recView.ImportCommand = [] { return ImportEnd::Canceled; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    recView.ImportCommand = [] { return ImportEnd::Done; };
    form.mnuFImport.UserClick();
    EXPECT_EQ(events, "rebuild;");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
}

TEST_F(RecViewFiles, QuitClosesTheDataSetAndTheForm) {
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

}  // namespace
}  // namespace quillon::editor
