#include "ui/binder.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "documentation/pick_list.h"
#include "ui/text_convert.h"

namespace quillon::ui {
namespace {

struct SampleForm {
    Form form{"FrmSample"};
    ButtonControl cmdOK{form, "cmdOK", "&Save"};
    ButtonControl mnuSave{form, "mnuSave", "Save Record"};
    CheckControl chkUnnamed{form, "chkUnnamed", "Unnamed"};
    OptionControl optValid{form, "optValid", "usage", "Valid"};
    OptionControl optInvalid{form, "optInvalid", "usage", "Invalid"};
    LabelControl lblName{form, "lblName", "Name"};
    LabelControl fraUsage{form, "fraUsage", "Usage"};
    TextControl txtName{form, "txtName", 6};
    TextControl txtComment{form, "txtComment"};
    ComboControl cboRank{form, "cboRank", ComboControl::Style::ListOnly};
    ComboControl cboAuth{form, "cboAuth"};
    ListControl lstNames{form, "lstNames"};
    GridControl grdComments{form, "grdComments", {{"Comment"}, {"ID", true}}};
    GaugeControl Gauge1{form, "Gauge1"};
    TabStripControl TabStrip1{form, "TabStrip1", {{"taxon", "Taxon"}, {"experts", "Experts"}}};
};

class BinderTest : public testing::Test {
protected:
    template <typename T>
    T* Make(const char* objectName) {
        auto* widget = new T(&window);
        widget->setObjectName(objectName);
        return widget;
    }
    void SetUp() override {
        sample.form.SetTitle("Sample");
        Bind(sample.form, window);
        window.show();
    }

    SampleForm sample;
    QWidget window;
    QPushButton* ok = Make<QPushButton>("cmdOK");
    QAction* save = Make<QAction>("mnuSave");
    QCheckBox* unnamed = Make<QCheckBox>("chkUnnamed");
    QGroupBox* frame = Make<QGroupBox>("fraUsage");
    QRadioButton* valid = Make<QRadioButton>("optValid");
    QRadioButton* invalid = Make<QRadioButton>("optInvalid");
    QLabel* label = Make<QLabel>("lblName");
    QLineEdit* name = Make<QLineEdit>("txtName");
    QPlainTextEdit* comment = Make<QPlainTextEdit>("txtComment");
    QComboBox* rank = Make<QComboBox>("cboRank");
    QComboBox* author = Make<QComboBox>("cboAuth");
    QListWidget* list = Make<QListWidget>("lstNames");
    QTableWidget* grid = Make<QTableWidget>("grdComments");
    QProgressBar* gauge = Make<QProgressBar>("Gauge1");
    QTabBar* tabs = Make<QTabBar>("TabStrip1");
};

TEST_F(BinderTest, EveryNameHasItsPartner) {
    EXPECT_EQ(NamesWithoutPartner(sample.form, window).join(" "), "");
    delete name;
    rank->setObjectName("cboRang");
    Make<QLabel>("cboRank");
    EXPECT_EQ(NamesWithoutPartner(sample.form, window).join(" "), "txtName cboRank cboRang");
}

TEST_F(BinderTest, ShowsTheStateOfTheModel) {
    EXPECT_EQ(window.windowTitle(), "Sample");
    sample.form.SetTitle("Other");
    EXPECT_EQ(window.windowTitle(), "Other");
    sample.cmdOK.SetCaption("&Save Changes");
    sample.cmdOK.SetEnabled(false);
    EXPECT_EQ(ok->text(), "&Save Changes");
    EXPECT_FALSE(ok->isEnabled());
    sample.mnuSave.SetEnabled(false);
    EXPECT_FALSE(save->isEnabled());
    EXPECT_EQ(save->text(), "Save Record");
    sample.lblName.SetVisible(false);
    EXPECT_FALSE(label->isVisible());
    sample.fraUsage.SetCaption("Valid Name");
    EXPECT_EQ(frame->title(), "Valid Name");
    sample.txtComment.SetText("two\nlines");
    EXPECT_EQ(comment->toPlainText(), "two\nlines");
    sample.Gauge1.SetValue(40);
    EXPECT_EQ(gauge->value(), 40);
    sample.TabStrip1.SetSelectedIndex(2);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(tabs->tabText(1), "Experts");
}

TEST_F(BinderTest, AButtonRunsItsRule) {
    int clicks = 0;
    sample.cmdOK.OnClick([&] { ++clicks; });
    sample.mnuSave.OnClick([&] { clicks += 10; });
    QTest::mouseClick(ok, Qt::LeftButton);
    save->trigger();
    EXPECT_EQ(clicks, 11);
}

TEST_F(BinderTest, OptionsAndChecksFollowEachOther) {
    QTest::mouseClick(unnamed, Qt::LeftButton, {}, QPoint(5, unnamed->height() / 2));
    EXPECT_TRUE(sample.chkUnnamed.Value());
    valid->click();
    EXPECT_TRUE(sample.optValid.Value());
    invalid->click();
    EXPECT_FALSE(sample.optValid.Value());
    EXPECT_TRUE(sample.optInvalid.Value());
    EXPECT_FALSE(valid->isChecked());
    sample.chkUnnamed.SetLocked(true);
    unnamed->click();
    EXPECT_TRUE(unnamed->isChecked()) << "a locked check goes back";
}

TEST_F(BinderTest, NoneOfTheOptionsMayBeChosen) {
    sample.optInvalid.SetValue(true);
    EXPECT_TRUE(invalid->isChecked());
    sample.optInvalid.SetValue(false);
    EXPECT_FALSE(valid->isChecked() || invalid->isChecked());
    QTest::mouseClick(valid, Qt::LeftButton);
    EXPECT_TRUE(sample.optValid.Value());
}

TEST_F(BinderTest, TypedTextReachesTheModelWithinItsBounds) {
    int edits = 0;
    sample.txtName.OnEdit([&] { ++edits; });
    QTest::keyClicks(name, "Orcinus");
    EXPECT_EQ(sample.txtName.Text(), "Orcinu");
    EXPECT_EQ(name->text(), "Orcinu");
    EXPECT_EQ(edits, 6);
    sample.txtName.SetText("Delphinus");
    EXPECT_EQ(name->text(), "Delphinus");
    EXPECT_EQ(edits, 6);
    sample.txtName.SetLocked(true);
    EXPECT_TRUE(name->isReadOnly());
}

TEST_F(BinderTest, AComboOffersItsChoices) {
    sample.cboRank.SetTexts({"Genus", "Species"});
    EXPECT_EQ(rank->count(), 2);
    EXPECT_FALSE(rank->isEditable());
    QTest::keyClick(rank, Qt::Key_Down);
    QTest::keyClick(rank, Qt::Key_Down);
    EXPECT_EQ(sample.cboRank.Text(), "Species");
    sample.cboAuth.SetTexts({"Gray, 1846"});
    QTest::keyClicks(author->lineEdit(), "Gill");
    EXPECT_EQ(sample.cboAuth.Text(), "Gill");
    EXPECT_EQ(author->currentText(), "Gill");
}

TEST_F(BinderTest, ListsAndGridsReportTheSelection) {
    sample.lstNames.SetTexts({"Orca", "Tursiops"});
    list->setCurrentRow(1);
    EXPECT_EQ(sample.lstNames.ListIndex(), 1);
    sample.grdComments.AddRow({"first", "1"});
    sample.grdComments.AddRow({"second", "2"});
    EXPECT_TRUE(grid->isColumnHidden(1));
    EXPECT_EQ(grid->item(1, 0)->text(), "second");
    grid->setCurrentCell(1, 0);
    EXPECT_EQ(sample.grdComments.SelectedRow(), 1);
}

TEST_F(BinderTest, ACellThatIsCutHasAToolTip) {
    sample.grdComments.AddRow({"short", "1"});
    sample.grdComments.AddRow({QString(40, 'l').toStdString() + " & more", "2"});
    grid->resize(600, 200);
    grid->setColumnWidth(0, 100);
    const auto tipAt = [&](int row) {
        const QPoint at = grid->visualItemRect(grid->item(row, 0)).topLeft() + QPoint(4, 4);
        QHelpEvent event(QEvent::ToolTip, at, grid->viewport()->mapToGlobal(at));
        QApplication::sendEvent(grid->viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(0), "");
    grid->setColumnWidth(0, 1000);
    EXPECT_EQ(tipAt(1), "") << "it is whole";
    grid->setColumnWidth(0, 100);
    EXPECT_EQ(tipAt(1), QString(40, 'l') + " &amp; more");
}

TEST_F(BinderTest, AGridThatLosesItsRowsLosesItsSelection) {
    sample.grdComments.AddRow({"first", "1"});
    grid->setCurrentCell(0, 0);
    sample.grdComments.SetRows({{"other", "3"}, {"last", "4"}});
    EXPECT_EQ(grid->currentRow(), -1);
    EXPECT_TRUE(grid->selectedItems().isEmpty());
    grid->setCurrentCell(0, 0);
    EXPECT_EQ(sample.grdComments.SelectedRow(), 0);
    sample.grdComments.SetSelectedRow(1);
    EXPECT_EQ(grid->selectedItems().front()->text(), "last");
}

TEST_F(BinderTest, AGridKeepsTheWidthsThatTheUserGaveIt) {
    sample.grdComments.AddRow({"first", "1"});
    grid->setColumnWidth(0, 321);
    sample.grdComments.SetRows({{"other", "3"}});
    sample.grdComments.SetHeading(0, "Remark");
    EXPECT_EQ(grid->columnWidth(0), 321);
    EXPECT_EQ(grid->horizontalHeaderItem(0)->text(), "Remark");
    EXPECT_EQ(grid->item(0, 0)->text(), "other");
    EXPECT_TRUE(grid->isColumnHidden(1));
}

TEST_F(BinderTest, AThousandRowsAreAddedAndRemoved) {
    std::vector<GridControl::Row> rows;
    for (int i = 0; i < 1000; ++i) rows.push_back({"comment " + std::to_string(i), std::to_string(i)});
    sample.grdComments.SetRows(rows);
    ASSERT_EQ(grid->rowCount(), 1000);
    EXPECT_EQ(grid->item(999, 0)->text(), "comment 999");
    sample.grdComments.RemoveRow(0);
    EXPECT_EQ(grid->rowCount(), 999);
    EXPECT_EQ(grid->item(0, 1)->text(), "1");
    sample.grdComments.Clear();
    EXPECT_EQ(grid->rowCount(), 0);
}

class LateChoices : public BinderTest {
protected:
    void SetUp() override {
        BinderTest::SetUp();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        Offer();
    }
    void Offer() {
        sample.cboAuth.SetChoicesLater([this]() -> std::vector<ChoiceControl::Choice> {
            ++reads;
            return {{"Gill, 1860", 3}, {"Gray, 1846", 4}};
        });
    }
    int reads = 0;
};

TEST_F(LateChoices, AreReadWhenTheUserOpensTheList) {
    sample.cboAuth.SetText("Gray, 1846");
    author->setFocus();
    QTest::keyClick(author->lineEdit(), Qt::Key_Right);
    QTest::keyClick(author->lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(author->count(), 0);
    author->setFocus();
    QTest::keyClick(author->lineEdit(), Qt::Key_Up);
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(author->count(), 2);
    EXPECT_EQ(author->currentText(), "Gill, 1860") << "the one above";
    EXPECT_EQ(sample.cboAuth.ListIndex(), 0);
    Offer();
    EXPECT_EQ(author->count(), 0);
    EXPECT_EQ(author->currentText(), "Gill, 1860");
    EXPECT_EQ(reads, 1);
}

TEST_F(LateChoices, TheFirstKeyReplacesWhatWasSelected) {
    sample.cboAuth.SetText("Owen");
    author->setFocus();
    author->lineEdit()->selectAll();
    QTest::keyClicks(author->lineEdit(), "x");
    EXPECT_EQ(author->currentText(), "x");
    EXPECT_EQ(sample.cboAuth.Text(), "x");
    EXPECT_EQ(reads, 1);
}

TEST_F(LateChoices, WhatIsCompletedReachesTheModel) {
    author->setFocus();
    QTest::keyClicks(author->lineEdit(), "Gr");
    EXPECT_EQ(author->currentText(), "Gray, 1846");
    EXPECT_EQ(sample.cboAuth.Text(), "Gray, 1846");
    EXPECT_EQ(sample.cboAuth.ListIndex(), 1);
    EXPECT_EQ(author->lineEdit()->selectedText(), "ay, 1846");
    QCoreApplication::processEvents();
    EXPECT_EQ(author->lineEdit()->selectedText(), "ay, 1846");
    EXPECT_EQ(author->currentIndex(), 1);
    QTest::keyClicks(author->lineEdit(), "o");
    EXPECT_EQ(author->currentText(), "Gro");
    EXPECT_EQ(sample.cboAuth.Text(), "Gro");
    EXPECT_EQ(sample.cboAuth.ListIndex(), -1);
}

TEST_F(LateChoices, TypingInTheMiddleKeepsItsPlace) {
    sample.cboAuth.SetText("Gll, 1860");
    author->setFocus();
    author->lineEdit()->setCursorPosition(1);
    QTest::keyClicks(author->lineEdit(), "i");
    EXPECT_EQ(author->currentText(), "Gill, 1860");
    EXPECT_EQ(author->lineEdit()->cursorPosition(), 2);
    EXPECT_EQ(sample.cboAuth.ListIndex(), 0);
}

TEST_F(LateChoices, TheWheelOverAFieldWithoutTheFocusChangesNothing) {
    sample.cboRank.SetTexts({"Genus", "Species"});
    sample.cboRank.SetText("Genus");
    const auto turn = [this] {
        QWheelEvent wheel(QPointF(3, 3), rank->mapToGlobal(QPointF(3, 3)), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);  // as from the mouse: it may give the focus
        qApp->notify(rank, &wheel);
    };
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    author->setFocus();
    turn();
    turn();
    EXPECT_EQ(sample.cboRank.Text(), "Genus");
    EXPECT_TRUE(author->hasFocus());
    rank->setFocus();
    turn();
    EXPECT_EQ(sample.cboRank.Text(), "Species");
}

TEST(PickListBinding, ReportsDropDownPickAndLeaving) {
    Form form("FrmSample");
    documentation::PickListControl cboTitle(form, "cboTitle");
    QWidget window;
    QComboBox title(&window);
    title.setObjectName("cboTitle");
    QLineEdit other(&window);
    std::string events;
    cboTitle.OnDropDown([&] {
        events += "drop down;";
        cboTitle.SetTexts({"Mammals", "Whales"});
    });
    cboTitle.OnPick([&] { events += "pick " + cboTitle.Text() + ";"; });
    Bind(form, window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    title.setFocus();
    QTest::keyClick(&title, Qt::Key_Down);
    EXPECT_EQ(events, "drop down;pick Mammals;");
    cboTitle.Refilled();
    EXPECT_FALSE(cboTitle.LeftSinceRefill());
    other.setFocus();
    EXPECT_TRUE(cboTitle.LeftSinceRefill());
}

TEST_F(BinderTest, ARefusedOptionGoesBack) {
    sample.optValid.SetValue(true);
    sample.optInvalid.OnChoosing([] { return false; });
    QTest::mouseClick(invalid, Qt::LeftButton);
    EXPECT_TRUE(valid->isChecked());
    EXPECT_FALSE(invalid->isChecked());
}

TEST_F(BinderTest, AControlTakesTheFocus) {
    QApplication::setActiveWindow(&window);
    name->setFocus();
    sample.cboRank.TakeFocus();
    EXPECT_TRUE(rank->hasFocus());
    sample.txtComment.TakeFocus();
    EXPECT_TRUE(comment->hasFocus());
    sample.cboRank.SetEnabled(false);
    sample.cboRank.TakeFocus();
    EXPECT_TRUE(comment->hasFocus()) << "a disabled field takes no focus";
}

TEST_F(BinderTest, ATabThatIsClickedIsSelected) {
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    EXPECT_EQ(sample.TabStrip1.SelectedKey(), "experts");
}

TEST_F(BinderTest, AltAndTheLetterOfADisabledButtonTypesNothing) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    int clicks = 0;
    sample.cmdOK.OnClick([&] { ++clicks; });
    name->setFocus();
    QTest::keyClick(name, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 1; }));
    sample.cmdOK.SetEnabled(false);
    name->setFocus();
    QTest::keyClick(name, Qt::Key_S, Qt::AltModifier);
    author->setFocus();
    QTest::keyClick(author, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(sample.txtName.Text() + sample.cboAuth.Text(), "");
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(author, Qt::Key_S);
    EXPECT_EQ(sample.cboAuth.Text(), "s");
}

TEST_F(BinderTest, ALongTextShowsItsBeginning) {
    const QString text(60, 'x');
    sample.txtName.SetText(FromQt(text));
    EXPECT_EQ(name->cursorPosition(), 0);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    author->setFocus();
    QTest::keyClicks(author->lineEdit(), text);
    EXPECT_EQ(author->lineEdit()->cursorPosition(), text.size()) << "while it is typed";
    name->setFocus();
    QTest::keyClick(name, Qt::Key_End);
    comment->setFocus();
    EXPECT_EQ(author->lineEdit()->cursorPosition(), 0);
    EXPECT_EQ(name->cursorPosition(), 0);
}

TEST_F(BinderTest, AWidgetMayGoBeforeTheForm) {
    delete name;
    sample.txtName.SetText("Orca");
    EXPECT_EQ(sample.txtName.Text(), "Orca");
}

}  // namespace
}  // namespace quillon::ui
