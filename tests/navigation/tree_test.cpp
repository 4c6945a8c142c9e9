#include <gtest/gtest.h>

#include "navigation/node_table.h"
#include "navigation/taxa_fixture.h"
#include "navigation/tree_control.h"

namespace quillon::navigation {
namespace {

// Writes down what it is notified of.
class Recorder : public TreeObserver {
public:
    std::string log;
    static std::string Name(const TreeNode* node) { return node == nullptr ? "-" : node->Text(); }
    void BeforeInsert(TreeNode* parent, std::size_t first, std::size_t last) override {
        log += fmt::format("insert {} {}-{};", Name(parent), first, last);
    }
    void AfterInsert() override { log += "inserted;"; }
    void BeforeRemove(TreeNode* parent, std::size_t first, std::size_t last) override {
        log += fmt::format("remove {} {}-{};", Name(parent), first, last);
    }
    void AfterRemove() override { log += "removed;"; }
    void BeforeClear() override { log += "clear;"; }
    void AfterClear() override { log += "cleared;"; }
    void BeforeMove(TreeNode* node, TreeNode* parent, std::size_t row) override {
        log += fmt::format("move {} {} {};", Name(node), Name(parent), row);
    }
    void AfterMove() override { log += "moved;"; }
    void TextsChanged(TreeNode* parent, std::size_t first, std::size_t last) override {
        log += fmt::format("text {} {}-{};", Name(parent), first, last);
    }
    void ExpandedChanged(TreeNode* node) override { log += "expanded " + Name(node) + ";"; }
    void SelectionChanged(TreeNode* node) override { log += "select " + Name(node) + ";"; }
    void MadeVisible(TreeNode* node) override { log += "visible " + Name(node) + ";"; }
    void DropHighlightChanged(TreeNode* before, TreeNode* now) override {
        log += "highlight " + Name(before) + " " + Name(now) + ";";
    }
};

TEST(TreeControl, ReportsEachChangeOnce) {
    TreeControl tree;
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.Append(nullptr, {{"a", ""}, {"b", "later"}});
    TreeNode* a = tree.Top(0);
    tree.Append(a, {});
    tree.SetText(a, "A");
    tree.SetText(a, "A");
    tree.SetExpanded(a, true);
    tree.SetExpanded(a, true);
    tree.Select(a);
    tree.Select(a);
    EXPECT_EQ(recorder.log, "insert - 0-1;inserted;text - 0-0;expanded A;select A;");
    EXPECT_EQ(tree.Top(1)->Child(0)->Text(), "later");
}

TEST(TreeControl, KeepsRowsInOrderWhenANodeIsRemoved) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}});
    TreeNode* c = tree.Top(2);
    tree.Remove(tree.Top(1));
    EXPECT_EQ(tree.TopCount(), 2u);
    EXPECT_EQ(c->Row(), 1u);
    EXPECT_EQ(tree.Top(1), c);
}

TEST(TreeControl, TheSelectionIsClearedWithTheNodeOrAnAncestor) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}});
    tree.Append(tree.Top(0), {{"child", ""}});
    tree.Select(tree.Top(0)->Child(0));
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.Remove(tree.Top(1));
    EXPECT_NE(tree.Selected(), nullptr);
    tree.Remove(tree.Top(0));
    EXPECT_EQ(tree.Selected(), nullptr);
    EXPECT_EQ(recorder.log, "remove - 1-1;removed;select -;remove - 0-0;removed;");
}

TEST(TreeControl, InsertsBetweenChildren) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"d", ""}});
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.Insert(nullptr, 1, {{"b", ""}, {"c", "later"}});
    EXPECT_EQ(recorder.log, "insert - 1-2;inserted;");
    std::string texts;
    for (std::size_t row = 0; row < tree.TopCount(); ++row) {
        texts += tree.Top(row)->Text();
        EXPECT_EQ(tree.Top(row)->Row(), row);
    }
    EXPECT_EQ(texts, "abcd");
}

TEST(TreeControl, MovesANodeWithItsSubtree) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}});
    TreeNode *a = tree.Top(0), *b = tree.Top(1), *c = tree.Top(2);
    tree.Append(b, {{"child", ""}});
    tree.Append(c, {{"x", ""}, {"y", ""}});
    tree.Select(b);
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.Move(b, c, 1);
    EXPECT_EQ(recorder.log, "move b c 1;moved;");
    EXPECT_EQ(tree.TopCount(), 2u);
    EXPECT_EQ(c->Row(), 1u);
    EXPECT_EQ(c->Child(1), b);
    EXPECT_EQ(c->Child(2)->Text(), "y");
    EXPECT_EQ(c->Child(2)->Row(), 2u);
    EXPECT_EQ(b->Parent(), c);
    EXPECT_EQ(b->Child(0)->Text(), "child");
    EXPECT_EQ(tree.Selected(), b);
    tree.Move(b, nullptr, 1);
    EXPECT_EQ(tree.Top(1), b);
    EXPECT_EQ(tree.Top(0), a);
    EXPECT_EQ(b->Parent(), nullptr);
}

TEST(TreeControl, KnowsSiblingsAndAncestors) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}});
    TreeNode *a = tree.Top(0), *b = tree.Top(1), *c = tree.Top(2);
    tree.Append(a, {{"child", ""}});
    EXPECT_EQ(tree.NextSibling(a), b);
    EXPECT_EQ(tree.NextSibling(c), nullptr);
    EXPECT_EQ(tree.PreviousSibling(a), nullptr);
    EXPECT_EQ(tree.PreviousSibling(c), b);
    EXPECT_EQ(tree.LastSibling(a), c);
    EXPECT_EQ(tree.LastSibling(a->Child(0)), a->Child(0));
    EXPECT_TRUE(a->Child(0)->IsWithin(a));
    EXPECT_TRUE(a->IsWithin(a));
    EXPECT_FALSE(a->IsWithin(a->Child(0)));
    EXPECT_EQ(tree.CountUnder(nullptr), 3u);
    EXPECT_EQ(tree.Under(a, 0)->Text(), "child");
}

TEST(TreeControl, ReportsManyChangedTextsOnceAParent) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}, {"d", ""}});
    tree.Append(tree.Top(0), {{"x", ""}});
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.SetTexts({{tree.Top(3), "D"}, {tree.Top(0), "a"}, {tree.Top(1), "B"}, {tree.Top(0)->Child(0), "x"}});
    EXPECT_EQ(recorder.log, "text - 1-3;");
    tree.SetTexts({{tree.Top(3), "D"}, {tree.Top(1), "B"}});
    tree.SetTexts({});
    EXPECT_EQ(recorder.log, "text - 1-3;");
    EXPECT_EQ(tree.Top(3)->Text(), "D");
}

TEST(TreeControl, APlaceholderIsNotARow) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", "later"}, {"b", "later"}});
    TreeNode *a = tree.Top(0), *b = tree.Top(1);
    EXPECT_TRUE(a->HasPlaceholder());
    EXPECT_EQ(a->ChildCount(), 1u);
    EXPECT_EQ(a->RowCount(), 0u);
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.Remove(a->Child(0));
    tree.Append(a, {{"x", ""}});
    EXPECT_EQ(recorder.log, "insert a 0-0;inserted;");
    recorder.log.clear();
    tree.Move(a, b, 1);
    EXPECT_EQ(recorder.log, "insert b 0-0;inserted;move a b 1;moved;") << "among rows it becomes one";
    EXPECT_EQ(b->RowCount(), 2u);
}

TEST(TreeControl, ADeepChainOfNodesIsRemovedWithoutRecursion) {
    TreeControl tree;
    tree.Append(nullptr, {{"0", ""}});
    TreeNode* node = tree.Top(0);
    for (int depth = 1; depth < 300000; ++depth) {
        tree.Append(node, {{"n", ""}});
        node = node->Child(0);
    }
    tree.Remove(tree.Top(0));
    EXPECT_EQ(tree.TopCount(), 0u);
}

TEST(TreeControl, ExpandsTheAncestorsOfANodeToBeShown) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}});
    tree.Append(tree.Top(0), {{"b", ""}});
    tree.Append(tree.Top(0)->Child(0), {{"c", ""}});
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.EnsureVisible(tree.Top(0)->Child(0)->Child(0));
    EXPECT_EQ(recorder.log, "expanded b;expanded a;visible c;");
}

TEST(TreeControl, TheDropHighlightIsClearedWithItsNode) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}});
    tree.Append(tree.Top(0), {{"child", ""}});
    Recorder recorder;
    tree.SetObserver(&recorder);
    tree.SetDropHighlight(tree.Top(0)->Child(0));
    tree.SetDropHighlight(tree.Top(0)->Child(0));
    tree.Remove(tree.Top(0));
    EXPECT_EQ(tree.DropHighlight(), nullptr);
    tree.SetDropHighlight(tree.Top(0));
    tree.Clear();
    EXPECT_EQ(tree.DropHighlight(), nullptr);
    EXPECT_EQ(recorder.log,
              "highlight - child;highlight child -;remove - 0-0;removed;highlight - b;highlight b "
              "-;clear;cleared;");
}

class Nodes : public TaxaFixture {
protected:
    void SetUp() override {
        TaxaFixture::SetUp();
        tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}});
    }
    std::shared_ptr<cBioList> Item(int id, int accepted = 0) {
        auto item = std::make_shared<cBioList>(source);
        item->SetDbname(data.state.gDataSetPath);
        item->SetQbId(id);
        item->SetAccepted(accepted);
        return item;
    }
    TreeNode* Find(int id, std::optional<int> accepted = {}) {
        NodeTable::Place place = 1;
        return table.Find(id, place, accepted);
    }

    TreeControl tree;
    NodeTable table;
};

TEST_F(Nodes, DifferByTheTaxonThatTheyAreUnder) {
    table.Add(tree.Top(0), Item(7, 1));
    table.Add(tree.Top(1), Item(7, 2));
    EXPECT_EQ(Find(7), tree.Top(0));
    EXPECT_EQ(Find(7, 2), tree.Top(1));
    EXPECT_EQ(Find(7, 3), nullptr);
    EXPECT_EQ(Find(8), nullptr);
}

TEST_F(Nodes, AreFoundFromAPlaceOn) {
    table.Add(tree.Top(0), Item(7));
    table.Add(tree.Top(1), Item(8));
    table.Add(tree.Top(2), Item(7));
    NodeTable::Place place = -5;
    EXPECT_EQ(table.Find(7, place, {}), tree.Top(0));
    EXPECT_EQ(place, 1);
    ++place;
    EXPECT_EQ(table.Find(7, place, {}), tree.Top(2));
    EXPECT_EQ(place, 3);
    ++place;
    EXPECT_EQ(table.Find(7, place, {}), nullptr);
    EXPECT_EQ(place, 4);
}

TEST_F(Nodes, GiveTheirItemUntilTheyGo) {
    table.Add(tree.Top(0), Item(7));
    ASSERT_NE(table.ItemOf(tree.Top(0)), nullptr);
    EXPECT_EQ(table.ItemOf(tree.Top(0))->qb_id(), 7);
    EXPECT_EQ(table.ItemOf(tree.Top(1)), nullptr);
    table.Remove(tree.Top(0));
    EXPECT_EQ(table.ItemOf(tree.Top(0)), nullptr);
    EXPECT_EQ(Find(7), nullptr);
    EXPECT_EQ(table.Count(), 0u);
}

TEST_F(Nodes, TakeAnotherItemInTheirPlace) {
    table.Add(tree.Top(0), Item(7));
    table.Add(tree.Top(1), Item(8));
    table.Replace(tree.Top(0), Item(8));
    EXPECT_EQ(Find(7), nullptr);
    EXPECT_EQ(Find(8), tree.Top(0));
    table.Replace(tree.Top(2), Item(9));
    EXPECT_EQ(Find(9), nullptr);
}

TEST_F(Nodes, AreFoundUnderTheNewTaxonOfAnItem) {
    const auto item = Item(7, 1);
    table.Add(tree.Top(0), Item(7, 3));
    table.Add(tree.Top(1), item);
    item->SetAccepted(2);
    EXPECT_EQ(Find(7, 1), tree.Top(1)) << "until the table hears of it";
    table.Replace(tree.Top(1), item);
    EXPECT_EQ(Find(7, 1), nullptr);
    EXPECT_EQ(Find(7, 2), tree.Top(1));
    EXPECT_EQ(table.NodesOf(7), (std::vector<TreeNode*>{tree.Top(0), tree.Top(1)}));
    EXPECT_EQ(table.NodesOf(8), std::vector<TreeNode*>{});
    EXPECT_EQ(table.Taxa(), std::vector<int>{7});
}

}  // namespace
}  // namespace quillon::navigation
