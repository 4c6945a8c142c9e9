#include <fmt/format.h>

#include <array>
#include <vector>

#include "store/lifecycle/lifecycle.h"

namespace quillon::store {

namespace {

struct DocumentTable {
    std::string_view prefix, table, key;
};
constexpr std::array<DocumentTable, 3> kDocuments = {{{"PUB", "qb_publications", "qb_publication_id"},
                                                      {"EXP", "qb_experts", "qb_expert_id"},
                                                      {"SRC", "qb_other_sources", "qb_source_id"}}};

void DeleteRows(Database& database, std::string_view table, std::string_view key, std::int64_t id) {
    database.Execute(fmt::format("DELETE * FROM {} WHERE ({} = {});", table, key, id));
}

// False when a link has a prefix that is none of the three.
bool DeleteDocuments(Database& database, int qbId, int track) {
    const auto links =
        database.CreateSnapshot(fmt::format("SELECT qb_documentation_id_prefix, qb_documentation_id FROM "
                                            "qb_reference_links WHERE ((qb_id = {}) AND "
                                            "(qb_change_track_id = {}));",
                                            qbId, track));
    for (; !links->Eof(); links->MoveNext()) {
        const std::string prefix = links->Get("qb_documentation_id_prefix").AsText();
        bool known = false;
        for (const DocumentTable& document : kDocuments) {
            if (document.prefix != prefix) continue;
            DeleteRows(database, document.table, document.key, links->Get("qb_documentation_id").AsLong());
            known = true;
        }
        if (!known) return false;
    }
    return true;
}

}  // namespace

void Lifecycle::DiscardUnsavedRecord() {
    Database& database = *state_.gDatabase;
    const auto unit = [&](const auto& step) {
        engine_.BeginTrans();
        try {
            step();
            engine_.CommitTrans();
            return true;
        } catch (const StoreError& error) {
            if (engine_.InTransaction()) engine_.Rollback();
            prompter_.Message("Failed " + error.Description());
            return false;
        }
    };
    for (const int track : state_.gNewChangeTrackIds) {
        bool known = true;
        const auto remove = [&](std::string_view table) {
            return unit([&] { DeleteRows(database, table, "qb_change_track_id", track); });
        };
        if (!remove("qb_change_comments")) return;
        if (!unit([&] { known = DeleteDocuments(database, state_.currentTaxon.qb_id, track); })) return;
        if (!known) {
            prompter_.Message("Error deleting Change Tracks");
            return;
        }
        if (!remove("qb_reference_links") || !remove("qb_change_tracks") || !remove("qb_change_operations"))
            return;
    }
    state_.gNewChangeTrackIds.clear();
}

}  // namespace quillon::store
