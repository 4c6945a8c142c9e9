// An explorer over a DataSet of a few whales, whose events are written down.
#pragma once

#include <functional>
#include <string>

#include "navigation/explorer.h"
#include "navigation/taxa_fixture.h"

namespace quillon::navigation {

class Explorer : public TaxaFixture {
protected:
    void SetUp() override {
        TaxaFixture::SetUp();
        explorer.ItemSelected = [this](const auto& item) {
            events += fmt::format("item {};", item->qb_id());
        };
        explorer.CurrentPos = [this](bool first, bool last) {
            events += fmt::format("pos {} {};", first, last);
        };
        explorer.Expand = [this](const TreeNode* node) { events += "expand " + node->Text() + ";"; };
        explorer.StartListTimer = [this] { events += "timer;"; };
        explorer.ListMoved = [this](int id) { events += fmt::format("list {};", id); };
        explorer.RunTreeTimer = [this](bool run) { events += run ? "run;" : "stop;"; };
        explorer.ScrollTree = [this](int lines) { events += fmt::format("scroll {};", lines); };
        explorer.Dropped = [this](const TreeNode* moved, const TreeNode* to, const TreeNode* from,
                                  bool& cancel) {
            events += fmt::format("drop {} to {} from {};", Name(moved), Name(to), Name(from));
            if (onDropped) onDropped();
            cancel = refuse;
        };
    }
    // Animalia > Orca > (alpha, beta, [Gladiator], [Killer]); Tursiops > [Killer]; an orphan.
    void AddWhales() {
        Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "Orca"});
        Add({.qb_id = 3, .parent = 1, .rank = 180, .name1 = "Tursiops"});
        Add({.qb_id = 4, .parent = 2, .name1 = "Orca", .name2 = "alpha"});
        Add({.qb_id = 5, .parent = 2, .name1 = "Orca", .name2 = "beta"});
        Add({.qb_id = 6, .rank = 180, .name1 = "Gladiator", .usage = "invalid"});
        Add({.qb_id = 7, .rank = 180, .name1 = "Killer", .usage = "invalid"});
        Add({.qb_id = 8, .rank = 180, .name1 = "Lost"});
        Link(6, 2);
        Link(7, 2);
        Link(7, 3);
        explorer.Init();
        explorer.ListV().LoadAll();
        events.clear();
    }
    static std::string Name(const TreeNode* node) { return node == nullptr ? "-" : node->Text(); }
    TreeNode* Node(int id, std::optional<int> accepted = {}) { return explorer.FindNodeWithId(id, accepted); }
    // Opens all there is, and forgets the events of it.
    void OpenAll() {
        for (std::size_t i = 0; i < explorer.TreeV().TopCount(); ++i) Open(explorer.TreeV().Top(i));
        events.clear();
    }
    void Open(TreeNode* node) {
        if (node->ChildCount() > 0) explorer.ExpandNode(node);
        for (std::size_t i = 0; i < node->ChildCount(); ++i) Open(node->Child(i));
    }
    // The nodes that are there, a level deeper in brackets.
    std::string Shape(const TreeNode& node) {
        std::string text = node.Text();
        for (std::size_t i = 0; i < node.ChildCount(); ++i) {
            text += (i == 0 ? "(" : ", ") + Shape(*node.Child(i)) + (i + 1 == node.ChildCount() ? ")" : "");
        }
        return text;
    }
    std::string Shape() {
        std::string text;
        for (std::size_t i = 0; i < explorer.TreeV().TopCount(); ++i) {
            text += (i == 0 ? "" : "; ") + Shape(*explorer.TreeV().Top(i));
        }
        return text;
    }
    void Type(std::string_view text) {
        for (const char character : text) explorer.ListKeyPress(std::string_view(&character, 1));
    }
    std::string Line() {
        const std::size_t row = explorer.ListV().RowOf(explorer.ListId());
        return row == TaxonList::kNone ? "" : explorer.ListV().Line(row);
    }

    cExplorer explorer{data.state, data.engine, data.prompter};
    std::string events;
    bool refuse = false;              // the answer to Dropped
    std::function<void()> onDropped;  // what the form does before it answers
};

}  // namespace quillon::navigation
