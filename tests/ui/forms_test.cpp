// The small windows: About, progress, import and its error log, message boxes.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "plain_caption.h"
#include "testkit/testkit.h"
#include "ui/about_window.h"
#include "ui/binder.h"
#include "ui/desktop_outside.h"
#include "ui/import_window.h"
#include "when_modal.h"

namespace quillon::ui {
namespace {

TEST(AboutWindow, ShowsItsTextsAndCloses) {
    startup::FrmAbout form("4.0.6");
    AboutWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.findChild<QLabel*>("lblTitle")->text(), "Orvaline");
    EXPECT_EQ(window.findChild<QLabel*>("lblVersion")->text(), "Taxonomic Quillon Version 4.0.6 (SR6)");
    EXPECT_EQ(window.findChild<QLabel*>("lblBuild")->text(), "");
    WhenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Return); });
    EXPECT_EQ(window.exec(), QDialog::Accepted);
}

TEST(AboutWindow, EscapeClosesItToo) {
    startup::FrmAbout form("4.0.6");
    AboutWindow window(form, nullptr);
    bool closed = false;
    WhenModal([&](QWidget& modal) {
        EXPECT_TRUE(modal.isVisible());
        QTest::keyClick(&modal, Qt::Key_Escape);
        closed = !modal.isVisible();
        if (!closed) window.done(QDialog::Rejected);
    });
    window.exec();
    EXPECT_TRUE(closed);
}

class ImportWindowTest : public testing::Test {
protected:
    ImportWindowTest() { data.Make("Animalia"); }

    testkit::DataSetFixture data;
    testkit::NullPump pump;
};

TEST_F(ImportWindowTest, ShowsTheFormatsAndTheSymbols) {
    importing::FrmImport form(data.state, data.engine, data.prompter, pump, data.dir.path());
    ImportWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Import Data File");
    EXPECT_EQ(window.findChild<QLabel*>("lblImport")->text(), "Import a File into the Quillon");
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("fraFormat")->title()), "Import Format");
    EXPECT_EQ(Plain(window.findChild<QRadioButton*>("OptAscii")->text()), "Standard ORVA Import Format");
    auto* tagged = window.findChild<QRadioButton*>("OptORVA");
    EXPECT_EQ(Plain(tagged->text()), "ORVA Online (Download from Online System) Format");
    EXPECT_TRUE(tagged->isChecked());
    auto* delimiter = window.findChild<QComboBox*>("cboDelimiter");
    EXPECT_FALSE(delimiter->isEnabled());
    EXPECT_EQ(delimiter->currentText(), ",");
    EXPECT_EQ(delimiter->count(), 14);
    EXPECT_FALSE(window.findChild<QComboBox*>("cboEnclosure")->isEnabled());
    EXPECT_EQ(window.findChild<QPushButton*>("cmdCancel")->text(), "Ca&ncel");
}

TEST_F(ImportWindowTest, ImportsAFileAndCloses) {
    importing::FrmImport form(data.state, data.engine, data.prompter, pump, data.dir.path());
    ImportWindow window(form, nullptr);
    testkit::WriteFile(data.dir.File("empty.qln"), "");
    data.prompter.filesToOpen.push_back(data.dir.File("empty.qln"));
    WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdOK")->click(); });
    window.exec();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>{"Import Complete -- No Errors!"});
    EXPECT_EQ(window.findChild<QProgressBar*>("Gauge1")->value(), 100);
}

TEST_F(ImportWindowTest, EscapeCancels) {
    importing::FrmImport form(data.state, data.engine, data.prompter, pump, data.dir.path());
    ImportWindow window(form, nullptr);
    WhenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    window.exec();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(data.state.gBatchCancel);
}

TEST_F(ImportWindowTest, ShowsTheErrorLogAndRemovesItAtTheEnd) {
    testkit::WriteFile(data.dir.File("import.err"), "A sentence\r\n     [XX]|1|\r\n");
    importing::FrmIError form(data.state, data.prompter, data.dir.path());
    ImportErrorWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Import Error Log");
    auto* log = window.findChild<QPlainTextEdit*>("txtError");
    EXPECT_EQ(log->toPlainText(), "A sentence\n     [XX]|1|\n");
    EXPECT_TRUE(log->isReadOnly());
    WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdOK")->click(); });
    window.exec();
    EXPECT_FALSE(QFile::exists(QString::fromStdString(data.dir.File("import.err"))));
}

TEST(DesktopPrompter, ShowsMessagesAsPlainText) {
    DesktopPrompter prompter;
    WhenModal([](QWidget& modal) {
        auto& box = dynamic_cast<QMessageBox&>(modal);
        EXPECT_EQ(box.text(), "<b>one</b>\ntwo");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Taxonomic Quillon");
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    prompter.Message("<b>one</b>\rtwo", "");
}

TEST(DesktopPrompter, AWarningHasTheWarningIcon) {
    DesktopPrompter prompter;
    WhenModal([](QWidget& modal) {
        auto& box = dynamic_cast<QMessageBox&>(modal);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.text(), "Failed to write.");
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    prompter.WarningMessage("Failed to write.", "");
}

TEST(DesktopPrompter, AStopMessageHasTheStopIcon) {
    DesktopPrompter prompter;
    WhenModal([](QWidget& modal) {
        auto& box = dynamic_cast<QMessageBox&>(modal);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.text(), "It is broken.");
        EXPECT_EQ(box.windowTitle(), "IniFile Logic Error");
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    prompter.StopMessage("It is broken.", "IniFile Logic Error");
}

TEST(DesktopPrompter, AsksYesOrNo) {
    DesktopPrompter prompter;
    WhenModal([](QWidget& modal) {
        EXPECT_EQ(modal.windowTitle(), "Update Dataset");
        dynamic_cast<QMessageBox&>(modal).button(QMessageBox::Yes)->click();
    });
    EXPECT_TRUE(prompter.AskYesNo("Continue?", "Update Dataset"));
    WhenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    EXPECT_FALSE(prompter.AskYesNo("Continue?", "Update Dataset"));
}

TEST(DesktopPrompter, ReturnAnswersYesUnlessYesLosesSomething) {
    DesktopPrompter prompter;
    const auto pressReturn = [](QWidget& modal) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(modal).icon(), QMessageBox::Question);
        QTest::keyClick(&modal, Qt::Key_Return);
    };
    WhenModal(pressReturn);
    EXPECT_TRUE(prompter.AskYesNo("Continue?", "Update Dataset"));
    WhenModal(pressReturn);
    EXPECT_FALSE(prompter.AskBeforeLoss("Overwrite?", "Save As"));
    WhenModal([](QWidget& modal) { dynamic_cast<QMessageBox&>(modal).button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(prompter.AskBeforeLoss("Overwrite?", "Save As"));
}

TEST(DesktopPrompter, TheWaitCursorEndsWithTheOutermostScope) {
    DesktopPrompter prompter;
    prompter.WaitCursor(true);
    prompter.WaitCursor(true);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    prompter.WaitCursor(false);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    prompter.WaitCursor(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(DesktopPrompter, ACanceledFileDialogGivesNothing) {
    DesktopPrompter prompter;
    WhenModal([](QWidget& modal) {
        auto& dialog = dynamic_cast<QFileDialog&>(modal);
        EXPECT_EQ(dialog.windowTitle(), "Open");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Taxonomic Files (*.mdb *.MDB)", "All Files (*)"}));
        dialog.reject();
    });
    EXPECT_EQ(prompter.FileToOpen("Open", dataset::kDataSetFilter), std::nullopt);
}

TEST(DesktopPrompter, AChosenFileComesBack) {
    testkit::TempDir dir;
    DesktopPrompter prompter;
    WhenModal([&](QWidget& modal) {
        auto& dialog = dynamic_cast<QFileDialog&>(modal);
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        dialog.selectFile(QString::fromStdString(dir.File("new.mdb")));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(prompter.FileToSave("Save", dataset::kDataSetFilter, false, {}), dir.File("new.mdb"));
}

TEST(DesktopPrompter, DialogsBeginWhereTheDataSetIsAndGoOnWhereTheUserWas) {
    const testkit::TempDir dataSets, elsewhere;
    DesktopPrompter prompter;
    prompter.SetFolder([&] { return dataSets.path(); });
    QStringList folders;
    const auto choose = [&](const std::string& file) {
        WhenModal([&, file](QWidget& modal) {
            auto& dialog = dynamic_cast<QFileDialog&>(modal);
            folders << dialog.directory().absolutePath();
            dialog.selectFile(QString::fromStdString(file));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        prompter.FileToSave("Save", dataset::kDataSetFilter, false, {});
    };
    choose(elsewhere.File("one.mdb"));
    choose(dataSets.File("two.mdb"));
    WhenModal([&](QWidget& modal) {
        folders << dynamic_cast<QFileDialog&>(modal).directory().absolutePath();
        QMetaObject::invokeMethod(&modal, "reject");
    });
    prompter.FileToOpen("Open", dataset::kDataSetFilter);
    EXPECT_EQ(folders.join(" ").toStdString(),
              dataSets.path() + " " + elsewhere.path() + " " + dataSets.path());
}

TEST(DesktopPrompter, ADialogThatAsksAboutOverwritingAddsTheEnding) {
    DesktopPrompter prompter;
    QString ending;
    const auto look = [&](QWidget& modal) {
        ending = dynamic_cast<QFileDialog&>(modal).defaultSuffix();
        QMetaObject::invokeMethod(&modal, "reject");
    };
    WhenModal(look);
    prompter.FileToSave("New", "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*", true, {});
    EXPECT_EQ(ending, "MDB");
    WhenModal(look);
    prompter.FileToSave("Export", "QLN File (*.QLN)|*.qln", false, {});
    EXPECT_EQ(ending, "");
}

TEST(DesktopPrompter, TheMainWindowIsActiveAgainAfterABox) {
    QWidget window, other;
    other.show();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    DesktopPrompter prompter;
    prompter.SetWindow(&window);
    WhenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Return); });
    prompter.Message("Import Complete -- No Errors!", {});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(ToolkitFilter, TakesBothCasesOfAnEnding) {
    EXPECT_EQ(ToolkitFilter("QLN Files (*.qln)|*.qln|All Files (*.*)|*.*"),
              "QLN Files (*.qln *.QLN);;All Files (*)");
}

TEST(DesktopPump, ProcessesEventsAtIntervals) {
    qint64 now = 1000;
    DesktopPump pump([&] { return now; });
    int fired = 0;
    const auto yieldAt = [&](qint64 time) {
        now = time;
        QTimer::singleShot(0, [&] { ++fired; });
        pump.Yield();
        return fired;
    };
    EXPECT_EQ(yieldAt(1000), 1);
    EXPECT_EQ(yieldAt(1000), 1);
    EXPECT_EQ(yieldAt(1019), 1);
    EXPECT_EQ(yieldAt(1020), 4);
    EXPECT_EQ(yieldAt(1039), 4);
    EXPECT_EQ(yieldAt(1040), 6);
}

}  // namespace
}  // namespace quillon::ui
