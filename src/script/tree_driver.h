// Plays the actions of a script on the explorer's tree, as the mouse does.
#pragma once

#include "core/application_state.h"
#include "navigation/explorer.h"

namespace quillon::script {

// Each procedure throws CannotPlay when the explorer has no such taxon.
class TreeDriver {
public:
    TreeDriver(ApplicationState& state, navigation::cExplorer& explorer)
        : state_(state), explorer_(explorer) {}

    // A click on the node of the taxon, whose ancestors are opened first. A taxon outside the tree is chosen
    // as from the list.
    void Select(int qb_id);
    // A click on the sign of its node. Throws CannotPlay for a node without one.
    void Expand(int qb_id);
    void Collapse(int qb_id);
    // Drags one node onto another. The press selects the dragged one; the drag ends there when the user stays
    // on an unsaved record. What may not be dropped there stays where it is.
    void Drop(int qb_id, int target);

private:
    navigation::TreeNode* Find(int qb_id) const;
    navigation::TreeNode& NodeOf(int qb_id) const;

    ApplicationState& state_;
    navigation::cExplorer& explorer_;
};

}  // namespace quillon::script
