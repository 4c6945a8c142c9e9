// Cut, paste and undo. A cut node is stored by its item and found again before each use, because the form may
// have rebuilt the tree meanwhile.
#include <utility>

#include "navigation/explorer.h"

namespace quillon::navigation {

// True when the move was accepted.
bool cExplorer::ProposeMove(TreeNode* node, TreeNode* newParent, TreeNode* oldParent) {
    bool cancel = !Dropped;
    if (Dropped) Dropped(node, newParent, oldParent, cancel);
    return !cancel;
}

TreeNode* cExplorer::FindAnew(const Item& item) const {
    if (TreeNode* node = FindNodeWithId(item->qb_id(), item->accepted())) return node;
    return FindNodeWithId(item->qb_id());
}

// The cut node and its new parent; not found when either is not loaded, or when the node would be moved under
// itself.
cExplorer::CutNodes cExplorer::FindCutNodes(const Item& other) const {
    CutNodes nodes;
    nodes.node = FindAnew(cut_.item);
    if (other) nodes.other = FindAnew(other);
    nodes.found = nodes.node != nullptr && (!other || nodes.other != nullptr) &&
                  !(nodes.other != nullptr && nodes.other->IsWithin(nodes.node));
    return nodes;
}

void cExplorer::Cut() {
    const TreeNode* node = tree_.Selected();
    const Item item = nodes_.ItemOf(node);
    if (item) cut_ = {item, nodes_.ItemOf(node->Parent()), nullptr, false};
}

bool cExplorer::IsTaxonCut(int id) const {
    return cut_.item && cut_.item->qb_id() == id;
}

bool cExplorer::Paste() {
    const Item target = nodes_.ItemOf(tree_.Selected());
    if (!cut_.item || !target) return true;
    CutNodes nodes = FindCutNodes(target);
    if (!nodes.found) return true;
    const Item oldParent = nodes_.ItemOf(nodes.node->Parent());
    if (!ProposeMove(nodes.node, nodes.other, nodes.node->Parent())) return true;
    nodes = FindCutNodes(target);
    if (nodes.found) MoveAndKeepSorted(nodes.node, nodes.other);
    cut_.oldParent = oldParent;
    cut_.target = target;
    cut_.moved = true;
    if (TreeNode* node = FindAnew(cut_.item)) HiliteNode(node);
    return false;
}

bool cExplorer::Undo() {
    if (!CanUndo()) return true;
    CutNodes nodes = FindCutNodes(cut_.oldParent);
    if (!nodes.found) return true;
    if (!ProposeMove(nodes.node, nodes.other, nodes.node->Parent())) return true;
    nodes = FindCutNodes(cut_.oldParent);
    if (nodes.found) MoveAndKeepSorted(nodes.node, nodes.other);
    std::swap(cut_.target, cut_.oldParent);
    TreeNode* node = FindAnew(cut_.item);
    if (node != nullptr && tree_.Selected() != node) {
        HiliteNode(node);
        Choose(nodes_.ItemOf(node));
    }
    return false;
}

}  // namespace quillon::navigation
