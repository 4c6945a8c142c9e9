// The order of the alphabetical list as numbers: the qb_ids of all taxa by the four name units and the
// author. They are read in time slices, so that a window stays responsive with a million of them. Nothing is
// held open between two slices; PlaceOf() returns the new place of a taxon that was written meanwhile.
//
// Functions throw StoreError.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "navigation/name_walk.h"

namespace quillon::navigation {

class ListOrder {
public:
    explicit ListOrder(std::shared_ptr<store::Database> database) : database_(std::move(database)) {}

    // Continues with another handle on the same DataSet.
    void Reattach(std::shared_ptr<store::Database> database) { database_ = std::move(database); }

    // Reads for about `slice`; true when all rows have been read.
    bool Read(std::chrono::microseconds slice);
    bool IsComplete() const { return complete_; }

    // The rows read so far.
    const std::vector<std::int32_t>& Ids() const { return ids_; }

    // The place for a taxon that is not among the rows.
    std::size_t PlaceOf(const NameKey& key) const;
    void Insert(std::size_t row, std::int32_t qb_id);
    void Erase(std::size_t row);

private:
    std::shared_ptr<store::Database> database_;
    std::vector<std::int32_t> ids_;
    std::optional<NameWalk::Units> last_;  // the last name read
    bool complete_ = false;
};

}  // namespace quillon::navigation
