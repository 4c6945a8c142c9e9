// Drag and drop in the tree: mouse events, where a node may be dropped, and the drop.
#include "navigation/explorer.h"

namespace quillon::navigation {

namespace {

// The distance from the edge at which the tree scrolls, in twips.
constexpr int kUpperEdge = 100;
constexpr int kLowerEdge = 200;

const TreeNode* TopOf(const TreeNode* node) {
    while (node->Parent() != nullptr) node = node->Parent();
    return node;
}

}  // namespace

void cExplorer::DragMouseDown(TreeNode* node) {
    CancelDrag();
    drag_.node = node;
}

bool cExplorer::DragMouseMove(bool leftHeld) {
    if (!leftHeld && !drag_.dragging) drag_.node = nullptr;
    if (!leftHeld || drag_.node == nullptr || drag_.dragging) return false;
    drag_.dragging = true;
    return true;
}

void cExplorer::DragOver(int x, int y, int height, TreeNode* node) {
    if (!drag_.dragging) return;
    drag_.lastX = x;
    drag_.lastY = y;
    const bool up = y >= 0 && y < kUpperEdge;
    const bool down = y > height - kLowerEdge && y < height;
    ScrollWhileDragging(up ? -1 : down ? 1 : 0);
    if (node == drag_.lastHover && drag_.picture != DropPicture::None) return;
    drag_.lastHover = node;
    tree_.SetDropHighlight(CanDropOn(node) ? node : nullptr);
}

void cExplorer::ScrollWhileDragging(int direction) {
    const bool wasRunning = drag_.scroll != 0;
    drag_.scroll = direction;
    if (RunTreeTimer && wasRunning != (direction != 0)) RunTreeTimer(direction != 0);
}

void cExplorer::TreeTimer() {
    if (drag_.scroll != 0 && ScrollTree) ScrollTree(drag_.scroll);
}

bool cExplorer::CanDropOn(TreeNode* target) {
    const bool may = MayDrop(target);
    drag_.picture = may ? DropPicture::DragDrop : DropPicture::NoDrop;
    return may;
}

bool cExplorer::MayDrop(const TreeNode* target) const {
    if (target == nullptr) return false;
    if (target == drag_.node) return false;
    if (TopOf(target) != TopOf(drag_.node)) return false;
    const Item onto = nodes_.ItemOf(target), dragged = nodes_.ItemOf(drag_.node);
    if (!onto || !dragged || cBioList::UsageIsInvalid(onto->usage())) return false;
    if (IsNodeAncestor(drag_.node, target)) return false;
    if (target == drag_.node->Parent()) return false;
    return cBioList::UsageIsInvalid(dragged->usage()) || dragged->rank() > onto->rank();
}

// The form may rebuild the tree while it decides, so the nodes are found again afterwards.
void cExplorer::Drop() {
    TreeNode* target = tree_.DropHighlight();
    TreeNode* node = drag_.node;
    CancelDrag();
    if (target == nullptr || target == node) return;
    const CutState move = {nodes_.ItemOf(node), nodes_.ItemOf(node->Parent()), nodes_.ItemOf(target), true};
    if (!ProposeMove(node, target, node->Parent())) return;
    cut_ = move;
    const CutNodes nodes = FindCutNodes(move.target);
    if (nodes.found) MoveAndKeepSorted(nodes.node, nodes.other);
}

void cExplorer::CancelDrag() {
    ScrollWhileDragging(0);
    tree_.SetDropHighlight(nullptr);
    drag_ = {};
}

}  // namespace quillon::navigation
