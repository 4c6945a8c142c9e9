#include <gtest/gtest.h>

#include "navigation/node_table.h"
#include "navigation/taxa_fixture.h"
#include "navigation/tree_control.h"

namespace quillon::navigation {
namespace {

// Writes down what it is told.
class Recorder : public TreeObserver {
public:
    std::string told;
    static std::string Name(const TreeNode* node) { return node == nullptr ? "-" : node->Text(); }
    void BeforeInsert(TreeNode* parent, std::size_t first, std::size_t last) override {
        told += fmt::format("insert {} {}-{};", Name(parent), first, last);
    }
    void AfterInsert() override { told += "inserted;"; }
    void BeforeRemove(TreeNode* parent, std::size_t first, std::size_t last) override {
        told += fmt::format("remove {} {}-{};", Name(parent), first, last);
    }
    void AfterRemove() override { told += "removed;"; }
    void BeforeClear() override { told += "clear;"; }
    void AfterClear() override { told += "cleared;"; }
    void TextChanged(TreeNode* node) override { told += "text " + Name(node) + ";"; }
    void ExpandedChanged(TreeNode* node) override { told += "expanded " + Name(node) + ";"; }
    void SelectionChanged(TreeNode* node) override { told += "select " + Name(node) + ";"; }
};

TEST(TreeControl, TellsEachChangeOnce) {
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
    EXPECT_EQ(recorder.told, "insert - 0-1;inserted;text A;expanded A;select A;");
    EXPECT_EQ(tree.Top(1)->Child(0)->Text(), "later");
}

TEST(TreeControl, KeepsRowsInOrderWhenANodeGoes) {
    TreeControl tree;
    tree.Append(nullptr, {{"a", ""}, {"b", ""}, {"c", ""}});
    TreeNode* c = tree.Top(2);
    tree.Remove(tree.Top(1));
    EXPECT_EQ(tree.TopCount(), 2u);
    EXPECT_EQ(c->Row(), 1u);
    EXPECT_EQ(tree.Top(1), c);
}

TEST(TreeControl, ASelectionGoesWithTheNodeOrAnAncestor) {
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
    EXPECT_EQ(recorder.told, "remove - 1-1;removed;select -;remove - 0-0;removed;");
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

TEST_F(Nodes, AreToldApartByTheTaxonUnderWhichTheyStand) {
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

}  // namespace
}  // namespace quillon::navigation
