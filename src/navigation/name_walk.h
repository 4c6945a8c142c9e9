// Walks over the taxa in the order of the alphabetical list: by the four name units, then by author. A walk
// reads the index on the names, forwards or backwards from any name, so the first rows are fast with any
// number of names.
//
// The DataSet must not be written during the lifetime of a walk: create one for each time slice. Functions
// throw StoreError.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/engine.h"
#include "store/row_stream.h"

namespace quillon::navigation {

// The sort key of a taxon in the list. "" means Null; no stored text is empty.
struct NameKey {
    std::array<std::string, 4> units;
    std::string author;
    int qb_id = 0;
};

// Negative, 0 or positive; compare only the units, or everything.
int CompareUnits(const std::array<std::string, 4>& left, const std::array<std::string, 4>& right);
int CompareKeys(const NameKey& left, const NameKey& right);
// Empty for a deleted taxon.
std::optional<NameKey> KeyOf(store::Database& database, int qb_id);

class NameWalk {
public:
    enum class Direction { Forward, Backward };
    // Whether a walk includes the name that it begins with.
    enum class Begin { Beside, With };
    using Units = std::array<std::string, 4>;

    // Begins after the name `from` (before it, backwards) or with it; without `from` at the first (last)
    // name. Reaching the first row takes the same time from any name.
    NameWalk(store::Database& database, Direction direction, const Units* from = nullptr,
             Begin begin = Begin::Beside);

    // Returns the taxa of the next name, in the order of the walk; false after the last name.
    bool Next(std::vector<std::int32_t>& qb_ids);
    // The last name of Next().
    const Units& Name() const { return name_; }

private:
    bool Step();
    void OrderByAuthor(std::vector<std::int32_t>& qb_ids);
    bool HasName(const Units& name) const;

    store::Database& database_;
    Direction direction_;
    std::vector<std::string> selects_;  // together they return all names; in reverse order
    std::optional<store::RowStream> rows_;
    bool hasRow_ = false;
    Units name_;
};

}  // namespace quillon::navigation
