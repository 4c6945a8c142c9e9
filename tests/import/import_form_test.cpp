// FrmImport, FrmIError and the command that shows them.
#include "import/import_form.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "import/import_error_form.h"
#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ImportForm : public ImportTest {
protected:
    // Shows the form and presses cmdOK; the file dialog gives `text` as a file.
    void Press(std::string_view text) {
        testkit::WriteFile(set.dir.File("in.qln"), text);
        set.prompter.filesToOpen.push_back(set.dir.File("in.qln"));
        FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
        form.form.OnClosed([this] { ++closed; });
        form.cmdOK.UserClick();
        lastGauge = form.Gauge1.Value();
    }
    int closed = 0;
    int lastGauge = -1;
};

TEST_F(ImportForm, LoadsWithTheTaggedFormatChosen) {
    set.state.gBatchRunning = true;
    set.state.gBatchCancel = true;
    const FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    EXPECT_EQ(form.form.Title(), "Import Data File");
    EXPECT_TRUE(form.OptORVA.Value());
    EXPECT_FALSE(form.OptAscii.Enabled());
    EXPECT_FALSE(form.cboDelimiter.Enabled());
    EXPECT_FALSE(form.cboEnclosure.Enabled());
    EXPECT_EQ(form.cboDelimiter.Text(), ",");
    EXPECT_EQ(form.cboDelimiter.ListCount(), 14U);
    EXPECT_EQ(form.cboEnclosure.Text(), "\"");
    EXPECT_EQ(form.cboEnclosure.ListCount(), 3U);
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.state.gBatchCancel);
}

TEST_F(ImportForm, ShowsItsCaptions) {
    const FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    EXPECT_EQ(form.lblImport.Caption(), "Import a File into the Quillon");
    EXPECT_EQ(form.fraFormat.Caption(), "Import Format");
    EXPECT_EQ(form.OptAscii.Caption(), "Standard ORVA Import Format");
    EXPECT_EQ(form.OptORVA.Caption(), "ORVA Online (Download from Online System) Format");
    EXPECT_EQ(form.lblDelimiter.Caption(), "Delimiter");
    EXPECT_EQ(form.lblEnclosure.Caption(), "Enclosure");
    EXPECT_EQ(form.cmdCancel.Caption(), "Ca&ncel");
}

TEST_F(ImportForm, TheSymbolsBelongToTheDelimitedFormat) {
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.OptAscii.SetEnabled(true);
    form.OptAscii.UserChoose();
    EXPECT_TRUE(form.cboDelimiter.Enabled());
    EXPECT_TRUE(form.cboEnclosure.Enabled());
    form.OptORVA.UserChoose();
    EXPECT_FALSE(form.cboDelimiter.Enabled());
    EXPECT_FALSE(form.cboEnclosure.Enabled());
}

TEST_F(ImportForm, AsksForAFormat) {
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.OptORVA.SetValue(false);
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.messages, ElementsAre("An Import Format must be selected!"));
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(ImportForm, AnotherStartDoesNothingWhileARunIsActive) {
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    set.state.gBatchRunning = true;
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.fileTitles, IsEmpty());
}

TEST_F(ImportForm, ACanceledFileDialogLeavesTheFormOpen) {
    set.prompter.filesToOpen.push_back(std::nullopt);
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.form.OnClosed([this] { ++closed; });
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.fileTitles, ElementsAre("Open Internal Format Data File"));
    EXPECT_THAT(set.prompter.fileFilters,
                ElementsAre("QLN Files (*.qln)|*.qln|QLN Files (*.exp)|*.exp|Text Files (*.txt)|*.txt|"
                            "Data Files (*.dat)|*.dat|Download Files (*.bin)|*.bin|All Files (*.*)|*.*"));
    EXPECT_EQ(closed, 0);
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(ImportForm, AMissingFileLeavesTheFormOpen) {
    set.prompter.filesToOpen.push_back(set.dir.File("none.qln"));
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.form.OnClosed([this] { ++closed; });
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.messages, ElementsAre("File " + set.dir.File("none.qln") + " not found!"));
    EXPECT_EQ(closed, 0);
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(ImportForm, ReportsACompleteImportAndCloses) {
    Press("");
    EXPECT_THAT(set.prompter.messages, ElementsAre("Import Complete -- No Errors!"));
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(lastGauge, 100);
    EXPECT_FALSE(set.state.gDataSetIsNew);
}

TEST_F(ImportForm, OffersTheLogWhenThereAreFindings) {
    set.prompter.yesNo = {true};
    Press("[XX]\r\n");
    EXPECT_THAT(set.prompter.questions, ElementsAre("Import Complete -- Errors Occurred.  View error Log?"));
    EXPECT_THAT(set.prompter.titles, ElementsAre("Import Complete"));
    EXPECT_THAT(set.prompter.forms, ElementsAre("FrmIError"));
    EXPECT_EQ(closed, 1);
}

TEST_F(ImportForm, DoesNotShowTheLogOnNo) {
    set.prompter.yesNo = {false};
    Press("[XX]\r\n");
    EXPECT_THAT(set.prompter.forms, IsEmpty());
    EXPECT_EQ(closed, 1);
}

TEST_F(ImportForm, OffersTheLogWhenTheFileCannotBeRead) {
    set.prompter.yesNo = {true};
    set.prompter.filesToOpen.push_back(set.dir.path());
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.form.OnClosed([this] { ++closed; });
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.questions, ElementsAre("Import Not Completed -- Errors.  View error Log?"));
    EXPECT_THAT(set.prompter.forms, ElementsAre("FrmIError"));
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(set.state.gDataSetIsNew);
}

TEST_F(ImportForm, CancelEndsTheRunAndTheFormClosesOnce) {
    testkit::WriteFile(set.dir.File("in.qln"), "[TA]|70|Linnaeus|5|\r\n[TA]|71|Gray|5|\r\n");
    set.prompter.filesToOpen.push_back(set.dir.File("in.qln"));
    std::function<void()> pressCancel;
    testkit::ActingPump events([&](int) { pressCancel(); });
    FrmImport form(set.state, set.engine, set.prompter, events, set.dir.path());
    pressCancel = [&] { form.cmdCancel.UserClick(); };
    form.form.OnClosed([this] { ++closed; });
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.messages, ElementsAre("Import Canceled!"));
    EXPECT_EQ(closed, 1);
}

TEST_F(ImportForm, FailuresAreListedAndTheFormStaysUntilItIsClosed) {
    testkit::WriteFile(set.dir.File("in.qln"),
                       std::string(TaxonLine{.tsn = "100"}) + "\r\n[GD]|Africa|100|\r\n[GD]|Africa|100|\r\n");
    set.prompter.filesToOpen.push_back(set.dir.File("in.qln"));
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.form.OnClosed([this] { ++closed; });
    EXPECT_FALSE(form.lstFailures.Visible());
    form.cmdOK.UserClick();
    EXPECT_THAT(set.prompter.messages, ElementsAre("Import Complete -- Errors Occurred."));
    EXPECT_EQ(form.lstFailures.ListCount(), 1U);
    EXPECT_TRUE(form.lstFailures.Visible());
    EXPECT_FALSE(form.cmdOK.Enabled());
    EXPECT_EQ(closed, 0);
    form.cmdCancel.UserClick();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(set.state.gBatchCancel);
}

TEST_F(ImportForm, CancelWithoutARunCloses) {
    FrmImport form(set.state, set.engine, set.prompter, pump, set.dir.path());
    form.form.OnClosed([this] { ++closed; });
    form.cmdCancel.UserClick();
    EXPECT_TRUE(set.state.gBatchCancel);
    EXPECT_EQ(closed, 1);
    form.form.UserClose();
    EXPECT_EQ(closed, 2);
}

class ImportCommands : public ImportTest {};

TEST_F(ImportCommands, NeedsAnOpenDataSet) {
    set.lifecycle.CloseDataSet();
    EXPECT_EQ(ImportCommand(set.state, set.prompter), ImportOutcome::NotStarted);
    EXPECT_THAT(set.prompter.messages, ElementsAre("A DataSet must be open to import data!"));
}

TEST_F(ImportCommands, AsksNothingForANewDataSet) {
    set.state.gDataSetIsNew = true;
    EXPECT_EQ(ImportCommand(set.state, set.prompter), ImportOutcome::Done);
    EXPECT_THAT(set.prompter.forms, ElementsAre("FrmImport"));
}

TEST_F(ImportCommands, AsksBeforeItAddsToADataSet) {
    set.state.gDataSetIsNew = false;
    set.prompter.yesNo = {false, true};
    EXPECT_EQ(ImportCommand(set.state, set.prompter), ImportOutcome::NotStarted);
    EXPECT_THAT(set.prompter.forms, IsEmpty());
    EXPECT_EQ(ImportCommand(set.state, set.prompter), ImportOutcome::Done);
    EXPECT_EQ(set.prompter.questions[0],
              "You will be importing into a non-empty DataSet.\r"
              "If the imported data contains a Kingdom record,\r"
              "the existing Kingdom record will be deleted \r"
              "from the DataSet. Continue?");
    EXPECT_EQ(set.prompter.titles[0], "Importing into existing DataSet");
}

TEST_F(ImportCommands, AsksAboutAnUnsavedRecordBeforeTheFormIsShown) {
    set.state.gDataSetIsNew = true;
    const auto askAndAnswer = [this](bool stays) {
        return ImportCommand(set.state, set.prompter, [this, stays] {
            EXPECT_THAT(set.prompter.forms, IsEmpty());
            return stays;
        });
    };
    EXPECT_EQ(askAndAnswer(true), ImportOutcome::NotStarted);
    EXPECT_THAT(set.prompter.forms, IsEmpty());
    EXPECT_EQ(askAndAnswer(false), ImportOutcome::Done);
    EXPECT_THAT(set.prompter.forms, ElementsAre("FrmImport"));
}

TEST_F(ImportCommands, ReportsACanceledImport) {
    set.state.gDataSetIsNew = true;
    set.state.gBatchCancel = true;  // as the form leaves it
    EXPECT_EQ(ImportCommand(set.state, set.prompter), ImportOutcome::Canceled);
}

class ErrorLogForm : public ::testing::Test {
protected:
    void SetUp() override { testkit::WriteFile(Log(), "A finding\r\n     [XX]\r\n"); }
    std::string Log() const { return dir.File("import.err"); }

    testkit::TempDir dir;
    ApplicationState state;
    testkit::ScriptedPrompter prompter;
};

TEST_F(ErrorLogForm, ShowsTheWholeLog) {
    FrmIError form(state, prompter, dir.path());
    EXPECT_EQ(form.form.Title(), "Import Error Log");
    EXPECT_EQ(form.txtError.Text(), "A finding\r\n     [XX]\r\n");
    EXPECT_FALSE(form.txtError.UserSetText("changed"));
    EXPECT_EQ(form.cmdSave.Caption(), "&Save Log As...");
    EXPECT_EQ(form.cmdOK.Caption(), "E&xit");
}

TEST_F(ErrorLogForm, MovesTheLogToTheChosenName) {
    prompter.filesToSave = {dir.File("findings")};
    FrmIError form(state, prompter, dir.path());
    form.cmdSave.UserClick();
    EXPECT_THAT(prompter.fileTitles, ElementsAre("Save Error Log As"));
    EXPECT_THAT(prompter.fileFilters, ElementsAre("Taxonomic Files (*.LOG)|*.log|All Files (*.*)|*.*"));
    EXPECT_EQ(testkit::ReadFile(dir.File("findings.LOG")), "A finding\r\n     [XX]\r\n");
    EXPECT_FALSE(std::filesystem::exists(Log()));
}

TEST_F(ErrorLogForm, KeepsANameWithAFullStop) {
    prompter.filesToSave = {dir.File("findings.txt")};
    FrmIError form(state, prompter, dir.path());
    form.cmdSave.UserClick();
    EXPECT_TRUE(std::filesystem::exists(dir.File("findings.txt")));
}

TEST_F(ErrorLogForm, ACanceledSaveChangesNothing) {
    prompter.filesToSave = {std::nullopt};
    FrmIError form(state, prompter, dir.path());
    form.cmdSave.UserClick();
    EXPECT_TRUE(std::filesystem::exists(Log()));
}

TEST_F(ErrorLogForm, AFailedSaveIsReportedAndKeepsTheLog) {
    prompter.filesToSave = {dir.File("no such folder/findings.txt")};
    FrmIError form(state, prompter, dir.path());
    form.cmdSave.UserClick();
    ASSERT_EQ(prompter.messages.size(), 1U);
    EXPECT_EQ(prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_TRUE(std::filesystem::exists(Log()));
}

TEST_F(ErrorLogForm, ClosingDeletesTheLog) {
    for (const bool byButton : {true, false}) {
        testkit::WriteFile(Log(), "A finding\r\n");
        FrmIError form(state, prompter, dir.path());
        int closed = 0;
        form.form.OnClosed([&closed] { ++closed; });
        if (byButton)
            form.cmdOK.UserClick();
        else
            form.form.UserClose();
        EXPECT_EQ(closed, 1);
        EXPECT_FALSE(std::filesystem::exists(Log()));
    }
}

}  // namespace
}  // namespace quillon::importing
