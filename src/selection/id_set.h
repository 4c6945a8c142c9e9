// Sets and maps of row ids for one validation or export: the selected taxa, the documents that they link.
// AutoNumbers are dense, so they are stored as bits and elements of a vector; sparse ids are hashed. Memory
// is proportional to the number of ids, not to their size, because a file may contain any ids and prefixes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quillon::selection {

// Seeded differently in each run of the program, so that no file can cause collisions on purpose.
struct IdHash {
    std::size_t operator()(std::int32_t id) const;
};

class IdSet {
public:
    void Add(std::int32_t id);
    bool Has(std::int32_t id) const {
        const auto place = static_cast<std::uint32_t>(id);
        if (place / 64 < bits_.size() && (bits_[place / 64] >> (place % 64) & 1) != 0) return true;
        return !far_.empty() && far_.count(id) > 0;
    }
    // The number of different ids.
    std::size_t Count() const { return count_; }
    // Ascending.
    std::vector<std::int32_t> Ids() const;

private:
    std::vector<std::uint64_t> bits_;
    std::unordered_set<std::int32_t, IdHash> far_;
    std::size_t count_ = 0;
};

// Maps ids to numbers other than 0.
class IdMap {
public:
    void Add(std::int32_t id, std::int32_t number);
    // 0 for a missing id.
    std::int32_t Find(std::int32_t id) const;

private:
    std::vector<std::int32_t> near_;
    std::unordered_map<std::int32_t, std::int32_t, IdHash> far_;
    std::size_t count_ = 0;
};

// The different prefixes of documents, numbered from 0. They are compared like texts in the store.
class Prefixes {
public:
    static constexpr std::size_t kNone = SIZE_MAX;

    // The number of the prefix, which is added if it is new.
    std::size_t Add(std::string_view prefix);
    // kNone for a prefix that was not added.
    std::size_t Find(std::string_view prefix) const;

private:
    std::map<std::string, std::size_t, std::less<>> bySpelling_, bySortKey_;
};

// Documents by prefix and id. An empty prefix equals nothing, like Null.
class DocumentSet {
public:
    void Add(std::string_view prefix, std::int32_t id);
    bool Has(std::string_view prefix, std::int32_t id) const;
    bool IsEmpty() const { return byPrefix_.empty(); }
    // The ids of all prefixes.
    const IdSet& AllIds() const { return ids_; }

private:
    Prefixes prefixes_;
    std::vector<IdSet> byPrefix_;
    IdSet ids_;
};

// Documents with the number of links to each.
class DocumentLinks {
public:
    void Add(std::string_view prefix, std::int32_t id);
    // 0 for a document without links.
    std::int32_t Count(std::string_view prefix, std::int32_t id) const;
    // The ids of all prefixes.
    const IdSet& Ids() const { return ids_; }

private:
    Prefixes prefixes_;
    std::vector<IdMap> byPrefix_;
    IdSet ids_;
};

}  // namespace quillon::selection
