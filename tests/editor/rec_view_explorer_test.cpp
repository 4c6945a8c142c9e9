// The main form and the explorer: selection, the move commands, and the form's answer to a move in the tree.
#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

class RecViewExplorer : public RecViewFixture {
protected:
    void Click(int id) { explorer.NodeClick(Node(id)); }
    int SelectedId() { return explorer.FindIdOfNode(explorer.TreeV().Selected()); }
    int ParentOf(int id) { return explorer.FindIdOfNode(Node(id)->Parent()); }
    std::string Parent() const { return tab.cboDPRank.Text() + "|" + tab.cboParentName.Text(); }
    int Current() const { return data.state.currentTaxon.qb_id; }
};

TEST_F(RecViewExplorer, AClickInTheTreeShowsTheRecord) {
    Make();
    Click(2);
    EXPECT_EQ(tab.txtName1.Text(), "Orca");
    EXPECT_EQ(Panels(), "Orca|TAXA: 6|EDIT");
    EXPECT_TRUE(events.empty());
}

TEST_F(RecViewExplorer, NoKeepsTheUnsavedRecordAndPutsTheSelectionBack) {
    Make();
    Click(2);
    tab.txtName1.UserSetText("Orka");
    data.prompter.yesNo = {false};
    Click(6);
    EXPECT_EQ(events, "reselect 2;");
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(tab.txtName1.Text(), "Orka") << "it is not loaded again";
    EXPECT_TRUE(data.state.RecordDirty);
    data.prompter.yesNo = {true};
    Click(6);
    EXPECT_EQ(Current(), 6);
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecViewExplorer, AsksNothingWhenTheCheckIsOff) {
    Make();
    Click(2);
    data.state.RecordDirty = true;
    recView.SelectExplorerItem(6, false);
    EXPECT_EQ(Current(), 6);
}

TEST_F(RecViewExplorer, TheMoveKeysFollowThePosition) {
    Make();
    EXPECT_EQ(Disabled(), "paste undo moveprev") << "the root is selected";
    Click(1);
    EXPECT_EQ(Disabled(), "paste undo moveprev movenext") << "a closed root is the only row";
    Click(2);
    EXPECT_EQ(Disabled(), "paste undo movenext");
    form.mnuLast.UserClick();
    EXPECT_EQ(Current(), 2) << "the last row on show";
    form.mnuFirst.UserClick();
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(Disabled(), "paste undo moveprev");
}

TEST_F(RecViewExplorer, TheMoveKeysGoThroughTheOpenTree) {
    Make();
    explorer.ExpandNode(Node(1));
    Click(1);
    form.mnuNext.UserClick();
    EXPECT_EQ(Current(), 6) << "Cetus comes before Orca";
    form.mnuNext.UserClick();
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(Disabled(), "paste undo movenext");
    form.mnuPrev.UserClick();
    EXPECT_EQ(Current(), 6);
    form.mnuLast.UserClick();
    form.mnuParent.UserClick();
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(SelectedId(), 1);
}

TEST_F(RecViewExplorer, AMoveKeyAsksOnce) {
    Make();
    explorer.ExpandNode(Node(1));
    Click(6);
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    form.mnuNext.UserClick();
    EXPECT_EQ(Current(), 6);
    EXPECT_EQ(SelectedId(), 6);
    data.prompter.yesNo = {true};
    form.mnuNext.UserClick();
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(data.prompter.questions.size(), 2u);
}

TEST_F(RecViewExplorer, ADropChangesTheParentOnTheForm) {
    Make();
    AddTaxon(7, "2", 220, "'Orca', 'beta', Null", "'valid'");
    Show();
    Click(7);
    EXPECT_EQ(Parent(), "Genus|Orca");
    form.mnuECut.UserClick();
    EXPECT_EQ(Disabled(), "undo");
    Click(6);
    form.mnuPaste.UserClick();
    EXPECT_EQ(Current(), 7) << "the name that moves comes up";
    EXPECT_EQ(Parent(), "Genus|Cetus");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(explorer.FindIdOfNode(explorer.FindNodeWithId(7)->Parent()), 6);
    EXPECT_EQ(Disabled(), "");
    EXPECT_EQ(data.Dump("SELECT parent_qb_id FROM qb_taxonomic_units WHERE qb_id = 7"), "2\n");
    EXPECT_TRUE(data.prompter.questions.empty()) << "a species may go under a genus";
    form.mnuEUndo.UserClick();
    EXPECT_EQ(Parent(), "Genus|Orca");
    EXPECT_EQ(explorer.FindIdOfNode(explorer.FindNodeWithId(7)->Parent()), 2);
}

TEST_F(RecViewExplorer, DiscardingTheRecordPutsTheNodeBack) {
    Make();
    Click(3);
    form.mnuECut.UserClick();
    Click(6);
    form.mnuPaste.UserClick();
    EXPECT_EQ(ParentOf(3), 6);
    data.prompter.yesNo = {false};
    Click(1);
    EXPECT_EQ(ParentOf(3), 6) << "No stays on the record, and the node where it was dropped";
    data.prompter.yesNo = {true};
    Click(1);
    EXPECT_EQ(Current(), 1);
    EXPECT_EQ(ParentOf(3), 2);
}

TEST_F(RecViewExplorer, AFileCommandPutsTheNodeBackOnceItsDialogIsAnswered) {
    Make();
    Click(3);
    form.mnuECut.UserClick();
    Click(6);
    form.mnuPaste.UserClick();
    ASSERT_EQ(ParentOf(3), 6);
    for (ButtonControl* command : {&form.mnuFOpen, &form.mnuFNew, &form.mnuFSaveAs}) {
        data.prompter.filesToOpen = data.prompter.filesToSave = {std::nullopt};
        data.prompter.yesNo = {true};
        command->UserClick();
        EXPECT_EQ(ParentOf(3), 6) << command->Name();
        EXPECT_TRUE(data.state.RecordDirty) << command->Name();
    }
    data.prompter.filesToOpen.clear();
    data.prompter.filesToSave = {data.dir.File("copy.mdb")};
    data.prompter.yesNo = {true};
    form.mnuFSaveAs.UserClick();
    EXPECT_EQ(ParentOf(3), 2);
}

TEST_F(RecViewExplorer, ANodeThatCannotBePutBackIsReported) {
    Make();
    Click(3);
    data.state.RecordDirty = true;
    data.db().DeleteTable("qb_taxonomic_units");
    data.prompter.yesNo = {true};
    data.prompter.filesToSave = {data.dir.File("copy.mdb")};
    form.mnuFSaveAs.UserClick();
    ASSERT_FALSE(data.prompter.messages.empty());
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
}

TEST_F(RecViewExplorer, TheMoveKeysFollowABranchThatOpensAndAnotherView) {
    Make();
    Click(1);
    EXPECT_EQ(Disabled(), "paste undo moveprev movenext");
    explorer.ExpandNode(Node(1));
    EXPECT_EQ(Disabled(), "paste undo moveprev");
    explorer.CollapseNode(Node(1));
    EXPECT_EQ(Disabled(), "paste undo moveprev movenext");
    explorer.SetTreeVisible(false);
    EXPECT_EQ(Disabled(), "paste undo moveprev") << "Animalia is the first row of the list";
}

TEST_F(RecViewExplorer, AMoveThatWasLeftCannotBeTakenBack) {
    Make();
    Click(4);
    form.mnuECut.UserClick();
    Click(2);
    form.mnuPaste.UserClick();
    EXPECT_EQ(ParentOf(4), 2);
    EXPECT_EQ(Disabled(), "");
    data.prompter.yesNo = {true};
    Click(6);
    EXPECT_FALSE(form.mnuEUndo.Enabled());
    EXPECT_EQ(ParentOf(4), 3);
    recView.Controls().mnuEUndo.SetEnabled(true);
    form.mnuEUndo.UserClick();
    EXPECT_EQ(ParentOf(4), 3);
    EXPECT_EQ(Current(), 6);
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecViewExplorer, ANameUnderOneOfItsRankIsAskedFor) {
    Make();
    Click(6);
    form.mnuECut.UserClick();
    Click(2);
    data.prompter.yesNo = {false};
    form.mnuPaste.UserClick();
    EXPECT_EQ(data.prompter.questions,
              Messages{"Do you really want to move a name of rank 'Genus' under a name of rank 'Genus'?"});
    EXPECT_EQ(data.prompter.titles.back(), "Confirm Drop");
    EXPECT_EQ(Current(), 2);
    EXPECT_EQ(ParentOf(6), 1);
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(Disabled(), "undo") << "the branch that the name was to go to is open";
    data.prompter.yesNo = {true};
    form.mnuPaste.UserClick();
    EXPECT_EQ(Current(), 6);
    EXPECT_EQ(Parent(), "Genus|Orca");
    EXPECT_EQ(ParentOf(6), 2);
}

TEST_F(RecViewExplorer, AnInvalidNameGetsAnotherAcceptedName) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET tsn = 55 WHERE qb_id = 6");
    explorer.NodeClick(explorer.ExpandContainingSubtree(5, 2));
    EXPECT_EQ(Current(), 5);
    form.mnuECut.UserClick();
    Click(6);
    data.prompter.yesNo = {true};
    form.mnuPaste.UserClick();
    const auto& rows = form.synonyms.grdSynonyms.Rows();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], (GridControl::Row{"Cetus", "", "6", "55", "A"}));
    EXPECT_EQ(Parent(), "|");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(data.Dump("SELECT qb_id_accepted FROM qb_synonym_links WHERE qb_id = 5"), "2\n");
}

TEST_F(RecViewExplorer, TheUserMayStayOnAnotherUnsavedRecordInsteadOfMoving) {
    Make();
    Click(3);
    form.mnuECut.UserClick();
    Click(6);
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    form.mnuPaste.UserClick();
    EXPECT_EQ(Current(), 6);
    EXPECT_EQ(ParentOf(3), 2);
}

}  // namespace
}  // namespace quillon::editor
