// The maps from the ids of a tagged file to the ids of this DataSet, one for each kind of record.
//
// Rows are appended as ids are first seen and keep that order. A look-up returns the first row with the key,
// in constant time. A million taxa take some 40 MB.
//
// A row's new id is reserved when its key is first seen. The record is stored when its own line is read;
// until then, or when its line could not be stored, the id stands for a placeholder, which is written only in
// the closing pass.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "import/seeded_hash.h"

namespace quillon::importing {

using RowPlace = std::uint32_t;
inline constexpr RowPlace kNoRow = std::numeric_limits<RowPlace>::max();

// Rows with a member `key`, hashed by it. Open addressing over row indexes.
template <typename Row>
class KeyedRows {
public:
    bool Empty() const { return rows_.empty(); }
    std::size_t Size() const { return rows_.size(); }
    Row& operator[](RowPlace place) { return rows_[place]; }
    const Row& operator[](RowPlace place) const { return rows_[place]; }
    auto begin() { return rows_.begin(); }
    auto end() { return rows_.end(); }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }

    // The first row with the key, or kNoRow.
    RowPlace Find(std::int32_t key) const { return slots_.empty() ? kNoRow : slots_[SlotOf(key)]; }

    // A row with a duplicate key is kept but never found.
    RowPlace Append(const Row& row) {
        if ((rows_.size() + 1) * 4 > slots_.size() * 3) Grow();
        const auto place = static_cast<RowPlace>(rows_.size());
        rows_.push_back(row);
        const std::size_t slot = SlotOf(row.key);
        if (slots_[slot] == kNoRow) slots_[slot] = place;
        return place;
    }

private:
    // The slot of the key's row, or the empty slot for it. Sixteen consecutive ids are adjacent: files list
    // ids in order, so adjacent slots are in the processor's cache.
    std::size_t SlotOf(std::int32_t key) const {
        const auto id = static_cast<std::uint32_t>(key);
        const std::size_t mask = slots_.size() - 1;
        std::size_t slot =
            (static_cast<std::size_t>(SeededHash(std::uint64_t{id / 16})) * 16 + id % 16) & mask;
        while (slots_[slot] != kNoRow && rows_[slots_[slot]].key != key) slot = (slot + 1) & mask;
        return slot;
    }
    void Grow() {
        slots_.assign(slots_.empty() ? 64 : slots_.size() * 2, kNoRow);
        for (RowPlace place = 0; place < rows_.size(); ++place) {
            const std::size_t slot = SlotOf(rows_[place].key);
            if (slots_[slot] == kNoRow) slots_[slot] = place;
        }
    }

    std::vector<Row> rows_;
    std::vector<RowPlace> slots_;  // the size is a power of two
};

// What is stored under the new id of a row.
enum class Stored : std::uint8_t {
    Placeholder,  // nothing stored yet
    Own,          // the record of its own line
    Gone,         // the record was stored, and then deleted by a Kingdom record
};

struct TaxonRow {
    std::int32_t key = 0;
    std::int32_t newId = 0;
    // Both are -1 for a taxon known only from a reference.
    std::int32_t parent_tsn = -1;
    std::int32_t parent_qb_id = -1;
    std::int32_t author = -1;
    std::int32_t hybrid_author_id = -1;
    Stored stored = Stored::Placeholder;
    bool isOwnParent = false;   // a Kingdom record, whose parent is not an id of the file
    bool isKingdomRow = false;  // the next Kingdom record of the file replaces the stored row

    bool KnownOnlyFromReferences() const {
        return parent_tsn == -1 && parent_qb_id == -1 && author == -1 && hybrid_author_id == -1;
    }
};

// A comment or a document of one of the three kinds.
struct LinkedRow {
    std::int32_t key = 0;
    std::int32_t newId = 0;
    RowPlace taxon = kNoRow;  // of the last link, in the map of taxa
    bool ownLineSeen = false;
    bool linkLineSeen = false;
    Stored stored = Stored::Placeholder;
};

struct TrackRow {
    std::int32_t key = 0;
    std::int32_t newId = 0;
    std::int32_t qb_id = 0;   // of the placeholder, kept by the record; 0 when made by a line without a taxon
    RowPlace taxon = kNoRow;  // of the last [CT] line
    bool commentSeen = false;
    bool operationSeen = false;
    bool trackSeen = false;
    Stored stored = Stored::Placeholder;
};

struct VernacularRow {
    std::int32_t key = 0;
    std::int32_t newId = 0;
    // As stored: the taxon, the hash of the name (see VernacularIndex), and the authority's id.
    std::int32_t qb_id = 0;
    std::uint64_t name = 0;
    std::int32_t vern_id = 0;
    Stored stored = Stored::Placeholder;
};

struct AuthorRow {
    std::int32_t key = 0;
    std::int32_t newId = 0;
};

// Finds the first author of the DataSet with a text, compared by character code.
class AuthorTexts {
public:
    // Keeps the first id of each text; ignores an empty text.
    void Add(std::string_view text, std::int32_t id);
    // 0 when there is none.
    std::int32_t Find(std::string_view text) const;

private:
    std::map<std::string, std::int32_t, std::less<>> ids_;
};

struct IdMaps {
    KeyedRows<TaxonRow> taxa;
    KeyedRows<AuthorRow> authors;
    KeyedRows<LinkedRow> comments, publications, experts, otherSources;
    KeyedRows<VernacularRow> vernaculars;
    KeyedRows<TrackRow> changeTracks;

    // The new id, or -1 when the key is unknown.
    std::int32_t MapTaxonId(std::int32_t key) const;
    // The taxon with this new id, or kNoRow. New ids are in row order.
    RowPlace FindTaxonByNewId(std::int64_t newId) const;
};

}  // namespace quillon::importing
