#include "navigation/list_order.h"

namespace quillon::navigation {

namespace {

// A slice reads at least this many rows, because finding its beginning also takes time.
constexpr std::size_t kLeastRows = 256;

}  // namespace

bool ListOrder::Read(std::chrono::microseconds slice) {
    if (complete_) return true;
    const auto deadline = std::chrono::steady_clock::now() + slice;
    NameWalk walk(*database_, NameWalk::Direction::Forward, last_ ? &*last_ : nullptr);
    std::vector<std::int32_t> sameName;
    const std::size_t before = ids_.size();
    std::size_t nextLook = before + kLeastRows;
    while (walk.Next(sameName)) {
        ids_.insert(ids_.end(), sameName.begin(), sameName.end());
        if (ids_.size() < nextLook) continue;
        nextLook = ids_.size() + kLeastRows;
        if (std::chrono::steady_clock::now() < deadline) continue;
        last_ = walk.Name();
        return false;
    }
    complete_ = true;
    return true;
}

// The row of a deleted taxon has the key of the next one.
std::size_t ListOrder::PlaceOf(const NameKey& key) const {
    std::size_t low = 0;
    for (std::size_t high = ids_.size(); low < high;) {
        const std::size_t middle = low + (high - low) / 2;
        std::size_t at = middle;
        std::optional<NameKey> found;
        while (at < high && !(found = KeyOf(*database_, ids_[at]))) ++at;
        if (found && CompareKeys(*found, key) < 0) {
            low = at + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

void ListOrder::Insert(std::size_t row, std::int32_t qb_id) {
    ids_.insert(ids_.begin() + static_cast<std::ptrdiff_t>(row), qb_id);
}

void ListOrder::Erase(std::size_t row) {
    ids_.erase(ids_.begin() + static_cast<std::ptrdiff_t>(row));
}

}  // namespace quillon::navigation
