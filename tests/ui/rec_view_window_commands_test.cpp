// The main window's commands, keys and focus, driven as a user drives them.
#include "rec_view_window_fixture.h"

namespace quillon::ui {
namespace {

TEST_F(MainWindow, OpensAnotherDataSet) {
    MakeWhales();
    MakeWhales("second.mdb");
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("second.mdb"));
    program.Explorer().ListDblClick(3);
    prompter.filesToOpen.push_back(dir.File("whales.mdb"));
    action("mnuFOpen")->trigger();
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("whales.mdb"));
    EXPECT_EQ(Rows(), QStringList{"Animalia"});
    EXPECT_EQ(name(), "");
    EXPECT_EQ(panel("mode"), "INPUT");
    EXPECT_EQ(program.State().currentTaxon.qb_id, 0);
}

TEST_F(MainWindow, ARefusedFileLeavesTheDataSetAsItWas) {
    MakeWhales();
    program.Explorer().ListDblClick(3);
    testkit::WriteFile(dir.File("text.mdb"), "no DataSet at all");
    prompter.filesToOpen.push_back(dir.File("text.mdb"));
    action("mnuFOpen")->trigger();
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("whales.mdb"));
    EXPECT_EQ(tree->currentIndex().data(), "Orca  alpha");
    action("alpha")->trigger();
    QTest::keyClicks(list, "gl");
    EXPECT_EQ(list->currentIndex().data(), "Gladiator (invalid)");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(name(), "Gladiator");
}

TEST_F(MainWindow, SaveAsKeepsTheOldDataSetOpen) {
    MakeWhales();
    prompter.filesToSave.push_back(dir.File("copy.mdb"));
    action("mnuFSaveAs")->trigger();
    EXPECT_TRUE(QFile::exists(QString::fromStdString(dir.File("copy.mdb"))));
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("whales.mdb"));
    program.Explorer().ListDblClick(3);
    EXPECT_EQ(name(), "Orca alpha");
}

TEST_F(MainWindow, ShowsTheAboutBoxAndTheImportForm) {
    MakeWhales();
    action("mnuHAbout")->trigger();
    action("mnuFImport")->trigger();
    EXPECT_EQ(prompter.forms, (std::vector<std::string>{"FrmAbout", "FrmImport"}));
}

TEST_F(MainWindow, F6MovesFromTheExplorerToTheRecordAndBack) {
    MakeWhales();
    Activate();
    tree->setFocus();
    QTest::keyClick(&window, Qt::Key_F6);
    EXPECT_TRUE(window.findChild<QComboBox*>("cboRank")->hasFocus());
    QTest::keyClick(&window, Qt::Key_F6);
    EXPECT_TRUE(tree->hasFocus());
}

TEST_F(MainWindow, TheTabKeyLeadsFromTheExplorerToTheRecord) {
    MakeWhales();
    Activate();
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Tab);
    EXPECT_TRUE(window.findChild<QTabBar*>("TabStrip1")->hasFocus());
    QTest::keyClick(window.findChild<QTabBar*>("TabStrip1"), Qt::Key_Tab);
    EXPECT_TRUE(window.findChild<QComboBox*>("cboRank")->hasFocus());
}

TEST_F(MainWindow, WidgetsHaveNamesForAScreenReader) {
    MakeWhales();
    for (const char* name :
         {"HierView", "AlphaView", "TabStrip1", "cboRank", "txtName1", "cboAuth", "chkUnnamed"}) {
        auto* widget = window.findChild<QWidget*>(name);
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(accessible, nullptr) << name;
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << name;
    }
}

TEST_F(MainWindow, BothSidesKeepAMinimumWidth) {
    auto* splitter = window.findChild<QSplitter*>("Splitter");
    EXPECT_FALSE(splitter->childrenCollapsible());
    splitter->setSizes({0, 5000});
    EXPECT_GE(splitter->sizes()[0], splitter->widget(0)->minimumWidth());
    splitter->setSizes({5000, 0});
    EXPECT_GE(splitter->sizes()[1], splitter->widget(1)->minimumWidth());
    EXPECT_GT(splitter->widget(0)->minimumWidth(), 0);
    EXPECT_GT(splitter->widget(1)->minimumWidth(), 0);
}

TEST_F(MainWindow, QuitAsksForAnUnsavedRecordAndClosesTheDataSet) {
    MakeWhales();
    program.State().RecordDirty = true;
    prompter.yesNo.push_back(false);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    prompter.yesNo.push_back(true);
    action("mnuFQuit")->trigger();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(program.State().gDataSetOpen);
}

TEST_F(MainWindow, OpensThePreferredDataSet) {
    MakeWhales();
    program.Lifecycle().CloseDataSet();
    program.State().gPrefDataSet = dir.File("whales.mdb");
    program.OpenPreferredDataSet();
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("whales.mdb"));
    EXPECT_EQ(Rows(), QStringList{"Animalia"});
}

TEST_F(MainWindow, TheToolbarAndItsKeysGoFromNameToName) {
    MakeWhales();
    Activate();
    tree->expand(tree->model()->index(0, 0));
    Click(tree->model()->index(0, 0));
    action("mnuNext")->trigger();
    EXPECT_EQ(name(), "Orca");
    EXPECT_EQ(tree->currentIndex().data(), "Orca  Gray, 1846");
    EXPECT_FALSE(action("mnuNext")->isEnabled());
    EXPECT_TRUE(action("mnuPrev")->isEnabled());
    QTest::keyClick(&window, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(field("cboRank"), "Kingdom");
    EXPECT_FALSE(action("mnuPrev")->isEnabled());
    QTest::keyClick(&window, Qt::Key_End, Qt::AltModifier);
    EXPECT_EQ(name(), "Orca");
}

TEST_F(MainWindow, MovesGoThroughTheListWhileItIsOnShow) {
    MakeWhales();
    action("alpha")->trigger();
    action("mnuFirst")->trigger();
    EXPECT_EQ(field("cboRank"), "Kingdom");
    action("mnuNext")->trigger();
    EXPECT_EQ(name(), "Gladiator");
    EXPECT_EQ(list->currentIndex().row(), 1);
    action("mnuLast")->trigger();
    EXPECT_EQ(name(), "Orca alpha");
    EXPECT_FALSE(action("mnuNext")->isEnabled());
}

TEST_F(MainWindow, WhatIsTypedStaysWhenTheUserStays) {
    MakeWhales();
    Activate();
    tree->expand(tree->model()->index(0, 0));
    Click(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    auto* edit = window.findChild<QLineEdit*>("txtName1");
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, "Orka");
    EXPECT_TRUE(program.State().RecordDirty);
    prompter.yesNo.push_back(false);
    Click(tree->model()->index(0, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree->currentIndex().data() == "Orca  Gray, 1846"; }));
    EXPECT_EQ(edit->text(), "Orka");
    prompter.yesNo.push_back(true);
    action("mnuAdd")->trigger();
    EXPECT_EQ(panel("mode"), "INPUT");
    EXPECT_EQ(window.findChild<QPushButton*>("cmdOK")->text(), "&Save");
}

TEST_F(MainWindow, AListIsFilledWhenItIsOpened) {
    MakeWhales();
    program.Explorer().ListDblClick(3);
    auto* authors = window.findChild<QComboBox*>("cboAuth");
    EXPECT_EQ(authors->count(), 0);
    authors->setFocus();
    QTest::mousePress(authors, Qt::LeftButton);
    EXPECT_EQ(authors->count(), 1);
    EXPECT_EQ(authors->itemText(0), "Gray, 1846");
    authors->hidePopup();
    EXPECT_FALSE(program.State().RecordDirty);
}

TEST_F(MainWindow, KeysTurnTheTabs) {
    MakeWhales();
    Activate();
    auto* tabs = window.findChild<QTabBar*>("TabStrip1");
    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), 0);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_TRUE(window.findChild<QWidget*>("RVPanel2")->isVisible());
    tabs->setCurrentIndex(7);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), 7);
}

TEST_F(MainWindow, ThePanelScrollsInsteadOfShrinking) {
    MakeWhales();
    auto* panel = window.findChild<QWidget*>("RVPanel6");
    auto* across = window.findChild<QScrollBar*>("HScroll1");
    auto* down = window.findChild<QScrollBar*>("VScroll1");
    window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(5);
    const QSize wanted = panel->sizeHint();
    window.resize(300, 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return across->isVisible() && down->isVisible(); }));
    EXPECT_GE(panel->width(), wanted.width());
    EXPECT_GE(panel->height(), wanted.height());
    down->setValue(down->maximum());
    across->setValue(across->maximum());
    EXPECT_GT(down->value(), 0);
    window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(0);
    EXPECT_EQ(down->value(), 0);
    EXPECT_EQ(across->value(), 0);
}

TEST_F(MainWindow, NamesAreCutAndPastedByTheToolbar) {
    MakeWhales();
    AddTaxon(5, "1", 180, "'Cetus', Null", "valid", "Null");
    program.RecView().ShowDataSet();
    program.Explorer().ListDblClick(3);
    action("mnuECut")->trigger();
    EXPECT_TRUE(action("mnuPaste")->isEnabled());
    program.Explorer().ListDblClick(5);
    action("mnuPaste")->trigger();
    EXPECT_EQ(name(), "Orca alpha");
    EXPECT_EQ(field("cboParentName"), "Cetus");
    EXPECT_EQ(tree->currentIndex().data(), "Orca  alpha");
    EXPECT_EQ(tree->currentIndex().parent().data(), "Cetus");
    action("mnuEUndo")->trigger();
    EXPECT_EQ(field("cboParentName"), "Orca");
    EXPECT_EQ(tree->currentIndex().parent().data(), "Orca  Gray, 1846");
    program.State().RecordDirty = false;
}

TEST_F(MainWindow, TheAccessKeysOfATabAreAllDifferent) {
    MakeWhales();
    auto* tabs = window.findChild<QTabBar*>("TabStrip1");
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        program.RecView().SelectExplorerItem(3, false);
        QStringList keys;
        for (const QAction* menu : window.menuBar()->actions())
            keys << QKeySequence::mnemonic(menu->text()).toString();
        for (const QLabel* label : window.findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy() != nullptr)
                keys << QKeySequence::mnemonic(label->text()).toString();
        }
        for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
            if (button->isVisible()) keys << QKeySequence::mnemonic(button->text()).toString();
        }
        keys.removeAll("");
        QStringList once = keys;
        once.removeDuplicates();
        keys.sort();
        once.sort();
        EXPECT_EQ(keys.join(' '), once.join(' ')) << tabs->tabText(tab).toStdString();
    }
}

}  // namespace
}  // namespace quillon::ui
