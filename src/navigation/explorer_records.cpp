// The tree and the list follow a record that was saved or deleted. None of this raises ItemSelected: the form
// shows what it shows already.
#include <utility>

#include "core/vocabulary.h"
#include "navigation/explorer.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kSynonymsSql =
    "PARAMETERS theId Long; SELECT qb_id FROM qb_synonym_links WHERE qb_id_accepted = [theId]";

}  // namespace

std::vector<int> cExplorer::SynonymsOf(int id) const {
    std::vector<int> synonyms;
    auto query = state_.gDatabase->CreateQueryDef("", kSynonymsSql);
    for (const auto row = query.Set("theId", id).OpenRecordset(RecordsetType::ForwardOnly); !row->Eof();
         row->MoveNext()) {
        synonyms.push_back(static_cast<int>(row->At(0).AsLong()));
    }
    return synonyms;
}

// nullptr when there is no such taxon.
cExplorer::Item cExplorer::NewItem(int qb_id) const {
    return root_ ? cBioList::OneRecord(source_, root_->dbname(), qb_id) : nullptr;
}

// A new node in its place among the children of `parent`, or at the top level. nullptr where the children are
// not loaded: there, loading them adds the node.
TreeNode* cExplorer::InsertSorted(Item item, TreeNode* parent) {
    if (parent != nullptr && parent->HasPlaceholder()) return nullptr;
    const std::size_t row = SortedRow(item->Sciname(), parent);
    item->SetAccepted(item->IsSyn() ? FindIdOfNode(parent) : 0);
    tree_.Insert(parent, row, {{item->Sciname(), PlaceholderOf(*item, parent)}});
    TreeNode* node = tree_.Under(parent, row);
    nodes_.Add(node, std::move(item));
    return node;
}

// The node is new there: a taxon that had none below it shows from now on that it can be opened.
TreeNode* cExplorer::AddUnder(int qb_id, TreeNode* parent) {
    const Item item = NewItem(qb_id);
    return item ? InsertSorted(item, parent) : nullptr;
}

void cExplorer::RecordAdded(int qb_id) {
    list_.Update(qb_id);
    if (!root_) return;
    const int parent = ParentOf(qb_id, {});
    const std::vector<int> accepted = parent == 0 ? AcceptedNamesOf(qb_id) : std::vector<int>{parent};
    TreeNode* added = accepted.empty() ? AddUnder(qb_id, nullptr) : nullptr;
    for (const int above : accepted)
        if (TreeNode* node = FindNodeWithId(above)) added = AddUnder(qb_id, node);
    MoveList(qb_id);
    if (added != nullptr) return HiliteNode(added);
    if (parent != 0 && FindNodeWithId(parent) != nullptr) BeginQuest({qb_id, {std::nullopt}, true});
}

void cExplorer::RecordChanged(int qb_id) {
    list_.Update(qb_id);
    const Item item = NewItem(qb_id);
    if (!item) return;
    const bool wasMoved = cut_.moved;
    const int shown = FindIdOfNode(tree_.Selected());
    for (TreeNode* node : nodes_.NodesOf(qb_id)) {
        const Item own = NewItem(qb_id);
        own->SetAccepted(own->IsSyn() ? FindIdOfNode(node->Parent()) : 0);
        nodes_.Replace(node, own);
        tree_.SetText(node, own->Sciname());
    }
    for (const int synonym : SynonymsUnder(qb_id)) ReflectRealNodePosition(synonym);
    ReflectRealNodePosition(qb_id);
    cut_.moved = wasMoved;
    if (shown == qb_id && tree_.Selected() == nullptr) HiliteAgain(qb_id);
}

// Its node may now be in a branch that was never opened.
void cExplorer::HiliteAgain(int qb_id) {
    if (TreeNode* node = FindNodeWithId(qb_id)) return HiliteNode(node);
    Quest quest{qb_id, {std::nullopt}, true};
    const std::vector<int> accepted = AcceptedNamesOf(qb_id);
    quest.ways.insert(quest.ways.end(), accepted.rbegin(), accepted.rend());
    BeginQuest(std::move(quest));
}

// The synonyms whose nodes are below those of the taxon.
std::vector<int> cExplorer::SynonymsUnder(int qb_id) const {
    std::vector<int> synonyms;
    for (const TreeNode* node : nodes_.NodesOf(qb_id)) {
        for (std::size_t row = 0; row < node->ChildCount(); ++row) {
            const Item item = nodes_.ItemOf(node->Child(row));
            if (item && item->IsSyn()) synonyms.push_back(item->qb_id());
        }
    }
    return synonyms;
}

// Synonyms that have lost their last accepted name stand at the top level, where they can be found.
void cExplorer::RecordRemoved(int qb_id) {
    TreeNode* node = FindIdOfNode(tree_.Selected()) == qb_id ? tree_.Selected() : FindNodeWithId(qb_id);
    const Item above = node == nullptr ? nullptr : nodes_.ItemOf(node->Parent());
    if (root_ && state_.gDatabase) {
        for (const int synonym : SynonymsOf(qb_id)) {
            if (!AcceptedNamesOf(synonym).empty() || ParentOf(synonym, {}) != 0) continue;
            if (FindNodeWithId(synonym) != nullptr)
                TakeUnderAccepted(synonym);
            else
                AddUnder(synonym, nullptr);
        }
    }
    RemoveNodes(qb_id);
    list_.Update(qb_id);
    if (IsTaxonCut(qb_id)) cut_ = {};
    stood_ = {};
    if (!above) return;
    HiliteNode(FindNodeWithId(above->qb_id()));
    MoveList(above->qb_id());
}

}  // namespace quillon::navigation
