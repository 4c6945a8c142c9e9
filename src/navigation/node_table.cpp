// Keeps three tables: by node, by taxon, and by taxon and accepted taxon.
#include "navigation/node_table.h"

#include <algorithm>

namespace quillon::navigation {

namespace {

using Places = std::vector<std::pair<NodeTable::Place, TreeNode*>>;

// The first entry at or after a place.
Places::const_iterator At(const Places& places, NodeTable::Place place) {
    return std::lower_bound(places.begin(), places.end(), place,
                            [](const auto& entry, NodeTable::Place at) { return entry.first < at; });
}

void PutInto(Places& places, NodeTable::Place place, TreeNode* node) {
    places.insert(At(places, place), {place, node});
}

template <typename Map, typename Key>
void TakeOut(Map& map, const Key& key, NodeTable::Place place) {
    const auto found = map.find(key);
    found->second.erase(At(found->second, place));
    if (found->second.empty()) map.erase(found);
}

template <typename Map, typename Key>
TreeNode* FindIn(const Map& map, const Key& key, NodeTable::Place& place) {
    const auto found = map.find(key);
    if (found == map.end()) return nullptr;
    const auto entry = At(found->second, place);
    if (entry == found->second.end()) return nullptr;
    place = entry->first;
    return entry->second;
}

}  // namespace

std::uint64_t NodeTable::PairOf(int qb_id, int accepted) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(qb_id)) << 32 |
           static_cast<std::uint32_t>(accepted);
}

void NodeTable::Add(TreeNode* node, std::shared_ptr<cBioList> item) {
    Put(node, std::move(item), ++last_);
}

void NodeTable::Put(TreeNode* node, std::shared_ptr<cBioList> item, Place place) {
    const int qb_id = item->qb_id(), accepted = item->accepted();
    PutInto(byTaxon_[qb_id], place, node);
    PutInto(byPair_[PairOf(qb_id, accepted)], place, node);
    entries_[node] = {std::move(item), place, qb_id, accepted};
}

std::shared_ptr<cBioList> NodeTable::ItemOf(const TreeNode* node) const {
    const auto found = entries_.find(node);
    return found == entries_.end() ? nullptr : found->second.item;
}

void NodeTable::Replace(TreeNode* node, std::shared_ptr<cBioList> item) {
    const auto found = entries_.find(node);
    if (found == entries_.end()) return;
    const Place place = found->second.place;
    Remove(node);
    Put(node, std::move(item), place);
}

TreeNode* NodeTable::Find(int qb_id, Place& place, std::optional<int> accepted) const {
    return accepted ? FindIn(byPair_, PairOf(qb_id, *accepted), place) : FindIn(byTaxon_, qb_id, place);
}

std::vector<TreeNode*> NodeTable::NodesOf(int qb_id) const {
    std::vector<TreeNode*> nodes;
    const auto found = byTaxon_.find(qb_id);
    if (found == byTaxon_.end()) return nodes;
    for (const auto& entry : found->second) nodes.push_back(entry.second);
    return nodes;
}

std::vector<int> NodeTable::Taxa() const {
    std::vector<int> taxa;
    taxa.reserve(byTaxon_.size());
    for (const auto& entry : byTaxon_) taxa.push_back(entry.first);
    return taxa;
}

void NodeTable::Remove(const TreeNode* node) {
    const auto found = entries_.find(node);
    if (found == entries_.end()) return;
    const Entry& entry = found->second;
    TakeOut(byTaxon_, entry.qb_id, entry.place);
    TakeOut(byPair_, PairOf(entry.qb_id, entry.accepted), entry.place);
    entries_.erase(found);
}

void NodeTable::Clear() {
    entries_.clear();
    byTaxon_.clear();
    byPair_.clear();
    last_ = 0;
}

}  // namespace quillon::navigation
