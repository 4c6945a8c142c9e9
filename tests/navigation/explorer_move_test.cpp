#include "navigation/explorer_fixture.h"

namespace quillon::navigation {
namespace {

class Moves : public Explorer {};

// The names of the nodes that a step leads to, from the first on until it stands still.
template <typename Step>
std::string Walk(TreeNode* node, Step step) {
    std::string names = node->Text();
    for (TreeNode* next = step(node); next != node; next = step(node)) {
        names += ", " + next->Text();
        node = next;
    }
    return names;
}

TEST_F(Moves, NextLeadsThroughTheRowsOnShow) {
    AddWhales();
    OpenAll();
    explorer.TreeV().SetExpanded(Node(3), false);
    EXPECT_EQ(
        Walk(explorer.TreeV().Top(0), [&](TreeNode* node) { return explorer.GetNextNode(node); }),
        "Animalia, Orca, Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer, Tursiops, Lost");
}

TEST_F(Moves, PreviousLeadsBackToTheRoot) {
    AddWhales();
    OpenAll();
    EXPECT_EQ(Walk(Node(8), [&](TreeNode* node) { return explorer.GetPreviousNode(node); }),
              "Lost, [Invalid] Killer, Tursiops, [Invalid] Killer, [Invalid] Gladiator, Orca  beta, Orca  "
              "alpha, Orca, Animalia");
}

TEST_F(Moves, AnOpenNodeWithoutChildrenIsPassedAsAClosedOne) {
    AddWhales();
    TreeNode* lost = Node(8);
    explorer.TreeV().SetExpanded(lost, true);
    EXPECT_EQ(explorer.GetNextNode(lost), lost);
    EXPECT_EQ(explorer.GetLastDisplayedNode(lost), lost);
}

TEST_F(Moves, TheLastRowIsBelowTheLastOpenSibling) {
    AddWhales();
    explorer.RemoveNodes(8);
    OpenAll();
    TreeNode* root = explorer.TreeV().Top(0);
    EXPECT_EQ(explorer.GetLastDisplayedNode(root), Node(7, 3));
    EXPECT_EQ(explorer.GetLastDisplayedNode(Node(4)), Node(7, 2));
    explorer.TreeV().SetExpanded(Node(3), false);
    EXPECT_EQ(explorer.GetLastDisplayedNode(root), Node(3));
    explorer.TreeV().SetExpanded(root, false);
    EXPECT_EQ(explorer.GetLastDisplayedNode(root), root);
}

TEST_F(Moves, ParentOfATopNodeIsTheRoot) {
    AddWhales();
    OpenAll();
    EXPECT_EQ(explorer.GetParentNode(Node(4)), Node(2));
    EXPECT_EQ(explorer.GetParentNode(Node(8)), Node(1));
    EXPECT_EQ(explorer.GetParentNode(Node(1)), Node(1));
}

TEST_F(Moves, AncestorsAreKnown) {
    AddWhales();
    OpenAll();
    EXPECT_TRUE(cExplorer::IsNodeAncestor(Node(1), Node(4)));
    EXPECT_TRUE(cExplorer::IsNodeAncestor(Node(2), Node(4)));
    EXPECT_FALSE(cExplorer::IsNodeAncestor(Node(4), Node(4)));
    EXPECT_FALSE(cExplorer::IsNodeAncestor(Node(3), Node(4)));
    EXPECT_FALSE(cExplorer::IsNodeAncestor(nullptr, Node(4)));
    EXPECT_FALSE(cExplorer::IsNodeAncestor(Node(1), nullptr));
}

TEST_F(Moves, GoThroughTheTreeAndReportThePosition) {
    AddWhales();
    OpenAll();
    explorer.MoveFirst();
    EXPECT_EQ(events, "pos true false;list 1;item 1;pos true false;");
    EXPECT_TRUE(explorer.IsFirstSelected());
    events.clear();
    explorer.MoveNext();
    explorer.MoveNext();
    EXPECT_EQ(events, "list 2;item 2;pos false false;list 4;item 4;pos false false;");
    events.clear();
    explorer.MovePrev();
    explorer.MoveLast();
    EXPECT_EQ(events, "list 2;item 2;pos false false;list 8;item 8;pos false true;");
    EXPECT_TRUE(explorer.IsLastSelected());
    events.clear();
    explorer.MoveParent();
    EXPECT_EQ(explorer.TreeV().Selected(), Node(1));
}

TEST_F(Moves, ParentLeadsUp) {
    AddWhales();
    explorer.ListDblClick(4);
    events.clear();
    explorer.MoveParent();
    EXPECT_EQ(events, "list 2;item 2;pos false false;");
}

TEST_F(Moves, OnlyTheEndsAreReachedWithoutASelection) {
    AddWhales();
    EXPECT_FALSE(explorer.IsFirstSelected());
    EXPECT_FALSE(explorer.IsLastSelected());
    explorer.MoveNext();
    explorer.MovePrev();
    explorer.MoveParent();
    EXPECT_EQ(events, "");
    explorer.MoveLast();
    EXPECT_EQ(events, "list 8;item 8;pos false true;");
}

TEST_F(Moves, NothingMovesWithoutADataSet) {
    explorer.MoveFirst();
    explorer.MoveLast();
    explorer.SetTreeVisible(false);
    explorer.MoveFirst();
    explorer.MoveNext();
    EXPECT_EQ(events, "");
    EXPECT_FALSE(explorer.IsFirstSelected());
    EXPECT_FALSE(explorer.IsLastSelected());
}

// Animalia, Gladiator, Killer, Lost, Orca, Orca alpha, Orca beta, Tursiops.
TEST_F(Moves, GoThroughTheListWhileThatIsOnShow) {
    AddWhales();
    explorer.SetTreeVisible(false);
    EXPECT_FALSE(explorer.IsFirstSelected());
    explorer.MoveFirst();
    EXPECT_EQ(events, "pos false false;list 1;item 1;pos true false;");
    EXPECT_TRUE(explorer.IsFirstSelected());
    events.clear();
    explorer.MovePrev();
    EXPECT_EQ(events, "") << "there is no row before the first";
    explorer.MoveNext();
    EXPECT_EQ(explorer.ListId(), 6);
    EXPECT_EQ(explorer.TreeV().Selected(), Node(6)) << "the tree follows";
    explorer.MoveLast();
    EXPECT_EQ(explorer.ListId(), 3);
    EXPECT_TRUE(explorer.IsLastSelected());
    explorer.MovePrev();
    EXPECT_EQ(explorer.ListId(), 5);
    events.clear();
    explorer.MoveParent();
    EXPECT_EQ(events, "list 2;item 2;pos false false;");
}

TEST_F(Moves, HilitingOpensWhatIsAbove) {
    AddWhales();
    OpenAll();
    explorer.TreeV().SetExpanded(Node(1), false);
    explorer.HiliteNode(Node(4));
    EXPECT_EQ(explorer.TreeV().Selected(), Node(4));
    EXPECT_TRUE(Node(1)->Expanded());
    explorer.HiliteNode(nullptr);
    EXPECT_EQ(explorer.TreeV().Selected(), nullptr);
}

}  // namespace
}  // namespace quillon::navigation
