#include "records/authors.h"

#include <string>

#include "records/tombstones.h"

namespace quillon::records {

namespace {

bool AuthorIsUsedElsewhere(store::Database& database, const Value& authorId, int qb_id) {
    store::QueryDef query = database.OpenQueryDef("Get Taxon by Author");
    query.Set("authorid", authorId);
    const std::string current = std::to_string(qb_id);
    for (const auto taxa = query.CreateSnapshot(); !taxa->Eof(); taxa->MoveNext()) {
        if (taxa->Get("qb_id").AsText() != current) return true;
    }
    return false;
}

}  // namespace

void DeleteAuthorIfUnused(const RecordStore& records, const Value& authorId, int qb_id) {
    records.Reporting([&] {
        if (AuthorIsUsedElsewhere(records.database, authorId, qb_id)) return;
        const auto author = records.database.CreateSnapshot(
            "Select taxon_author_id, kingdom_id from qb_taxon_authors_lookup where  qb_taxon_author_id = " +
            std::to_string(authorId.AsLong()) + ";");
        if (!author->Eof() && author->Get("taxon_author_id").AsLong() != 0) {
            WriteTombstone(records, "taxon_authors_lookup", author->Get("taxon_author_id"),
                           author->Get("kingdom_id"));
        }
        store::QueryDef query = records.database.OpenQueryDef("Delete Author");
        query.Set("author", authorId);
        records.RunUnit(query);
    });
}

}  // namespace quillon::records
