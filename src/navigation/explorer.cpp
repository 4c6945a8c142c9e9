#include "navigation/explorer.h"

#include <algorithm>

#include "core/vocabulary.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kParentSql =
    "PARAMETERS theQbId Long; SELECT DISTINCT parent_qb_id FROM qb_taxonomic_units WHERE "
    "(((qb_id)=[theQbId]));";
constexpr std::string_view kAcceptedAsParentSql =
    "PARAMETERS theQbId Long, theAcceptedId Long; SELECT DISTINCT qb_id_accepted AS parent_qb_id "
    "FROM qb_synonym_links WHERE qb_id = [theQbId] AND qb_id_accepted = [theAcceptedId]";

std::string_view PlaceholderFor(std::int64_t childCount) {
    return childCount > 0 ? kPlaceholder : std::string_view();
}

class WaitCursor {
public:
    explicit WaitCursor(Prompter& prompter) : prompter_(prompter) { prompter_.WaitCursor(true); }
    ~WaitCursor() { prompter_.WaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Prompter& prompter_;
};

}  // namespace

cExplorer::cExplorer(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), prompter_(prompter), source_{state, engine} {}

void cExplorer::Init() {
    ClearNodes();
    root_.reset();
    listId_ = 0;
    ListTimer();
    if (cut_.item && (!state_.gDatabase || cut_.item->dbname() != state_.gDatabase->Name())) cut_ = {};
    if (!state_.gDatabase) return list_.Close();
    list_.Open(state_.gDatabase, AlphabeticListQuery(FamilyOfKingdom(state_.gKingdomName)));
    auto root = std::make_shared<cBioList>(source_);
    root->SetDbname(state_.gDatabase->Name());
    SetRoot(std::move(root));
    AddOrphans();
}

void cExplorer::SetRoot(Item root) {
    ClearNodes();
    root_ = std::move(root);
    AddNode(root_->Sciname(), root_, root_->NumChildren());
    if (CurrentPos) CurrentPos(true, false);
}

void cExplorer::AddOrphans() {
    const auto orphans = root_->Orphans();
    std::vector<TreeControl::NewNode> added;
    for (const Item& orphan : orphans)
        added.push_back({orphan->Sciname(), PlaceholderFor(orphan->NumChildren())});
    const std::size_t first = tree_.Append(nullptr, added);
    for (std::size_t i = 0; i < orphans.size(); ++i) nodes_.Add(tree_.Top(first + i), orphans[i]);
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
    tree_.Clear();
    nodes_.Clear();
}

bool cExplorer::NodeHasBeenExpanded(const TreeNode& node) {
    return node.ChildCount() != 1 || node.Child(0)->Text() != kPlaceholder;
}

void cExplorer::ExpandNode(TreeNode* node) {
    const WaitCursor wait(prompter_);
    if (!NodeHasBeenExpanded(*node)) {
        tree_.Remove(node->Child(0));
        const Item item = nodes_.ItemOf(node);
        if (!item) return;
        LoadChildren(node, item);
    }
    tree_.SetExpanded(node, true);
    if (Expand) Expand(node);
}

void cExplorer::LoadChildren(TreeNode* node, const Item& item) {
    const auto children = item->Children();
    std::vector<TreeControl::NewNode> added;
    added.reserve(children.size());
    for (const Item& child : children)
        added.push_back({child->Sciname(), PlaceholderFor(child->NumChildren())});
    const std::size_t first = tree_.Append(node, added);
    for (std::size_t i = 0; i < children.size(); ++i) nodes_.Add(node->Child(first + i), children[i]);
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

int cExplorer::ParentOf(int id, std::optional<int> accepted) const {
    if (!state_.gDatabase) return 0;
    auto query = state_.gDatabase->CreateQueryDef("", kParentSql);
    const auto row = query.Set("theQbId", id).OpenRecordset(RecordsetType::ForwardOnly);
    if (!row->Eof() && !row->Get("parent_qb_id").IsNull()) return static_cast<int>(row->At(0).AsLong());
    auto synonym = state_.gDatabase->CreateQueryDef("", kAcceptedAsParentSql);
    synonym.Set("theQbId", id).Set("theAcceptedId", accepted ? Value(*accepted) : Value());
    const auto link = synonym.OpenRecordset(RecordsetType::ForwardOnly);
    return link->Eof() ? 0 : static_cast<int>(link->At(0).AsLong());
}

// A taxon that is its own parent, or stands in a ring of parents, is not looked for above itself.
TreeNode* cExplorer::ExpandContainingSubtree(int id, std::optional<int> accepted) {
    std::vector<int> path;
    std::optional<int> under = accepted;
    TreeNode* node = nullptr;
    for (int at = id; (node = FindNodeWithId(at, under)) == nullptr;) {
        path.push_back(at);
        at = ParentOf(at, under);
        under.reset();
        if (at == 0 || std::find(path.begin(), path.end(), at) != path.end()) return nullptr;
    }
    for (; !path.empty(); path.pop_back()) {
        ExpandNode(node);
        node = FindNodeWithId(path.back(), path.size() == 1 ? accepted : std::nullopt);
        if (node == nullptr) return nullptr;
    }
    return node;
}

void cExplorer::HiliteNode(TreeNode* node) {
    tree_.Select(node);
    if (node != nullptr) tree_.EnsureVisible(node);
}

void cExplorer::NodeClick(TreeNode* node) {
    tree_.Select(node);
    if (tree_.TopCount() > 0 && node == tree_.Top(0) && CurrentPos) CurrentPos(true, false);
    const Item item = nodes_.ItemOf(node);
    if (!item) return;
    MoveList(item->qb_id());
    if (ItemSelected) ItemSelected(item);
}

}  // namespace quillon::navigation
