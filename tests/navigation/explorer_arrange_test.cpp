#include "navigation/explorer_fixture.h"

namespace quillon::navigation {
namespace {

class Arranging : public Explorer {};

TEST_F(Arranging, ANodeIsPlacedBeforeTheFirstSiblingWithAHigherText) {
    AddWhales();
    Add({.qb_id = 10, .parent = 3, .name1 = "Orca", .name2 = "Azz"});
    OpenAll();
    TreeNode* node = Node(10);
    EXPECT_TRUE(explorer.MoveAndKeepSorted(node, Node(2)));
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  Azz, Orca  beta, [Invalid] Gladiator, [Invalid] Killer), "
              "Tursiops([Invalid] Killer)); Lost");
    EXPECT_EQ(Node(10), node) << "the node itself stays what it is";
    EXPECT_EQ(explorer.FindIdOfNode(node->Parent()), 2);
}

TEST_F(Arranging, AnEqualTextIsPlacedBeforeTheNode) {
    AddWhales();
    Add({.qb_id = 10, .parent = 3, .name1 = "ORCA", .name2 = "Alpha"});
    OpenAll();
    explorer.MoveAndKeepSorted(Node(10), Node(2));
    EXPECT_EQ(Shape(*Node(2)),
              "Orca(Orca  alpha, ORCA  Alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer)");
}

TEST_F(Arranging, TheHighestTextIsPlacedLast) {
    AddWhales();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(3), Node(2));
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer, "
              "Tursiops([Invalid] Killer))); Lost");
}

// Siblings by rank are not in the order of their texts: the first one above decides, not the last one below.
TEST_F(Arranging, AmongUnsortedSiblingsTheFirstHigherOneDecides) {
    Add({.qb_id = 2, .parent = 1, .rank = 140, .name1 = "Zidae"});
    Add({.qb_id = 3, .parent = 1, .rank = 180, .name1 = "Abra"});
    Add({.qb_id = 4, .parent = 2, .rank = 180, .name1 = "Mola"});
    explorer.Init();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(4), Node(1));
    EXPECT_EQ(Shape(), "Animalia(Mola, Zidae, Abra)");
}

TEST_F(Arranging, MarksCountAsText) {
    AddWhales();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(6), Node(3));
    EXPECT_EQ(Shape(*Node(3)), "Tursiops([Invalid] Gladiator, [Invalid] Killer)");
}

TEST_F(Arranging, ASynonymIsPlacedUnderTheTaxonOfItsNewParent) {
    AddWhales();
    OpenAll();
    TreeNode* node = Node(6);
    explorer.MoveAndKeepSorted(node, Node(3));
    EXPECT_EQ(explorer.GetNodeData(node)->accepted(), 3);
    EXPECT_EQ(explorer.FindNodeWithId(6, 3), node);
    EXPECT_EQ(explorer.FindNodeWithId(6, 2), nullptr);
}

TEST_F(Arranging, TheNodeBecomesVisibleWithItsSelection) {
    AddWhales();
    OpenAll();
    explorer.TreeV().Select(Node(5));
    explorer.TreeV().SetExpanded(Node(3), false);
    explorer.MoveAndKeepSorted(Node(5), Node(3));
    EXPECT_TRUE(Node(3)->Expanded());
    EXPECT_EQ(explorer.TreeV().Selected(), Node(5));
}

TEST_F(Arranging, NothingMovesUnderItsParentItselfOrItsSubtree) {
    AddWhales();
    OpenAll();
    const std::string before = Shape();
    EXPECT_FALSE(explorer.MoveAndKeepSorted(Node(4), Node(2)));
    EXPECT_FALSE(explorer.MoveAndKeepSorted(Node(2), Node(2)));
    EXPECT_FALSE(explorer.MoveAndKeepSorted(Node(2), Node(4)));
    EXPECT_FALSE(explorer.MoveAndKeepSorted(Node(8), nullptr));
    EXPECT_EQ(Shape(), before);
}

TEST_F(Arranging, ATopLevelNodeIsPlacedAfterTheRoot) {
    AddWhales();
    Add({.qb_id = 10, .name1 = "Aaa"});
    explorer.Init();
    OpenAll();
    ASSERT_EQ(Name(explorer.TreeV().Top(1)), "Aaa");
    EXPECT_TRUE(explorer.MoveAndKeepSorted(Node(3), nullptr));
    EXPECT_TRUE(explorer.MoveAndKeepSorted(Node(4), nullptr));
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  beta, [Invalid] Gladiator, [Invalid] Killer)); Aaa; Lost; Orca  alpha; "
              "Tursiops([Invalid] Killer)");
    EXPECT_EQ(explorer.GetParentNode(Node(4)), Node(1));
}

TEST_F(Arranging, ThePlaceholderOfAnUnopenedParentCountsAsAChild) {
    AddWhales();
    explorer.ExpandNode(Node(1));
    explorer.MoveAndKeepSorted(Node(8), Node(2));
    EXPECT_EQ(Shape(), "Animalia(Orca(dummy99, Lost), Tursiops(dummy99))");
}

TEST_F(Arranging, FindsTheSiblingThatATextFollows) {
    Add({.qb_id = 2, .parent = 1, .rank = 30, .name1 = "Alpha"});
    Add({.qb_id = 3, .parent = 1, .rank = 30, .name1 = "Beta"});
    Add({.qb_id = 4, .parent = 1, .rank = 30, .name1 = "Delta"});
    Add({.qb_id = 5, .parent = 1, .rank = 30, .name1 = "Gamma"});
    explorer.Init();
    OpenAll();
    const auto behind = [&](const char* text, int node) {
        return explorer.InsertSiblingWhere(text, Node(node))->Sciname();
    };
    EXPECT_EQ(behind("epsilon", 2), "Delta");
    EXPECT_EQ(behind("ZETA", 2), "Gamma");
    EXPECT_EQ(behind("Delta", 2), "Alpha") << "neither below Delta, nor is the node's next looked at";
    EXPECT_EQ(behind("Delta", 5), "Beta") << "from the last node all siblings are looked at";
    EXPECT_EQ(behind("Aaa", 4), "Delta") << "none is below";
}

TEST_F(Arranging, ASubtreeIsRemovedWithItsItems) {
    AddWhales();
    OpenAll();
    explorer.TreeV().Select(Node(4));
    explorer.RemoveSubtree(Node(2));
    EXPECT_EQ(Shape(), "Animalia(Tursiops([Invalid] Killer)); Lost");
    EXPECT_EQ(Node(2), nullptr);
    EXPECT_EQ(Node(4), nullptr);
    EXPECT_EQ(Node(7, 2), nullptr);
    EXPECT_NE(Node(7, 3), nullptr);
    EXPECT_EQ(explorer.TreeV().Selected(), nullptr);
}

TEST_F(Arranging, AllNodesOfASynonymAreRemovedWhenNoAcceptedTaxonIsGiven) {
    AddWhales();
    OpenAll();
    explorer.RemoveNodes(7);
    EXPECT_EQ(Shape(), "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator), Tursiops); Lost");
    explorer.RemoveNodes(99);
}

TEST_F(Arranging, OneNodeOfASynonymIsRemovedWhenItsAcceptedTaxonIsGiven) {
    AddWhales();
    OpenAll();
    explorer.RemoveNodes(7, 2);
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator), Tursiops([Invalid] Killer)); "
              "Lost");
}

TEST_F(Arranging, NamesFollowTheStoreAndKeepTheirOrder) {
    AddWhales();
    AddAuthor(1, "Gray, 1846");
    OpenAll();
    data.db().Execute(
        "UPDATE qb_taxonomic_units SET unit_name2 = 'zeta', qb_taxon_author_id = 1 WHERE qb_id = 4");
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'invalid' WHERE qb_id = 3");
    data.db().Execute("UPDATE qb_taxonomic_units SET usage = 'valid' WHERE qb_id = 7");
    data.db().Execute("DELETE * FROM qb_taxonomic_units WHERE qb_id = 8");
    explorer.RefreshNames();
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  zeta  Gray, 1846, Orca  beta, [Invalid] Gladiator, Killer), "
              "[Invalid] Tursiops(Killer)); Lost");
    EXPECT_EQ(explorer.GetNodeData(Node(4))->Sciname(), "Orca  zeta  Gray, 1846");
    EXPECT_EQ(explorer.GetNodeData(Node(4))->usage(), "valid");
    EXPECT_EQ(explorer.ListV().Line(explorer.ListV().RowOf(7)), "Killer (valid)");
}

TEST_F(Arranging, ANodeThatIsNotOpenKeepsItsPlaceholderWhenNamesAreRead) {
    AddWhales();
    explorer.RefreshNames();
    EXPECT_EQ(Shape(), "Animalia(dummy99); Lost");
    data.lifecycle.CloseDataSet();
    data.state.gDatabase.reset();
    explorer.Init();
    explorer.RefreshNames();
    EXPECT_EQ(Shape(), "");
}

TEST_F(Arranging, OneNameIsReadForTheFirstNodeOfItsTaxon) {
    AddWhales();
    OpenAll();
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Murder' WHERE qb_id In (6, 7)");
    explorer.RefreshName(7);
    explorer.RefreshName(99);
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Murder), "
              "Tursiops([Invalid] Killer)); Lost");
}

// A bracket sorts before a letter, so that a name comes to stand behind the marked ones.
TEST_F(Arranging, MovedNodesReturnToTheirStoredParents) {
    AddWhales();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(5), Node(3));
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, [Invalid] Gladiator, [Invalid] Killer), "
              "Tursiops([Invalid] Killer, Orca  beta)); Lost");
    explorer.ReflectRealNodePosition(5);
    const std::string back =
        "Animalia(Orca(Orca  alpha, [Invalid] Gladiator, [Invalid] Killer, Orca  beta), "
        "Tursiops([Invalid] Killer)); Lost";
    EXPECT_EQ(Shape(), back);
    explorer.ReflectRealNodePosition(5);
    explorer.ReflectRealNodePosition(1);
    explorer.ReflectRealNodePosition(0);
    explorer.ReflectRealNodePosition(99);
    EXPECT_EQ(Shape(), back);
    EXPECT_EQ(events, "");
}

TEST_F(Arranging, AStoredParentIsNotOpenedForItsNode) {
    AddWhales();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(5), Node(3));
    explorer.TreeV().SetExpanded(Node(2), false);
    explorer.ReflectRealNodePosition(5);
    EXPECT_EQ(explorer.FindIdOfNode(Node(5)->Parent()), 2);
    EXPECT_FALSE(Node(2)->Expanded());
}

TEST_F(Arranging, ANodeIsRemovedUntilItsStoredParentIsExpanded) {
    AddWhales();
    explorer.ExpandNode(Node(1));
    auto item = std::make_shared<cBioList>(source);
    item->SetDbname(data.state.gDataSetPath);
    item->GetOneRecord(5);
    explorer.AddNode("Orca  beta", item, 0, Node(1));
    explorer.ReflectRealNodePosition(5);
    EXPECT_EQ(Shape(), "Animalia(Orca(dummy99), Tursiops(dummy99)); Lost");
    explorer.ExpandNode(Node(2));
    EXPECT_NE(Node(5), nullptr);
}

TEST_F(Arranging, ASynonymReturnsToItsAcceptedTaxon) {
    AddWhales();
    OpenAll();
    explorer.MoveAndKeepSorted(Node(6), Node(3));
    explorer.ReflectRealNodePosition(6);
    const std::string back =
        "Animalia(Orca([Invalid] Gladiator, Orca  alpha, Orca  beta, [Invalid] Killer), "
        "Tursiops([Invalid] Killer)); Lost";
    EXPECT_EQ(Shape(), back);
    EXPECT_NE(Node(6, 2), nullptr);
    explorer.ReflectRealNodePosition(7);
    EXPECT_EQ(Shape(), back) << "it stands under both already";
}

TEST_F(Arranging, ANodeOfAnUnlinkedSynonymIsRemoved) {
    AddWhales();
    OpenAll();
    data.db().Execute("DELETE * FROM qb_synonym_links WHERE qb_id = 7 AND qb_id_accepted = 3");
    explorer.ReflectRealNodePosition(7);
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer), Tursiops); "
              "Lost");
}

TEST_F(Arranging, AnOrphanReturnsToTheTopLevel) {
    AddWhales();
    OpenAll();
    const std::string before = Shape();
    explorer.MoveAndKeepSorted(Node(8), Node(3));
    explorer.ReflectRealNodePosition(8);
    EXPECT_EQ(Shape(), before);
}

}  // namespace
}  // namespace quillon::navigation
