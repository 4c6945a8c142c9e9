// The tree of the explorer without a widget: nodes with text, order, expansion and one selection. A window
// mirrors it through a TreeObserver; the explorer alone changes it.
//
// A node is known by its address, which holds until the node is removed. Nodes know nothing of the taxa they
// stand for.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::navigation {

class TreeNode {
public:
    const std::string& Text() const { return text_; }
    // nullptr at the top level.
    TreeNode* Parent() const { return parent_; }
    // Its place among its siblings, from 0.
    std::size_t Row() const { return row_; }
    std::size_t ChildCount() const { return children_.size(); }
    TreeNode* Child(std::size_t row) const { return children_.at(row).get(); }
    bool Expanded() const { return expanded_; }

private:
    friend class TreeControl;
    explicit TreeNode(std::string text) : text_(std::move(text)) {}

    std::string text_;
    TreeNode* parent_ = nullptr;
    std::size_t row_ = 0;
    bool expanded_ = false;
    std::vector<std::unique_ptr<TreeNode>> children_;
};

// Told before and after each change; `parent` is nullptr for the top level. Rows are from `first` to `last`,
// both in.
class TreeObserver {
public:
    virtual ~TreeObserver() = default;
    virtual void BeforeInsert(TreeNode* parent, std::size_t first, std::size_t last) = 0;
    virtual void AfterInsert() = 0;
    virtual void BeforeRemove(TreeNode* parent, std::size_t first, std::size_t last) = 0;
    virtual void AfterRemove() = 0;
    virtual void BeforeClear() = 0;
    virtual void AfterClear() = 0;
    virtual void TextChanged(TreeNode* node) = 0;
    virtual void ExpandedChanged(TreeNode* node) = 0;
    // `node` is nullptr when nothing is selected any more. It is to be made visible.
    virtual void SelectionChanged(TreeNode* node) = 0;
};

class TreeControl {
public:
    struct NewNode {
        std::string text;
        // The text of the one child that it gets at once; none when empty.
        std::string_view placeholder;
    };

    TreeControl();
    // At most one; nullptr to let go.
    void SetObserver(TreeObserver* observer) { observer_ = observer; }

    std::size_t TopCount() const { return top_.ChildCount(); }
    TreeNode* Top(std::size_t row) const { return top_.Child(row); }
    // Appends nodes under a parent, all told at once; gives the place of the first.
    std::size_t Append(TreeNode* parent, const std::vector<NewNode>& nodes);
    void Remove(TreeNode* node);
    void Clear();
    void SetText(TreeNode* node, std::string_view text);
    void SetExpanded(TreeNode* node, bool expanded);

    TreeNode* Selected() const { return selected_; }
    void Select(TreeNode* node);

private:
    TreeNode& Owner(TreeNode* parent) { return parent == nullptr ? top_ : *parent; }
    static bool IsBelow(const TreeNode* node, const TreeNode* ancestor);

    TreeNode top_;  // never shown; holds the top level
    TreeNode* selected_ = nullptr;
    TreeObserver* observer_ = nullptr;
};

}  // namespace quillon::navigation
