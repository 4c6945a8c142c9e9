#include "dataset/unsaved_record.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "core/document_kinds.h"

namespace quillon::dataset {

namespace {

void DeleteRows(store::Database& database, std::string_view table, std::string_view key, std::int64_t id) {
    database.Execute(fmt::format("DELETE * FROM {} WHERE ({} = {});", table, key, id));
}

// False when a link has an unknown prefix.
bool DeleteDocuments(store::Database& database, int qbId, int track) {
    const auto links =
        database.CreateSnapshot(fmt::format("SELECT qb_documentation_id_prefix, qb_documentation_id FROM "
                                            "qb_reference_links WHERE ((qb_id = {}) AND "
                                            "(qb_change_track_id = {}));",
                                            qbId, track));
    for (; !links->Eof(); links->MoveNext()) {
        const std::string prefix = links->Get("qb_documentation_id_prefix").AsText();
        const DocumentKind* kind = FindDocumentKind(prefix);
        if (kind == nullptr) return false;
        DeleteRows(database, kind->table, kind->idColumn, links->Get("qb_documentation_id").AsLong());
    }
    return true;
}

// Removes what one change track wrote, each step in its own unit.
class TrackRemoval {
public:
    TrackRemoval(ApplicationState& state, store::Engine& engine, Prompter& prompter)
        : state_(state), engine_(engine), prompter_(prompter), database_(*state.gDatabase) {}

    // Reports a failed step and returns false.
    bool Remove(int track) {
        return RemoveRows("qb_change_comments", track) && RemoveDocuments(track) &&
               RemoveRows("qb_reference_links", track) && RemoveRows("qb_change_tracks", track) &&
               RemoveRows("qb_change_operations", track);
    }

private:
    bool RemoveRows(std::string_view table, int track) {
        return Unit([&] { DeleteRows(database_, table, "qb_change_track_id", track); });
    }
    bool RemoveDocuments(int track) {
        bool known = true;
        if (!Unit([&] { known = DeleteDocuments(database_, state_.currentTaxon.qb_id, track); }))
            return false;
        if (!known) prompter_.WarningMessage("Error deleting Change Tracks");
        return known;
    }
    template <typename Step>
    bool Unit(const Step& step) {
        engine_.BeginTrans();
        try {
            step();
            engine_.CommitTrans();
            return true;
        } catch (const store::StoreError& error) {
            if (engine_.InTransaction()) engine_.Rollback();
            prompter_.WarningMessage("Failed " + error.Description());
            return false;
        }
    }

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    store::Database& database_;
};

}  // namespace

bool AskToLoseRecord(Prompter& prompter) {
    return prompter.AskBeforeLoss(
        "A new or modified record was not saved.  Continuing will lose that record!  Continue?",
        "Losing new/modified record");
}

void RemoveChangeTracks(ApplicationState& state, store::Engine& engine, Prompter& prompter) {
    TrackRemoval removal(state, engine, prompter);
    for (const int track : state.gNewChangeTrackIds)
        if (!removal.Remove(track)) return;
    state.gNewChangeTrackIds.clear();
}

}  // namespace quillon::dataset
