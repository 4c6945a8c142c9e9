// Sets and maps of row ids for the length of one validation or export: which taxa are selected, which
// documents they reach. Ids that AutoNumbers give lie close together, so they are bits and places of a
// vector; any other id still has its place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quillon::selection {

class IdSet {
public:
    void Add(std::int32_t id);
    bool Has(std::int32_t id) const {
        const auto place = static_cast<std::uint32_t>(id);
        if (place / 64 < bits_.size()) return (bits_[place / 64] >> (place % 64) & 1) != 0;
        return !far_.empty() && far_.count(id) > 0;
    }
    // Of different ids.
    std::size_t Count() const { return count_; }
    // Ascending.
    std::vector<std::int32_t> Ids() const;

private:
    std::vector<std::uint64_t> bits_;
    std::unordered_set<std::int32_t> far_;
    std::size_t count_ = 0;
};

// A number for an id, which is given once.
class IdMap {
public:
    void Add(std::int32_t id, std::int32_t number);
    // 0 for an id that is not there.
    std::int32_t Find(std::int32_t id) const;

private:
    std::vector<std::int32_t> near_;
    std::unordered_map<std::int32_t, std::int32_t> far_;
};

// Documents by prefix and id. Prefixes compare as the store compares texts; an empty one equals nothing, as
// Null.
class DocumentSet {
public:
    void Add(std::string_view prefix, std::int32_t id);
    bool Has(std::string_view prefix, std::int32_t id) const;
    bool IsEmpty() const { return byPrefix_.empty(); }
    // The ids under all prefixes.
    IdSet AllIds() const;

private:
    std::size_t Find(std::string_view prefix) const;
    std::vector<std::pair<std::string, IdSet>> byPrefix_;
};

}  // namespace quillon::selection
