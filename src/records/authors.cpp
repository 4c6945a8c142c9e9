#include "records/authors.h"

#include <string>

#include "records/tombstones.h"

namespace quillon::records {

namespace {

// "Get Author ID" with a condition that has an index: the equality finds the few texts among which the exact
// one is.
constexpr std::string_view kFindAuthor =
    "PARAMETERS author Text; SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup "
    "WHERE taxon_author = author AND StrComp(taxon_author, author, 0) = 0;";

bool AuthorIsUsedElsewhere(store::Database& database, const Value& authorId, int qb_id) {
    store::QueryDef query = database.OpenQueryDef("Get Taxon by Author");
    query.Set("authorid", authorId);
    const std::string current = std::to_string(qb_id);
    for (const auto taxa = query.OpenRecordset(store::RecordsetType::ForwardOnly); !taxa->Eof();
         taxa->MoveNext()) {
        if (taxa->Get("qb_id").AsText() != current) return true;
    }
    return false;
}

}  // namespace

int FindAuthor(store::Database& database, std::string_view author) {
    store::QueryDef query = database.CreateQueryDef("", kFindAuthor);
    const auto row = query.Set("author", author).OpenRecordset(store::RecordsetType::ForwardOnly);
    return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
}

int AddAuthor(const RecordStore& records, std::string_view author, int kingdom_id) {
    store::QueryDef query = records.database.OpenQueryDef("Insert Author");
    query.Set("author", author).Set("kingdom", kingdom_id);
    return records.RunUnit(query) ? FindAuthor(records.database, author) : 0;
}

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
