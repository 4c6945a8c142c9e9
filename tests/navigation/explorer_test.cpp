#include "navigation/explorer_fixture.h"

namespace quillon::navigation {
namespace {

TEST_F(Explorer, BeginsWithTheRootClosedAndTheOrphansBesideIt) {
    AddWhales();
    EXPECT_EQ(Shape(), "Animalia(dummy99); Lost");
    EXPECT_EQ(explorer.Root()->qb_id(), 1);
    EXPECT_FALSE(cExplorer::NodeHasBeenExpanded(*explorer.TreeV().Top(0)));
    EXPECT_TRUE(cExplorer::NodeHasBeenExpanded(*explorer.TreeV().Top(1)));
}

TEST_F(Explorer, RaisesThePositionWhenTheRootIsSet) {
    explorer.Init();
    EXPECT_EQ(events, "pos true false;");
}

TEST_F(Explorer, ARootWithoutChildrenGetsNoPlaceholder) {
    explorer.Init();
    EXPECT_EQ(Shape(), "Animalia");
}

TEST_F(Explorer, IsEmptyWithoutADataSet) {
    AddWhales();
    data.lifecycle.CloseDataSet();
    data.state.gDatabase.reset();
    explorer.Init();
    EXPECT_EQ(Shape(), "");
    EXPECT_EQ(explorer.ListV().RowCount(), 0u);
    explorer.ListDblClick(4);
    explorer.ListKeyPress("a");
    EXPECT_EQ(events, "timer;");
}

TEST_F(Explorer, FetchesTheChildrenWhenANodeIsOpened) {
    AddWhales();
    explorer.ExpandNode(explorer.TreeV().Top(0));
    EXPECT_EQ(Shape(), "Animalia(Orca(dummy99), Tursiops(dummy99)); Lost");
    explorer.ExpandNode(explorer.TreeV().Top(0)->Child(0));
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer), "
              "Tursiops(dummy99)); Lost");
    EXPECT_EQ(events, "expand Animalia;pos false false;expand Orca;pos false false;");
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(Explorer, ASecondOpeningReadsNothing) {
    AddWhales();
    TreeNode* root = explorer.TreeV().Top(0);
    explorer.ExpandNode(root);
    explorer.TreeV().SetExpanded(root, false);
    Add({.qb_id = 20, .parent = 1, .rank = 180, .name1 = "Later"});
    explorer.ExpandNode(root);
    EXPECT_EQ(root->ChildCount(), 2u);
    EXPECT_EQ(events, "expand Animalia;pos false false;expand Animalia;pos false false;");
}

TEST_F(Explorer, ARealChildNamedAsThePlaceholderIsTakenForIt) {
    Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "dummy99"});
    explorer.Init();
    TreeNode* root = explorer.TreeV().Top(0);
    explorer.ExpandNode(root);
    TreeNode* first = root->Child(0);
    EXPECT_EQ(explorer.FindIdOfNode(first), 2);
    EXPECT_FALSE(cExplorer::NodeHasBeenExpanded(*root));
    explorer.ExpandNode(root);
    EXPECT_EQ(root->ChildCount(), 1u);
    EXPECT_EQ(explorer.FindIdOfNode(root->Child(0)), 2);
}

TEST_F(Explorer, ANodeWithoutAnItemRaisesNoEvent) {
    AddWhales();
    TreeNode* root = explorer.TreeV().Top(0);
    const std::size_t row = explorer.TreeV().Append(nullptr, {{"stranger", kPlaceholder}});
    explorer.ExpandNode(explorer.TreeV().Top(row));
    EXPECT_EQ(events, "");
    EXPECT_EQ(explorer.TreeV().Top(row)->ChildCount(), 0u);
    EXPECT_EQ(explorer.FindIdOfNode(explorer.TreeV().Top(row)), 0);
    EXPECT_EQ(explorer.FindIdOfNode(root), 1);
}

TEST_F(Explorer, AddNodeRemovesThePlaceholder) {
    AddWhales();
    TreeNode* root = explorer.TreeV().Top(0);
    auto item = std::make_shared<cBioList>(*explorer.Root());
    TreeNode* child = explorer.AddNode("child", item, 3, root);
    EXPECT_EQ(Shape(), "Animalia(child(dummy99)); Lost");
    explorer.AddNode("sibling", item, 0, child, cExplorer::Relationship::NextSibling);
    EXPECT_EQ(Shape(), "Animalia(child(dummy99), sibling); Lost");
    EXPECT_EQ(explorer.AddNode("nowhere", item, 0, child->Child(0)), nullptr);
}

TEST_F(Explorer, FindsNodesByTaxonAndAcceptedTaxon) {
    AddWhales();
    explorer.ExpandContainingSubtree(4);
    TreeNode* underTursiops = explorer.ExpandContainingSubtree(7, 3);
    ASSERT_NE(underTursiops, nullptr);
    EXPECT_EQ(underTursiops->Parent()->Text(), "Tursiops");
    TreeNode* underOrca = explorer.FindNodeWithId(7);
    EXPECT_EQ(underOrca->Parent()->Text(), "Orca");
    NodeTable::Place start = 0;
    cExplorer::Item item;
    EXPECT_EQ(explorer.FindNodeWithIdIndexed(7, start, 3, item), underTursiops);
    EXPECT_EQ(item->accepted(), 3);
    EXPECT_EQ(explorer.FindNodeWithId(99), nullptr);
}

TEST_F(Explorer, OpensThePathToATaxon) {
    AddWhales();
    TreeNode* node = explorer.ExpandContainingSubtree(5);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->Text(), "Orca  beta");
    EXPECT_TRUE(node->Parent()->Expanded());
    EXPECT_TRUE(node->Parent()->Parent()->Expanded());
    EXPECT_EQ(explorer.ExpandContainingSubtree(5), node);
    EXPECT_EQ(events, "expand Animalia;expand Orca;");
}

TEST_F(Explorer, FindsNoPathToASynonymWithoutItsAcceptedTaxonOrInARing) {
    AddWhales();
    EXPECT_EQ(explorer.ExpandContainingSubtree(7), nullptr);
    EXPECT_EQ(explorer.ExpandContainingSubtree(99), nullptr);
    Add({.qb_id = 30, .parent = 31, .name1 = "Ring"});
    Add({.qb_id = 31, .parent = 30, .name1 = "Ring"});
    EXPECT_EQ(explorer.ExpandContainingSubtree(30), nullptr);
}

TEST_F(Explorer, AClickSelectsTheItemAndMovesTheList) {
    AddWhales();
    explorer.ExpandNode(explorer.TreeV().Top(0));
    events.clear();
    explorer.NodeClick(explorer.TreeV().Top(0)->Child(1));
    EXPECT_EQ(events, "list 3;item 3;");
    EXPECT_EQ(Line(), "Tursiops (valid)");
    EXPECT_EQ(explorer.TreeV().Selected()->Text(), "Tursiops");
    events.clear();
    explorer.NodeClick(explorer.TreeV().Top(0));
    EXPECT_EQ(events, "pos true false;list 1;item 1;");
}

TEST_F(Explorer, ADoubleClickInTheListOpensTheTaxonInTheTree) {
    AddWhales();
    explorer.ListDblClick(5);
    EXPECT_EQ(explorer.TreeV().Selected()->Text(), "Orca  beta");
    EXPECT_EQ(events, "expand Animalia;expand Orca;item 5;");
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(Explorer, ADoubleClickOnASynonymTakesTheLastOfItsPlaces) {
    AddWhales();
    explorer.ListDblClick(7);
    EXPECT_EQ(explorer.TreeV().Selected()->Parent()->Text(), "Tursiops");
    EXPECT_NE(explorer.FindNodeWithId(7, 2), nullptr);
    EXPECT_EQ(events, "expand Animalia;expand Orca;expand Tursiops;item 7;");
}

TEST_F(Explorer, AUsableNameWithASynonymLinkIsFoundUnderItsParent) {
    AddWhales();
    Link(5, 3);
    explorer.ListDblClick(5);
    EXPECT_EQ(explorer.TreeV().Selected()->Text(), "Orca  beta");
    EXPECT_EQ(explorer.TreeV().Selected()->Parent()->Text(), "Orca");
    EXPECT_EQ(events, "expand Animalia;expand Orca;item 5;");
}

TEST_F(Explorer, ADeletedTaxonSelectsNothing) {
    AddWhales();
    explorer.HiliteNode(Node(1));
    explorer.ListDblClick(99);
    EXPECT_EQ(events, "");
    EXPECT_EQ(explorer.TreeV().Selected(), Node(1));
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(Explorer, ATaxonThatNoPathLeadsToIsChosenOutsideTheTree) {
    AddWhales();
    Add({.qb_id = 9, .parent = 77, .name1 = "Zalophus", .usage = "invalid"});
    explorer.HiliteNode(Node(1));
    bool isInTree = true;
    explorer.ItemSelected = [&](const auto& item) {
        events += fmt::format("item {} {};", item->qb_id(), item->Sciname());
        isInTree = item->IsInTree();
    };
    explorer.ListDblClick(9);
    EXPECT_EQ(events, "item 9 [Invalid] Zalophus;");
    EXPECT_FALSE(isInTree);
    EXPECT_EQ(explorer.TreeV().Selected(), nullptr);
    explorer.ListDblClick(2);
    EXPECT_TRUE(isInTree);
}

// The form refused the choice because the user stays on the record.
TEST_F(Explorer, TreeAndListGoBackToTheRecordThatStayed) {
    AddWhales();
    explorer.ItemSelected = [&](const auto& item) {
        if (!refuse) data.state.currentTaxon.qb_id = item->qb_id();
    };
    explorer.ListDblClick(7);
    TreeNode* stood = explorer.TreeV().Selected();
    refuse = true;
    explorer.ListDblClick(5);
    EXPECT_FALSE(explorer.IsRecord(5));
    explorer.NodeClick(Node(5));
    events.clear();
    explorer.Reselect(7);
    EXPECT_EQ(events, "list 7;pos false false;");
    EXPECT_EQ(explorer.TreeV().Selected(), stood) << "of the two nodes of the synonym";
    EXPECT_EQ(explorer.ListId(), 7);
    explorer.NodeClick(Node(1));
    explorer.Reselect(0);
    EXPECT_EQ(explorer.ListId(), 7) << "a new record stands beside the last one that was shown";
    EXPECT_EQ(explorer.TreeV().Selected(), stood);
}

TEST_F(Explorer, ReportsThePositionWhenItChangesWithoutAMove) {
    AddWhales();
    explorer.HiliteNode(Node(1));
    events.clear();
    explorer.ExpandNode(Node(1));
    EXPECT_EQ(events, "expand Animalia;pos true false;");
    explorer.RemoveNodes(8);
    explorer.HiliteNode(Node(3));
    events.clear();
    explorer.ExpandNode(Node(3));
    explorer.CollapseNode(Node(3));
    EXPECT_EQ(events, "expand Tursiops;pos false false;pos false true;");
    events.clear();
    explorer.SetTreeVisible(false);
    explorer.SetTreeVisible(false);
    explorer.SetTreeVisible(true);
    EXPECT_EQ(events, "pos false false;pos false true;");
}

TEST_F(Explorer, AClickInTheListActsByItsArea) {
    AddWhales();
    Type("or");
    explorer.ListClick(cExplorer::ListArea::Text, 4);
    events.clear();
    Type("t");
    EXPECT_EQ(Line(), "Tursiops (valid)");
    EXPECT_EQ(events, "list 3;timer;");
    explorer.ListClick(cExplorer::ListArea::List, 3);
    EXPECT_EQ(explorer.TreeV().Selected()->Text(), "Tursiops");
}

TEST_F(Explorer, TypingFindsAndReturnOpens) {
    AddWhales();
    Type("or");
    EXPECT_EQ(Line(), "Orca (valid)");
    Type("ca b");
    EXPECT_EQ(Line(), "Orca beta (valid)");
    EXPECT_EQ(explorer.TreeV().Selected(), nullptr);
    explorer.ListKeyPress("\r");
    EXPECT_EQ(explorer.TreeV().Selected()->Text(), "Orca  beta");
    Type("k");
    EXPECT_EQ(Line(), "Killer (invalid)");
}

TEST_F(Explorer, TypingThatMatchesNothingStaysOnTheLastMatch) {
    AddWhales();
    Type("orca ax");
    EXPECT_EQ(Line(), "Orca alpha (valid)");
    explorer.SetListId(1);
    Type("z");
    EXPECT_EQ(Line(), "Orca alpha (valid)");
}

TEST_F(Explorer, TypingOnDoesNotGoBack) {
    AddWhales();
    Type("t");
    explorer.ListTimer();
    explorer.SetListId(3);
    Type("o");
    EXPECT_EQ(Line(), "Orca (valid)");
    explorer.SetListId(3);
    Type("r");
    EXPECT_EQ(Line(), "Orca (valid)") << "no later row matches, so the list goes back to the last match";
}

TEST_F(Explorer, BackspaceSelectsTheFirstRowOfTheShorterText) {
    AddWhales();
    Type("orca b");
    EXPECT_EQ(Line(), "Orca beta (valid)");
    explorer.ListKeyPress("\b");
    EXPECT_EQ(Line(), "Orca (valid)");
    events.clear();
    Type("b");
    EXPECT_EQ(Line(), "Orca beta (valid)");
    Type("\b\b\b\b\b\b");
    EXPECT_EQ(Line(), "Animalia (valid)");
    events.clear();
    explorer.ListKeyPress("\b");
    EXPECT_EQ(events, "");
}

TEST_F(Explorer, BackspaceTakesAWholeCharacter) {
    Add({.qb_id = 2, .parent = 1, .name1 = "Él"});
    Add({.qb_id = 3, .parent = 1, .name1 = "Éa"});
    explorer.Init();
    explorer.ListV().LoadAll();
    explorer.ListKeyPress("é");
    EXPECT_EQ(Line(), "Éa (valid)");
    explorer.ListKeyPress("l");
    EXPECT_EQ(Line(), "Él (valid)");
    explorer.ListKeyPress("\b");
    EXPECT_EQ(Line(), "Éa (valid)");
}

TEST_F(Explorer, TheTimerEndsTheTypedText) {
    AddWhales();
    Type("o");
    EXPECT_EQ(events, "list 2;timer;");
    explorer.ListTimer();
    Type("t");
    EXPECT_EQ(Line(), "Tursiops (valid)");
}

TEST_F(Explorer, AnEmptyKeyIsSwallowed) {
    AddWhales();
    Type("o");
    events.clear();
    explorer.ListKeyPress("");
    EXPECT_EQ(events, "timer;");
    EXPECT_EQ(Line(), "Orca (valid)");
}

}  // namespace
}  // namespace quillon::navigation
