// Resolves the ids of parents, authors and accepted names, and fills in vernacular names.
#include "import/cross_references.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>
#include <vector>

#include "store/map_function.h"
#include "store/statement_turns.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kFillVernacularNames =
    "UPDATE qb_vern_ref_links SET vernacular_name = "
    "(SELECT v.vernacular_name FROM qb_vernaculars AS v WHERE v.qb_vern_id = qb_vern_ref_links.qb_vern_id) "
    "WHERE vernacular_name IS NULL";

// Rewrites authors and parents of the rows of this import; earlier rows keep theirs.
constexpr std::string_view kRewriteTaxa =
    "UPDATE qb_taxonomic_units SET "
    "qb_taxon_author_id = import_author(qb_taxon_author_id), "
    "hybrid_author_id = import_author(hybrid_author_id), "
    "parent_qb_id = import_parent(qb_id) "
    "WHERE import_has_taxon(qb_id) AND qb_id BETWEEN ";  // the first and the last of them

constexpr std::string_view kSetAccepted =
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

// Registers the maps as SQL functions for one statement.
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
        // The functions outlive the maps and must not use them afterwards.
        for (const std::string_view name : {"import_author", "import_parent", "import_has_taxon"}) {
            try {
                store::RegisterMapFunction(database_, name,
                                           [](std::int64_t) { return std::optional<std::int64_t>(); });
            } catch (const std::exception&) {
                // The handle is closed, and the function with it; or memory is short, and nothing calls it
                // again.
                continue;
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
    stage_("Filling in vernacular names");
    const store::StatementTurns turns(run_.Db(), [this] { return turns_.Next(); });
    store::ExecuteNative(run_.Db(), kFillVernacularNames);
}

void CrossReferences::ResolveCrossReferences() {
    const store::StatementTurns turns(run_.Db(), [this] { return turns_.Next(); });
    stage_("Resolving parents and authors");
    ResolveParents();
    RewriteTaxa();
    // From here on rows are also looked up by other columns than keys.
    stage_("Building indexes");
    load_.BuildIndexes();
    MoveChildrenOfKingdoms();
    stage_("Resolving synonyms");
    ResolveSynonymLinks();
    stage_("Removing what has no record");
    RemoveMissingTaxa();
    RemoveUnlinkedComments();
    RemoveUnlinkedDocuments();
    RemoveUnlinkedTracks();
}

void CrossReferences::ResolveParents() {
    for (TaxonRow& row : run_.maps.taxa) {
        TakeTurn(turns_);
        if (row.isOwnParent) continue;
        const std::int32_t parentKey = row.parent_qb_id != 0 ? row.parent_qb_id : row.parent_tsn;
        if (parentKey == 0) continue;
        const RowPlace parent = run_.maps.taxa.Find(parentKey);
        if (parent != kNoRow) row.parent_qb_id = run_.maps.taxa[parent].newId;
    }
}

void CrossReferences::RewriteTaxa() {
    const IdMaps& maps = run_.maps;
    if (maps.taxa.Empty()) return;
    const std::int32_t first = maps.taxa[0].newId;
    const std::int32_t last = maps.taxa[static_cast<RowPlace>(maps.taxa.Size() - 1)].newId;
    const MapFunctions functions(run_.Db(), maps);
    store::ExecuteNative(run_.Db(),
                         std::string(kRewriteTaxa) + std::to_string(first) + " AND " + std::to_string(last));
}

// Moves the children of a replaced Kingdom record to the new one.
void CrossReferences::MoveChildrenOfKingdoms() {
    for (const std::int32_t qb_id : run_.replacedKingdoms) {
        TakeTurn(turns_);
        store::ExecuteNative(
            run_.Db(), "UPDATE qb_taxonomic_units SET parent_qb_id = " + std::to_string(run_.newKingdom) +
                           " WHERE parent_qb_id = " + std::to_string(qb_id));
    }
}

// A new id may equal the file's id of another link of the same taxon. To avoid duplicate keys, a taxon with
// several open links first gets temporary ids that files cannot have.
void CrossReferences::ResolveSynonymLinks() {
    std::vector<OpenSynonymLink>& links = run_.openSynonyms;
    SortWithTurns(links, turns_, [](const OpenSynonymLink& left, const OpenSynonymLink& right) {
        return std::pair(left.qb_id, left.qb_id_accepted) < std::pair(right.qb_id, right.qb_id_accepted);
    });
    std::vector<AcceptedId> found;
    std::int32_t between = std::numeric_limits<std::int32_t>::min();
    for (std::size_t place = 0; place < links.size(); ++place) {
        TakeTurn(turns_);
        const OpenSynonymLink& link = links[place];
        const std::int32_t accepted = FindAccepted(link);
        if (accepted == -1 || accepted == link.qb_id_accepted) continue;
        const bool alone = (place == 0 || links[place - 1].qb_id != link.qb_id) &&
                           (place + 1 == links.size() || links[place + 1].qb_id != link.qb_id);
        const std::int32_t from = alone ? link.qb_id_accepted : between++;
        if (alone || SetAccepted(link.qb_id, link.qb_id_accepted, from))
            found.push_back({&link, from, accepted});
    }
    for (const AcceptedId& id : found) {
        TakeTurn(turns_);
        if (SetAccepted(id.link->qb_id, id.from, id.to) || id.from == id.link->qb_id_accepted) continue;
        // The taxon already has this link.
        SetAccepted(id.link->qb_id, id.from, id.link->qb_id_accepted);
    }
}

// Reports an id that is not in the file and returns -1. Each finding names the missing id.
std::int32_t CrossReferences::FindAccepted(const OpenSynonymLink& link) {
    const bool hasId = link.qb_id_accepted != -1;
    const std::int32_t accepted = run_.maps.MapTaxonId(hasId ? link.qb_id_accepted : link.tsn_accepted);
    if (accepted != -1) return accepted;
    const std::string tsn = link.tsn_accepted == 0 ? "" : std::to_string(link.tsn_accepted);
    run_.Report(hasId ? "The accepted id  <accepted tsn=" + tsn + "> was not found in synonym link."
                      : "The accepted tsn  <accepted id=-1> was not found in synonym link.");
    return -1;
}

bool CrossReferences::SetAccepted(std::int32_t qb_id, std::int32_t from, std::int32_t to) {
    return run_.Guarded([&] {
        store::QueryDef query = run_.Db().CreateQueryDef("", kSetAccepted);
        query.Set("theid", qb_id).Set("theaccepted", from).Set("found", to).Execute();
    });
}

}  // namespace quillon::importing
