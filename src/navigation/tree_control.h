// The model of the explorer's tree: nodes with text, order, expansion, one selection and one drop highlight.
// A window mirrors it through a TreeObserver; only the explorer changes it.
//
// A node is identified by its address, which stays the same until the node is removed, also when it is moved.
// Nodes do not refer to taxa.
//
// A node whose children have not been read has one child instead, the placeholder. The observer never sees
// it: for a window such a node has no rows yet but can be opened.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon::navigation {

class TreeNode {
public:
    const std::string& Text() const { return text_; }
    // nullptr at the top level.
    TreeNode* Parent() const { return parent_; }
    // The position among its siblings, from 0.
    std::size_t Row() const { return row_; }
    std::size_t ChildCount() const { return children_.size(); }
    TreeNode* Child(std::size_t row) const { return children_.at(row).get(); }
    // The children that a window shows: all except a placeholder.
    std::size_t RowCount() const { return HasPlaceholder() ? 0 : children_.size(); }
    bool HasPlaceholder() const { return children_.size() == 1 && children_.front()->isPlaceholder_; }
    bool Expanded() const { return expanded_; }
    // True within the subtree of `ancestor`, including `ancestor`.
    bool IsWithin(const TreeNode* ancestor) const;

private:
    friend class TreeControl;
    explicit TreeNode(std::string text) : text_(std::move(text)) {}
    static void Destroy(std::vector<std::unique_ptr<TreeNode>> nodes);

    std::string text_;
    TreeNode* parent_ = nullptr;
    std::size_t row_ = 0;
    bool expanded_ = false;
    bool isPlaceholder_ = false;
    std::vector<std::unique_ptr<TreeNode>> children_;
};

// Notified before and after each change. `parent` is nullptr for the top level; `first` and `last` are
// inclusive.
class TreeObserver {
public:
    virtual ~TreeObserver() = default;
    virtual void BeforeInsert(TreeNode* parent, std::size_t first, std::size_t last) = 0;
    virtual void AfterInsert() = 0;
    virtual void BeforeRemove(TreeNode* parent, std::size_t first, std::size_t last) = 0;
    virtual void AfterRemove() = 0;
    // The node moves under `parent`, before the child now in `row`, or to the end.
    virtual void BeforeMove(TreeNode* node, TreeNode* parent, std::size_t row) = 0;
    virtual void AfterMove() = 0;
    virtual void BeforeClear() = 0;
    virtual void AfterClear() = 0;
    // The texts of rows `first` to `last` may have changed.
    virtual void TextsChanged(TreeNode* parent, std::size_t first, std::size_t last) = 0;
    virtual void ExpandedChanged(TreeNode* node) = 0;
    // `node` is nullptr when nothing is selected any more; otherwise it should be made visible.
    virtual void SelectionChanged(TreeNode* node) = 0;
    // All nodes above this one are open; the view must scroll to it.
    virtual void MadeVisible(TreeNode* node) = 0;
    // Either may be nullptr; `before` may be about to be removed.
    virtual void DropHighlightChanged(TreeNode* before, TreeNode* now) = 0;
};

class TreeControl {
public:
    struct NewNode {
        std::string text;
        // The text of the placeholder child; empty for none.
        std::string_view placeholder;
    };

    TreeControl();
    ~TreeControl();
    TreeControl(const TreeControl&) = delete;
    TreeControl& operator=(const TreeControl&) = delete;

    // At most one observer; nullptr removes it.
    void SetObserver(TreeObserver* observer) { observer_ = observer; }

    std::size_t TopCount() const { return top_.ChildCount(); }
    TreeNode* Top(std::size_t row) const { return top_.Child(row); }
    // Children of a node, or of the top level for nullptr.
    std::size_t CountUnder(const TreeNode* parent) const { return Owner(parent).ChildCount(); }
    TreeNode* Under(const TreeNode* parent, std::size_t row) const { return Owner(parent).Child(row); }
    // nullptr where there is none.
    TreeNode* NextSibling(const TreeNode* node) const;
    TreeNode* PreviousSibling(const TreeNode* node) const;
    TreeNode* LastSibling(const TreeNode* node) const;

    // Inserts nodes under a parent before the child in `row`, as one change.
    void Insert(TreeNode* parent, std::size_t row, const std::vector<NewNode>& nodes);
    // The same after the last child; returns the row of the first.
    std::size_t Append(TreeNode* parent, const std::vector<NewNode>& nodes);
    void Remove(TreeNode* node);
    // Moves a node with its subtree under another parent, before the child in `row`. The parent must not be
    // the present one nor within the subtree. A placeholder there becomes an ordinary row.
    void Move(TreeNode* node, TreeNode* parent, std::size_t row);
    void Clear();
    void SetText(TreeNode* node, std::string_view text);
    // Sets many texts at once; notifies the observer once for each parent with a changed text.
    void SetTexts(const std::vector<std::pair<TreeNode*, std::string>>& texts);
    void SetExpanded(TreeNode* node, bool expanded);
    // Opens the nodes above it without loading children.
    void EnsureVisible(TreeNode* node);

    TreeNode* Selected() const { return selected_; }
    void Select(TreeNode* node);
    // The node that would receive the dragged one.
    TreeNode* DropHighlight() const { return dropHighlight_; }
    void SetDropHighlight(TreeNode* node);

private:
    TreeNode& Owner(TreeNode* parent) { return parent == nullptr ? top_ : *parent; }
    const TreeNode& Owner(const TreeNode* parent) const { return parent == nullptr ? top_ : *parent; }
    static void Renumber(TreeNode& owner, std::size_t from);
    void ShowPlaceholder(TreeNode* parent);
    static std::unique_ptr<TreeNode> Make(TreeNode* parent, const NewNode& added);

    TreeNode top_;  // never shown; holds the top level
    TreeNode* selected_ = nullptr;
    TreeNode* dropHighlight_ = nullptr;
    TreeObserver* observer_ = nullptr;
};

}  // namespace quillon::navigation
