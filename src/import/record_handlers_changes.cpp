// Change tracks with their operations and comments, and the news of deletions.
#include <algorithm>
#include <array>
#include <span>

#include "import/record.h"
#include "import/record_handlers.h"
#include "records/tombstones.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kNoTrack = "Neither qb_change_track_id nor change_track_id is present";

// `taxon` is kNoRow for a line that names none.
TrackRow& SeeTrack(ImportRun& run, std::int32_t key, RowPlace taxon) {
    const bool isNew = run.maps.changeTracks.Find(key) == kNoRow;
    TrackRow& row = run.See(run.maps.changeTracks, "qb_change_tracks", key);
    if (isNew && taxon != kNoRow) row.qb_id = run.maps.taxa[taxon].newId;
    return row;
}

// One field of a deletion record, which must be there.
struct KeyField {
    std::string_view name;
    bool isNumber = true;
    std::string_view sentence = {};  // when the finding is worded in its own way
};

constexpr KeyField kCommentKey[] = {{"comment_id"}};
constexpr KeyField kCommentLinkKey[] = {{"tsn"}, {"comment_id"}};
constexpr KeyField kExpertKey[] = {{"expert_id_prefix", false}, {"expert_id"}};
constexpr KeyField kDivisionKey[] = {
    {"tsn"}, {"geographic_value", false, "Missing geographic_value in the following <GD-> data line!"}};
constexpr KeyField kJurisdictionKey[] = {{"tsn"}, {"jurisdiction_value", false}};
constexpr KeyField kSourceKey[] = {{"source_id_prefix", false}, {"source_id"}};
constexpr KeyField kPublicationKey[] = {{"publication_id_prefix", false}, {"publication_id"}};
constexpr KeyField kReferenceKey[] = {{"documentation_id_prefix", false}, {"documentation_id"}, {"tsn"}};
constexpr KeyField kVernReferenceKey[] = {
    {"documentation_id_prefix", false}, {"documentation_id"}, {"tsn"}, {"vern_id"}};
constexpr KeyField kSynonymKey[] = {{"tsn"}, {"tsn_accepted"}};
constexpr KeyField kAuthorKey[] = {{"taxon_author_id"}, {"kingdom_id"}};
constexpr KeyField kVernacularKey[] = {{"tsn"}};

struct DeletionRecord {
    std::string_view letters;
    std::string_view table_name;
    std::span<const KeyField> key;
    bool mayHaveVernId = false;  // one more number, which need not be there
};

constexpr DeletionRecord kDeletions[] = {
    {"CM-", "comments", kCommentKey},
    {"CL-", "tu_comments_link", kCommentLinkKey},
    {"EX-", "experts", kExpertKey},
    {"GD-", "geographic_division", kDivisionKey},
    {"JR-", "jurisdiction", kJurisdictionKey},
    {"OS-", "other_sources", kSourceKey},
    {"PB-", "publications", kPublicationKey},
    {"RF-", "reference_links", kReferenceKey},
    {"VL-", "vern_ref_links", kVernReferenceKey},
    {"SY-", "synonym_links", kSynonymKey},
    {"TA-", "taxon_authors_lookup", kAuthorKey},
    {"VR-", "vernaculars", kVernacularKey, true},
};

// A key as the tombstone holds it; nothing when the field is empty or, for a number, 0.
std::optional<Value> ReadKeyField(Record& record, bool isNumber) {
    if (!isNumber) {
        const std::string_view text = record.Text();
        return text.empty() ? std::nullopt : std::optional<Value>(Value(text));
    }
    const std::int32_t number = record.Number();
    return number == 0 ? std::nullopt : std::optional<Value>(Value(number));
}

void ReportMissing(Record& record, const KeyField& field) {
    if (field.sentence.empty())
        record.Refuse("Missing " + std::string(field.name));
    else
        record.Report(std::string(field.sentence));
}

}  // namespace

void ReadChangeTrack(ImportRun& run, std::string_view line) {
    Record record(run, line);
    const std::int32_t qb_change_track_id = record.Number();
    const std::int32_t change_track_id = record.Number();
    const std::int32_t old_tsn = record.Number();
    const std::string_view change_reason = record.Text();
    const std::string_view change_initiator = record.Text();
    const std::string_view change_reviewer = record.Text();
    const std::string_view change_certifier = record.Text();
    const std::string_view change_time_stamp = record.Text();
    const std::int32_t tsn = record.Number();
    const std::int32_t qb_id = record.Number();
    if (!record.Good()) return;
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    const std::int32_t key = KeyOf(qb_change_track_id, change_track_id);
    if (key == 0) return record.Refuse(kNoTrack);
    TrackRow& row = SeeTrack(run, key, *taxon);
    row.trackSeen = true;
    row.taxon = *taxon;
    store::RowWriter& writer = run.writers.changeTracks;
    writer.Id(row.newId).Id(change_track_id).Id(old_tsn).Text(change_reason).Text(change_initiator);
    writer.Text(change_reviewer).Text(change_certifier).Text(change_time_stamp).Id(tsn).Long(row.qb_id);
    run.StoreOwn(writer, row.stored);
}

void ReadChangeOperation(ImportRun& run, std::string_view line) {
    Record record(run, line);
    const std::int32_t qb_change_track_id = record.Number();
    const std::int32_t chg_op_id = record.Number();
    const std::int32_t change_track_id = record.Number();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_change_track_id, change_track_id);
    if (key == 0) return record.Refuse(kNoTrack);
    TrackRow& row = SeeTrack(run, key, kNoRow);
    row.operationSeen = true;
    if (chg_op_id == 0) return record.Refuse("A chg_op_id is not present");
    run.Store(run.writers.changeOperations.Id(row.newId).Id(chg_op_id).Id(change_track_id));
}

void ReadChangeComment(ImportRun& run, std::string_view line) {
    Record record(run, line);
    const std::int32_t qb_change_track_id = record.Number();
    const std::int32_t change_track_id = record.Number();
    const std::int32_t chg_cmt_id = record.Number();
    const std::string_view change_detail = record.Text();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_change_track_id, change_track_id);
    if (key == 0) return record.Refuse(kNoTrack);
    TrackRow& row = SeeTrack(run, key, kNoRow);
    row.commentSeen = true;
    store::RowWriter& writer = run.writers.changeComments;
    writer.Id(row.newId).Id(run.nextChangeComment.Get()).Id(change_track_id).Id(chg_cmt_id);
    if (run.Store(writer.Text(change_detail))) run.nextChangeComment.Used();
}

void ReadDeletion(ImportRun& run, std::string_view line) {
    Record record(run, line);
    const DeletionRecord& deletion =
        *std::find_if(std::begin(kDeletions), std::end(kDeletions),
                      [&](const DeletionRecord& candidate) { return candidate.letters == record.Letters(); });
    std::array<std::optional<Value>, 4> keys;
    for (std::size_t place = 0; place < deletion.key.size(); ++place)
        keys[place] = ReadKeyField(record, deletion.key[place].isNumber);
    if (deletion.mayHaveVernId && record.HasNext()) keys[deletion.key.size()] = ReadKeyField(record, true);
    if (!record.Good()) return;
    for (std::size_t place = 0; place < deletion.key.size(); ++place) {
        if (!keys[place]) return ReportMissing(record, deletion.key[place]);
    }
    if (!records::WriteTombstone(run.records, deletion.table_name, *keys[0], keys[1], keys[2], keys[3]))
        record.Report("Unable to save the following <" + std::string(record.Letters()) +
                      "> record in the database!");
}

}  // namespace quillon::importing
