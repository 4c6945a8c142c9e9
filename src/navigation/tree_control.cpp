#include "navigation/tree_control.h"

namespace quillon::navigation {

TreeControl::TreeControl() : top_("") {}

std::size_t TreeControl::Append(TreeNode* parent, const std::vector<NewNode>& nodes) {
    TreeNode& owner = Owner(parent);
    const std::size_t first = owner.children_.size();
    if (nodes.empty()) return first;
    if (observer_ != nullptr) observer_->BeforeInsert(parent, first, first + nodes.size() - 1);
    owner.children_.reserve(first + nodes.size());
    for (const NewNode& added : nodes) {
        std::unique_ptr<TreeNode> node(new TreeNode(added.text));
        node->parent_ = parent;
        node->row_ = owner.children_.size();
        if (!added.placeholder.empty()) {
            node->children_.emplace_back(new TreeNode(std::string(added.placeholder)));
            node->children_.back()->parent_ = node.get();
        }
        owner.children_.push_back(std::move(node));
    }
    if (observer_ != nullptr) observer_->AfterInsert();
    return first;
}

bool TreeControl::IsBelow(const TreeNode* node, const TreeNode* ancestor) {
    while (node != nullptr && node != ancestor) node = node->parent_;
    return node != nullptr;
}

void TreeControl::Remove(TreeNode* node) {
    TreeNode* parent = node->parent_;
    TreeNode& owner = Owner(parent);
    const std::size_t row = node->row_;
    if (IsBelow(selected_, node)) Select(nullptr);
    if (observer_ != nullptr) observer_->BeforeRemove(parent, row, row);
    owner.children_.erase(owner.children_.begin() + static_cast<std::ptrdiff_t>(row));
    for (std::size_t i = row; i < owner.children_.size(); ++i) owner.children_[i]->row_ = i;
    if (observer_ != nullptr) observer_->AfterRemove();
}

void TreeControl::Clear() {
    if (observer_ != nullptr) observer_->BeforeClear();
    selected_ = nullptr;
    top_.children_.clear();
    if (observer_ != nullptr) observer_->AfterClear();
}

void TreeControl::SetText(TreeNode* node, std::string_view text) {
    if (node->text_ == text) return;
    node->text_ = text;
    if (observer_ != nullptr) observer_->TextChanged(node);
}

void TreeControl::SetExpanded(TreeNode* node, bool expanded) {
    if (node->expanded_ == expanded) return;
    node->expanded_ = expanded;
    if (observer_ != nullptr) observer_->ExpandedChanged(node);
}

void TreeControl::Select(TreeNode* node) {
    if (selected_ == node) return;
    selected_ = node;
    if (observer_ != nullptr) observer_->SelectionChanged(node);
}

}  // namespace quillon::navigation
