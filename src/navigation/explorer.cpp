// The beginning of the tree, and how its nodes are opened and found.
#include "navigation/explorer.h"

#include <utility>

#include "core/vocabulary.h"
#include "core/wait_cursor.h"

namespace quillon::navigation {

namespace {

std::string_view PlaceholderFor(std::int64_t childCount) {
    return childCount > 0 ? kPlaceholder : std::string_view();
}

}  // namespace

cExplorer::cExplorer(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), prompter_(prompter), source_{state, engine} {}

void cExplorer::Init() {
    ClearNodes();
    root_.reset();
    listId_ = 0;
    stood_ = {};
    isSearching_ = false;
    ListTimer();
    if (cut_.item && (!state_.gDatabase || cut_.item->dbname() != state_.gDatabase->Name())) cut_ = {};
    if (!state_.gDatabase) return list_.Close();
    list_.Open(state_.gDatabase, AlphabeticListQuery(FamilyOfKingdom(state_.gKingdomName)));
    auto root = std::make_shared<cBioList>(source_);
    root->SetDbname(state_.gDatabase->Name());
    SetRoot(std::move(root));
    BeginLoad(nullptr, root_);
    DoRestLater();
}

void cExplorer::SetRoot(Item root) {
    ClearNodes();
    root_ = std::move(root);
    AddNode(root_->Sciname(), root_, root_->NumChildren());
    if (CurrentPos) CurrentPos(true, false);
}

TreeNode* cExplorer::AddNode(std::string_view text, Item item, std::int64_t childCount, TreeNode* relative,
                             Relationship relationship) {
    if (relative != nullptr && !nodes_.ItemOf(relative)) return nullptr;
    const bool isSibling = relative != nullptr && relationship == Relationship::NextSibling;
    TreeNode* parent = isSibling ? relative->Parent() : relative;
    if (!isSibling && parent != nullptr && !NodeHasBeenExpanded(*parent)) tree_.Remove(parent->Child(0));
    const std::size_t row = isSibling ? relative->Row() + 1 : tree_.CountUnder(parent);
    tree_.Insert(parent, row, {{std::string(text), PlaceholderFor(childCount)}});
    TreeNode* node = tree_.Under(parent, row);
    nodes_.Add(node, std::move(item));
    return node;
}

void cExplorer::ClearNodes() {
    CancelDrag();
    loads_.clear();
    openings_.clear();
    stale_.clear();
    quest_.reset();
    tree_.Clear();
    nodes_.Clear();
}

bool cExplorer::NodeHasBeenExpanded(const TreeNode& node) {
    return node.ChildCount() != 1 || node.Child(0)->Text() != kPlaceholder;
}

void cExplorer::ExpandNode(TreeNode* node) {
    const WaitCursor wait(prompter_);
    if (!Open(node)) return;
    RaiseCurrentPos();
    DoRestLater();
}

void cExplorer::CollapseNode(TreeNode* node) {
    tree_.SetExpanded(node, false);
    RaiseCurrentPos();
}

// False when the node has no item.
bool cExplorer::Open(TreeNode* node) {
    if (!NodeHasBeenExpanded(*node) && !IsLoading(node)) {
        const Item item = nodes_.ItemOf(node);
        // A taxon with the name of the placeholder is treated as the placeholder.
        if (!item || !node->HasPlaceholder()) RemoveSubtree(node->Child(0));
        if (!item) return false;
        BeginLoad(node, item);
    }
    tree_.SetExpanded(node, true);
    if (Expand) Expand(node);
    return true;
}

int cExplorer::FindIdOfNode(const TreeNode* node) const {
    const Item item = nodes_.ItemOf(node);
    return item ? item->qb_id() : 0;
}

TreeNode* cExplorer::FindNodeWithId(int id, std::optional<int> accepted) const {
    NodeTable::Place start = 1;
    return nodes_.Find(id, start, accepted);
}

TreeNode* cExplorer::FindNodeWithIdIndexed(int id, NodeTable::Place& start, std::optional<int> accepted,
                                           Item& item) const {
    TreeNode* node = nodes_.Find(id, start, accepted);
    if (node != nullptr) item = nodes_.ItemOf(node);
    return node;
}

void cExplorer::HiliteNode(TreeNode* node) {
    tree_.Select(node);
    if (node != nullptr) tree_.EnsureVisible(node);
}

void cExplorer::NodeClick(TreeNode* node) {
    quest_.reset();
    isSearching_ = false;
    tree_.Select(node);
    if (tree_.TopCount() > 0 && node == tree_.Top(0) && CurrentPos) CurrentPos(true, false);
    const Item item = nodes_.ItemOf(node);
    if (!item) return;
    MoveList(item->qb_id());
    Choose(item);
}

void cExplorer::Choose(const Item& item) {
    if (ItemSelected) ItemSelected(item);
    if (IsRecord(item->qb_id())) stood_ = {item->qb_id(), item->accepted()};
}

void cExplorer::SetTreeVisible(bool visible) {
    if (std::exchange(treeVisible_, visible) != visible && root_) RaiseCurrentPos();
}

}  // namespace quillon::navigation
