// FrmDExport, ExpType and FrmTExport.

#include <filesystem>

#include "export/name_export_form.h"
#include "export/tagged_export_form.h"
#include "export_fixture.h"

namespace quillon::exporting {
namespace {

using Texts = std::vector<std::string>;

class OtherForms : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        AddTaxon(2, "Alpha");
        AddTaxon(3, "Beta", 2);
        AddToJournal({3});
    }
    std::string TimeLog() { return testkit::ReadFile(set.dir.File("time.log")); }
};

TEST_F(OtherForms, TaggedFormExportsWithATimeLogUnderTheCurrentFilter) {
    FrmDExport form(set.state, set.engine, set.prompter, pump, clock, set.dir.path());
    EXPECT_EQ(form.form.Title(), "Export DataSet to File");
    EXPECT_EQ(form.cmdOK.Caption(), "&Continue");
    int closed = 0;
    form.form.OnClosed([&] { ++closed; });
    set.prompter.filesToSave = {set.dir.File("out")};
    EXPECT_TRUE(form.AskFile());
    EXPECT_EQ(form.lblDataSet.Caption(), "Export DataSet: " + set.dir.File("test.mdb"));
    EXPECT_EQ(form.lblFile.Caption(), "To File: " + set.dir.File("out.EXP"));
    EXPECT_EQ(set.prompter.fileTitles, Texts{"Save Exported DataSet As"});
    EXPECT_EQ(set.prompter.fileFilters, Texts{"QLN Export Files (*.EXP)|*.exp|Text Files (*.TXT)|*.txt|List "
                                              "Files (*.LIS)|*.lis|All Files (*.*)|*.*"});
    FilterByJournal();
    form.cmdOK.UserClick();
    EXPECT_EQ(OutFile(), Lines({kRootLine, TaxonLine(3, "Beta", "101", 1)}));
    EXPECT_EQ(TimeLog(), "Begin Export: 12:34:56\r\nEnd Export: 12:34:56\r\n");
    EXPECT_EQ(set.prompter.messages, Texts{"Export Complete!"});
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(set.state.gBatchRunning);
}

TEST_F(OtherForms, TaggedFormWithoutAFileCloses) {
    FrmDExport form(set.state, set.engine, set.prompter, pump, clock, set.dir.path());
    int closed = 0;
    form.form.OnClosed([&] { ++closed; });
    set.prompter.filesToSave = {std::nullopt};
    EXPECT_FALSE(form.AskFile());
    EXPECT_EQ(closed, 1);
}

TEST_F(OtherForms, TaggedFormReportsACancel) {
    FrmDExport form(set.state, set.engine, set.prompter, pump, clock, set.dir.path());
    set.prompter.filesToSave = {set.dir.File("out.exp")};
    form.AskFile();
    pump.cancelAt = TurnsBeforeRows(3) + 2;
    form.Continue();
    EXPECT_EQ(set.prompter.messages, Texts{"Export Canceled!"});
    EXPECT_FALSE(HasOutFile());
    EXPECT_EQ(TimeLog(), "Begin Export: 12:34:56\r\nEnd Export: 12:34:56\r\n");
}

TEST_F(OtherForms, TypeFormKeepsTheTypeAndLeadsToTheList) {
    ListType exportType = ListType::None;
    ExpType form(exportType, set.prompter);
    EXPECT_EQ(form.form.Title(), "Taxonomic Compare Export Type");
    EXPECT_EQ(form.fraType.Caption(), "Taxonomy Data to Export");
    EXPECT_EQ(form.optAuthority.Caption(), "Name and Authority");
    form.cmdOK.UserClick();
    EXPECT_EQ(exportType, ListType::Name);
    form.optAuthority.UserChoose();
    form.cmdOK.UserClick();
    EXPECT_EQ(exportType, ListType::NameAuthor);
    form.optRank.UserChoose();
    form.cmdOK.UserClick();
    EXPECT_EQ(exportType, ListType::NameAuthorRank);
    EXPECT_EQ(set.prompter.forms, Texts(3, "FrmTExport"));
}

TEST_F(OtherForms, CanceledTypeFormKeepsNothing) {
    ListType exportType = ListType::None;
    ExpType form(exportType, set.prompter);
    form.cmdCancel.UserClick();
    EXPECT_EQ(exportType, ListType::None);
    EXPECT_TRUE(set.prompter.forms.empty());
}

TEST_F(OtherForms, NameFormIgnoresTheFilter) {
    FilterByJournal();
    FrmTExport form(set.state, set.engine, set.prompter, pump, clock, ListType::NameAuthorRank);
    EXPECT_EQ(form.form.Title(), "Export Taxonomy Data to File");
    set.prompter.filesToSave = {set.dir.File("names")};
    EXPECT_TRUE(form.AskFile());
    EXPECT_EQ(form.lblDataSet.Caption(), "Export Taxonomy Data From: " + set.dir.File("test.mdb"));
    EXPECT_EQ(form.lblFile.Caption(), "To File: " + set.dir.File("names.TXM"));
    EXPECT_EQ(set.prompter.fileTitles, Texts{"Save Taxonomy Data As"});
    EXPECT_EQ(set.prompter.fileFilters,
              Texts{"Taxonomy Compare Export Files (*.TXM)|*.txm|Text Files (*.TXT)|*.txt|List Files "
                    "(*.LIS)|*.lis|All Files (*.*)|*.*"});
    form.cmdOK.UserClick();
    EXPECT_EQ(OutFile(), Lines({"name|author|rank", "Animalia||Kingdom", "Alpha||Genus", "Beta||Genus"}));
    EXPECT_EQ(set.prompter.messages, Texts{"Export Complete!"});
    EXPECT_EQ(set.state.gRecordFilter, "journal");
}

TEST_F(OtherForms, NameFormReportsACancelAndAnInvalidType) {
    FrmTExport form(set.state, set.engine, set.prompter, pump, clock, ListType::None);
    set.prompter.filesToSave = {set.dir.File("names.txm"), std::nullopt};
    form.AskFile();
    form.Continue();
    EXPECT_EQ(set.prompter.messages, (Texts{"Export Type of 0 is invalid!", "Export Complete!"}));
    EXPECT_EQ(OutFile(), "");
    FrmTExport second(set.state, set.engine, set.prompter, pump, clock, ListType::Name);
    EXPECT_FALSE(second.AskFile());
    set.state.gExportFile = set.dir.File("names.txm");
    pump.cancelAt = pump.turns + 2;
    second.Continue();
    EXPECT_EQ(set.prompter.messages.back(), "Export Canceled!");
    EXPECT_EQ(OutFile(), "") << "the file of the export before";
}

TEST_F(OtherForms, TimeLogIsNeverWrittenOverTheDataSet) {
    std::filesystem::create_symlink(set.state.gDataSetPath, set.dir.File("time.log"));
    FrmDExport form(set.state, set.engine, set.prompter, pump, clock, set.dir.path());
    set.prompter.filesToSave = {set.dir.File("out.exp")};
    form.AskFile();
    form.Continue();
    ASSERT_EQ(set.prompter.messages.size(), 1U);
    EXPECT_NE(set.prompter.messages[0].find("time.log"), std::string::npos) << set.prompter.messages[0];
    EXPECT_FALSE(HasOutFile());
    EXPECT_EQ(set.Dump("SELECT Count(*) FROM qb_taxonomic_units"), "3\n");
}

}  // namespace
}  // namespace quillon::exporting
