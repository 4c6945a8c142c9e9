// File, Preferences, driven as a user drives it.
#include "ui/preferences_window.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <filesystem>

#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/modal_user.h"
#include "ui/text_convert.h"

namespace quillon::ui {
namespace {

class PreferencesTest : public testing::Test {
protected:
    PreferencesTest() {
        testkit::DataSetFixture data;
        data.Make("Animalia");
        data.lifecycle.CloseDataSet();
        std::filesystem::copy_file(data.dir.File("test.mdb"), dataSet);
        testkit::WriteFile(file, "[Taxonomic Quillon]\r\nKingdom=Animalia\r\nRank=Genus\r\nDataSet=" +
                                     dataSet + "\r\nAuthor=Full\r\nWarnings=All\r\nSave Author=Yes\r\n");
    }
    ~PreferencesTest() override { std::filesystem::current_path(before); }

    // Opens the dialog by its command; `act` works in it and closes it.
    void InPreferences(const std::function<void(QWidget&)>& act) {
        user.Answer("FrmPreferences", act);
        program.Window().findChild<QAction*>("mnuFPreferences")->trigger();
    }
    static void Click(QWidget& window, const char* button) {
        auto* widget = window.findChild<QAbstractButton*>(button);
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
    }
    static QString Checked(const QWidget& window) {
        QStringList names;
        for (const auto* button : window.findChildren<QAbstractButton*>())
            if (button->isChecked()) names << button->objectName();
        names.sort();
        return names.join(" ");
    }
    std::string Read() const { return testkit::ReadFile(file); }

    std::filesystem::path before = std::filesystem::current_path();
    testkit::TempDir dir;
    const std::string dataSet = dir.File("fish.mdb");
    const std::string file = dir.File("Qln.Ini");
    ModalUser user;
    DesktopProgram program{nullptr, dir.File("data"), file};
};

TEST_F(PreferencesTest, ShowsThemAndSavesWhatIsChanged) {
    ASSERT_TRUE(program.Start());
    InPreferences([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Preferences");
        EXPECT_EQ(Checked(window), "OptAnimalia OptFullName chkAuth optAll");
        EXPECT_EQ(window.findChild<QComboBox*>("cboPRank")->currentText(), "Genus");
        Click(window, "OptAbbr");
        Click(window, "optFirst");
        Click(window, "chkAuth");
        Click(window, "chkComm");
        auto* rank = window.findChild<QComboBox*>("cboPRank");
        rank->setFocus();
        QTest::keyClick(rank, Qt::Key_Up);
        Click(window, "cmdSave");
    });
    EXPECT_EQ(Read(), "[Taxonomic Quillon]\r\nKingdom=Animalia\r\nRank=Subtribe\r\nDataSet=" + dataSet +
                          "\r\nAuthor=Partial\r\nWarnings=First\r\nSave Author=No\r\nSave References=No\r\n"
                          "Save Parent=No\r\nSave Comments=Yes\r\nSave Other Fields=No\r\n");
    EXPECT_EQ(program.State().gPrefSaveComments, "Yes");
    EXPECT_FALSE(program.State().gPreferencesChanging) << "the form has been reset";
}

TEST_F(PreferencesTest, ResetAndCancelLeaveTheFileAlone) {
    ASSERT_TRUE(program.Start());
    const std::string old = Read();
    for (const char* way : {"cmdCancel", "Escape"}) {
        InPreferences([way](QWidget& window) {
            Click(window, "CmdReset");
            EXPECT_EQ(Checked(window), "OptAnimalia OptFullName optNone");
            EXPECT_EQ(window.findChild<QComboBox*>("cboPRank")->currentText(), "");
            EXPECT_EQ(window.findChild<QLineEdit*>("txtDatabase")->text(), "");
            if (way == std::string("Escape")) return ModalUser::Press(window, Qt::Key_Escape);
            Click(window, way);
        });
        EXPECT_EQ(Read(), old);
        EXPECT_EQ(program.State().gPrefWarnings, "All");
        EXPECT_FALSE(program.State().gPreferencesChanging);
    }
}

TEST_F(PreferencesTest, TheDataSetIsChosenInAFileDialog) {
    ASSERT_TRUE(program.Start());
    const QString chosen = ToQt(dataSet);
    user.Answer("FrmPreferences", [](QWidget& window) {
        auto* path = window.findChild<QLineEdit*>("txtDatabase");
        path->selectAll();
        QTest::keyClick(path, Qt::Key_Delete);
        EXPECT_EQ(path->text(), "");
        Click(window, "CmdChange");
    });
    user.ChooseFile(chosen);
    user.Answer("FrmPreferences", [&](QWidget& window) {
        EXPECT_EQ(window.findChild<QLineEdit*>("txtDatabase")->text(), chosen);
        Click(window, "cmdCancel");
    });
    program.Window().findChild<QAction*>("mnuFPreferences")->trigger();
}

TEST_F(PreferencesTest, AKingdomFillsTheRanks) {
    ASSERT_TRUE(program.Start());
    InPreferences([](QWidget& window) {
        auto* rank = window.findChild<QComboBox*>("cboPRank");
        EXPECT_EQ(rank->findText("Division"), -1);
        Click(window, "OptPlantae");
        EXPECT_NE(rank->findText("Division"), -1);
        EXPECT_EQ(rank->currentText(), "");
        Click(window, "cmdCancel");
    });
}

TEST_F(PreferencesTest, TheMenuEditWorksOnTheField) {
    ASSERT_TRUE(program.Start());
    InPreferences([](QWidget& window) {
        auto* path = window.findChild<QLineEdit*>("txtDatabase");
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        path->setFocus();
        path->setText("fish");
        path->selectAll();
        const auto act = [&](const QString& text) {
            for (QAction* action : window.findChildren<QAction*>())
                if (action->text() == text &&
                    action->parent() == window.findChild<QMenuBar*>()->actions()[1]->menu())
                    action->trigger();
        };
        act("&Copy");
        EXPECT_EQ(QGuiApplication::clipboard()->text(), "fish");
        act("Cu&t");
        EXPECT_EQ(path->text(), "");
        act("&Paste");
        act("&Paste");
        EXPECT_EQ(path->text(), "fishfish");
        act("&Undo");
        EXPECT_EQ(path->text(), "fish");
        Click(window, "cmdCancel");
    });
}

TEST_F(PreferencesTest, FileQuitClosesTheDialogAndHelpAboutShowsTheBox) {
    ASSERT_TRUE(program.Start());
    user.Answer("FrmPreferences",
                [](QWidget& window) { window.findChild<QAction*>("mnuHAbout")->trigger(); });
    user.Answer("FrmAbout", [](QWidget& box) { ModalUser::Press(box, Qt::Key_Return); });
    user.Answer("FrmPreferences", [](QWidget& window) { window.findChild<QAction*>("mnuFQuit")->trigger(); });
    program.Window().findChild<QAction*>("mnuFPreferences")->trigger();
    EXPECT_TRUE(program.Window().isVisible());
}

TEST_F(PreferencesTest, NeedsADataSet) {
    std::filesystem::remove(dataSet);
    user.Answer("frmNoDB", [](QWidget& window) { ModalUser::Press(window, Qt::Key_Escape); });
    ASSERT_TRUE(program.Start());
    user.ExpectMessage("A DataSet must be open before you can select Preferences!");
    program.Window().findChild<QAction*>("mnuFPreferences")->trigger();
}

TEST_F(PreferencesTest, EveryNameHasItsPartner) {
    ASSERT_TRUE(program.Start());
    testkit::ScriptedPrompter prompter;
    IniProfile profile(prompter);
    startup::FrmPreferences form(program.State(), profile, prompter, file);
    PreferencesWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
}

}  // namespace
}  // namespace quillon::ui
