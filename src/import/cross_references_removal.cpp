// What stayed unmatched is reported and removed: taxa, comments, documents and change tracks.
#include <string>
#include <utility>

#include "editor/unit.h"
#include "import/cross_references.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kTrackDeletions[] = {
    "PARAMETERS track Long; DELETE * FROM qb_change_tracks WHERE qb_change_track_id = track;",
    "PARAMETERS track Long; DELETE * FROM qb_change_operations WHERE qb_change_track_id = track;",
    "PARAMETERS track Long; DELETE * FROM qb_change_comments WHERE qb_change_track_id = track;",
};

// Deletion works on the current taxon: another one takes its place for the length of a call.
class CurrentTaxonInstead {
public:
    CurrentTaxonInstead(ApplicationState& state, std::int32_t qb_id)
        : state_(state), own_(std::move(state.currentTaxon)) {
        state_.currentTaxon = {};
        state_.currentTaxon.qb_id = qb_id;
    }
    ~CurrentTaxonInstead() { state_.currentTaxon = std::move(own_); }
    CurrentTaxonInstead(const CurrentTaxonInstead&) = delete;
    CurrentTaxonInstead& operator=(const CurrentTaxonInstead&) = delete;

private:
    ApplicationState& state_;
    CurrentTaxon own_;
};

std::string Bracketed(std::string_view before, const std::string& key, std::string_view after) {
    return std::string(before) + "<" + key + ">" + std::string(after);
}

}  // namespace

struct CrossReferences::DocumentKind {
    std::string_view prefix;
    std::string_view record;  // as in "an expert record"
    std::string_view article;
    std::string_view title;
    void (editor::Deletion::*deletion)(int id);
};

void CrossReferences::RemoveUnlinkedDocuments() {
    RemoveUnlinked(run_.maps.experts, {"EXP", "expert", "an", "Expert", &editor::Deletion::DeleteExpert});
    RemoveUnlinked(run_.maps.publications,
                   {"PUB", "publication", "a", "Publication", &editor::Deletion::DeletePublication});
    RemoveUnlinked(run_.maps.otherSources,
                   {"SRC", "other source", "an", "Other Source", &editor::Deletion::DeleteOtherSource});
}

// The key as the file has it; 0 for no taxon.
std::string CrossReferences::TaxonKey(RowPlace taxon) const {
    return taxon == kNoRow ? "0" : std::to_string(run_.maps.taxa[taxon].key);
}

std::int32_t CrossReferences::TaxonId(RowPlace taxon) const {
    return taxon == kNoRow ? 0 : run_.maps.taxa[taxon].newId;
}

void CrossReferences::RemoveMissingTaxa() {
    for (const TaxonRow& row : run_.maps.taxa) {
        if (!row.KnownOnlyFromReferences()) continue;
        events_.Yield();
        run_.Report(Bracketed("The taxonomic unit record for Imported record ", std::to_string(row.key),
                              " was not found!"));
        const CurrentTaxonInstead current(run_.state, row.newId);
        run_.deletion.DeleteTaxon(false);
    }
}

void CrossReferences::RemoveUnlinkedComments() {
    for (const LinkedRow& row : run_.maps.comments) {
        if (row.ownLineSeen && row.linkLineSeen) continue;
        events_.Yield();
        const std::string key = std::to_string(row.key);
        if (row.ownLineSeen) {
            run_.Report(
                Bracketed("The Imported comment record", key, " was not linked to a comments_link record!"));
            run_.deletion.DeleteComment(row.newId);
            continue;
        }
        run_.Report(Bracketed("The Imported comments_link record for Comment ", key, "") +
                    Bracketed(" and taxon ", TaxonKey(row.taxon), " was not linked to a comment record!"));
        const CurrentTaxonInstead current(run_.state, TaxonId(row.taxon));
        run_.deletion.DeleteCommentLink(row.newId);
    }
}

void CrossReferences::RemoveUnlinked(const KeyedRows<LinkedRow>& rows, const DocumentKind& kind) {
    for (const LinkedRow& row : rows) {
        if (row.ownLineSeen && row.linkLineSeen) continue;
        events_.Yield();
        const std::string key = std::to_string(row.key);
        if (row.ownLineSeen) {
            run_.Report(Bracketed("The Imported " + std::string(kind.record) + " record", key,
                                  " was not linked to a reference_link record!"));
            (run_.deletion.*kind.deletion)(row.newId);
            continue;
        }
        run_.Report(
            Bracketed("The Imported reference_link record for " + std::string(kind.title) + " ", key, "") +
            Bracketed(" and taxon ", TaxonKey(row.taxon),
                      " was not linked to " + std::string(kind.article) + " " + std::string(kind.record) +
                          " record!"));
        const CurrentTaxonInstead current(run_.state, TaxonId(row.taxon));
        run_.deletion.DeleteReferenceLink(row.newId, kind.prefix);
    }
}

void CrossReferences::RemoveUnlinkedTracks() {
    for (const TrackRow& row : run_.maps.changeTracks) {
        if (row.operationSeen && row.trackSeen) continue;
        events_.Yield();
        const std::string taxon = TaxonKey(row.taxon);
        if (row.operationSeen) {
            run_.Report(Bracketed("An Imported Change Operation or Change Comment record for taxon ", taxon,
                                  " is not linked to a Change Track record!"));
        } else {
            run_.Report(Bracketed("There is no Change Operation for Imported Change Track ",
                                  std::to_string(row.key), "") +
                        Bracketed(" and taxon ", taxon, "!"));
        }
        DeleteTrack(row.newId);
    }
}

void CrossReferences::DeleteTrack(std::int32_t qb_change_track_id) {
    for (const std::string_view sql : kTrackDeletions) {
        const bool done = run_.Guarded([&] {
            editor::Unit unit(run_.engine);
            run_.Db().CreateQueryDef("", sql).Set("track", qb_change_track_id).Execute();
            unit.Commit();
        });
        if (!done) return;
    }
}

}  // namespace quillon::importing
