// The main window, driven as a user drives it.
#include "rec_view_window_fixture.h"

namespace quillon::ui {
namespace {

TEST_F(MainWindow, EveryNameHasItsPartner) {
    EXPECT_EQ(NamesWithoutPartner(program.RecView().Controls().form, window).join(" "), "");
}

TEST_F(MainWindow, IsEmptyAndSaysSoWithoutADataSet) {
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
        "&File: &New DataSet, &Open DataSet..., Save &As..., &Save Record, &Import..., &Export..., "
        "&Validate, "
        "&Reports, &Preferences, &Quit\n"
        "&Edit: &Undo, Cu&t Name, &Copy Name, &Paste Name, &Delete Name, &Author Edit, &Merge, &Split\n"
        "&Record: &Add New Name, Go To &Parent, &Go To First Name, Go &To Previous Name, Go To &Next Name, "
        "Go To &Last Name, &First of the Same Rank, Previous &of the Same Rank, Next of the &Same Rank, "
        "Last of the Same &Rank\n"
        "&View: &Hierarchy, &Alphabetical List\n"
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
    for (const char* name :
         {"mnuPaste", "mnuEUndo", "mnuPrev", "mnuMerge", "mnuSplit", "mnuTaxonomy", "mnuFullRecord"}) {
        EXPECT_FALSE(action(name)->isEnabled()) << name;
    }
    for (const char* name :
         {"mnuFNew",         "mnuFOpen",   "mnuFSaveAs", "mnuFImport", "mnuFValidate", "mnuFExport",
          "mnuFPreferences", "mnuECut",    "mnuCopy",    "mnuParent",  "mnuFirst",     "mnuNext",
          "mnuLast",         "mnuAdd",     "mnuSave",    "mnuEDelete", "mnuAuth",      "mnuFQuit",
          "mnuHContents",    "mnuHSearch", "mnuHAbout"}) {
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

TEST_F(MainWindow, TheListShowsAllTaxaAndSelectsTheCurrentOne) {
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

TEST_F(MainWindow, AFieldOfAnotherTabTakesTheFocus) {
    MakeWhales();
    Activate();
    program.Explorer().ListDblClick(3);
    editor::RecViewForm& form = program.RecView().Controls();
    form.experts.Field(0).TakeFocus();
    EXPECT_TRUE(window.findChild<QWidget*>("RVPanel7")->isVisible());
    EXPECT_TRUE(window.findChild<QWidget*>("cboExpert")->hasFocus());
    form.taxon.cboRank.TakeFocus();
    EXPECT_TRUE(window.findChild<QWidget*>("cboRank")->hasFocus());
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

}  // namespace
}  // namespace quillon::ui
