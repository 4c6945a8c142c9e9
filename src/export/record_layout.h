// The records of the tagged format: for each tag its table, and the columns in the order in which they are
// written. The reader of the format keeps to the same order.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace quillon::exporting {

inline constexpr char kSeparator = '|';

// How a column's value is written.
enum class FieldForm {
    Number,  // nothing for 0
    Text,    // as stored
    YesNo,   // "No" for Null
    Date,
    Stamp,
    Other,  // worked out by the section
};

struct FieldLayout {
    std::string_view column;
    FieldForm form;
};

struct RecordLayout {
    std::string_view tag;
    std::string_view table;
    std::span<const FieldLayout> fields;
    bool closed = true;  // a separator follows the last field, too

    // The columns of the fields, for reading the table.
    std::vector<std::string_view> Columns() const;
    // The place of the first field of that column, which there must be.
    std::size_t Place(std::string_view column) const;
};

// The places of the fields of [TU] that are not written as they are read.
namespace taxon_field {
inline constexpr std::size_t kReason = 12, kParentTsn = 18, kParent = 19, kAuthorityAuthor = 20, kAuthor = 21,
                             kHybrid = 22, kKingdom = 23;
}  // namespace taxon_field

extern const RecordLayout kTaxonRecord, kAuthorRecord, kNodcRecord, kVernacularRecord, kSynonymRecord,
    kDivisionRecord, kJurisdictionRecord, kReferenceRecord, kPublicationRecord, kExpertRecord, kSourceRecord,
    kVernReferenceRecord, kCommentLinkRecord, kCommentRecord, kChangeTrackRecord, kChangeOperationRecord,
    kChangeCommentRecord;

// The record of a tombstone by the name of its table, in any case: its tag and how many keys it has. A table
// that it does not know has no tag and two keys.
const RecordLayout& TombstoneRecord(std::string_view table_name);
// Its tag alone, empty for a table that it does not know.
std::string_view TombstoneTag(std::string_view table_name);

}  // namespace quillon::exporting
