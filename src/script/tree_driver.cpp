#include "script/tree_driver.h"

#include <fmt/format.h>

#include "script/script_line.h"

namespace quillon::script {

using navigation::TreeNode;

namespace {

constexpr int kTwips = 1000;  // a place in the tree away from its edges
constexpr int kHeight = 3 * kTwips;

}  // namespace

// A synonym has no parent: its node is under an accepted name.
TreeNode* TreeDriver::Find(int qb_id) const {
    if (!state_.gDataSetOpen) return nullptr;
    TreeNode* node = explorer_.FindNodeWithId(qb_id);
    if (node == nullptr) node = explorer_.ExpandContainingSubtree(qb_id);
    if (node != nullptr) return node;
    for (const int accepted : explorer_.AcceptedNamesOf(qb_id)) {
        node = explorer_.ExpandContainingSubtree(qb_id, accepted);
        if (node != nullptr) return node;
    }
    return nullptr;
}

TreeNode& TreeDriver::NodeOf(int qb_id) const {
    TreeNode* node = Find(qb_id);
    if (node == nullptr) throw CannotPlay(fmt::format("taxon {} is not in the tree", qb_id));
    explorer_.TreeV().EnsureVisible(node);
    return *node;
}

void TreeDriver::Select(int qb_id) {
    if (Find(qb_id) != nullptr) return explorer_.NodeClick(&NodeOf(qb_id));
    if (!explorer_.ListDblClick(qb_id)) throw CannotPlay(fmt::format("there is no taxon {}", qb_id));
}

void TreeDriver::Expand(int qb_id) {
    TreeNode& node = NodeOf(qb_id);
    if (node.ChildCount() == 0) throw CannotPlay(fmt::format("taxon {} has nothing below it", qb_id));
    if (!node.Expanded()) explorer_.ExpandNode(&node);
}

void TreeDriver::Collapse(int qb_id) {
    TreeNode& node = NodeOf(qb_id);
    if (node.ChildCount() == 0) throw CannotPlay(fmt::format("taxon {} has nothing below it", qb_id));
    if (node.Expanded()) explorer_.CollapseNode(&node);
}

void TreeDriver::Drop(int qb_id, int target) {
    TreeNode& onto = NodeOf(target);
    TreeNode& node = NodeOf(qb_id);
    if (explorer_.TreeV().Selected() != &node) explorer_.NodeClick(&node);
    if (!explorer_.IsRecord(qb_id)) return;
    explorer_.DragMouseDown(&node);
    explorer_.DragMouseMove(true);
    explorer_.DragOver(kTwips, kTwips, kHeight, &onto);
    explorer_.Drop();
}

}  // namespace quillon::script
