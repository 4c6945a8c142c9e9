#include "export/export_form.h"

#include <filesystem>
#include <optional>

#include "export_fixture.h"

namespace quillon::exporting {
namespace {

using Texts = std::vector<std::string>;

class ExportForm : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        AddTaxon(2, "Alpha");
        form.emplace(set.state, set.engine, set.prompter, pump, clock, set.dir.path(), marks);
        form->Gauge1.Observe([this] { gauges.push_back(form->Gauge1.Value()); });
        form->form.OnClosed([this] { ++closed; });
    }

    std::optional<FrmNExport> form;
    validation::FindingMarks marks;
    std::vector<int> gauges;
    int closed = 0;
};

TEST_F(ExportForm, ShowsTheOpenDataSetAndItsFile) {
    EXPECT_EQ(form->form.Title(), "Export DataSet");
    EXPECT_EQ(form->lblDataSet.Caption(), "Export DataSet: " + set.dir.File("test.mdb"));
    EXPECT_EQ(form->lblFile.Caption(), "To File: " + set.dir.File("test.qln"));
    EXPECT_TRUE(form->OptDataSet.Value());
    EXPECT_TRUE(form->optNoFilter.Value());
    EXPECT_EQ(form->cboFields.Text(), "taxonomic_credibility_rating");
    EXPECT_EQ(form->cboOperators.Text(), "=");
    EXPECT_EQ(form->cboValues.Text(), "KSP Standards Met");
}

TEST_F(ExportForm, HasItsCaptions) {
    const std::vector<std::pair<std::string, std::string>> captions = {
        {"cmdSelectDB", "Browse"},
        {"cmdExportFile", "New File"},
        {"FraExport", "Export Options"},
        {"OptDataSet", "DataSet"},
        {"OptOnline", "For Online System"},
        {"OptPartial", "Partial (Name, Authority, Rank)"},
        {"fraPartial", "Partial Export Options"},
        {"optAuthority", "Name and Authority"},
        {"optRank", "Name, Authority and Rank"},
        {"fraFilter", "Filter Export Records"},
        {"optNoFilter", "No Filter"},
        {"optModified", "Export only Changed and New Records"},
        {"optColumn", "Filter Export by:"}};
    for (const auto& [name, caption] : captions) {
        ASSERT_NE(form->form.Find(name), nullptr) << name;
        EXPECT_EQ(form->form.Find(name)->Caption(), caption);
    }
}

TEST_F(ExportForm, OnlyPartialEnablesItsTypesAndOnlyColumnItsBoxes) {
    EXPECT_FALSE(form->fraPartial.Enabled());
    EXPECT_FALSE(form->optRank.UserChoose());
    EXPECT_TRUE(form->OptPartial.UserChoose());
    EXPECT_TRUE(form->fraPartial.Enabled());
    EXPECT_TRUE(form->optRank.UserChoose());
    EXPECT_TRUE(form->OptOnline.UserChoose());
    EXPECT_FALSE(form->optRank.Enabled());
    EXPECT_FALSE(form->cboFields.Enabled());
    EXPECT_TRUE(form->optColumn.UserChoose());
    EXPECT_TRUE(form->cboFields.Enabled() && form->cboOperators.Enabled() && form->cboValues.Enabled());
    EXPECT_TRUE(form->optModified.UserChoose());
    EXPECT_FALSE(form->cboValues.Enabled());
}

TEST_F(ExportForm, FilterFollowsTheOptions) {
    EXPECT_EQ(form->Filter(), "none");
    form->optModified.UserChoose();
    EXPECT_EQ(form->Filter(), "journal");
    form->optColumn.UserChoose();
    EXPECT_EQ(form->Filter(), " WHERE taxonomic_credibility_rating = \"KSP Standards Met\"");
    form->cboFields.UserSetText("unit_name1");
    form->cboOperators.UserSetText("Like");
    form->cboValues.UserSetText("A *");
    EXPECT_EQ(form->Filter(), " WHERE unit_name1 Like \"A *\"");
}

TEST_F(ExportForm, AsksForDataSetAndFile) {
    set.prompter.filesToOpen = {std::nullopt, "/data/other.mdb"};
    set.prompter.filesToSave = {std::nullopt, "/data.d/file", "/data/file.txt"};
    set.prompter.filesOffered.clear();
    form->cmdSelectDB.UserClick();
    EXPECT_EQ(set.state.gExportPath, set.state.gDataSetPath);
    form->cmdSelectDB.UserClick();
    EXPECT_EQ(form->lblDataSet.Caption(), "Export DataSet: /data/other.mdb");
    EXPECT_EQ(form->OfferedFile(), "/data/other.qln");
    form->cmdExportFile.UserClick();
    EXPECT_EQ(set.state.gExportFile, set.dir.File("test.qln"));
    form->cmdExportFile.UserClick();
    EXPECT_EQ(form->lblFile.Caption(), "To File: /data.d/file.EXP");
    form->cmdExportFile.UserClick();
    EXPECT_EQ(form->lblFile.Caption(), "To File: /data/file.txt");
    const std::string open = "Access DataSet Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
    const std::string save =
        "QLN File (*.QLN)|*.qln|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files (*.*)|*.*";
    EXPECT_EQ(set.prompter.fileTitles,
              (Texts{"Select DataSet to Export", "Select DataSet to Export", "Save Exported DataSet As",
                     "Save Exported DataSet As", "Save Exported DataSet As"}));
    EXPECT_EQ(set.prompter.fileFilters, (Texts{open, open, save, save, save}));
    EXPECT_EQ(set.prompter.filesOffered, Texts(3, "/data/other.qln"));
}

TEST_F(ExportForm, ExportsTheDataSetAndReportsTheTotal) {
    form->cmdOK.UserClick();
    EXPECT_EQ(testkit::ReadFile(set.dir.File("test.qln")),
              Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1)}));
    EXPECT_EQ(set.prompter.messages, Texts{"A Total of 2 Records were Exported."});
    EXPECT_EQ(gauges, (std::vector<int>{50, 100, 0}));
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.prompter.waitCursor);
    EXPECT_EQ(closed, 0);
}

TEST_F(ExportForm, FindingsOfAnEarlierValidationAreOfferedToo) {
    set.state.gErrorsOccurred = true;
    testkit::WriteFile(set.dir.File("validate.log"), "ID =  2   Name = Alpha\r\n     a currency rating\r\n");
    set.prompter.yesNo = {false, true, true};
    form->cmdOK.UserClick();
    EXPECT_TRUE(set.prompter.forms.empty());
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.forms, Texts{"FrmVError"});
    EXPECT_EQ(set.prompter.questions, (Texts{"A Total of 2 Records were Exported.  View error log?",
                                             set.dir.File("test.qln") + " Exists.  Overwrite?",
                                             "A Total of 2 Records were Exported.  View error log?"}));
    EXPECT_EQ(set.prompter.titles, (Texts{"Export Complete", "", "Export Complete"}));
}

// The error viewer takes the log with it when it is closed.
TEST_F(ExportForm, DeletedLogIsNotOffered) {
    set.state.gErrorsOccurred = true;
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{"A Total of 2 Records were Exported."});
    EXPECT_TRUE(set.prompter.questions.empty());
}

// A validation that met the wrong kingdom has emptied the log, and has found nothing itself.
TEST_F(ExportForm, EmptyLogIsNotOffered) {
    set.state.gErrorsOccurred = true;
    set.state.gKingdomName = "Plantae";
    testkit::WriteFile(set.dir.File("validate.log"), "ID =  2   Name = Alpha\r\n     a currency rating\r\n");
    form->OptOnline.UserChoose();
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, (Texts{"The Kingdom in the Validate Dataset, " + set.state.gExportPath +
                                                ", must match that in the 'Preferences'.",
                                            "A Total of 2 Records were Exported."}));
    EXPECT_TRUE(set.prompter.questions.empty());
}

TEST_F(ExportForm, OnlineRunWithoutALogReportsNoTotal) {
    std::filesystem::create_directory(set.dir.File("validate.log"));
    form->OptOnline.UserChoose();
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{set.dir.File("validate.log") + " is not an ordinary file."});
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("test.qln")));
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_EQ(form->Gauge1.Value(), 0);
}

TEST_F(ExportForm, NoToOverwritingWritesNothingAndAsksForAnotherFile) {
    testkit::WriteFile(set.dir.File("test.qln"), "old");
    set.prompter.yesNo = {false};
    set.prompter.filesToSave = {set.dir.File("new.qln")};
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.questions, Texts{set.dir.File("test.qln") + " Exists.  Overwrite?"});
    EXPECT_EQ(testkit::ReadFile(set.dir.File("test.qln")), "old");
    EXPECT_EQ(testkit::ReadFile(set.dir.File("new.qln")), "");
    EXPECT_EQ(set.state.gExportFile, set.dir.File("new.qln"));
    EXPECT_TRUE(set.prompter.messages.empty());
}

TEST_F(ExportForm, PartialListEndsWithTheCountOfNames) {
    form->OptPartial.UserChoose();
    form->optAuthority.UserChoose();
    form->cmdOK.UserClick();
    EXPECT_EQ(testkit::ReadFile(set.dir.File("test.qln")), Lines({"name|author", "Animalia|", "Alpha|"}));
    EXPECT_EQ(set.prompter.messages, Texts{"2 names were written to " + set.dir.File("test.qln") + "."});
    EXPECT_EQ(form->Gauge1.Value(), 0);
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(ExportForm, CanceledRunSaysSoAndTheNextStartsFresh) {
    pump.cancelAt = TurnsBeforeRows(2) + 2;
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{"Export Canceled!"});
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("test.qln")));
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages.back(), "A Total of 2 Records were Exported.");
}

TEST_F(ExportForm, CanceledPartialListSaysSoAndLeavesTheOldFile) {
    testkit::WriteFile(set.dir.File("test.qln"), "old");
    set.prompter.yesNo = {true};
    form->OptPartial.UserChoose();
    pump.cancelAt = 2;
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{"Export Canceled!"});
    EXPECT_EQ(testkit::ReadFile(set.dir.File("test.qln")), "old");
}

TEST_F(ExportForm, CancelEndsARunAndClosesTheIdleForm) {
    std::function<void()> press;
    testkit::ActingPump pressing([&](int) { press(); });
    FrmNExport busy(set.state, set.engine, set.prompter, pressing, clock, set.dir.path(), marks);
    int closedWhileBusy = 0;
    busy.form.OnClosed([&] { ++closedWhileBusy; });
    press = [&] {
        busy.RunExport();
        busy.Cancel();
    };
    busy.RunExport();
    EXPECT_EQ(set.prompter.messages, Texts{"Export Canceled!"}) << "a second start does nothing";
    EXPECT_EQ(closedWhileBusy, 0);
    busy.cmdCancel.UserClick();
    EXPECT_EQ(closedWhileBusy, 1);
}

TEST_F(ExportForm, RefusedForeignTextCancels) {
    SetTaxon(2, "unit_name1", "'Жук'");
    set.prompter.yesNo = {false};
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{"Export Canceled!"});
    EXPECT_EQ(set.prompter.titles.front(), "Export DataSet");
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("test.qln")));
}

TEST_F(ExportForm, BreakingValuesAreReportedAfterTheTotal) {
    SetTaxon(2, "unit_name1", "'Al' & chr(124) & 'pha'");
    form->cmdOK.UserClick();
    ASSERT_EQ(set.prompter.messages.size(), 2u);
    EXPECT_EQ(set.prompter.messages[0], "A Total of 2 Records were Exported.");
    EXPECT_NE(set.prompter.messages[1].find("unit_name1 of [TU]2: Al|pha"), std::string::npos);
}

TEST_F(ExportForm, WrongConditionIsTheOnlyMessage) {
    form->optColumn.UserChoose();
    form->cboFields.UserSetText("wings");
    form->cmdOK.UserClick();
    EXPECT_EQ(set.prompter.messages, Texts{"The column 'wings' is no field of qb_taxonomic_units."});
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(ExportForm, OnlineRunMarksItsFindingsForTheViewer) {
    form->OptOnline.UserChoose();
    set.prompter.yesNo = {false};
    form->cmdOK.UserClick();
    EXPECT_TRUE(set.state.gErrorsOccurred);
    EXPECT_FALSE(marks.empty());
    EXPECT_EQ(set.prompter.questions, Texts{"A Total of 1 Records were Exported.  View error log?"});
    EXPECT_EQ(testkit::ReadFile(set.dir.File("test.qln")), Lines({kRootLine}));
}

TEST_F(ExportForm, FindingsOfAnotherDataSetCannotBeFollowed) {
    testkit::DataSetFixture other;
    other.Make("Animalia", "other.mdb");
    other.db().Execute(
        "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, parent_qb_id, kingdom_id, rank_id) "
        "VALUES (2, 'Orca', 'valid', 1, 5, 180)");
    other.lifecycle.CloseDataSet();
    set.prompter.filesToOpen = {other.dir.File("other.mdb")};
    form->cmdSelectDB.UserClick();
    form->OptOnline.UserChoose();
    set.prompter.yesNo = {false};
    form->cmdOK.UserClick();
    EXPECT_EQ(marks.size(), 5U);
    for (const validation::FindingMark& mark : marks) EXPECT_EQ(mark.id, 0);
}

TEST(ExportCommands, ShowTheForm) {
    testkit::ScriptedPrompter prompter;
    ExportCommand(prompter);
    EXPECT_EQ(prompter.forms, Texts{"FrmNExport"});
}

}  // namespace
}  // namespace quillon::exporting
