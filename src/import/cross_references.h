// The closing pass of a tagged import: turns the file's ids of parents, authors and accepted names into ids
// of this DataSet, and removes and reports what the file left unmatched. Called once, after the last line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/outside.h"
#include "import/import_run.h"

namespace quillon::importing {

class CrossReferences {
public:
    CrossReferences(ImportRun& run, store::BulkLoad& load, EventPump& events)
        : run_(run), load_(load), events_(events) {}

    // Fills in the vernacular names that links lack, and then resolves. Throws StoreError when a table cannot
    // be walked or rewritten; a failed deletion or link is told, and the pass goes on.
    void FillVernacularNames();
    void ResolveCrossReferences();

private:
    // How the closing pass speaks of a kind of document and deletes it.
    struct DocumentKind;
    struct SynonymLink {
        std::int64_t qb_id, qb_id_accepted;
        Value tsn_accepted;
    };

    void ResolveParents();
    void RewriteTaxa();
    void ResolveSynonymLinks();
    std::vector<SynonymLink> OpenSynonymLinks();
    void ResolveSynonymLink(const SynonymLink& link);
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
    EventPump& events_;
};

}  // namespace quillon::importing
