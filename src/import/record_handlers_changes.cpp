// Change tracks with their operations and comments, and deletion records.
#include <array>
#include <span>

#include "import/record.h"
#include "import/record_handlers.h"
#include "records/tombstones.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kNoTrack = "Neither qb_change_track_id nor change_track_id is present";

// `taxon` is kNoRow for a line without one.
TrackRow& SeeTrack(ImportRun& run, std::int32_t key, RowPlace taxon) {
    const bool isNew = run.maps.changeTracks.Find(key) == kNoRow;
    TrackRow& row = run.See(run.maps.changeTracks, "qb_change_tracks", key);
    if (isNew && taxon != kNoRow) row.qb_id = run.maps.taxa[taxon].newId;
    return row;
}

// A key for the tombstone; empty when the field is empty or, for a number, 0.
std::optional<Value> ReadKey(Record& record, exchange::FieldForm form) {
    if (form == exchange::FieldForm::Text) {
        const std::string_view text = record.Text();
        return text.empty() ? std::nullopt : std::optional<Value>(Value(text));
    }
    const std::int32_t number = record.Number();
    return number == 0 ? std::nullopt : std::optional<Value>(Value(number));
}

void ReportMissing(Record& record, std::string_view column) {
    if (column == "geographic_value")
        record.Report("Missing geographic_value in the following <GD-> data line!");
    else
        record.Refuse("Missing " + std::string(column));
}

}  // namespace

void ReadChangeTrack(ImportRun& run, Record& record) {
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

void ReadChangeOperation(ImportRun& run, Record& record) {
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

void ReadChangeComment(ImportRun& run, Record& record) {
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
    writer.Id(row.newId).Id(change_track_id).Id(chg_cmt_id).Text(change_detail);
    if (run.Store(writer.Id(run.nextChangeComment.Get()))) run.nextChangeComment.Used();
}

void ReadDeletion(ImportRun& run, Record& record) {
    const std::span<const exchange::FieldLayout> keys = record.Layout().fields;
    std::array<std::optional<Value>, 4> values;
    for (std::size_t place = 0; place < keys.size(); ++place) {
        if (keys[place].mayBeMissing && !record.HasNext()) break;
        values[place] = ReadKey(record, keys[place].form);
    }
    if (!record.Good()) return;
    for (std::size_t place = 0; place < keys.size(); ++place) {
        if (!keys[place].mayBeMissing && !values[place]) return ReportMissing(record, keys[place].column);
    }
    if (!records::WriteTombstone(run.records, record.Layout().table, *values[0], values[1], values[2],
                                 values[3]))
        record.Report("Unable to save the following <" + std::string(record.Letters()) +
                      "> record in the database!");
}

}  // namespace quillon::importing
