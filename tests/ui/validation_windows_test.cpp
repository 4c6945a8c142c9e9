// frmValidate and FrmVError on the screen, and the way from the main window to them and from a finding back.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <filesystem>

#include "plain_caption.h"
#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/validate_window.h"
#include "ui/validation_error_window.h"
#include "when_modal.h"

namespace quillon::ui {
namespace {

// Animalia, and Orca without ratings, author or reference.
class ValidationWindows : public testing::Test {
protected:
    ValidationWindows() {
        data.Make("Animalia");
        data.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, parent_qb_id, kingdom_id, rank_id) "
            "VALUES (2, 'Orca', 'valid', 1, 5, 180)");
    }

    testkit::DataSetFixture data;
    testkit::NullPump pump;
    testkit::FixedClock clock;
    validation::FindingMarks marks;
};

TEST_F(ValidationWindows, ShowsTheDataSetAndTheFilter) {
    validation::frmValidate form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ValidateWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
    EXPECT_EQ(window.windowTitle(), "DataSetValidation");
    EXPECT_EQ(Plain(window.findChild<QLabel*>("lblValidate")->text()), "Perform Validation for DataSet");
    auto* path = window.findChild<QLineEdit*>("txtValidate");
    EXPECT_EQ(path->text().toStdString(), data.state.gDataSetPath);
    EXPECT_TRUE(path->isReadOnly());
    EXPECT_EQ(Plain(window.findChild<QGroupBox*>("fraFilter")->title()), "Filter Validated  Records");
    EXPECT_EQ(Plain(window.findChild<QRadioButton*>("optModified")->text()),
              "Validate only Changed and New Records");
    EXPECT_EQ(window.findChild<QPushButton*>("cmdContinue")->text(), "&Continue");
    auto* fields = window.findChild<QComboBox*>("cboFields");
    EXPECT_FALSE(fields->isEnabled());
    EXPECT_EQ(fields->currentText(), "taxonomic_credibility_rating");
    window.findChild<QRadioButton*>("optColumn")->click();
    EXPECT_TRUE(fields->isEnabled());
}

TEST_F(ValidationWindows, TypedConditionFiltersTheRun) {
    validation::frmValidate form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ValidateWindow window(form, nullptr);
    WhenModal([](QWidget& modal) {
        modal.findChild<QRadioButton*>("optColumn")->click();
        for (const auto& [name, text] : {std::pair("cboFields", "unit_name1"), std::pair("cboOperators", "="),
                                         std::pair("cboValues", "Delphinus")}) {
            QLineEdit* edit = modal.findChild<QComboBox*>(name)->lineEdit();
            edit->selectAll();
            QTest::keyClicks(edit, text);
        }
        QTest::keyClick(modal.findChild<QComboBox*>("cboValues")->lineEdit(), Qt::Key_Return);
    });
    window.exec();
    EXPECT_EQ(data.state.gRecordFilter, " WHERE unit_name1 = \"Delphinus\"");
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>{"Validation Complete -- No Errors!"});
    EXPECT_EQ(window.findChild<QProgressBar*>("Gauge1")->value(), 0);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ValidationWindows, ContinueOffersTheLog) {
    validation::frmValidate form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ValidateWindow window(form, nullptr);
    data.prompter.yesNo = {true};
    WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdContinue")->click(); });
    window.exec();
    EXPECT_EQ(data.prompter.forms, std::vector<std::string>{"FrmVError"});
    EXPECT_EQ(window.findChild<QProgressBar*>("Gauge1")->value(), 100);
}

TEST_F(ValidationWindows, EscapeClosesAnIdleForm) {
    validation::frmValidate form(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks);
    ValidateWindow window(form, nullptr);
    WhenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    window.exec();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(data.state.gBatchCancel);
}

// The log of a run over Orca, shown.
class ErrorWindow : public ValidationWindows {
protected:
    ErrorWindow() {
        data.prompter.yesNo = {false};
        validation::frmValidate(data.state, data.engine, data.prompter, pump, clock, data.dir.path(), marks)
            .Continue();
        form = std::make_unique<validation::FrmVError>(
            data.state, data.prompter, pump, data.dir.path(), marks, [this](int qb_id, std::string_view tab) {
                visited << QString("%1 %2").arg(qb_id).arg(QString::fromUtf8(tab.data(), tab.size()));
            });
        window = std::make_unique<ValidationErrorWindow>(*form, nullptr);
        list = window->findChild<QListView*>("lstError");
        window->show();
    }
    QStringList Lines() const {
        QStringList lines;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            lines << list->model()->index(row, 0).data().toString();
        return lines;
    }

    std::unique_ptr<validation::FrmVError> form;
    std::unique_ptr<ValidationErrorWindow> window;
    QListView* list = nullptr;
    QStringList visited;
};

const QStringList kLines = {
    "ID =  2   Name = Orca",
    "     a taxonomic credibility rating is required for all records",
    "     a taxonomic completeness rating (coverage) is required for ranks of Genus and above",
    "     a currency rating is required for ranks of Genus and above",
    "     an authority is required for records with a rank of Genus or lower",
    "     at least one reference is required"};

TEST_F(ErrorWindow, ShowsTheLinesAndTheirCounts) {
    EXPECT_EQ(NamesWithoutPartner(form->form, *window).join(" "), "");
    EXPECT_EQ(window->windowTitle(), "Validation Error Log");
    EXPECT_EQ(Lines(), kLines);
    EXPECT_EQ(window->findChild<QLabel*>("lblCounts")->text(),
              "5 findings: 1 credibility missing, 1 completeness missing, 1 currency missing, "
              "1 author missing, 1 reference missing");
    EXPECT_EQ(window->findChild<QPushButton*>("cmdSave")->text(), "&Save Log As...");
    EXPECT_EQ(window->findChild<QPushButton*>("cmdOK")->text(), "E&xit");
}

TEST_F(ErrorWindow, FilterNarrowsTheList) {
    QTest::keyClicks(window->findChild<QLineEdit*>("txtFilter"), "currency");
    EXPECT_EQ(Lines(), (QStringList{kLines[0], kLines[3]}));
    EXPECT_EQ(window->findChild<QLabel*>("lblCounts")->text(), "1 finding: 1 currency missing");
}

TEST_F(ErrorWindow, DoubleClickShowsTheTaxonOnTheTabOfTheFault) {
    const QPoint place = list->visualRect(list->model()->index(5, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, {20, place.y()});
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, {20, place.y()});
    EXPECT_EQ(visited, QStringList{"2 publications"});
    EXPECT_EQ(form->lstError.ListIndex(), 5);
}

TEST_F(ErrorWindow, ReturnShowsTheTaxonAndLeavesTheLogOpen) {
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(visited, QStringList{"2 taxon"});
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ErrorWindow, ListFillsTheFormAboveTheButtons) {
    window->resize(700, 500);
    QCoreApplication::processEvents();
    const int before = list->height();
    window->resize(700, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(list->height(), before + 200);
    EXPECT_GT(window->findChild<QPushButton*>("cmdOK")->y(), list->geometry().bottom());
}

// The main window over a DataSet with faults, and the log beside it.
class ValidationOnTheDesktop : public testing::Test {
protected:
    void SetUp() override {
        program.State().gKingdomName = "Animalia";
        program.State().gPrefRank = "Kingdom";
        program.Window().show();
        prompter.filesToSave.push_back(dir.File("whales.mdb"));
        program.Window().findChild<QAction*>("mnuFNew")->trigger();
        program.State().gDatabase->Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, parent_qb_id, kingdom_id, rank_id) "
            "VALUES (2, 'Orca', 'valid', 1, 5, 180)");
        program.State().gDatabase->Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, kingdom_id, rank_id) "
            "VALUES (3, 'Orka', 'invalid', 5, 180)");
        program.State().gDatabase->Execute(
            "INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (3, 2)");
        program.RecView().ShowDataSet();
    }
    void Validate() {
        prompter.yesNo = {false};
        WhenModal([](QWidget& modal) { modal.findChild<QPushButton*>("cmdContinue")->click(); });
        program.Outside().ShowModal("frmValidate");
    }
    QWidget* Log() {
        for (auto* window : program.Window().findChildren<ValidationErrorWindow*>())
            if (window->isVisible()) return window;
        return nullptr;
    }
    // Double clicks the line behind the first that holds the text.
    void GoToLineBehind(const QString& text) {
        auto* list = Log()->findChild<QListView*>("lstError");
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            if (!list->model()->index(row, 0).data().toString().contains(text)) continue;
            list->setCurrentIndex(list->model()->index(row + 1, 0));
            break;
        }
        QTest::keyClick(list, Qt::Key_Return);
    }
    QString NameShown() {
        const auto* genus = program.Window().findChild<QComboBox*>("cboName1");
        return genus->isVisible() ? genus->currentText()
                                  : program.Window().findChild<QLineEdit*>("txtName1")->text();
    }

    testkit::TempDir dir;
    testkit::ScriptedPrompter prompter;
    DesktopProgram program{&prompter, dir.path()};
};

TEST_F(ValidationOnTheDesktop, CommandShowsTheForm) {
    program.Window().findChild<QAction*>("mnuFValidate")->trigger();
    EXPECT_EQ(prompter.forms, std::vector<std::string>{"frmValidate"});
}

TEST_F(ValidationOnTheDesktop, FindingsAreWorkedThroughBesideTheMainWindow) {
    Validate();
    program.Outside().ShowModal("FrmVError");
    ASSERT_NE(Log(), nullptr) << "it is shown, and the program goes on";
    EXPECT_FALSE(Log()->isModal());
    EXPECT_TRUE(program.Window().isEnabled());
    GoToLineBehind("at least one");
    GoToLineBehind("Name = Orka");
    EXPECT_EQ(program.State().currentTaxon.qb_id, 3);
    EXPECT_EQ(program.RecView().Controls().TabStrip1.SelectedKey(), "taxon");
    EXPECT_EQ(NameShown(), "Orka") << "in the form at once";
    GoToLineBehind("Name = Orca");
    EXPECT_EQ(program.State().currentTaxon.qb_id, 2);
    EXPECT_EQ(NameShown(), "Orca");
    EXPECT_NE(Log(), nullptr);
}

TEST_F(ValidationOnTheDesktop, LogIsDeletedWhenItIsClosed) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    Validate();
    program.Outside().ShowModal("FrmVError");
    EXPECT_TRUE(std::filesystem::exists(dir.File("validate.log")));
    Log()->findChild<QPushButton*>("cmdOK")->click();
    EXPECT_EQ(Log(), nullptr);
    EXPECT_FALSE(std::filesystem::exists(dir.File("validate.log")));
    std::filesystem::current_path(before);
}

TEST_F(ValidationOnTheDesktop, NextRunClosesTheOldLog) {
    Validate();
    program.Outside().ShowModal("FrmVError");
    Validate();
    EXPECT_EQ(Log(), nullptr);
    EXPECT_TRUE(std::filesystem::exists(dir.File("validate.log"))) << "the log of the new run";
}

// Its log takes the place of the one on show, whose marks would lead to the wrong records.
TEST_F(ValidationOnTheDesktop, ExportForTheOnlineSystemClosesTheOldLogAndSaysSo) {
    Validate();
    program.Outside().ShowModal("FrmVError");
    ASSERT_NE(Log(), nullptr);
    prompter.yesNo = {false};
    const auto exportAs = [this](const char* option) {
        WhenModal([option](QWidget& modal) {
            modal.findChild<QRadioButton*>(option)->click();
            modal.findChild<QPushButton*>("cmdOK")->click();
            modal.close();
        });
        program.Outside().ShowModal("FrmNExport");
    };
    exportAs("OptPartial");
    EXPECT_NE(Log(), nullptr) << "it writes no log";
    prompter.yesNo = {true, false};
    exportAs("OptOnline");
    EXPECT_EQ(Log(), nullptr);
    EXPECT_TRUE(std::filesystem::exists(dir.File("validate.log"))) << "the log of the export";
    EXPECT_EQ(program.Window().statusBar()->currentMessage(), "The log of the last validation was closed.");
}

}  // namespace
}  // namespace quillon::ui
