#include "import/placeholders.h"

#include <string>

#include "core/document_kinds.h"

namespace quillon::importing {

namespace {

std::string MarkerOf(std::int32_t key) {
    return "Dummy#" + std::to_string(key);
}

// `columns` are the id, the marker, and the prefix if the table has one.
template <typename Row>
void StoreAll(ImportRun& run, Turns& turns, KeyedRows<Row>& rows, std::string_view table,
              std::initializer_list<std::string_view> columns, std::string_view prefix = {}) {
    store::RowWriter writer(run.Db(), table, columns);
    for (Row& row : rows) {
        TakeTurn(turns);
        if (row.stored != Stored::Placeholder) continue;
        const std::string marker = MarkerOf(row.key);
        writer.Id(row.newId).Text(marker);
        if (!prefix.empty()) writer.Text(prefix);
        run.Store(writer);
    }
}

void StoreDocuments(ImportRun& run, Turns& turns, KeyedRows<LinkedRow>& rows, const DocumentKind& kind) {
    StoreAll(run, turns, rows, kind.table, {kind.idColumn, kind.nameColumn, kind.prefixColumn}, kind.prefix);
}

void StoreChangeTracks(ImportRun& run, Turns& turns) {
    store::RowWriter writer(run.Db(), "qb_change_tracks", {"qb_change_track_id", "qb_id", "change_reason"});
    for (const TrackRow& row : run.maps.changeTracks) {
        TakeTurn(turns);
        if (row.stored != Stored::Placeholder) continue;
        const std::string marker = MarkerOf(row.key);
        run.Store(writer.Id(row.newId).Long(row.qb_id).Text(marker));
    }
}

// Counts the placeholders of a map that are still in their table.
template <typename Row>
std::int64_t CountIn(ImportRun& run, Turns& turns, const KeyedRows<Row>& rows, std::string_view table,
                     std::string_view idColumn) {
    store::QueryDef query =
        run.Db().CreateQueryDef("", "PARAMETERS theid Long; SELECT " + std::string(idColumn) + " FROM " +
                                        std::string(table) + " WHERE " + std::string(idColumn) + " = theid;");
    std::int64_t count = 0;
    for (const Row& row : rows) {
        TakeTurn(turns);
        if (row.stored != Stored::Placeholder) continue;
        query.Set("theid", row.newId);
        if (!query.OpenRecordset(store::RecordsetType::ForwardOnly)->Eof()) ++count;
    }
    return count;
}

}  // namespace

void StorePlaceholders(ImportRun& run, Turns& turns) {
    IdMaps& maps = run.maps;
    StoreAll(run, turns, maps.taxa, "qb_taxonomic_units", {"qb_id", "unit_name1"});
    StoreAll(run, turns, maps.comments, "qb_comments", {"qb_comment_id", "commentator"});
    StoreDocuments(run, turns, maps.experts, kExperts);
    StoreDocuments(run, turns, maps.publications, kPublications);
    StoreDocuments(run, turns, maps.otherSources, kOtherSources);
    StoreAll(run, turns, maps.vernaculars, "qb_vernaculars", {"qb_vern_id", "vernacular_name"});
    StoreChangeTracks(run, turns);
}

std::int64_t CountPlaceholders(ImportRun& run, Turns& turns) {
    const IdMaps& maps = run.maps;
    return CountIn(run, turns, maps.taxa, "qb_taxonomic_units", "qb_id") +
           CountIn(run, turns, maps.comments, "qb_comments", "qb_comment_id") +
           CountIn(run, turns, maps.experts, kExperts.table, kExperts.idColumn) +
           CountIn(run, turns, maps.publications, kPublications.table, kPublications.idColumn) +
           CountIn(run, turns, maps.otherSources, kOtherSources.table, kOtherSources.idColumn) +
           CountIn(run, turns, maps.vernaculars, "qb_vernaculars", "qb_vern_id") +
           CountIn(run, turns, maps.changeTracks, "qb_change_tracks", "qb_change_track_id");
}

}  // namespace quillon::importing
