// The start of the program with its real windows, answered by clicks and keys.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <filesystem>

#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/kingdom_window.h"
#include "ui/modal_user.h"
#include "ui/no_db_window.h"
#include "ui/text_convert.h"

namespace quillon::ui {
namespace {

class StartTest : public testing::Test {
protected:
    ~StartTest() override { std::filesystem::current_path(before); }

    std::string MakeDataSet(std::string_view file, const std::string& change = {}) const {
        testkit::DataSetFixture data;
        data.Make("Animalia");
        if (!change.empty()) data.db().Execute(change);
        data.lifecycle.CloseDataSet();
        std::filesystem::copy_file(data.dir.File("test.mdb"), dir.File(file));
        return dir.File(file);
    }
    void Prefer(const std::string& dataSet, const std::string& kingdom = "Animalia",
                const std::string& rank = "Species") const {
        testkit::WriteFile(preferences, "[Taxonomic Quillon]\r\nKingdom=" + kingdom + "\r\nRank=" + rank +
                                            "\r\nDataSet=" + dataSet + "\r\n");
    }
    std::unique_ptr<DesktopProgram> MakeProgram(Prompter* prompter = nullptr) const {
        return std::make_unique<DesktopProgram>(prompter, dir.File("data"), preferences);
    }
    static int TreeRows(DesktopProgram& program) {
        return program.Window().findChild<QTreeView*>("HierView")->model()->rowCount();
    }
    static bool SplashIsUp() {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == "frmSplash" && widget->isVisible()) return true;
        return false;
    }
    static void Click(QWidget& window, const char* button) {
        QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    std::filesystem::path before = std::filesystem::current_path();
    testkit::TempDir dir;
    const std::string preferences = dir.File("Qln.Ini");
    ModalUser user;
};

TEST_F(StartTest, TheFirstStartLeadsToADataSetInFourAnswers) {
    const auto program = MakeProgram();
    const QString path = ToQt(dir.File("ferns.mdb"));
    user.ExpectMessage("No Preference file exists, you must select a default Kingdom.");
    user.Answer("FrmKingdom", [](QWidget& window) {
        EXPECT_TRUE(SplashIsUp());
        auto* kingdoms = window.findChild<QComboBox*>("cboKingdom");
        for (int i = 0; i < 3; ++i) QTest::keyClick(kingdoms, Qt::Key_Down);
        EXPECT_EQ(kingdoms->currentText(), "Plantae");
        QTest::keyClick(kingdoms, Qt::Key_Return);
    });
    user.Answer("frmNoDB", [](QWidget& window) { Click(window, "cmdNew"); });
    user.ChooseFile(path);
    EXPECT_TRUE(program->Start());
    EXPECT_FALSE(SplashIsUp());
    EXPECT_TRUE(program->Window().isVisible());
    EXPECT_EQ(program->Window().windowTitle(), "Taxonomic Quillon - " + path);
    EXPECT_EQ(TreeRows(*program), 1);
    EXPECT_EQ(program->State().gKingdomId, 3);
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), dir.File("data")));
    EXPECT_FALSE(std::filesystem::exists(preferences));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StartTest, ExitLeavesNoWindowBehind) {
    Prefer(dir.File("gone.mdb"));
    const auto program = MakeProgram();
    user.Answer("frmNoDB", [this](QWidget& window) {
        EXPECT_TRUE(SplashIsUp());
        EXPECT_EQ(window.findChild<QLabel*>("Instructions")->text(),
                  "A DataSet " + ToQt(dir.File("gone.mdb")) +
                      " could not be found or is incompatible.  Do you wish to Open an existing DataSet, or "
                      "create a New one?");
        Click(window, "cmdExit");
    });
    EXPECT_FALSE(program->Start());
    EXPECT_FALSE(program->Window().isVisible());
    EXPECT_FALSE(SplashIsUp());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StartTest, TheDialogStaysUpUntilADataSetOpens) {
    testkit::WriteFile(dir.File("letter.mdb"), "Dear Sir or Madam, this is no DataSet at all.\n");
    const QString good = ToQt(MakeDataSet("fish.mdb"));
    Prefer(dir.File("letter.mdb"));
    const auto program = MakeProgram();
    user.Answer("frmNoDB", [](QWidget& window) {
        EXPECT_FALSE(window.findChild<QLabel*>("lblReason")->isHidden());
        Click(window, "cmdOpen");
    });
    user.ChooseFile(ToQt(dir.File("letter.mdb")));
    user.Answer("QMessageBox", [](QWidget& box) { ModalUser::Press(box, Qt::Key_Return); });
    user.Answer("frmNoDB", [](QWidget& window) { Click(window, "cmdOpen"); });
    user.ChooseFile(good);
    EXPECT_TRUE(program->Start());
    EXPECT_EQ(program->Window().windowTitle(), "Taxonomic Quillon - " + good);
    EXPECT_EQ(TreeRows(*program), 1);
}

TEST_F(StartTest, AfterARefusalTheEmptyWindowOffersFileOpen) {
    const QString refused = ToQt(MakeDataSet("none.mdb", "DELETE * FROM db_control"));
    const QString good = ToQt(MakeDataSet("fish.mdb"));
    Prefer(FromQt(refused));
    const auto program = MakeProgram();
    user.ExpectMessage("Dataset " + refused + " is incompatible with this version of the QLN!");
    EXPECT_TRUE(program->Start());
    EXPECT_TRUE(program->Window().isVisible());
    EXPECT_EQ(program->Window().windowTitle(), "Taxonomic Quillon - No Open DataSet");
    EXPECT_EQ(TreeRows(*program), 0);
    auto* open = program->Window().findChild<QAction*>("mnuFOpen");
    EXPECT_TRUE(open->isEnabled());
    user.ChooseFile(good);
    open->trigger();
    EXPECT_EQ(program->Window().windowTitle(), "Taxonomic Quillon - " + good);
    EXPECT_EQ(TreeRows(*program), 1);
}

TEST_F(StartTest, ClosingTheDialogLeavesAnEmptyMainWindow) {
    Prefer(dir.File("gone.mdb"));
    const auto program = MakeProgram();
    user.Answer("frmNoDB", [](QWidget& window) { ModalUser::Press(window, Qt::Key_Escape); });
    EXPECT_TRUE(program->Start());
    EXPECT_TRUE(program->Window().isVisible());
    EXPECT_EQ(program->Window().windowTitle(), "Taxonomic Quillon - No Open DataSet");
}

TEST_F(StartTest, TheDataSetOverridesKingdomAndRank) {
    const std::string path = MakeDataSet("fish.mdb");
    Prefer(path, "Plantae", "Variety");
    testkit::ScriptedPrompter prompter;
    const auto program = MakeProgram(&prompter);
    EXPECT_TRUE(program->Start());
    EXPECT_EQ(prompter.messages,
              (std::vector<std::string>{"Warning:  The 'Preference' kingdom does not match what is in the " +
                                            path + " dataset!  Dataset Kingdom will be used.",
                                        "The 'Preference' rank is not valid for the " + path +
                                            " dataset!  Defaulting to 'Kingdom'."}));
    const ApplicationState& state = program->State();
    EXPECT_EQ(state.gKingdomName + " " + state.gOldKingdomName, "Animalia Plantae");
    EXPECT_EQ(state.gPrefRank + " " + state.gOldPrefRank, "Kingdom Variety");
}

TEST_F(StartTest, ClosingTheMainWindowClosesTheDataSet) {
    Prefer(MakeDataSet("fish.mdb"));
    testkit::ScriptedPrompter prompter;
    const auto program = MakeProgram(&prompter);
    EXPECT_TRUE(program->Start());
    program->State().RecordDirty = true;
    prompter.yesNo = {false, true};
    EXPECT_FALSE(program->Window().close());
    EXPECT_TRUE(program->State().gDataSetOpen);
    EXPECT_TRUE(program->Window().close());
    EXPECT_FALSE(program->State().gDataSetOpen);
}

TEST_F(StartTest, TheSmallWindowsHaveAllTheirControls) {
    ApplicationState state;
    store::Engine engine;
    testkit::ScriptedPrompter prompter;
    dataset::Lifecycle lifecycle(state, engine, prompter);
    startup::FrmSplash splash("4.0.6");
    const SplashWindow splashWindow(splash);
    EXPECT_EQ(NamesWithoutPartner(splash.form, splashWindow).join(" "), "");
    EXPECT_EQ(splashWindow.findChild<QLabel*>("lblVersion")->text(), "version 4.0 (SR6)");
    startup::FrmKingdom kingdom(state, prompter);
    const KingdomWindow kingdomWindow(kingdom, nullptr);
    EXPECT_EQ(NamesWithoutPartner(kingdom.form, kingdomWindow).join(" "), "");
    startup::FrmNoDB noDb(state, lifecycle, prompter);
    const NoDbWindow noDbWindow(noDb, nullptr);
    EXPECT_EQ(NamesWithoutPartner(noDb.form, noDbWindow).join(" "), "");
    EXPECT_TRUE(noDbWindow.findChild<QLabel*>("lblReason")->isHidden());
}

TEST_F(StartTest, TheKingdomMustBeChosen) {
    ApplicationState state;
    testkit::ScriptedPrompter prompter;
    startup::FrmKingdom form(state, prompter);
    KingdomWindow window(form, nullptr);
    user.Answer("FrmKingdom", [&](QWidget& modal) {
        Click(modal, "cmdOK");
        EXPECT_TRUE(modal.isVisible());
        QTest::keyClick(modal.findChild<QComboBox*>("cboKingdom"), Qt::Key_End);
        Click(modal, "cmdOK");
    });
    window.exec();
    EXPECT_EQ(prompter.messages, std::vector<std::string>{"A Kingdom must be entered"});
    EXPECT_EQ(state.gKingdomName, "Chromista");
    EXPECT_FALSE(state.gQuitRequested);
}

TEST_F(StartTest, EscapeInTheKingdomQuestionEndsTheProgram) {
    ApplicationState state;
    testkit::ScriptedPrompter prompter;
    startup::FrmKingdom form(state, prompter);
    KingdomWindow window(form, nullptr);
    user.Answer("FrmKingdom", [&](QWidget& modal) { ModalUser::Press(modal, Qt::Key_Escape); });
    window.exec();
    EXPECT_TRUE(state.gQuitRequested);
}

}  // namespace
}  // namespace quillon::ui
