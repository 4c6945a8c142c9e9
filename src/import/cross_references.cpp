// Ids into ids: vernacular names, parents, authors, accepted names.
#include "import/cross_references.h"

#include <limits>
#include <optional>
#include <string>

#include "store/map_function.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kFillVernacularNames =
    "UPDATE qb_vern_ref_links SET vernacular_name = "
    "(SELECT v.vernacular_name FROM qb_vernaculars AS v WHERE v.qb_vern_id = qb_vern_ref_links.qb_vern_id) "
    "WHERE vernacular_name IS NULL";

// One walk over all taxa: the authors of any row, the parents of the rows that this file made known.
constexpr std::string_view kRewriteTaxa =
    "UPDATE qb_taxonomic_units SET "
    "qb_taxon_author_id = import_author(qb_taxon_author_id), "
    "hybrid_author_id = import_author(hybrid_author_id), "
    "parent_qb_id = CASE WHEN import_has_taxon(qb_id) THEN import_parent(qb_id) ELSE parent_qb_id END "
    "WHERE import_has_taxon(qb_id) OR import_author(qb_taxon_author_id) <> qb_taxon_author_id "
    "OR import_author(hybrid_author_id) <> hybrid_author_id";

constexpr std::string_view kOpenSynonymLinks =
    "SELECT qb_id, qb_id_accepted, tsn_accepted FROM qb_synonym_links "
    "WHERE qb_id_accepted = -1 OR tsn_accepted Is Null ORDER BY qb_id, qb_id_accepted;";
constexpr std::string_view kSetTsnAccepted =
    "PARAMETERS theid Long, theaccepted Long, found Long; UPDATE qb_synonym_links SET tsn_accepted = found "
    "WHERE qb_id = theid AND qb_id_accepted = theaccepted;";
constexpr std::string_view kSetIdAccepted =
    "PARAMETERS theid Long, theaccepted Long, found Long; UPDATE qb_synonym_links SET qb_id_accepted = found "
    "WHERE qb_id = theid AND qb_id_accepted = theaccepted;";

std::optional<std::int32_t> AsKey(std::int64_t number) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

std::int64_t NewAuthor(const IdMaps& maps, std::int64_t author) {
    const auto key = AsKey(author);
    if (!key || *key == 0) return author;
    const RowPlace place = maps.authors.Find(*key);
    return place == kNoRow ? author : maps.authors[place].newId;
}

std::optional<std::int64_t> NewParent(const IdMaps& maps, std::int64_t qb_id) {
    const RowPlace place = maps.FindTaxonByNewId(qb_id);
    if (place == kNoRow || maps.taxa[place].parent_qb_id == 0) return std::nullopt;
    return maps.taxa[place].parent_qb_id;
}

// The maps as functions of the store's SQL, for the length of one statement.
class MapFunctions {
public:
    MapFunctions(store::Database& database, const IdMaps& maps) : database_(database) {
        using Result = std::optional<std::int64_t>;
        store::RegisterMapFunction(database_, "import_author",
                                   [&maps](std::int64_t id) { return Result(NewAuthor(maps, id)); });
        store::RegisterMapFunction(database_, "import_parent",
                                   [&maps](std::int64_t id) { return NewParent(maps, id); });
        store::RegisterMapFunction(database_, "import_has_taxon", [&maps](std::int64_t id) {
            return Result(maps.FindTaxonByNewId(id) == kNoRow ? 0 : 1);
        });
    }
    ~MapFunctions() {
        // The functions outlive the maps; left behind, they must not look into them.
        for (const std::string_view name : {"import_author", "import_parent", "import_has_taxon"}) {
            try {
                store::RegisterMapFunction(database_, name,
                                           [](std::int64_t) { return std::optional<std::int64_t>(); });
            } catch (const store::StoreError&) {
                // The handle is gone, and the functions with it.
                return;
            }
        }
    }
    MapFunctions(const MapFunctions&) = delete;
    MapFunctions& operator=(const MapFunctions&) = delete;

private:
    store::Database& database_;
};

}  // namespace

void CrossReferences::FillVernacularNames() {
    store::ExecuteNative(run_.Db(), kFillVernacularNames);
}

void CrossReferences::ResolveCrossReferences() {
    const bool hasTaxa = !run_.maps.taxa.Empty();
    if (hasTaxa || !run_.maps.authors.Empty()) {
        ResolveParents();
        RewriteTaxa();
    }
    // From here on rows are looked up by other than their keys.
    load_.BuildIndexes();
    if (hasTaxa) ResolveSynonymLinks();
    RemoveMissingTaxa();
    RemoveUnlinkedComments();
    RemoveUnlinkedDocuments();
    RemoveUnlinkedTracks();
}

void CrossReferences::ResolveParents() {
    for (TaxonRow& row : run_.maps.taxa) {
        if (row.isOwnParent) continue;
        const std::int32_t parentKey = row.parent_qb_id != 0 ? row.parent_qb_id : row.parent_tsn;
        if (parentKey == 0) continue;
        const RowPlace parent = run_.maps.taxa.Find(parentKey);
        if (parent != kNoRow) row.parent_qb_id = run_.maps.taxa[parent].newId;
    }
}

void CrossReferences::RewriteTaxa() {
    const MapFunctions functions(run_.Db(), run_.maps);
    store::ExecuteNative(run_.Db(), kRewriteTaxa);
}

std::vector<CrossReferences::SynonymLink> CrossReferences::OpenSynonymLinks() {
    std::vector<SynonymLink> links;
    const auto rows = run_.Db().OpenRecordset(kOpenSynonymLinks, store::RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext())
        links.push_back({rows->At(0).AsLong(), rows->At(1).AsLong(), rows->At(2)});
    return links;
}

void CrossReferences::ResolveSynonymLinks() {
    for (const SynonymLink& link : OpenSynonymLinks()) {
        events_.Yield();
        ResolveSynonymLink(link);
    }
}

void CrossReferences::ResolveSynonymLink(const SynonymLink& link) {
    const bool hasAccepted = link.qb_id_accepted != -1;
    const auto key = AsKey(hasAccepted ? link.qb_id_accepted : link.tsn_accepted.AsLong());
    const RowPlace taxon = key ? run_.maps.taxa.Find(*key) : kNoRow;
    if (taxon == kNoRow) {
        // Each sentence names the other id, the one that there is none of.
        return run_.Report(hasAccepted
                               ? "The accepted id  <accepted tsn=" + link.tsn_accepted.AsText() +
                                     "> was not found in synonym link."
                               : "The accepted tsn  <accepted id=" + std::to_string(link.qb_id_accepted) +
                                     "> was not found in synonym link.");
    }
    run_.Guarded([&] {
        store::QueryDef query = run_.Db().CreateQueryDef("", hasAccepted ? kSetTsnAccepted : kSetIdAccepted);
        query.Set("theid", link.qb_id).Set("theaccepted", link.qb_id_accepted);
        query.Set("found", run_.maps.taxa[taxon].newId).Execute();
    });
}

}  // namespace quillon::importing
