// Steps from row to row of the open nodes of the tree, or of the list while that is visible.
#include "navigation/explorer.h"

namespace quillon::navigation {

bool cExplorer::IsNodeAncestor(const TreeNode* candidate, const TreeNode* node) {
    return candidate != nullptr && node != nullptr && node != candidate && node->IsWithin(candidate);
}

TreeNode* cExplorer::GetNextNode(TreeNode* node) const {
    if (node->Expanded() && node->RowCount() > 0) return node->Child(0);
    for (const TreeNode* at = node; at != nullptr; at = at->Parent()) {
        if (TreeNode* next = tree_.NextSibling(at)) return next;
    }
    return node;
}

TreeNode* cExplorer::GetPreviousNode(TreeNode* node) const {
    TreeNode* before = tree_.PreviousSibling(node);
    if (before == nullptr) return GetParentNode(node);
    const bool isOpen = before->Expanded() && before->RowCount() > 0;
    return isOpen ? GetLastDisplayedNode(before->Child(0)) : before;
}

TreeNode* cExplorer::GetParentNode(const TreeNode* node) const {
    return node->Parent() == nullptr ? tree_.Top(0) : node->Parent();
}

TreeNode* cExplorer::GetLastDisplayedNode(TreeNode* node) const {
    TreeNode* last = tree_.LastSibling(node);
    while (last->Expanded() && last->RowCount() > 0) last = tree_.LastSibling(last->Child(0));
    return last;
}

void cExplorer::MoveTo(TreeNode* node) {
    HiliteNode(node);
    NodeClick(node);
    RaiseCurrentPos();
}

// Chooses the taxon too, so that the tree follows the list.
void cExplorer::MoveListTo(int id) {
    if (id == 0) return;
    MoveList(id);
    ListDblClick(id);
    RaiseCurrentPos();
}

void cExplorer::RaiseCurrentPos() {
    if (CurrentPos) CurrentPos(IsFirstSelected(), IsLastSelected());
}

void cExplorer::MoveFirst() {
    if (!treeVisible_) return MoveListTo(list_.FirstId());
    if (tree_.TopCount() > 0) MoveTo(tree_.Top(0));
}

void cExplorer::MoveLast() {
    if (!treeVisible_) return MoveListTo(list_.LastId());
    if (tree_.TopCount() > 0) MoveTo(GetLastDisplayedNode(tree_.Top(0)));
}

void cExplorer::MoveNext() {
    if (!treeVisible_) return MoveListTo(list_.NextId(listId_));
    if (TreeNode* node = tree_.Selected()) MoveTo(GetNextNode(node));
}

void cExplorer::MovePrev() {
    if (!treeVisible_) return MoveListTo(list_.PreviousId(listId_));
    if (TreeNode* node = tree_.Selected()) MoveTo(GetPreviousNode(node));
}

// The list has no parents, so this moves in the tree, and the list follows.
void cExplorer::MoveParent() {
    if (const TreeNode* node = tree_.Selected()) MoveTo(GetParentNode(node));
}

bool cExplorer::IsFirstSelected() {
    if (!treeVisible_) return listId_ != 0 && listId_ == list_.FirstId();
    return tree_.Selected() != nullptr && tree_.Selected() == tree_.Top(0);
}

bool cExplorer::IsLastSelected() {
    if (!treeVisible_) return listId_ != 0 && listId_ == list_.LastId();
    return tree_.Selected() != nullptr && tree_.Selected() == GetLastDisplayedNode(tree_.Top(0));
}

}  // namespace quillon::navigation
