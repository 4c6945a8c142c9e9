// The items under one taxon in the order of the tree, read in steps of a bounded number of rows, so that a
// window stays responsive with hundreds of thousands of children. cBioList reads all children at once with
// it, the explorer step by step.
//
// The first steps read the sort keys and return no items; later steps return the items in order. Children are
// sorted by rank, sort sequence and name; synonyms follow by name; orphans at the top level are sorted by
// name. Nothing is held open between two steps. Rows that cannot be read are left out.
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

    // Reads the children and synonyms of `parent` and sets its number of children if it has any; or the
    // orphans beside it. The parent must outlive the reader.
    ChildReader(cBioList& parent, Level level);

    // Reads at most `rows` rows and appends their items. False when everything has been read.
    bool Step(std::size_t rows, cBioList::Collection& items);
    // The number of rows read by all steps.
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
    std::vector<Kind> parts_;  // still to be read, in reverse order
    bool keysComplete_ = false;
    Keys keys_;
    std::int64_t lastKey_;
    std::vector<std::string> kingdoms_;  // names that are not orphans
    std::size_t rowsRead_ = 0;
};

}  // namespace quillon::navigation
