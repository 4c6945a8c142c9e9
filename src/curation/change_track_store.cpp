#include "curation/change_track_store.h"

#include <fmt/format.h>

#include <string_view>

#include "store/unit.h"

namespace quillon::curation {

using records::RecordStore;

namespace {

constexpr std::string_view kUpdateTrack =
    "PARAMETERS track Long, reason Text, initiator Text, reviewer Text, certifier Text; "
    "UPDATE qb_change_tracks SET change_reason = reason, change_initiator = initiator, "
    "change_reviewer = reviewer, change_certifier = certifier WHERE qb_change_track_id = track;";
constexpr std::string_view kDeleteOperation =
    "PARAMETERS track Long, operation Long; "
    "DELETE * FROM qb_change_operations WHERE qb_change_track_id = track AND chg_op_id = operation;";
constexpr std::string_view kFindComment =
    "PARAMETERS track Long, id Long, detail Text; SELECT qb_chg_cmt_id FROM qb_change_comments "
    "WHERE qb_change_track_id = track AND chg_cmt_id = id AND change_detail = detail;";
constexpr std::string_view kFindCommentWithoutId =
    "PARAMETERS track Long, detail Text; SELECT qb_chg_cmt_id FROM qb_change_comments "
    "WHERE qb_change_track_id = track AND chg_cmt_id Is Null AND change_detail = detail;";
constexpr std::string_view kDeleteComment =
    "PARAMETERS track Long, comment Long; "
    "DELETE * FROM qb_change_comments WHERE qb_change_track_id = track AND qb_chg_cmt_id = comment;";

int IdIn(const store::Recordset& row, std::string_view column) {
    return static_cast<int>(row[column].AsLong());
}

ChangeTrack TrackOf(const store::Recordset& row) {
    ChangeTrack track;
    track.qb_change_track_id = IdIn(row, "qb_change_track_id");
    track.change_track_id = IdIn(row, "change_track_id");
    track.change_reason = row["change_reason"].AsText();
    track.change_initiator = row["change_initiator"].AsText();
    track.change_reviewer = row["change_reviewer"].AsText();
    track.change_certifier = row["change_certifier"].AsText();
    return track;
}

// The operation of a track; 0 when it has none.
int OperationOf(store::Database& database, int track) {
    const auto row = database.CreateSnapshot(
        fmt::format("SELECT chg_op_id FROM qb_change_operations WHERE qb_change_track_id = {}", track));
    return row->Eof() ? 0 : IdIn(*row, "chg_op_id");
}

bool InsertOperation(const RecordStore& records, int track, int operation) {
    return records.Reporting([&] {
        store::Unit unit(records.engine);
        const auto operations = records.database.OpenTable("qb_change_operations");
        operations->AddNew();
        operations->Set("qb_change_track_id", track);
        operations->Set("chg_op_id", operation);
        operations->Update();
        unit.Commit();
    });
}

bool HasComment(store::Database& database, int track, const GridControl::Row& row) {
    const std::int64_t id = Value(row[ChangeCommentColumn::kId]).AsLong();
    store::QueryDef query = database.CreateQueryDef("", id == 0 ? kFindCommentWithoutId : kFindComment);
    query.Set("track", track).Set("detail", row[ChangeCommentColumn::kComment]);
    if (id != 0) query.Set("id", id);
    return !query.CreateSnapshot()->Eof();
}

void InsertComment(const RecordStore& records, const ChangeTrack& track, const GridControl::Row& row) {
    store::Unit unit(records.engine);
    const auto comments = records.database.OpenTable("qb_change_comments");
    comments->AddNew();
    comments->Set("qb_change_track_id", track.qb_change_track_id);
    comments->Set("change_track_id", Value::IdOrNull(track.change_track_id));
    comments->Set("change_detail", row[ChangeCommentColumn::kComment]);
    comments->Update();
    unit.Commit();
}

}  // namespace

std::optional<ChangeTrack> ReadChangeTrack(store::Database& database, int qb_change_track_id) {
    const auto row = database.CreateSnapshot(
        fmt::format("SELECT * FROM qb_change_tracks WHERE qb_change_track_id = {}", qb_change_track_id));
    if (row->Eof()) return std::nullopt;
    ChangeTrack track = TrackOf(*row);
    track.chg_op_id = OperationOf(database, qb_change_track_id);
    return track;
}

std::vector<GridControl::Row> ReadChangeComments(store::Database& database, int qb_change_track_id) {
    std::vector<GridControl::Row> rows;
    const auto comments = database.CreateSnapshot(
        fmt::format("SELECT change_detail, qb_chg_cmt_id, chg_cmt_id FROM qb_change_comments "
                    "WHERE qb_change_track_id = {} ORDER BY qb_chg_cmt_id",
                    qb_change_track_id));
    for (; !comments->Eof(); comments->MoveNext())
        rows.push_back({comments->Get("change_detail").AsText(),
                        std::to_string(comments->Get("qb_chg_cmt_id").AsLong()),
                        std::to_string(comments->Get("chg_cmt_id").AsLong())});
    return rows;
}

std::vector<ChoiceControl::Choice> ReadChangeOperations(store::Database& database) {
    std::vector<ChoiceControl::Choice> choices;
    const auto operations = database.CreateSnapshot(
        "SELECT chg_op_id, change_operation FROM change_operations_lookup ORDER BY chg_op_id");
    for (; !operations->Eof(); operations->MoveNext())
        choices.push_back(
            {operations->Get("change_operation").AsText(), operations->Get("chg_op_id").AsLong()});
    return choices;
}

std::vector<GridControl::Row> ReadChangeTracks(store::Database& database, int qb_id) {
    const auto operations = ReadChangeOperations(database);
    std::vector<GridControl::Row> rows;
    const auto tracks = database.CreateSnapshot(fmt::format(
        "SELECT qb_change_tracks.* FROM qb_change_tracks WHERE qb_change_tracks.qb_id = {}", qb_id));
    for (; !tracks->Eof(); tracks->MoveNext()) {
        const ChangeTrack track = TrackOf(*tracks);
        const int id = OperationOf(database, track.qb_change_track_id);
        std::string operation = "Not Found";
        for (const auto& known : operations)
            if (known.itemData == id) operation = known.text;
        rows.push_back({operation, track.change_reason, track.change_initiator, track.change_reviewer,
                        std::to_string(track.qb_change_track_id), std::to_string(track.change_track_id)});
    }
    return rows;
}

bool InsertChangeTrack(const RecordStore& records, const CurrentTaxon& taxon, ChangeTrack& track) {
    const bool inserted = records.Reporting([&] {
        store::Unit unit(records.engine);
        const auto tracks = records.database.OpenTable("qb_change_tracks");
        tracks->AddNew();
        tracks->Set("qb_id", taxon.qb_id);
        tracks->Set("change_reason", Value::TextOrNull(track.change_reason));
        tracks->Set("change_initiator", Value::TextOrNull(track.change_initiator));
        tracks->Set("change_reviewer", Value::TextOrNull(track.change_reviewer));
        tracks->Set("change_certifier", Value::TextOrNull(track.change_certifier));
        tracks->Set("tsn", Value::IdOrNull(taxon.tsn));
        const auto id = static_cast<int>(tracks->Get("qb_change_track_id").AsLong());
        tracks->Update();
        unit.Commit();
        track.qb_change_track_id = id;
    });
    return inserted && InsertOperation(records, track.qb_change_track_id, track.chg_op_id);
}

bool UpdateChangeTrack(const RecordStore& records, const ChangeTrack& track, int formerOperation) {
    const int id = track.qb_change_track_id;
    store::QueryDef update = records.database.CreateQueryDef("", kUpdateTrack);
    update.Set("track", id).Set("reason", Value::TextOrNull(track.change_reason));
    update.Set("initiator", Value::TextOrNull(track.change_initiator));
    update.Set("reviewer", Value::TextOrNull(track.change_reviewer));
    update.Set("certifier", Value::TextOrNull(track.change_certifier));
    if (!records.RunUnit(update)) return false;
    if (track.chg_op_id == formerOperation) return true;
    store::QueryDef deletion = records.database.CreateQueryDef("", kDeleteOperation);
    deletion.Set("track", id).Set("operation", formerOperation);
    return records.RunUnit(deletion) && InsertOperation(records, id, track.chg_op_id);
}

bool SaveChangeComments(const RecordStore& records, const ChangeTrack& track, const std::vector<int>& removed,
                        const std::vector<GridControl::Row>& rows) {
    bool saved = true;
    for (const int comment : removed) {
        store::QueryDef deletion = records.database.CreateQueryDef("", kDeleteComment);
        deletion.Set("track", track.qb_change_track_id).Set("comment", comment);
        saved = records.RunUnit(deletion) && saved;
    }
    for (const GridControl::Row& row : rows) {
        saved = records.Reporting([&] {
            if (!HasComment(records.database, track.qb_change_track_id, row))
                InsertComment(records, track, row);
        }) && saved;
    }
    return saved;
}

}  // namespace quillon::curation
