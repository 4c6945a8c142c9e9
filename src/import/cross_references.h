// The closing pass of a tagged import: maps the file's ids of parents, authors and accepted names to ids of
// this DataSet, and removes and reports unmatched records. Called once, after the last line.
//
// It takes a turn at each row and within each long statement.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/document_kinds.h"
#include "import/import_run.h"
#include "import/import_turns.h"

namespace quillon::importing {

class CrossReferences {
public:
    // Receives the name of the stage that begins.
    using Stage = std::function<void(std::string_view)>;

    CrossReferences(ImportRun& run, store::BulkLoad& load, Turns& turns, Stage stage)
        : run_(run), load_(load), turns_(turns), stage_(std::move(stage)) {}

    // Fills in the vernacular names that links lack, and then resolves. Throws StoreError when a table cannot
    // be read or rewritten; a failed deletion or link is reported, and the pass continues.
    void FillVernacularNames();
    void ResolveCrossReferences();

private:
    // The new id of a synonym link, and its temporary id.
    struct AcceptedId {
        const OpenSynonymLink* link;
        std::int32_t from, to;
    };

    void ResolveParents();
    void RewriteTaxa();
    void ResolveSynonymLinks();
    std::int32_t FindAccepted(const OpenSynonymLink& link);
    bool SetAccepted(std::int32_t qb_id, std::int32_t from, std::int32_t to);
    void MoveChildrenOfKingdoms();
    void RemoveMissingTaxa();
    void RemoveUnlinkedComments();
    void RemoveUnlinkedDocuments();
    void RemoveUnlinked(const KeyedRows<LinkedRow>& rows, const DocumentKind& kind);
    void RemoveUnlinkedTracks();
    void DeleteTrack(std::int32_t qb_change_track_id);
    std::string TaxonKey(RowPlace taxon) const;
    std::int32_t TaxonId(RowPlace taxon) const;

    ImportRun& run_;
    store::BulkLoad& load_;
    Turns& turns_;
    Stage stage_;
};

}  // namespace quillon::importing
