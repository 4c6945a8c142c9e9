#include "navigation/node_table.h"

#include <algorithm>

namespace quillon::navigation {

void NodeTable::Add(TreeNode* node, std::shared_ptr<cBioList> item) {
    places_[item->qb_id()].emplace_back(++last_, node);
    entries_[node] = {std::move(item), last_};
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
    auto& places = places_[item->qb_id()];
    places.insert(std::upper_bound(places.begin(), places.end(), std::pair(place, node)), {place, node});
    entries_[node] = {std::move(item), place};
}

TreeNode* NodeTable::Find(int qb_id, Place& place, std::optional<int> accepted) const {
    const auto found = places_.find(qb_id);
    if (found == places_.end()) return nullptr;
    for (const auto& [at, node] : found->second) {
        if (at < place) continue;
        if (accepted && entries_.at(node).item->accepted() != *accepted) continue;
        place = at;
        return node;
    }
    return nullptr;
}

void NodeTable::Remove(TreeNode* node) {
    const auto found = entries_.find(node);
    if (found == entries_.end()) return;
    const auto places = places_.find(found->second.item->qb_id());
    std::erase_if(places->second, [&](const auto& entry) { return entry.second == node; });
    if (places->second.empty()) places_.erase(places);
    entries_.erase(found);
}

void NodeTable::Clear() {
    entries_.clear();
    places_.clear();
    last_ = 0;
}

}  // namespace quillon::navigation
