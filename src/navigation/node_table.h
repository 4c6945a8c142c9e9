// Maps nodes of the tree to their items and taxa to their nodes, in the order in which the nodes were added.
//
// A taxon that is a synonym of several accepted taxa has a node under each, so a node is identified by qb_id
// and accepted. Look-ups take constant time, however many nodes a taxon has. An item's key is read when the
// item is added or replaced.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "navigation/bio_list.h"
#include "navigation/tree_control.h"

namespace quillon::navigation {

class NodeTable {
public:
    // A place in the table, from 1. Places increase and are not reused.
    using Place = std::int64_t;

    void Add(TreeNode* node, std::shared_ptr<cBioList> item);
    // nullptr when the node is not in the table.
    std::shared_ptr<cBioList> ItemOf(const TreeNode* node) const;
    // Replaces the item of an entry, or enters the same item under its new key.
    void Replace(TreeNode* node, std::shared_ptr<cBioList> item);
    // The first node of the taxon at or after `place`, which is set to its place; `accepted`, if given, must
    // match too. nullptr when there is none; `place` is then unchanged.
    TreeNode* Find(int qb_id, Place& place, std::optional<int> accepted) const;
    // All nodes of a taxon, in their order.
    std::vector<TreeNode*> NodesOf(int qb_id) const;
    // The taxa that have a node, each once, in any order.
    std::vector<int> Taxa() const;
    void Remove(const TreeNode* node);
    void Clear();
    std::size_t Count() const { return entries_.size(); }

private:
    struct Entry {
        std::shared_ptr<cBioList> item;
        Place place;
        int qb_id, accepted;
    };
    using Places = std::vector<std::pair<Place, TreeNode*>>;  // ascending
    static std::uint64_t PairOf(int qb_id, int accepted);
    void Put(TreeNode* node, std::shared_ptr<cBioList> item, Place place);

    std::unordered_map<const TreeNode*, Entry> entries_;
    std::unordered_map<int, Places> byTaxon_;
    std::unordered_map<std::uint64_t, Places> byPair_;  // by qb_id and accepted
    Place last_ = 0;
};

}  // namespace quillon::navigation
