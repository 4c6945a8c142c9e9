// Moves, renames and removes nodes.
#include "core/text.h"
#include "navigation/explorer.h"

namespace quillon::navigation {

namespace {

// Strictly less by character code in lower case, including the marks before names.
bool IsBelow(const std::string& leftInLowerCase, std::string_view right) {
    return CompareBinary(leftInLowerCase, LowerCase(right)) < 0;
}

}  // namespace

// The row before the first child whose text is above this one. The root is always the first node of the top
// level.
std::size_t cExplorer::SortedRow(std::string_view text, const TreeNode* parent) const {
    const std::string lower = LowerCase(text);
    std::size_t row = parent == nullptr ? 1 : 0;
    while (row < tree_.CountUnder(parent) && !IsBelow(lower, tree_.Under(parent, row)->Text())) ++row;
    return row;
}

bool cExplorer::Reparent(TreeNode* node, TreeNode* newParent) {
    if (node->Parent() == newParent || (newParent != nullptr && newParent->IsWithin(node))) return false;
    if (newParent != nullptr && IsLoading(newParent) && newParent->HasPlaceholder())
        tree_.Remove(newParent->Child(0));
    const std::size_t row = SortedRow(node->Text(), newParent);
    tree_.Move(node, newParent, row);
    const Item item = nodes_.ItemOf(node);
    if (item && item->IsSyn()) {
        item->SetAccepted(FindIdOfNode(newParent));
        nodes_.Replace(node, item);
    }
    return true;
}

bool cExplorer::MoveAndKeepSorted(TreeNode* node, TreeNode* newParent) {
    if (!Reparent(node, newParent)) return false;
    tree_.EnsureVisible(node);
    return true;
}

cExplorer::Item cExplorer::InsertSiblingWhere(std::string_view text, const TreeNode* node) const {
    const TreeNode* end = tree_.NextSibling(node);
    for (const TreeNode* at = tree_.LastSibling(node); at != nullptr && at != end;
         at = tree_.PreviousSibling(at)) {
        if (IsBelow(LowerCase(at->Text()), text)) return nodes_.ItemOf(at);
    }
    return nodes_.ItemOf(node);
}

void cExplorer::RemoveSubtree(TreeNode* node) {
    if (drag_.node != nullptr) CancelDrag();
    std::erase_if(loads_,
                  [=](const Load& load) { return load.node != nullptr && load.node->IsWithin(node); });
    openings_.clear();
    std::vector<const TreeNode*> waiting = {node};
    while (!waiting.empty()) {
        const TreeNode* at = waiting.back();
        waiting.pop_back();
        nodes_.Remove(at);
        for (std::size_t row = 0; row < at->ChildCount(); ++row) waiting.push_back(at->Child(row));
    }
    tree_.Remove(node);
}

void cExplorer::RemoveNodes(int id, std::optional<int> accepted) {
    while (TreeNode* node = FindNodeWithId(id, accepted)) RemoveSubtree(node);
}

void cExplorer::RefreshName(int id) {
    TreeNode* node = FindNodeWithId(id);
    if (node == nullptr) return;
    const Item item = nodes_.ItemOf(node);
    const auto names = cBioList::NodeNames(source_, item->dbname(), {id});
    const auto name = names.find(id);
    if (name == names.end()) return;
    item->SetSciname(name->second);
    tree_.SetText(node, name->second);
}

}  // namespace quillon::navigation
