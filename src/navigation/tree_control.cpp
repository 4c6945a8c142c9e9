// Changes of the tree, each between a pair of observer calls.
#include "navigation/tree_control.h"

#include <algorithm>
#include <map>

namespace quillon::navigation {

bool TreeNode::IsWithin(const TreeNode* ancestor) const {
    const TreeNode* node = this;
    while (node != nullptr && node != ancestor) node = node->parent_;
    return node != nullptr;
}

// Level by level, because a recursion over a long chain of nodes would overflow the stack.
void TreeNode::Destroy(std::vector<std::unique_ptr<TreeNode>> nodes) {
    while (!nodes.empty()) {
        const std::unique_ptr<TreeNode> node = std::move(nodes.back());
        nodes.pop_back();
        for (auto& child : node->children_) nodes.push_back(std::move(child));
        node->children_.clear();
    }
}

TreeControl::TreeControl() : top_("") {}

TreeControl::~TreeControl() {
    TreeNode::Destroy(std::move(top_.children_));
}

TreeNode* TreeControl::NextSibling(const TreeNode* node) const {
    const TreeNode& owner = Owner(node->Parent());
    return node->row_ + 1 < owner.ChildCount() ? owner.Child(node->row_ + 1) : nullptr;
}

TreeNode* TreeControl::PreviousSibling(const TreeNode* node) const {
    return node->row_ == 0 ? nullptr : Owner(node->Parent()).Child(node->row_ - 1);
}

TreeNode* TreeControl::LastSibling(const TreeNode* node) const {
    const TreeNode& owner = Owner(node->Parent());
    return owner.Child(owner.ChildCount() - 1);
}

void TreeControl::Renumber(TreeNode& owner, std::size_t from) {
    for (std::size_t i = from; i < owner.children_.size(); ++i) owner.children_[i]->row_ = i;
}

std::unique_ptr<TreeNode> TreeControl::Make(TreeNode* parent, const NewNode& added) {
    std::unique_ptr<TreeNode> node(new TreeNode(added.text));
    node->parent_ = parent;
    if (!added.placeholder.empty()) {
        node->children_.emplace_back(new TreeNode(std::string(added.placeholder)));
        node->children_.back()->parent_ = node.get();
        node->children_.back()->isPlaceholder_ = true;
    }
    return node;
}

void TreeControl::Insert(TreeNode* parent, std::size_t row, const std::vector<NewNode>& nodes) {
    if (nodes.empty()) return;
    ShowPlaceholder(parent);
    TreeNode& owner = Owner(parent);
    if (observer_ != nullptr) observer_->BeforeInsert(parent, row, row + nodes.size() - 1);
    std::vector<std::unique_ptr<TreeNode>> made;
    made.reserve(nodes.size());
    for (const NewNode& added : nodes) made.push_back(Make(parent, added));
    owner.children_.insert(owner.children_.begin() + static_cast<std::ptrdiff_t>(row),
                           std::make_move_iterator(made.begin()), std::make_move_iterator(made.end()));
    Renumber(owner, row);
    if (observer_ != nullptr) observer_->AfterInsert();
}

void TreeControl::ShowPlaceholder(TreeNode* parent) {
    if (parent == nullptr || !parent->HasPlaceholder()) return;
    if (observer_ != nullptr) observer_->BeforeInsert(parent, 0, 0);
    parent->children_.front()->isPlaceholder_ = false;
    if (observer_ != nullptr) observer_->AfterInsert();
}

std::size_t TreeControl::Append(TreeNode* parent, const std::vector<NewNode>& nodes) {
    const std::size_t first = CountUnder(parent);
    Insert(parent, first, nodes);
    return first;
}

void TreeControl::Remove(TreeNode* node) {
    TreeNode* parent = node->parent_;
    TreeNode& owner = Owner(parent);
    const std::size_t row = node->row_;
    if (selected_ != nullptr && selected_->IsWithin(node)) Select(nullptr);
    if (dropHighlight_ != nullptr && dropHighlight_->IsWithin(node)) SetDropHighlight(nullptr);
    const bool isShown = !node->isPlaceholder_ && observer_ != nullptr;
    if (isShown) observer_->BeforeRemove(parent, row, row);
    std::vector<std::unique_ptr<TreeNode>> removed;
    removed.push_back(std::move(owner.children_[row]));
    owner.children_.erase(owner.children_.begin() + static_cast<std::ptrdiff_t>(row));
    Renumber(owner, row);
    if (isShown) observer_->AfterRemove();
    TreeNode::Destroy(std::move(removed));
}

void TreeControl::Move(TreeNode* node, TreeNode* parent, std::size_t row) {
    ShowPlaceholder(parent);
    if (observer_ != nullptr) observer_->BeforeMove(node, parent, row);
    TreeNode& from = Owner(node->parent_);
    TreeNode& to = Owner(parent);
    const auto place = from.children_.begin() + static_cast<std::ptrdiff_t>(node->row_);
    std::unique_ptr<TreeNode> moved = std::move(*place);
    from.children_.erase(place);
    Renumber(from, node->row_);
    node->parent_ = parent;
    to.children_.insert(to.children_.begin() + static_cast<std::ptrdiff_t>(row), std::move(moved));
    Renumber(to, row);
    if (observer_ != nullptr) observer_->AfterMove();
}

void TreeControl::Clear() {
    SetDropHighlight(nullptr);
    if (observer_ != nullptr) observer_->BeforeClear();
    selected_ = nullptr;
    auto removed = std::exchange(top_.children_, {});
    if (observer_ != nullptr) observer_->AfterClear();
    TreeNode::Destroy(std::move(removed));
}

void TreeControl::SetText(TreeNode* node, std::string_view text) {
    if (node->text_ == text) return;
    node->text_ = text;
    if (observer_ != nullptr) observer_->TextsChanged(node->parent_, node->row_, node->row_);
}

void TreeControl::SetTexts(const std::vector<std::pair<TreeNode*, std::string>>& texts) {
    std::map<TreeNode*, std::pair<std::size_t, std::size_t>> changed;
    for (const auto& [node, text] : texts) {
        if (node->text_ == text) continue;
        node->text_ = text;
        auto& rows = changed.try_emplace(node->parent_, node->row_, node->row_).first->second;
        rows = {std::min(rows.first, node->row_), std::max(rows.second, node->row_)};
    }
    if (observer_ == nullptr) return;
    for (const auto& [parent, rows] : changed) observer_->TextsChanged(parent, rows.first, rows.second);
}

void TreeControl::SetExpanded(TreeNode* node, bool expanded) {
    if (node->expanded_ == expanded) return;
    node->expanded_ = expanded;
    if (observer_ != nullptr) observer_->ExpandedChanged(node);
}

void TreeControl::EnsureVisible(TreeNode* node) {
    for (TreeNode* above = node->parent_; above != nullptr; above = above->parent_) SetExpanded(above, true);
    if (observer_ != nullptr) observer_->MadeVisible(node);
}

void TreeControl::Select(TreeNode* node) {
    if (selected_ == node) return;
    selected_ = node;
    if (observer_ != nullptr) observer_->SelectionChanged(node);
}

void TreeControl::SetDropHighlight(TreeNode* node) {
    if (dropHighlight_ == node) return;
    TreeNode* before = dropHighlight_;
    dropHighlight_ = node;
    if (observer_ != nullptr) observer_->DropHighlightChanged(before, node);
}

}  // namespace quillon::navigation
