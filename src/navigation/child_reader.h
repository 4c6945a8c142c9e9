// The items under one taxon in the order of the tree, read in steps of a bounded number of rows, so that a
// window stays alive over a taxon with hundreds of thousands of children. cBioList reads its children with
// it in one go, the explorer step by step.
//
// The first steps read what orders the items and gives none; the later ones give the items from the first to
// the last. Children come by rank, sort sequence and name, then synonyms by name; at the top level the
// orphans come by name. Nothing is held open between two steps. What the store refuses is left out.
#pragma once

#include <cstdint>
#include <memory>
#include <queue>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "navigation/bio_list.h"

namespace quillon::navigation {

class ChildReader {
public:
    enum class Level { UnderTaxon, Top };

    // The children and synonyms of `parent`, which gets its number of children when it has any; or the
    // orphans beside it. The parent must outlive the reader.
    ChildReader(cBioList& parent, Level level);

    // Reads at most `rows` rows and appends the items that came of them. False when all is read.
    bool Step(std::size_t rows, cBioList::Collection& items);
    // How many rows all steps have read.
    std::size_t RowsRead() const { return rowsRead_; }

private:
    enum class Kind { Child, Synonym, Orphan };
    struct Key {
        std::int64_t rank, sequence;
        std::string name;
        std::int32_t qb_id;
        bool operator>(const Key& other) const;
    };
    using Keys = std::priority_queue<Key, std::vector<Key>, std::greater<>>;
    using Counts = std::unordered_map<std::int32_t, std::int64_t>;

    std::size_t StepPart(store::Database& database, std::size_t rows, cBioList::Collection& items);
    std::size_t ReadKeys(store::Database& database, std::size_t rows);
    bool IsWanted(const store::Recordset& row) const;
    void EndKeys(store::Database& database);
    std::size_t ReadItems(store::Database& database, std::size_t rows, cBioList::Collection& items);
    void Finish(cBioList& item, const Counts& counts) const;
    void NextPart();

    cBioList& parent_;
    std::vector<Kind> parts_;  // what is still to be read, the first at the end
    bool keysComplete_ = false;
    Keys keys_;
    std::int64_t lastKey_;
    std::vector<std::string> kingdoms_;  // names that are no orphans
    std::size_t rowsRead_ = 0;
};

}  // namespace quillon::navigation
