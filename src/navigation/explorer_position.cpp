// Moves nodes whose move was not saved back to their stored place.
#include "navigation/explorer.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kTaxonSql =
    "PARAMETERS theId Long; SELECT * FROM qb_taxonomic_units WHERE qb_id = [theId]";

}  // namespace

void cExplorer::ReflectRealNodePosition(int qb_id) {
    if (qb_id == 0 || !state_.gDatabase) return;
    if (IsTaxonCut(qb_id)) cut_.moved = false;
    auto query = state_.gDatabase->CreateQueryDef("", kTaxonSql);
    const auto row = query.Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    if (row->Eof()) return;
    if (row->Get("parent_qb_id").IsNull()) return TakeUnderAccepted(qb_id);
    const auto parent = static_cast<int>(row->Get("parent_qb_id").AsLong());
    TakeUnderParent(qb_id, parent);
}

// When the parent has no node, or was never opened, opening it will add the node.
void cExplorer::TakeUnder(TreeNode* node, TreeNode* parent) {
    if (parent == nullptr || (!parent->Expanded() && !NodeHasBeenExpanded(*parent))) {
        RemoveSubtree(node);
    } else {
        Reparent(node, parent);
    }
}

// A taxon with a parent has one node. Others are left from the time when it was a synonym.
void cExplorer::TakeUnderParent(int qb_id, int parent) {
    const std::vector<TreeNode*> nodes = nodes_.NodesOf(qb_id);
    if (nodes.empty() || parent == qb_id) return;
    for (std::size_t i = 1; i < nodes.size(); ++i) RemoveSubtree(nodes[i]);
    TakeUnder(nodes.front(), FindNodeWithId(parent));
}

// A synonym has one node under each accepted taxon; without one it is at the top level.
void cExplorer::TakeUnderAccepted(int qb_id) {
    const std::vector<int> accepted = AcceptedNamesOf(qb_id);
    std::vector<int> missing = accepted;
    std::vector<TreeNode*> strays;
    for (TreeNode* node : nodes_.NodesOf(qb_id)) {
        if (std::erase(missing, FindIdOfNode(node->Parent())) == 0) strays.push_back(node);
    }
    for (TreeNode* stray : strays) {
        if (accepted.empty()) {
            Reparent(stray, nullptr);
        } else if (missing.empty()) {
            RemoveSubtree(stray);
        } else {
            TakeUnder(stray, FindNodeWithId(missing.front()));
            missing.erase(missing.begin());
        }
    }
    for (const int above : missing)
        if (TreeNode* parent = FindNodeWithId(above)) AddUnder(qb_id, parent);
}

}  // namespace quillon::navigation
