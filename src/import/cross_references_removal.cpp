// Reports and removes unmatched taxa, comments, documents and change tracks.
#include <string>

#include "import/cross_references.h"
#include "records/deletion.h"
#include "records/documents.h"
#include "records/links.h"
#include "store/unit.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kTrackDeletions[] = {
    "PARAMETERS track Long; DELETE * FROM qb_change_tracks WHERE qb_change_track_id = track;",
    "PARAMETERS track Long; DELETE * FROM qb_change_operations WHERE qb_change_track_id = track;",
    "PARAMETERS track Long; DELETE * FROM qb_change_comments WHERE qb_change_track_id = track;",
};

std::string Bracketed(std::string_view before, const std::string& key, std::string_view after) {
    return std::string(before) + "<" + key + ">" + std::string(after);
}

}  // namespace

void CrossReferences::RemoveUnlinkedDocuments() {
    RemoveUnlinked(run_.maps.experts, kExperts);
    RemoveUnlinked(run_.maps.publications, kPublications);
    RemoveUnlinked(run_.maps.otherSources, kOtherSources);
}

// The key in the file; 0 for no taxon.
std::string CrossReferences::TaxonKey(RowPlace taxon) const {
    return taxon == kNoRow ? "0" : std::to_string(run_.maps.taxa[taxon].key);
}

std::int32_t CrossReferences::TaxonId(RowPlace taxon) const {
    return taxon == kNoRow ? 0 : run_.maps.taxa[taxon].newId;
}

void CrossReferences::RemoveMissingTaxa() {
    for (const TaxonRow& row : run_.maps.taxa) {
        if (!row.KnownOnlyFromReferences()) continue;
        TakeTurn(turns_);
        run_.Report(Bracketed("The taxonomic unit record for Imported record ", std::to_string(row.key),
                              " was not found!"));
        records::DeleteTaxon(run_.records, {row.newId, 0, {}}, false);
    }
}

void CrossReferences::RemoveUnlinkedComments() {
    for (const LinkedRow& row : run_.maps.comments) {
        if (row.ownLineSeen && row.linkLineSeen) continue;
        TakeTurn(turns_);
        const std::string key = std::to_string(row.key);
        if (row.ownLineSeen) {
            run_.Report(
                Bracketed("The Imported comment record", key, " was not linked to a comments_link record!"));
            records::DeleteComment(run_.records, row.newId);
            continue;
        }
        run_.Report(Bracketed("The Imported comments_link record for Comment ", key, "") +
                    Bracketed(" and taxon ", TaxonKey(row.taxon), " was not linked to a comment record!"));
        records::DeleteCommentLink(run_.records, TaxonId(row.taxon), row.newId);
    }
}

void CrossReferences::RemoveUnlinked(const KeyedRows<LinkedRow>& rows, const DocumentKind& kind) {
    for (const LinkedRow& row : rows) {
        if (row.ownLineSeen && row.linkLineSeen) continue;
        TakeTurn(turns_);
        const std::string key = std::to_string(row.key);
        if (row.ownLineSeen) {
            run_.Report(Bracketed("The Imported " + std::string(kind.noun) + " record", key,
                                  " was not linked to a reference_link record!"));
            records::DeleteDocument(run_.records, kind, row.newId);
            continue;
        }
        run_.Report(
            Bracketed("The Imported reference_link record for " + std::string(kind.title) + " ", key, "") +
            Bracketed(" and taxon ", TaxonKey(row.taxon),
                      " was not linked to " + std::string(kind.article) + " " + std::string(kind.noun) +
                          " record!"));
        records::DeleteReferenceLink(run_.records, TaxonId(row.taxon), row.newId, kind.prefix);
    }
}

void CrossReferences::RemoveUnlinkedTracks() {
    for (const TrackRow& row : run_.maps.changeTracks) {
        if (row.operationSeen && row.trackSeen) continue;
        TakeTurn(turns_);
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
            store::Unit unit(run_.engine);
            run_.Db().CreateQueryDef("", sql).Set("track", qb_change_track_id).Execute();
            unit.Commit();
        });
        if (!done) return;
    }
}

}  // namespace quillon::importing
