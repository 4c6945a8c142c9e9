// Walks over the taxa in the order of the alphabetical list: by the four name units, then by author. A walk
// reads the index on the names, forwards or backwards from any name, so it reaches the first rows at once
// however many names there are.
//
// Nothing may be written to the DataSet as long as a walk lives: make one for a slice of time and throw it
// away. The errors of the store pass through.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/engine.h"
#include "store/row_stream.h"

namespace quillon::navigation {

// What decides the place of a taxon in the list. "" means Null; no stored text is empty.
struct NameKey {
    std::array<std::string, 4> units;
    std::string author;
    int qb_id = 0;
};

// Negative, 0 or positive; only the units, or everything.
int CompareUnits(const std::array<std::string, 4>& left, const std::array<std::string, 4>& right);
int CompareKeys(const NameKey& left, const NameKey& right);
// Nothing for a taxon that is gone.
std::optional<NameKey> KeyOf(store::Database& database, int qb_id);

class NameWalk {
public:
    enum class Direction { Forward, Backward };
    // Whether the name that a walk begins with is part of it.
    enum class Begin { Beside, With };
    using Units = std::array<std::string, 4>;

    // It begins behind the name `from` (before it, backwards) or with it; without `from` at the first (last)
    // name of all. Reaching the first row takes the same time from any name.
    NameWalk(store::Database& database, Direction direction, const Units* from = nullptr,
             Begin begin = Begin::Beside);

    // Gives the taxa of the next name, in the order of the walk; false past the last one.
    bool Next(std::vector<std::int32_t>& qb_ids);
    // The name that Next() gave last.
    const Units& Name() const { return name_; }

private:
    bool Step();
    void OrderByAuthor(std::vector<std::int32_t>& qb_ids);
    bool HasName(const Units& name) const;

    store::Database& database_;
    Direction direction_;
    std::vector<std::string> selects_;  // one after the other they give all names; the next one at the end
    std::optional<store::RowStream> rows_;
    bool hasRow_ = false;
    Units name_;
};

}  // namespace quillon::navigation
