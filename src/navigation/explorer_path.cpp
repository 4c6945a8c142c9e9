// Finds the path to a taxon: up from it to a loaded node, then down, opening one node after the other.
#include <unordered_set>

#include "navigation/explorer.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kParentSql =
    "PARAMETERS theQbId Long; SELECT DISTINCT parent_qb_id FROM qb_taxonomic_units "
    "WHERE (((qb_id)=[theQbId]));";
constexpr std::string_view kAcceptedAsParentSql =
    "PARAMETERS theQbId Long, theAcceptedId Long; SELECT DISTINCT qb_id_accepted AS parent_qb_id "
    "FROM qb_synonym_links WHERE qb_id = [theQbId] AND qb_id_accepted = [theAcceptedId]";
constexpr std::size_t kAllOpenings = static_cast<std::size_t>(-1);
constexpr std::size_t kOpeningsAtOnce = 32;

}  // namespace

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

// The taxon first, one with a loaded node last; empty when there is no path. The search ends at a taxon that
// it has seen before, in a cycle of parents.
std::vector<int> cExplorer::PathTo(int id, std::optional<int> accepted) const {
    std::vector<int> path = {id};
    std::unordered_set<int> seen = {id};
    while (FindNodeWithId(path.back(), path.size() == 1 ? accepted : std::nullopt) == nullptr) {
        const int above = ParentOf(path.back(), path.size() == 1 ? accepted : std::nullopt);
        if (above == 0 || !seen.insert(above).second || path.size() == kDeepestPath) return {};
        path.push_back(above);
    }
    return path;
}

// Takes one step down the path. False when it must wait, for children that are being read or because no
// opening is left.
bool cExplorer::FollowPath(Quest& quest, std::size_t& openings) {
    const auto at = [&](std::size_t fromEnd) {
        const std::size_t place = quest.path.size() - fromEnd;
        return FindNodeWithId(quest.path[place], place == 0 ? quest.under : std::nullopt);
    };
    TreeNode* node = at(1);
    if (node == nullptr || quest.path.size() == 1) {
        if (node != nullptr) quest.foundUnder = quest.under;
        quest.isFound = quest.isFound || node != nullptr;
        quest.path.clear();
        return true;
    }
    if (!node->Expanded()) {
        if (openings == 0) return false;
        --openings;
        if (!Open(node)) quest.path.clear();
    }
    if (quest.path.empty()) return true;
    if (at(2) != nullptr) {
        quest.path.pop_back();
    } else if (IsLoading(node)) {
        return false;
    } else {
        quest.path.clear();
    }
    return true;
}

// True when the quest has ended. Tries the parent only when no accepted taxon led to a node, for a name that
// is linked as a synonym although it has a parent.
bool cExplorer::Follow(Quest& quest, std::size_t openings) {
    while (true) {
        if (!quest.path.empty()) {
            if (!FollowPath(quest, openings)) return false;
        } else if (quest.ways.empty() || (quest.isFound && !quest.ways.back())) {
            return true;
        } else {
            quest.under = quest.ways.back();
            quest.ways.pop_back();
            quest.path = PathTo(quest.id, quest.under);
        }
    }
}

TreeNode* cExplorer::ExpandContainingSubtree(int id, std::optional<int> accepted) {
    Quest quest{id, {accepted}};
    while (!Follow(quest, kAllOpenings)) FinishLoads();
    return quest.isFound ? FindNodeWithId(id, accepted) : nullptr;
}

// For a long path the record is chosen first, and its node after the path has been opened. False when there
// is no such taxon.
bool cExplorer::BeginQuest(Quest quest) {
    quest_.reset();
    isSearching_ = false;
    if (Follow(quest, kOpeningsAtOnce)) return EndQuest(quest);
    const bool isFirst = !std::exchange(quest.isChosen, true);
    const Item item = cBioList::OneRecord(source_, root_->dbname(), quest.id);
    if (!item) return false;
    item->SetAccepted(quest.under.value_or(0));
    quest_ = std::move(quest);
    DoRestLater();
    if (isFirst) Choose(item);
    return true;
}

bool cExplorer::EndQuest(const Quest& quest) {
    TreeNode* node = quest.isFound ? FindNodeWithId(quest.id, quest.foundUnder) : nullptr;
    Item item = nodes_.ItemOf(node);
    if (!item && root_) item = cBioList::OneRecord(source_, root_->dbname(), quest.id);
    if (!item) return false;
    item->SetIsInTree(node != nullptr);
    if (node != nullptr) {
        HiliteNode(node);
    } else {
        tree_.Select(nullptr);
    }
    if (!quest.isChosen) Choose(item);
    return true;
}

void cExplorer::Reselect(int qb_id) {
    const bool isStood = qb_id == 0 || qb_id == stood_.id;
    const int id = isStood ? stood_.id : qb_id;
    if (id == 0) return;
    MoveList(id);
    const auto accepted = isStood && stood_.accepted != 0 ? std::optional(stood_.accepted) : std::nullopt;
    try {
        BeginQuest({id, {std::nullopt, accepted}, true});
    } catch (const store::StoreError&) {
        // The tree keeps its selection.
    }
    RaiseCurrentPos();
}

}  // namespace quillon::navigation
