// The main window as a whole: its size, and what it shows after a job.
#include "import/import_form.h"
#include "rec_view_window_fixture.h"

namespace quillon::ui {
namespace {

TEST_F(MainWindow, IsNeverLargerThanTheScreen) {
    DesktopProgram other(&prompter, dir.path());
    const QSize size = other.Window().size();
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(size.width(), screen.width());
    EXPECT_LT(size.height(), screen.height()) << "the title bar needs room, too";
}

TEST_F(MainWindow, TheExplorerGivesWayWhenTheWindowGetsNarrower) {
    MakeWhales();
    auto* area = window.findChild<QScrollArea*>();
    auto* splitter = window.findChild<QSplitter*>("Splitter");
    auto* explorer = splitter->widget(0);
    window.resize(1600, window.height());
    splitter->setSizes({700, 900});
    QCoreApplication::processEvents();
    const int before = explorer->width();
    const int page = area->widget()->minimumSizeHint().width();
    const int besidePage = window.width() - explorer->width() - area->viewport()->width();
    window.resize(page + besidePage + explorer->minimumWidth() + 40, window.height());
    QCoreApplication::processEvents();
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << "the page is whole";
    EXPECT_LT(explorer->width(), before);
}

TEST_F(MainWindow, TheExplorerGivesWayOnANarrowScreenFromTheStart) {
    DesktopProgram other(&prompter, dir.path());
    other.Window().show();
    QCoreApplication::processEvents();
    ASSERT_LT(other.Window().width(), 900) << "the screen of these tests is narrow";
    auto* area = other.Window().findChild<QScrollArea*>();
    auto* explorer = other.Window().findChild<QSplitter*>("Splitter")->widget(0);
    EXPECT_TRUE(area->horizontalScrollBar()->maximum() == 0 || explorer->width() == explorer->minimumWidth());
}

// Runs the import instead of its form.
class ImportingPrompter : public testkit::ScriptedPrompter {
public:
    std::function<void()> import;
    void ShowModal(std::string_view formName) override {
        ScriptedPrompter::ShowModal(formName);
        if (formName == "FrmImport") import();
    }
};

TEST(MainWindowAfterAJob, ShowsTheCountOfNamesAfterAnImport) {
    const testkit::TempDir dir;
    ImportingPrompter prompter;
    DesktopProgram program(&prompter, dir.path());
    program.State().gKingdomName = "Animalia";
    program.State().gPrefRank = "Kingdom";
    program.Lifecycle().MakeDataSet(dir.File("whales.mdb"));
    program.RecView().ShowDataSet();
    auto* taxa = program.Window().findChild<QLabel*>("taxa");
    EXPECT_EQ(taxa->text(), "TAXA: 1");
    testkit::WriteFile(dir.File("in.qln"),
                       "[TU]|100||Animalia||||||||valid|||||||100|||||5|10|No|\r\n"
                       "[TU]|101||Chordata||||||||valid|||||||100|||||5|30|No|\r\n"
                       "[TU]|102||Mollusca||||||||valid|||||||100|||||5|30|No|\r\n");
    testkit::NullPump pump;
    prompter.import = [&] {
        importing::FrmImport form(program.State(), program.Engine(), prompter, pump, dir.path());
        prompter.filesToOpen.push_back(dir.File("in.qln"));
        form.RunImport();
    };
    program.Window().findChild<QAction*>("mnuFImport")->trigger();
    EXPECT_EQ(prompter.messages, std::vector<std::string>{"Import Complete -- No Errors!"});
    EXPECT_EQ(taxa->text(), "TAXA: 3");
}

// An unsaved record with a change track that is stored already.
class UnsavedAtImport : public MainWindow {
protected:
    UnsavedAtImport() {
        MakeWhales();
        program.Explorer().ListDblClick(2);
        program.RecView().Controls().taxon.txtName1.UserSetText("Orka");
        Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT 7, 2");
        program.State().gNewChangeTrackIds = {7};
        program.State().gDataSetIsNew = true;
        prompter.yesNo = {true};
    }
    int Tracks() {
        const auto rows = program.State().gDatabase->CreateSnapshot("SELECT count(*) FROM qb_change_tracks");
        return static_cast<int>(rows->At(0).AsLong());
    }
};

TEST_F(UnsavedAtImport, StaysWhenTheImportIsCanceledAfterTheQuestion) {
    program.State().gBatchCancel = true;  // as the form leaves it
    action("mnuFImport")->trigger();
    EXPECT_EQ(prompter.forms, std::vector<std::string>{"FrmImport"});
    EXPECT_EQ(prompter.questions.size(), 1u);
    EXPECT_EQ(Tracks(), 1);
    EXPECT_EQ(program.State().gNewChangeTrackIds, std::vector<int>{7});
    EXPECT_TRUE(program.State().RecordDirty);
    EXPECT_EQ(field("txtName1"), "Orka");
}

TEST_F(UnsavedAtImport, GoesWhenTheImportHasRun) {
    program.State().gBatchCancel = false;
    action("mnuFImport")->trigger();
    EXPECT_EQ(Tracks(), 0);
    EXPECT_TRUE(program.State().gNewChangeTrackIds.empty());
    EXPECT_FALSE(program.State().RecordDirty);
}

}  // namespace
}  // namespace quillon::ui
