// Entries sorted by id. A look-up takes one step when the ids have no gaps.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quillon::validation {

// `Entry` has a member `id`. Several entries may have the same one.
template <typename Entry>
class IdTable {
public:
    // Ids must be in ascending order.
    void Append(Entry entry) { entries_.push_back(entry); }
    // Sorts entries that were appended in another order; stable.
    void Sort() {
        std::stable_sort(entries_.begin(), entries_.end(),
                         [](const Entry& left, const Entry& right) { return left.id < right.id; });
    }
    std::size_t Size() const { return entries_.size(); }

    // All entries of the id.
    std::span<const Entry> FindAll(std::int64_t id) const {
        std::size_t first = PlaceOf(id), end = first;
        while (end < entries_.size() && entries_[end].id == id) ++end;
        return std::span(entries_).subspan(first, end - first);
    }
    // The first entry of the id; nullptr when there is none.
    const Entry* Find(std::int64_t id) const {
        const std::size_t place = PlaceOf(id);
        return place < entries_.size() && entries_[place].id == id ? &entries_[place] : nullptr;
    }
    // The entry after one returned by Find; nullptr after the last.
    const Entry* Next(const Entry* entry) const { return entry == &entries_.back() ? nullptr : entry + 1; }

private:
    // The index of the first entry not below the id. Tries the distance of the ids first, which is right when
    // they have neither gaps nor duplicates.
    std::size_t PlaceOf(std::int64_t id) const {
        if (entries_.empty() || id <= entries_.front().id) return 0;
        const auto guess = static_cast<std::size_t>(id - entries_.front().id);
        if (guess < entries_.size() && entries_[guess].id == id && entries_[guess - 1].id < id) return guess;
        const auto found =
            std::lower_bound(entries_.begin(), entries_.end(), id,
                             [](const Entry& entry, std::int64_t wanted) { return entry.id < wanted; });
        return static_cast<std::size_t>(found - entries_.begin());
    }
    std::vector<Entry> entries_;
};

}  // namespace quillon::validation
