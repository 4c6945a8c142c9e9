// The explorer and the record beside it, in the main window.
#include "ui/rec_view_window_fixture.h"

namespace quillon::ui {
namespace {

class ExplorerWindow : public MainWindow {
protected:
    void ShowList() {
        action("alpha")->trigger();
        WaitForRows(list->model(), list->model()->rowCount());
    }
    QString Line() const { return list->currentIndex().data().toString(); }
    void ClickLine(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    }
    void ChangeName() {
        auto* edit = window.findChild<QLineEdit*>("txtName1");
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, "Orka");
        ASSERT_TRUE(program.State().RecordDirty);
    }
};

TEST_F(ExplorerWindow, NoToTheUnsavedQuestionPutsTheListBackToo) {
    MakeWhales();
    Activate();
    program.Explorer().ListDblClick(2);
    ShowList();
    ChangeName();
    prompter.yesNo.push_back(false);
    ClickLine(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Line() == "Orca Gray, 1846 (valid)"; }));
    EXPECT_EQ(program.Explorer().ListId(), 2);
    EXPECT_EQ(tree->currentIndex().data(), "Orca  Gray, 1846");
    prompter.yesNo.push_back(true);
    action("mnuNext")->trigger();
    EXPECT_EQ(Line(), "Orca alpha (valid)") << "the next one of the record that stayed";
}

TEST_F(ExplorerWindow, NextIsEnabledAgainWhenANodeIsOpenedOrTheViewIsSwitched) {
    MakeWhales();
    program.Explorer().ListDblClick(2);
    const QModelIndex orca = tree->currentIndex();
    tree->collapse(orca);
    action("mnuLast")->trigger();
    EXPECT_EQ(tree->currentIndex(), orca);
    EXPECT_FALSE(action("mnuNext")->isEnabled());
    tree->expand(orca);
    EXPECT_TRUE(action("mnuNext")->isEnabled());
    tree->collapse(orca);
    EXPECT_FALSE(action("mnuNext")->isEnabled());
    action("alpha")->trigger();
    EXPECT_TRUE(action("mnuNext")->isEnabled());
    action("hierarchy")->trigger();
    EXPECT_FALSE(action("mnuNext")->isEnabled());
}

TEST_F(ExplorerWindow, ANameThatNoPathLeadsToIsShownAsARecord) {
    MakeWhales();
    AddTaxon(9, "77", 180, "'Zalophus', Null", "valid", "Null");
    program.RecView().ShowDataSet();
    WaitForRows(list->model(), 5);
    ShowList();
    ClickLine(4);
    EXPECT_EQ(name(), "Zalophus");
    EXPECT_EQ(panel("name"), "Zalophus (not in the tree)");
    EXPECT_EQ(panel("mode"), "EDIT");
    EXPECT_FALSE(tree->currentIndex().isValid());
    ClickLine(2);
    EXPECT_FALSE(panel("name").contains("not in the tree"));
}

TEST_F(ExplorerWindow, UndoAfterLeavingAMovedRecordLeavesItUnchanged) {
    MakeWhales();
    AddTaxon(5, "1", 180, "'Tursiops', Null", "valid", "Null");
    program.RecView().ShowDataSet();
    auto& explorer = program.Explorer();
    explorer.ListDblClick(3);
    action("mnuECut")->trigger();
    explorer.ListDblClick(5);
    action("mnuPaste")->trigger();
    ASSERT_TRUE(program.State().RecordDirty);
    EXPECT_EQ(explorer.FindIdOfNode(explorer.FindNodeWithId(3)->Parent()), 5);
    EXPECT_TRUE(action("mnuEUndo")->isEnabled());
    prompter.yesNo.push_back(true);
    explorer.ListDblClick(1);
    EXPECT_EQ(explorer.FindIdOfNode(explorer.FindNodeWithId(3)->Parent()), 2);
    EXPECT_FALSE(action("mnuEUndo")->isEnabled());
    explorer.Undo();
    EXPECT_FALSE(program.State().RecordDirty);
    EXPECT_EQ(program.State().currentTaxon.qb_id, 1);
}

TEST_F(ExplorerWindow, TheStatusBarShowsTheExplorersNotes) {
    program.Explorer().Note("There are more.");
    EXPECT_EQ(window.statusBar()->currentMessage(), "There are more.");
    EXPECT_FALSE(window.findChild<QLabel*>("name")->isVisible()) << "the note is in its place";
    EXPECT_TRUE(window.findChild<QLabel*>("taxa")->isVisible());
}

}  // namespace
}  // namespace quillon::ui
