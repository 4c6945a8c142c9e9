// The main window, driven as a user drives it.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "testkit/testkit.h"
#include "ui/binder.h"
#include "ui/desktop_program.h"
#include "ui/rec_view_commands.h"

namespace quillon::ui {
namespace {

class MainWindow : public testing::Test {
protected:
    MainWindow() {
        program.State().gPrefRank = "Kingdom";
        program.State().gKingdomName = "Animalia";
        window.show();
    }
    void Execute(std::string_view sql) { program.State().gDatabase->Execute(sql); }
    // Animalia > Orca (Gray, 1846) > alpha, [Gladiator].
    void MakeWhales(const char* file = "whales.mdb") {
        prompter.filesToSave.push_back(dir.File(file));
        action("mnuFNew")->trigger();
        Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (1, 'Gray, "
            "1846')");
        AddTaxon(2, "1", 180, "'Orca', Null", "valid", "1");
        AddTaxon(3, "2", 220, "'Orca', 'alpha'", "valid", "Null");
        AddTaxon(4, "Null", 180, "'Gladiator', Null", "invalid", "Null");
        Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (4, 2)");
        program.RecView().ShowDataSet();
        WaitForRows(list->model(), 4);
    }
    void AddTaxon(int id, const char* parent, int rank, const char* names, const char* usage,
                  const char* author) {
        Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, unit_name2, usage, "
            "qb_taxon_author_id, kingdom_id) VALUES (" +
            std::to_string(id) + ", " + parent + ", " + std::to_string(rank) + ", " + names + ", '" + usage +
            "', " + author + ", 5)");
    }
    void WaitForRows(const QAbstractItemModel* model, int rows) {
        EXPECT_TRUE(QTest::qWaitFor([=] { return model->rowCount() == rows; }));
    }
    QAction* action(const char* name) { return window.findChild<QAction*>(name); }
    QString field(const char* name) {
        if (auto* combo = window.findChild<QComboBox*>(name)) return combo->currentText();
        return window.findChild<QLineEdit*>(name)->text();
    }
    // The name as the first tab has it.
    QString name() {
        QStringList units;
        for (const char* unit : {"cboName1", "txtName1", "cboName2", "txtName2", "txtName3"}) {
            auto* widget = window.findChild<QWidget*>(unit);
            if (!widget->isHidden()) units << field(unit);
        }
        return units.join(' ');
    }
    QString panel(const char* name) { return window.findChild<QLabel*>(name)->text(); }
    void Activate() {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // Clicks a node of the tree.
    void Click(const QModelIndex& index) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
    }
    // The visible rows, each with its depth.
    QStringList Rows() {
        QStringList rows;
        for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            int depth = 0;
            for (QModelIndex up = at.parent(); up.isValid(); up = up.parent()) ++depth;
            rows << QString(depth, '>') + at.data().toString();
        }
        return rows;
    }

    testkit::TempDir dir;
    testkit::ScriptedPrompter prompter;
    DesktopProgram program{&prompter, dir.path()};
    RecViewWindow& window = program.Window();
    QTreeView* tree = window.findChild<QTreeView*>("HierView");
    QListView* list = window.findChild<QListView*>("AlphaView");
};

TEST_F(MainWindow, EveryNameHasItsPartner) {
    EXPECT_EQ(NamesWithoutPartner(program.RecView().Controls().form, window).join(" "), "");
}

TEST_F(MainWindow, WithoutADataSetItIsEmptyAndSaysSo) {
    program.OpenPreferredDataSet();
    EXPECT_EQ(window.windowTitle(), "Taxonomic Quillon - No Open DataSet");
    EXPECT_EQ(tree->model()->rowCount(), 0);
    EXPECT_EQ(list->model()->rowCount(), 0);
    EXPECT_TRUE(action("mnuFOpen")->isEnabled());
    action("mnuFImport")->trigger();
    action("mnuFSaveAs")->trigger();
    EXPECT_EQ(prompter.messages,
              (std::vector<std::string>{"A DataSet must be open to import data!", "No DataSet is Open"}));
}

TEST_F(MainWindow, HasTheCommandsInTheirMenus) {
    QStringList menus;
    for (const QAction* top : window.menuBar()->actions()) {
        QStringList items;
        for (const QAction* item : top->menu()->actions()) {
            if (!item->isSeparator()) items << item->text();
        }
        menus << top->text() + ": " + items.join(", ");
    }
    EXPECT_EQ(
        menus.join("\n").toStdString(),
        "&File: &New DataSet, &Open DataSet..., Save &As..., Save Record, &Import..., &Export..., &Validate, "
        "&Reports, P&references, &Quit\n"
        "&Edit: &Undo, Cu&t Name, &Copy Name, Pas&te Name, Delete Name, &Author Edit, &Merge, &Split\n"
        "&Record: Add New Name, Go To &Parent, Go To First Name, Go To Previous Name, Go To Next Name, "
        "Go To Last Name\n"
        "&View: Hierarchy, Alphabetical List\n"
        "&Help: &Contents, &Search For Help On..., &About Taxonomic Quillon");
}

TEST_F(MainWindow, ToolbarsHaveTheirKeys) {
    const auto keys = [&](const char* name) {
        QStringList found;
        for (const QAction* button : window.findChild<QToolBar*>(name)->actions()) {
            if (!button->isSeparator()) found << button->property("key").toString();
        }
        return found.join(" ").toStdString();
    };
    EXPECT_EQ(keys("TBar"),
              "new open save cut copy paste undo delete moveparent movefirst moveprev movenext movelast "
              "addnew help");
    EXPECT_EQ(keys("TBarNavigate"), "hierarchy alpha");
}

TEST_F(MainWindow, ToolTipsNameTheKeyboardShortcut) {
    EXPECT_EQ(action("mnuFOpen")->toolTip(), "Open DataSet (Ctrl+O)");
    EXPECT_EQ(action("alpha")->toolTip(), "Alphabetical List (Ctrl+2)");
}

TEST_F(MainWindow, ShortcutsAndIconsAreEachThereOnce) {
    QStringList shortcuts;
    for (const CommandSpec& command : Commands()) {
        const QAction* made = action(command.name);
        if (!made->shortcut().isEmpty()) shortcuts << made->shortcut().toString();
        if (*command.icon != 0) {
            EXPECT_FALSE(made->icon().pixmap(24, 24).toImage().isNull()) << command.name;
        }
    }
    EXPECT_EQ(shortcuts.removeDuplicates(), 0);
}

TEST_F(MainWindow, CommandsThatAreNotThereYetAreDisabled) {
    MakeWhales();
    for (const char* name : {"mnuSave", "mnuEDelete", "mnuPaste", "mnuEUndo", "mnuPrev", "mnuAuth",
                             "mnuMerge", "mnuSplit", "mnuTaxonomy", "mnuFullRecord"}) {
        EXPECT_FALSE(action(name)->isEnabled()) << name;
    }
    for (const char* name : {"mnuFNew", "mnuFOpen", "mnuFSaveAs", "mnuFImport", "mnuFValidate", "mnuFExport",
                             "mnuFPreferences", "mnuECut", "mnuCopy", "mnuParent", "mnuFirst", "mnuNext",
                             "mnuLast", "mnuAdd", "mnuFQuit", "mnuHContents", "mnuHSearch", "mnuHAbout"}) {
        EXPECT_TRUE(action(name)->isEnabled()) << name;
    }
}

TEST_F(MainWindow, ANewDataSetShowsItsRoot) {
    MakeWhales();
    EXPECT_EQ(window.windowTitle().toStdString(), "Taxonomic Quillon - " + dir.File("whales.mdb"));
    EXPECT_EQ(Rows(), QStringList{"Animalia"});
    EXPECT_EQ(tree->currentIndex().data(), "Animalia");
    EXPECT_EQ(panel("mode"), "INPUT");
    EXPECT_EQ(panel("taxa"), "TAXA: 4");
    EXPECT_EQ(panel("name"), "");
}

TEST_F(MainWindow, TheTreeOpensAsTheUserOpensIt) {
    MakeWhales();
    tree->expand(tree->model()->index(0, 0));
    EXPECT_EQ(Rows(), (QStringList{"Animalia", ">Orca  Gray, 1846"}));
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Right);
    EXPECT_EQ(Rows(),
              (QStringList{"Animalia", ">Orca  Gray, 1846", ">>Orca  alpha", ">>[Invalid] Gladiator"}));
    tree->collapse(tree->model()->index(0, 0));
    EXPECT_EQ(Rows(), QStringList{"Animalia"});
    tree->expand(tree->model()->index(0, 0));
    EXPECT_EQ(Rows().size(), 4);
}

TEST_F(MainWindow, AClickShowsTheTaxon) {
    MakeWhales();
    tree->expand(tree->model()->index(0, 0));
    Click(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    EXPECT_EQ(name(), "Orca");
    EXPECT_EQ(field("cboRank"), "Genus");
    EXPECT_EQ(field("cboAuth"), "Gray, 1846");
    EXPECT_TRUE(window.findChild<QRadioButton*>("optValid")->isChecked());
    EXPECT_EQ(field("cboDPRank") + " " + field("cboParentName"), "Kingdom Animalia  ");
    EXPECT_EQ(window.findChild<QLabel*>("lblName1")->text(), "Genus");
    EXPECT_TRUE(window.findChild<QLineEdit*>("txtTSN")->isReadOnly());
    EXPECT_EQ(panel("name"), "Orca");
    EXPECT_EQ(panel("mode"), "EDIT");
    EXPECT_EQ(program.State().currentTaxon.qb_id, 2);
}

TEST_F(MainWindow, AClickOnTheRootThatIsAlreadyCurrentShowsItToo) {
    MakeWhales();
    Click(tree->model()->index(0, 0));
    EXPECT_EQ(program.State().currentTaxon.qb_id, 1);
    EXPECT_EQ(field("cboRank"), "Kingdom");
}

TEST_F(MainWindow, TheKeyboardMovesThroughTheTree) {
    MakeWhales();
    tree->expand(tree->model()->index(0, 0));
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_EQ(program.State().currentTaxon.qb_id, 2);
}

TEST_F(MainWindow, StayingOnAnUnsavedRecordPutsTheSelectionBack) {
    MakeWhales();
    tree->expand(tree->model()->index(0, 0));
    Click(tree->model()->index(0, 0));
    program.State().RecordDirty = true;
    prompter.yesNo.push_back(false);
    Click(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree->currentIndex() == tree->model()->index(0, 0); }));
    EXPECT_EQ(program.State().currentTaxon.qb_id, 1);
    EXPECT_EQ(field("cboRank"), "Kingdom");
    EXPECT_EQ(prompter.titles.back(), "Losing new/modified record");
    program.State().RecordDirty = false;
}

TEST_F(MainWindow, TheToolbarTogglesTheTwoViews) {
    MakeWhales();
    EXPECT_TRUE(tree->isVisible());
    action("alpha")->trigger();
    EXPECT_TRUE(list->isVisible());
    EXPECT_FALSE(tree->isVisible());
    EXPECT_TRUE(action("alpha")->isChecked());
    EXPECT_FALSE(action("hierarchy")->isChecked());
    action("hierarchy")->trigger();
    EXPECT_TRUE(tree->isVisible());
}

TEST_F(MainWindow, TheListShowsAllTaxaAndStandsOnTheCurrentOne) {
    MakeWhales();
    tree->expand(tree->model()->index(0, 0));
    Click(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    action("alpha")->trigger();
    QStringList lines;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        lines << list->model()->index(row, 0).data().toString();
    EXPECT_EQ(lines, (QStringList{"Animalia (valid)", "Gladiator (invalid)", "Orca Gray, 1846 (valid)",
                                  "Orca alpha (valid)"}));
    EXPECT_EQ(list->currentIndex().row(), 2);
}

TEST_F(MainWindow, AClickInTheListShowsTheTaxonAndItsPlaceInTheTree) {
    MakeWhales();
    action("alpha")->trigger();
    const QModelIndex gladiator = list->model()->index(1, 0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(gladiator).center());
    EXPECT_EQ(name(), "Gladiator");
    EXPECT_TRUE(window.findChild<QRadioButton*>("optInvalid")->isChecked());
    EXPECT_EQ(tree->currentIndex().data(), "[Invalid] Gladiator");
    EXPECT_EQ(tree->currentIndex().parent().data(), "Orca  Gray, 1846");
}

TEST_F(MainWindow, TypedKeysFindALineAndReturnShowsIt) {
    MakeWhales();
    action("alpha")->trigger();
    list->setFocus();
    QTest::keyClicks(list, "orca a");
    EXPECT_EQ(list->currentIndex().data(), "Orca alpha (valid)");
    EXPECT_EQ(program.State().currentTaxon.qb_id, 0);
    QTest::keyClick(list, Qt::Key_Backspace);
    EXPECT_EQ(list->currentIndex().data(), "Orca Gray, 1846 (valid)");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(program.State().currentTaxon.qb_id, 2);
    QInputMethodEvent commit;
    commit.setCommitString("g");
    QApplication::sendEvent(list, &commit);
    EXPECT_EQ(list->currentIndex().data(), "Gladiator (invalid)");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(program.Explorer().ListId(), 2) << "arrows move in the list";
}

TEST_F(MainWindow, TheTabsShowTheirPages) {
    MakeWhales();
    auto* tabs = window.findChild<QTabBar*>("TabStrip1");
    QStringList captions;
    for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
    EXPECT_EQ(captions.join("|"),
              "Taxon|Vernaculars|Synonyms|Distribution|Comments|Publications|Experts|Other Sources");
    EXPECT_TRUE(window.findChild<QWidget*>("RVPanel1")->isVisible());
    tabs->setCurrentIndex(2);
    EXPECT_TRUE(window.findChild<QWidget*>("RVPanel3")->isVisible());
    EXPECT_FALSE(window.findChild<QWidget*>("RVPanel1")->isVisible());
}

TEST_F(MainWindow, TheDistributionOfAHigherRankIsDisabledAndSaysSo) {
    MakeWhales();
    const std::string text =
        "You cannot enter any geographical and/or jurisdictional data when editing ranks above the species "
        "level.  "
        "This screen is currently disabled!";
    program.Explorer().ListDblClick(3);
    window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(3);
    EXPECT_TRUE(prompter.messages.empty());
    EXPECT_TRUE(window.findChild<QWidget*>("RVPanel4")->isEnabled());
    program.Explorer().ListDblClick(2);
    EXPECT_EQ(prompter.messages, std::vector<std::string>{text});
    EXPECT_FALSE(window.findChild<QWidget*>("RVPanel4")->isEnabled());
    EXPECT_EQ(program.RecView().Controls().TabStrip1.SelectedIndex(), 4);
}

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

TEST_F(MainWindow, F6GoesFromTheExplorerToTheRecordAndBack) {
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
        program.RecView().SelectExplorerItem({3, 0, 0}, false);
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
