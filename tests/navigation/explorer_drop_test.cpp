#include "navigation/explorer_fixture.h"

namespace quillon::navigation {
namespace {

class Dropping : public Explorer {
protected:
    using Picture = cExplorer::DropPicture;

    // Orcinae above Orca; Rex is invalid and has a parent all the same.
    void SetUp() override {
        Explorer::SetUp();
        Add({.qb_id = 9, .parent = 1, .rank = 150, .name1 = "Orcinae"});
        Add({.qb_id = 10, .parent = 1, .rank = 220, .name1 = "Rex", .usage = "invalid"});
        Add({.qb_id = 11, .parent = 3, .rank = 220, .name1 = "Tursiops", .name2 = "aduncus"});
        AddWhales();
        OpenAll();
    }
    void Drag(int id) {
        explorer.DragMouseDown(Node(id));
        explorer.DragMouseMove(true);
    }
    // What the mouse shows over a node.
    bool MayDropOn(TreeNode* node) {
        explorer.DragOver(0, 1000, 5000, node);
        EXPECT_EQ(explorer.TreeV().DropHighlight(), explorer.Picture() == Picture::DragDrop ? node : nullptr);
        EXPECT_NE(explorer.Picture(), Picture::None);
        return explorer.Picture() == Picture::DragDrop;
    }
    static constexpr const char* kBefore =
        "Animalia(Orcinae, Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer), "
        "Tursiops(Tursiops  aduncus, [Invalid] Killer), Rex); Lost";
};

TEST_F(Dropping, ADragBeginsWhenTheMouseMovesWithTheButtonHeld) {
    ASSERT_EQ(Shape(), kBefore);
    EXPECT_FALSE(explorer.DragMouseMove(true)) << "no node was pressed";
    explorer.DragMouseDown(Node(4));
    EXPECT_FALSE(explorer.IsDragging());
    EXPECT_FALSE(explorer.DragMouseMove(false));
    EXPECT_FALSE(explorer.DragMouseMove(true)) << "the button had been let go";
    explorer.DragMouseDown(Node(4));
    EXPECT_TRUE(explorer.DragMouseMove(true));
    EXPECT_TRUE(explorer.IsDragging());
    EXPECT_FALSE(explorer.DragMouseMove(true)) << "it has begun";
    EXPECT_EQ(explorer.DragNode(), Node(4));
    EXPECT_EQ(explorer.Picture(), Picture::None);
}

TEST_F(Dropping, ANodeMayBeDroppedUnderAUsableTaxonOfHigherRank) {
    Drag(4);
    EXPECT_TRUE(MayDropOn(Node(3)));
    EXPECT_TRUE(MayDropOn(Node(9)));
    EXPECT_TRUE(MayDropOn(Node(1)));
    EXPECT_FALSE(MayDropOn(nullptr));
    EXPECT_FALSE(MayDropOn(Node(4))) << "on itself";
    EXPECT_FALSE(MayDropOn(Node(8))) << "under another top node";
    EXPECT_FALSE(MayDropOn(Node(10))) << "on a rejected taxon";
    EXPECT_FALSE(MayDropOn(Node(6))) << "on a synonym";
    EXPECT_FALSE(MayDropOn(Node(2))) << "on its parent";
    EXPECT_FALSE(MayDropOn(Node(5))) << "on one of its rank";
    EXPECT_TRUE(MayDropOn(Node(3)));
}

TEST_F(Dropping, ANodeMayNotBeDroppedIntoItsOwnSubtree) {
    Drag(2);
    EXPECT_FALSE(MayDropOn(Node(4)));
    EXPECT_FALSE(MayDropOn(Node(3))) << "a genus under a genus";
    EXPECT_TRUE(MayDropOn(Node(9)));
    Drag(1);
    EXPECT_FALSE(MayDropOn(Node(2)));
}

TEST_F(Dropping, ARejectedTaxonMayGoUnderAnyRank) {
    Drag(6);
    EXPECT_TRUE(MayDropOn(Node(4))) << "a genus that is a synonym, under a species";
    EXPECT_TRUE(MayDropOn(Node(3)));
    EXPECT_FALSE(MayDropOn(Node(2))) << "where it stands";
    EXPECT_FALSE(MayDropOn(Node(10)));
}

TEST_F(Dropping, UsageCountsInAnyCase) {
    explorer.GetNodeData(Node(3))->SetUsage("Not Accepted");
    Drag(4);
    EXPECT_FALSE(MayDropOn(Node(3)));
}

TEST_F(Dropping, TheNodeMovesWhenTheFormAgrees) {
    Drag(4);
    MayDropOn(Node(3));
    explorer.Drop();
    EXPECT_EQ(events, "drop Orca  alpha to Tursiops from Orca;");
    EXPECT_EQ(Shape(),
              "Animalia(Orcinae, Orca(Orca  beta, [Invalid] Gladiator, [Invalid] Killer), "
              "Tursiops(Orca  alpha, Tursiops  aduncus, [Invalid] Killer), Rex); Lost");
    EXPECT_FALSE(explorer.IsDragging());
    EXPECT_EQ(explorer.TreeV().DropHighlight(), nullptr);
}

TEST_F(Dropping, TheNodeStaysWhenTheFormCancelsOrThereIsNoListener) {
    refuse = true;
    Drag(4);
    MayDropOn(Node(3));
    explorer.Drop();
    EXPECT_EQ(events, "drop Orca  alpha to Tursiops from Orca;");
    EXPECT_EQ(Shape(), kBefore);
    EXPECT_FALSE(explorer.IsTaxonCut(4));
    explorer.Dropped = nullptr;
    Drag(4);
    MayDropOn(Node(3));
    explorer.Drop();
    EXPECT_EQ(Shape(), kBefore);
}

TEST_F(Dropping, NothingIsProposedWithoutAHighlight) {
    Drag(4);
    MayDropOn(Node(5));
    explorer.Drop();
    explorer.Drop();
    EXPECT_EQ(events, "");
    EXPECT_FALSE(explorer.IsDragging());
    EXPECT_EQ(explorer.Picture(), Picture::None);
}

TEST_F(Dropping, ACancelledDragLeavesNothingBehind) {
    Drag(4);
    explorer.DragOver(0, 50, 5000, Node(3));
    explorer.CancelDrag();
    EXPECT_EQ(events, "run;stop;");
    EXPECT_EQ(explorer.TreeV().DropHighlight(), nullptr);
    explorer.TreeTimer();
    explorer.Drop();
    EXPECT_EQ(events, "run;stop;");
    EXPECT_EQ(Shape(), kBefore);
}

TEST_F(Dropping, ADragEndsWhenTheTreeIsEmptiedOrLosesNodes) {
    Drag(4);
    MayDropOn(Node(3));
    explorer.RemoveSubtree(Node(5));
    EXPECT_FALSE(explorer.IsDragging());
    Drag(4);
    MayDropOn(Node(3));
    explorer.Init();
    EXPECT_FALSE(explorer.IsDragging());
    EXPECT_EQ(explorer.TreeV().DropHighlight(), nullptr);
}

TEST_F(Dropping, AtTheEdgesTheTreeScrolls) {
    explorer.DragOver(0, 50, 5000, Node(3));
    EXPECT_EQ(events, "") << "nothing is dragged";
    Drag(4);
    explorer.DragOver(0, 0, 5000, Node(1));
    explorer.DragOver(0, 99, 5000, Node(1));
    explorer.TreeTimer();
    EXPECT_EQ(events, "run;scroll -1;");
    explorer.DragOver(0, 100, 5000, Node(1));
    EXPECT_EQ(events, "run;scroll -1;stop;");
    explorer.DragOver(0, 4800, 5000, Node(1));
    explorer.DragOver(0, -1, 5000, nullptr);
    explorer.DragOver(0, 5000, 5000, nullptr);
    explorer.TreeTimer();
    EXPECT_EQ(events, "run;scroll -1;stop;");
    explorer.DragOver(0, 4801, 5000, Node(1));
    explorer.DragOver(0, 4999, 5000, Node(1));
    explorer.TreeTimer();
    EXPECT_EQ(events, "run;scroll -1;stop;run;scroll 1;");
}

TEST_F(Dropping, ADropIsTakenBackByUndoAndDoneAgainByASecond) {
    Drag(4);
    MayDropOn(Node(3));
    explorer.Drop();
    const std::string moved = Shape();
    explorer.TreeV().Select(Node(4));
    events.clear();
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(events, "drop Orca  alpha to Orca from Tursiops;");
    EXPECT_EQ(Shape(), kBefore);
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(Shape(), moved);
}

TEST_F(Dropping, TheFormMayRebuildTheTreeWhileItDecides) {
    onDropped = [this] {
        explorer.Init();
        Open(explorer.TreeV().Top(0));
    };
    Drag(4);
    MayDropOn(Node(3));
    explorer.Drop();
    EXPECT_EQ(explorer.FindIdOfNode(Node(4)->Parent()), 3);
}

TEST_F(Dropping, CutAndPasteMoveTheNode) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    EXPECT_TRUE(explorer.IsTaxonCut(4));
    EXPECT_FALSE(explorer.IsTaxonCut(5));
    explorer.TreeV().Select(Node(3));
    EXPECT_FALSE(explorer.Paste());
    EXPECT_EQ(events, "drop Orca  alpha to Tursiops from Orca;");
    EXPECT_EQ(Shape(*Node(3)), "Tursiops(Orca  alpha, Tursiops  aduncus, [Invalid] Killer)");
    EXPECT_EQ(explorer.TreeV().Selected(), Node(4));
}

TEST_F(Dropping, ACancelledPasteChangesNothing) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    explorer.TreeV().Select(Node(3));
    refuse = true;
    EXPECT_TRUE(explorer.Paste());
    EXPECT_EQ(Shape(), kBefore);
    EXPECT_EQ(explorer.TreeV().Selected(), Node(3));
    EXPECT_TRUE(explorer.Undo()) << "there is no move to take back";
    EXPECT_EQ(events, "drop Orca  alpha to Tursiops from Orca;");
}

TEST_F(Dropping, UndoAndUndoAgainEndWherePasteHadPutTheNode) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    explorer.TreeV().Select(Node(3));
    explorer.Paste();
    const std::string pasted = Shape();
    explorer.TreeV().Select(Node(9));
    events.clear();
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(Shape(), kBefore);
    EXPECT_EQ(events, "drop Orca  alpha to Orca from Tursiops;item 4;");
    EXPECT_EQ(explorer.TreeV().Selected(), Node(4));
    events.clear();
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(Shape(), pasted);
    EXPECT_EQ(events, "drop Orca  alpha to Tursiops from Orca;");
}

TEST_F(Dropping, ACancelledUndoChangesNothing) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    explorer.TreeV().Select(Node(3));
    explorer.Paste();
    const std::string pasted = Shape();
    refuse = true;
    EXPECT_TRUE(explorer.Undo());
    EXPECT_EQ(Shape(), pasted);
    refuse = false;
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(Shape(), kBefore);
}

TEST_F(Dropping, AMoveThatTheStoreTookBackIsNotUndone) {
    explorer.HiliteNode(Node(5));
    explorer.Cut();
    explorer.HiliteNode(Node(3));
    explorer.Paste();
    EXPECT_TRUE(explorer.CanUndo());
    explorer.ReflectRealNodePosition(5);
    events.clear();
    EXPECT_FALSE(explorer.CanUndo());
    EXPECT_TRUE(explorer.Undo());
    EXPECT_EQ(events, "") << "nothing is proposed, so the record stays as it is";
    EXPECT_EQ(explorer.FindIdOfNode(Node(5)->Parent()), 2);
}

TEST_F(Dropping, ASynonymIsPastedFromTheNodeThatWasCut) {
    explorer.TreeV().Select(Node(7, 3));
    explorer.Cut();
    explorer.TreeV().Select(Node(9));
    EXPECT_FALSE(explorer.Paste());
    EXPECT_EQ(Shape(),
              "Animalia(Orcinae([Invalid] Killer), Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, "
              "[Invalid] Killer), Tursiops(Tursiops  aduncus), Rex); Lost");
    explorer.Undo();
    EXPECT_EQ(Shape(*Node(9)), "Orcinae");
    EXPECT_EQ(Shape(*Node(3)), "Tursiops([Invalid] Killer, Tursiops  aduncus)");
}

TEST_F(Dropping, PasteFindsTheNodesOfARebuiltTree) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    explorer.Init();
    OpenAll();
    explorer.TreeV().Select(Node(3));
    EXPECT_FALSE(explorer.Paste());
    EXPECT_EQ(explorer.FindIdOfNode(Node(4)->Parent()), 3);
}

TEST_F(Dropping, PasteOfANodeThatIsNotLoadedProposesNothing) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    explorer.Init();
    events.clear();
    explorer.TreeV().Select(Node(1));
    EXPECT_TRUE(explorer.Paste());
    EXPECT_EQ(events, "");
}

TEST_F(Dropping, NothingIsPastedUnderItselfOrOnNoNode) {
    EXPECT_TRUE(explorer.Paste());
    EXPECT_TRUE(explorer.Undo());
    explorer.Cut();
    EXPECT_FALSE(explorer.IsTaxonCut(0)) << "nothing was selected";
    explorer.TreeV().Select(Node(2));
    explorer.Cut();
    EXPECT_TRUE(explorer.Paste());
    explorer.TreeV().Select(Node(4));
    EXPECT_TRUE(explorer.Paste());
    explorer.TreeV().Select(nullptr);
    EXPECT_TRUE(explorer.Paste());
    EXPECT_EQ(events, "");
    EXPECT_EQ(Shape(), kBefore);
}

TEST_F(Dropping, AnOrphanIsPastedAndReturnsToTheTopLevel) {
    explorer.TreeV().Select(Node(8));
    explorer.Cut();
    explorer.TreeV().Select(Node(9));
    EXPECT_FALSE(explorer.Paste());
    EXPECT_EQ(events, "drop Lost to Orcinae from -;");
    EXPECT_EQ(Shape(*Node(9)), "Orcinae(Lost)");
    events.clear();
    EXPECT_FALSE(explorer.Undo());
    EXPECT_EQ(events, "drop Lost to - from Orcinae;");
    EXPECT_EQ(Shape(), kBefore);
}

TEST_F(Dropping, WhatWasCutIsForgottenWithItsDataSet) {
    explorer.TreeV().Select(Node(4));
    explorer.Cut();
    data.Make("Animalia", "second.mdb");
    explorer.Init();
    EXPECT_FALSE(explorer.IsTaxonCut(4));
}

}  // namespace
}  // namespace quillon::navigation
