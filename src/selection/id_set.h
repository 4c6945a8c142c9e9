// Sets and maps of row ids for the length of one validation or export: which taxa are selected, which
// documents they reach. Ids that AutoNumbers give lie close together, so they are bits and places of a
// vector; ids that lie far apart are hashed. The memory taken follows the number of ids and not their size:
// a file chooses its ids and prefixes freely.
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

// Differs from one run of the program to the next, so that no file can hold ids that all fall together.
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
    // Of different ids.
    std::size_t Count() const { return count_; }
    // Ascending.
    std::vector<std::int32_t> Ids() const;

private:
    std::vector<std::uint64_t> bits_;
    std::unordered_set<std::int32_t, IdHash> far_;
    std::size_t count_ = 0;
};

// A number other than 0 for an id.
class IdMap {
public:
    void Add(std::int32_t id, std::int32_t number);
    // 0 for an id that is not there.
    std::int32_t Find(std::int32_t id) const;

private:
    std::vector<std::int32_t> near_;
    std::unordered_map<std::int32_t, std::int32_t, IdHash> far_;
    std::size_t count_ = 0;
};

// The different prefixes of documents, numbered from 0. They compare as the store compares texts.
class Prefixes {
public:
    static constexpr std::size_t kNone = SIZE_MAX;

    // The prefix's number, a new one when it is seen for the first time.
    std::size_t Add(std::string_view prefix);
    // kNone for a prefix that was not added.
    std::size_t Find(std::string_view prefix) const;

private:
    std::map<std::string, std::size_t, std::less<>> bySpelling_, bySortKey_;
};

// Documents by prefix and id. An empty prefix equals nothing, as Null.
class DocumentSet {
public:
    void Add(std::string_view prefix, std::int32_t id);
    bool Has(std::string_view prefix, std::int32_t id) const;
    bool IsEmpty() const { return byPrefix_.empty(); }
    // The ids under all prefixes.
    const IdSet& AllIds() const { return ids_; }

private:
    Prefixes prefixes_;
    std::vector<IdSet> byPrefix_;
    IdSet ids_;
};

// Documents, and by how many links each is reached.
class DocumentLinks {
public:
    void Add(std::string_view prefix, std::int32_t id);
    // 0 for a document that no link leads to.
    std::int32_t Count(std::string_view prefix, std::int32_t id) const;
    // The ids under all prefixes.
    const IdSet& Ids() const { return ids_; }

private:
    Prefixes prefixes_;
    std::vector<IdMap> byPrefix_;
    IdSet ids_;
};

}  // namespace quillon::selection
