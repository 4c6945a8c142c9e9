#include "import/placeholders.h"

#include <string>

namespace quillon::importing {

namespace {

std::string MarkerOf(std::int32_t key) {
    return "Dummy#" + std::to_string(key);
}

// `columns` are the id, the marker, and the prefix if the table has one.
template <typename Row>
void StoreAll(ImportRun& run, KeyedRows<Row>& rows, std::string_view table,
              std::initializer_list<std::string_view> columns, std::string_view prefix = {}) {
    store::RowWriter writer(run.Db(), table, columns);
    for (Row& row : rows) {
        if (row.stored != Stored::Placeholder) continue;
        const std::string marker = MarkerOf(row.key);
        writer.Id(row.newId).Text(marker);
        if (!prefix.empty()) writer.Text(prefix);
        run.Store(writer);
    }
}

void StoreChangeTracks(ImportRun& run) {
    store::RowWriter writer(run.Db(), "qb_change_tracks", {"qb_change_track_id", "qb_id", "change_reason"});
    for (const TrackRow& row : run.maps.changeTracks) {
        if (row.stored != Stored::Placeholder) continue;
        const std::string marker = MarkerOf(row.key);
        run.Store(writer.Id(row.newId).Long(row.qb_id).Text(marker));
    }
}

}  // namespace

void StorePlaceholders(ImportRun& run) {
    IdMaps& maps = run.maps;
    StoreAll(run, maps.taxa, "qb_taxonomic_units", {"qb_id", "unit_name1"});
    StoreAll(run, maps.comments, "qb_comments", {"qb_comment_id", "commentator"});
    StoreAll(run, maps.experts, "qb_experts", {"qb_expert_id", "expert", "expert_id_prefix"}, "EXP");
    StoreAll(run, maps.publications, "qb_publications",
             {"qb_publication_id", "publication_name", "publication_id_prefix"}, "PUB");
    StoreAll(run, maps.otherSources, "qb_other_sources", {"qb_source_id", "source", "source_id_prefix"},
             "SRC");
    StoreAll(run, maps.vernaculars, "qb_vernaculars", {"qb_vern_id", "vernacular_name"});
    StoreChangeTracks(run);
}

}  // namespace quillon::importing
