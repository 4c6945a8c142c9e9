// The tagged format: for each tag its table, and its fields in the order of the line. The import and the
// export both use this description; tags and column orders are spelled nowhere else.
//
// A line is the tag, then each field followed by the separator. There is no header, no enclosure and no
// escaping.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace quillon::exchange {

inline constexpr char kSeparator = '|';

// How a field is written. An empty field means Null, and 0 for a number.
enum class FieldForm {
    Number,
    Text,
    YesNo,  // "No" for Null
    Date,   // stored as dd/mm/yyyy, written as mm/dd/yyyy
    Stamp,  // stored as ddmmyyyyhhnnss, written as yyyy-mm-dd hh:nn:ss
};

struct FieldLayout {
    std::string_view column;
    FieldForm form;
    bool mayBeMissing = false;  // a line may end before this last field
};

enum class RecordKind {
    Taxon,
    Author,
    Nodc,
    Vernacular,
    Synonym,
    Division,
    Jurisdiction,
    Reference,
    Publication,
    Expert,
    Source,
    VernReference,
    CommentLink,
    Comment,
    ChangeTrack,
    ChangeOperation,
    ChangeComment,
    Deletion,   // a tombstone: its table is the tombstone's table_name, its fields are the keys in order
    NotStored,  // [RV]: a known tag whose lines are skipped
};
inline constexpr std::size_t kRecordKinds = 19;

struct RecordLayout {
    RecordKind kind;
    std::string_view tag;
    std::string_view table;
    std::span<const FieldLayout> fields;
    bool closed = true;  // a separator also follows the last field

    // "TU" of "[TU]", "CM-" of "[CM-]".
    std::string_view Letters() const { return tag.substr(1, tag.size() - 2); }
    // The columns of the fields, in their order, with duplicates.
    std::vector<std::string_view> Columns() const;
    // The index of the first field with that column, which must exist.
    std::size_t Place(std::string_view column) const;
};

// Indexes of the [TU] fields that are not written as stored.
namespace taxon_field {
inline constexpr std::size_t kReason = 12, kParentTsn = 18, kParent = 19, kAuthorityAuthor = 20, kAuthor = 21,
                             kHybrid = 22, kKingdom = 23;
}  // namespace taxon_field

extern const RecordLayout kTaxonRecord, kAuthorRecord, kNodcRecord, kVernacularRecord, kSynonymRecord,
    kDivisionRecord, kJurisdictionRecord, kReferenceRecord, kPublicationRecord, kExpertRecord, kSourceRecord,
    kVernReferenceRecord, kCommentLinkRecord, kCommentRecord, kChangeTrackRecord, kChangeOperationRecord,
    kChangeCommentRecord;

// All records with a tag, including deletions.
std::span<const RecordLayout* const> AllRecords();
// The record of a tag; nullptr for an unknown tag.
const RecordLayout* FindRecord(std::string_view tag);
// The deletion record for a tombstone's table_name, ignoring case. A table without one gets an empty tag and
// two keys.
const RecordLayout& DeletionRecord(std::string_view table_name);

}  // namespace quillon::exchange
