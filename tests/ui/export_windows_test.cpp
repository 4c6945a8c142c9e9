// The export forms on the screen.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "export/tagged_export_form.h"
#include "plain_caption.h"
#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/export_type_window.h"
#include "ui/export_window.h"
#include "ui/plain_export_window.h"
#include "when_modal.h"

namespace quillon::ui {
namespace {

using Texts = std::vector<std::string>;

class ExportWindows : public testing::Test {
protected:
    ExportWindows() {
        data.Make("Animalia");
        data.db().Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Animalia'");
    }
    std::string File(const char* name) { return testkit::ReadFile(data.dir.File(name)); }

    testkit::DataSetFixture data;
    testkit::NullPump pump;
    testkit::FixedClock clock;
    validation::FindingMarks marks;
};

TEST_F(ExportWindows, MainFormHasAPartnerForEachControl) {
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Export DataSet");
    EXPECT_EQ(window.findChild<QLabel*>("lblDataSet")->text().toStdString(),
              "Export DataSet: " + data.dir.File("test.mdb"));
    EXPECT_EQ(window.findChild<QLabel*>("lblFile")->text().toStdString(),
              "To File: " + data.dir.File("test.qln"));
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("FraExport")->title()), "Export Options");
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("fraPartial")->title()), "Partial Export Options");
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("fraFilter")->title()), "Filter Export Records");
    EXPECT_EQ(Plain(window.findChild<QPushButton*>("cmdSelectDB")->text()), "Browse");
    EXPECT_EQ(Plain(window.findChild<QPushButton*>("cmdExportFile")->text()), "New File");
}

TEST_F(ExportWindows, OnlyThePartialListEnablesItsTypes) {
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    auto* rank = window.findChild<QRadioButton*>("optRank");
    EXPECT_FALSE(window.findChild<QGroupBox*>("fraPartial")->isEnabled());
    window.findChild<QRadioButton*>("OptPartial")->click();
    EXPECT_TRUE(rank->isEnabled());
    rank->click();
    EXPECT_TRUE(rank->isChecked());
    EXPECT_TRUE(window.findChild<QRadioButton*>("OptPartial")->isChecked()) << "the frames are apart";
    window.findChild<QRadioButton*>("OptOnline")->click();
    EXPECT_FALSE(rank->isEnabled());
}

TEST_F(ExportWindows, ReturnExportsAndTheFormStays) {
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    WhenModal([](QWidget& modal) {
        modal.findChild<QRadioButton*>("OptPartial")->click();
        modal.findChild<QRadioButton*>("optRank")->click();
        QTest::keyClick(&modal, Qt::Key_Return);
        EXPECT_TRUE(modal.isVisible());
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    window.exec();
    EXPECT_EQ(File("test.qln"), "name|author|rank\r\nAnimalia||Kingdom\r\n");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ExportWindows, NewFileIsAskedFor) {
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    data.prompter.filesToSave = {data.dir.File("other")};
    data.prompter.filesOffered.clear();
    window.findChild<QPushButton*>("cmdExportFile")->click();
    EXPECT_EQ(data.prompter.filesOffered, Texts{data.dir.File("test.qln")});
    EXPECT_EQ(window.findChild<QLabel*>("lblFile")->text().toStdString(),
              "To File: " + data.dir.File("other.EXP"));
}

TEST_F(ExportWindows, LongPathsDoNotWidenTheWindow) {
    data.state.gDataSetPath = "/a/" + std::string(400, 'b') + "/c.mdb";
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    window.show();
    EXPECT_LT(window.width(), window.fontMetrics().averageCharWidth() * 200);
}

TEST_F(ExportWindows, TabOrderFollowsTheLook) {
    exporting::FrmNExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ExportWindow window(form, nullptr);
    QStringList names;
    for (QWidget* next = window.nextInFocusChain(); next != &window; next = next->nextInFocusChain())
        if ((next->focusPolicy() & Qt::TabFocus) != 0 &&
            form.form.Find(next->objectName().toStdString()) != nullptr)
            names << next->objectName();
    EXPECT_EQ(
        names.join(" ").toStdString(),
        "cmdSelectDB cmdExportFile OptDataSet OptOnline OptPartial optName optAuthority optRank optNoFilter "
        "optModified optColumn cboFields cboOperators cboValues cmdOK cmdCancel");
}

TEST_F(ExportWindows, TaggedFormExportsAndCloses) {
    exporting::FrmDExport form(data.state, data.engine, data.prompter, pump, clock, data.dir.path());
    PlainExportWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Export DataSet to File");
    data.prompter.filesToSave = {data.dir.File("out")};
    ASSERT_TRUE(form.AskFile());
    EXPECT_EQ(window.findChild<QLabel*>("lblFile")->text().toStdString(),
              "To File: " + data.dir.File("out.EXP"));
    WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdOK")->click(); });
    window.exec();
    EXPECT_EQ(data.prompter.messages, Texts{"Export Complete!"});
    EXPECT_EQ(File("out.EXP").substr(0, 4), "[TU]");
    EXPECT_EQ(File("time.log"), "Begin Export: 12:34:56\r\nEnd Export: 12:34:56\r\n");
}

TEST_F(ExportWindows, TypeFormKeepsTheTypeForTheListForm) {
    exporting::ListType exportType = exporting::ListType::None;
    exporting::ExpType form(exportType, data.prompter);
    ExportTypeWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Taxonomic Compare Export Type");
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("fraType")->title()), "Taxonomy Data to Export");
    WhenModal([](QWidget& modal) {
        modal.findChild<QRadioButton*>("optAuthority")->click();
        modal.findChild<QPushButton*>("cmdOK")->click();
    });
    window.exec();
    EXPECT_EQ(exportType, exporting::ListType::NameAuthor);
    EXPECT_EQ(data.prompter.forms, Texts{"FrmTExport"});
}

TEST_F(ExportWindows, ListFormExportsTheNames) {
    exporting::FrmTExport form(data.state, data.engine, data.prompter, pump, clock,
                               exporting::ListType::Name);
    PlainExportWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "Export Taxonomy Data to File");
    data.prompter.filesToSave = {data.dir.File("names")};
    ASSERT_TRUE(form.AskFile());
    WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdOK")->click(); });
    window.exec();
    EXPECT_EQ(File("names.TXM"), "name\r\nAnimalia\r\n");
}

// On the desktop every form of the exports is there, and the command of the File menu reaches the main one.
class ExportOnTheDesktop : public testing::Test {
protected:
    ExportOnTheDesktop() {
        program.State().gKingdomName = "Animalia";
        program.State().gPrefRank = "Kingdom";
        prompter.filesToSave.push_back(dir.File("whales.mdb"));
        program.Window().findChild<QAction*>("mnuFNew")->trigger();
    }
    // What the form of that name is called on the screen; it is closed at once.
    QString TitleOf(std::string_view form) {
        QString title;
        WhenModal([&](QWidget& modal) {
            title = modal.windowTitle();
            QTest::keyClick(&modal, Qt::Key_Escape);
        });
        program.Outside().ShowModal(form);
        return title;
    }

    testkit::TempDir dir;
    testkit::ScriptedPrompter prompter;
    DesktopProgram program{&prompter, dir.path()};
};

TEST_F(ExportOnTheDesktop, CommandShowsTheMainForm) {
    program.Window().findChild<QAction*>("mnuFExport")->trigger();
    EXPECT_EQ(prompter.forms, Texts{"FrmNExport"});
    EXPECT_EQ(TitleOf("FrmNExport"), "Export DataSet");
}

TEST_F(ExportOnTheDesktop, FormsWithoutACommandAskForTheirFileWhenShown) {
    prompter.filesToSave = {dir.File("a"), dir.File("b")};
    EXPECT_EQ(TitleOf("FrmDExport"), "Export DataSet to File");
    EXPECT_EQ(TitleOf("FrmTExport"), "Export Taxonomy Data to File");
    EXPECT_EQ(TitleOf("ExpType"), "Taxonomic Compare Export Type");
    prompter.filesToSave = {std::nullopt};
    program.Outside().ShowModal("FrmDExport");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace quillon::ui
