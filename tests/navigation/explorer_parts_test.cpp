// What the explorer does in parts while the window is idle.
#include "navigation/explorer_fixture.h"

namespace quillon::navigation {
namespace {

class Parts : public Explorer {
protected:
    void SetUp() override {
        Explorer::SetUp();
        explorer.StartIdleTimer = [this] { ++idleCalls; };
        explorer.Note = [this](std::string_view text) { notes += std::string(text) + "\n"; };
    }
    void AddChildren(int count) {
        data.engine.BeginTrans();
        for (int id = 2; id < 2 + count; ++id)
            Add({.qb_id = id, .parent = 1, .rank = 180, .name1 = fmt::format("Genus{:05}", 99999 - id)});
        data.engine.CommitTrans();
        explorer.Init();
        explorer.ListV().LoadAll();
        events.clear();
    }
    // Each taxon the parent of the next one.
    void AddChain(int last) {
        data.engine.BeginTrans();
        for (int id = 2; id <= last; ++id) Add({.qb_id = id, .parent = id - 1, .name1 = "Link"});
        data.engine.CommitTrans();
        explorer.Init();
        events.clear();
    }
    int DoRest() {
        int parts = 1;
        while (explorer.Continue()) ++parts;
        return parts;
    }
    static int DepthOf(const TreeNode* node) {
        int depth = 0;
        for (; node->Parent() != nullptr; node = node->Parent()) ++depth;
        return depth;
    }

    int idleCalls = 0;
    std::string notes;
};

constexpr int kMany = 4500;

TEST_F(Parts, ALargeNodeOpensInParts) {
    AddChildren(kMany);
    TreeNode* root = explorer.TreeV().Top(0);
    explorer.ExpandNode(root);
    EXPECT_TRUE(root->Expanded());
    EXPECT_FALSE(cExplorer::NodeHasBeenExpanded(*root)) << "the first part reads what orders the children";
    EXPECT_EQ(idleCalls, 1);
    explorer.ExpandNode(root);
    std::size_t there = 0;
    for (int parts = 0; explorer.Continue(); ++parts) {
        ASSERT_LT(parts, 10);
        const std::size_t now = root->RowCount();
        EXPECT_LE(now - there, cExplorer::kRowsInAPart);
        there = now;
    }
    ASSERT_EQ(root->ChildCount(), std::size_t{kMany});
    EXPECT_EQ(root->Child(0)->Text(), "Genus95498");
    EXPECT_EQ(explorer.FindIdOfNode(root->Child(kMany - 1)), 2);
    EXPECT_FALSE(explorer.Continue());
}

TEST_F(Parts, ANodeThatIsRemovedIsNotLoadedOn) {
    AddChildren(kMany);
    explorer.ExpandNode(explorer.TreeV().Top(0));
    explorer.RemoveNodes(1);
    EXPECT_FALSE(explorer.Continue());
    EXPECT_EQ(Shape(), "");
}

TEST_F(Parts, NothingIsReadWhileAJobRuns) {
    AddChildren(kMany);
    TreeNode* root = explorer.TreeV().Top(0);
    explorer.ExpandNode(root);
    data.engine.BeginJob();
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(explorer.Continue());
    EXPECT_EQ(root->RowCount(), 0u);
    data.engine.EndJob();
    DoRest();
    EXPECT_EQ(root->RowCount(), std::size_t{kMany});
}

TEST_F(Parts, ANameOfALargeNodeIsShownBeforeItsNodeIsThere) {
    AddChildren(kMany);
    explorer.ListDblClick(2);
    EXPECT_EQ(events, "expand Animalia;item 2;");
    EXPECT_EQ(explorer.TreeV().Selected(), nullptr);
    DoRest();
    ASSERT_NE(explorer.TreeV().Selected(), nullptr);
    EXPECT_EQ(explorer.FindIdOfNode(explorer.TreeV().Selected()), 2);
    EXPECT_EQ(events, "expand Animalia;item 2;");
}

TEST_F(Parts, AnotherChoiceEndsTheWayToAName) {
    AddChildren(kMany);
    explorer.ListDblClick(2);
    explorer.NodeClick(explorer.TreeV().Top(0));
    DoRest();
    EXPECT_EQ(explorer.TreeV().Selected(), explorer.TreeV().Top(0));
}

TEST_F(Parts, NamesAreReadAgainInParts) {
    AddChildren(kMany);
    explorer.ExpandNode(explorer.TreeV().Top(0));
    DoRest();
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'New' WHERE qb_id > 1");
    explorer.RefreshNames();
    const TreeNode* root = explorer.TreeV().Top(0);
    const auto renamed = [&] {
        std::size_t count = 0;
        for (std::size_t row = 0; row < root->ChildCount(); ++row) count += root->Child(row)->Text() == "New";
        return count;
    };
    EXPECT_GT(renamed(), 0u);
    EXPECT_LE(renamed(), 1000u);
    EXPECT_LE(DoRest(), 5);
    EXPECT_EQ(renamed(), std::size_t{kMany});
}

TEST_F(Parts, AWildcardSearchesOnInParts) {
    AddChildren(kMany);
    explorer.ListKeyPress("*95500");
    EXPECT_EQ(Line(), "Genus95500 (valid)") << "the first part comes at once";
    explorer.ListTimer();
    explorer.ListKeyPress("?*99996");
    EXPECT_EQ(Line(), "Genus95500 (valid)") << "the key does not wait for the search";
    explorer.ListTimer();
    const int parts = DoRest();
    EXPECT_GE(parts, 2);
    EXPECT_LE(parts, kMany / 2000 + 2);
    EXPECT_EQ(Line(), "Genus99996 (valid)");
}

TEST_F(Parts, AMoveInTheListEndsTheSearch) {
    AddChildren(kMany);
    explorer.ListKeyPress("*99996");
    explorer.SetListId(7);
    DoRest();
    EXPECT_EQ(explorer.ListId(), 7);
}

TEST_F(Parts, AsteriskExpandsTheSubtree) {
    AddWhales();
    explorer.ExpandBelow(Node(1));
    DoRest();
    EXPECT_EQ(Shape(),
              "Animalia(Orca(Orca  alpha, Orca  beta, [Invalid] Gladiator, [Invalid] Killer), "
              "Tursiops([Invalid] Killer)); Lost");
    EXPECT_TRUE(Node(3)->Expanded());
    EXPECT_EQ(notes, "");
}

TEST_F(Parts, AsteriskOpensALargeNodeToItsEnd) {
    AddChildren(kMany);
    Add({.qb_id = 9000, .parent = 2, .name1 = "Genus99997", .name2 = "alpha"});
    explorer.ExpandBelow(explorer.TreeV().Top(0));
    DoRest();
    EXPECT_NE(Node(9000), nullptr);
}

TEST_F(Parts, AsteriskStopsAtALimitAndContinuesFromThere) {
    AddChain(2105);
    explorer.ExpandBelow(explorer.TreeV().Top(0));
    EXPECT_LE(DoRest(), 2000 / 32 + 2);
    EXPECT_EQ(notes, "2000 branches below Animalia were opened; there are more.\n");
    EXPECT_FALSE(Node(2001)->Expanded());
    explorer.ExpandBelow(explorer.TreeV().Top(0));
    DoRest();
    EXPECT_EQ(DepthOf(Node(2105)), 2104);
    EXPECT_EQ(notes, "2000 branches below Animalia were opened; there are more.\n");
}

TEST_F(Parts, AsteriskEndsWhereTaxaStandUnderThemselves) {
    Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "Self"});
    Add({.qb_id = 3, .parent = 1, .rank = 180, .name1 = "There"});
    Add({.qb_id = 4, .parent = 1, .rank = 180, .name1 = "Back"});
    Link(2, 2);
    Link(3, 4);
    Link(4, 3);
    explorer.Init();
    explorer.ExpandBelow(explorer.TreeV().Top(0));
    DoRest();
    EXPECT_EQ(Shape(), "Animalia(Back(There(Back)), Self(Self), There(Back(There)))");
    EXPECT_EQ(notes, "");
}

TEST_F(Parts, ALongChainOfParentsIsOpenedInParts) {
    AddChain(3000);
    explorer.ListDblClick(3000);
    EXPECT_EQ(events.substr(events.size() - 10), "item 3000;");
    EXPECT_LE(DoRest(), 3000 / 32 + 2);
    ASSERT_NE(explorer.TreeV().Selected(), nullptr);
    EXPECT_EQ(DepthOf(explorer.TreeV().Selected()), 2999);
}

TEST_F(Parts, AnEndlessChainHasNoPath) {
    AddChain(static_cast<int>(cExplorer::kDeepestPath) + 2);
    EXPECT_EQ(explorer.ExpandContainingSubtree(static_cast<int>(cExplorer::kDeepestPath) + 2), nullptr);
    EXPECT_EQ(events, "");
}

}  // namespace
}  // namespace quillon::navigation
