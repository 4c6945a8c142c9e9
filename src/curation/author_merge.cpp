#include "curation/author_merge.h"

#include <algorithm>
#include <utility>

#include "core/text.h"
#include "records/authors.h"
#include "records/tombstones.h"

namespace quillon::curation {

using store::RecordsetType;

namespace {

constexpr std::size_t kIdsInAList = 500;

// Read before the deletion, which changes the rows under a walk.
struct AuthorKeys {
    int id;
    Value taxon_author_id, kingdom_id;
};

std::vector<AuthorKeys> KeysOf(store::Database& database, const std::string& list) {
    std::vector<AuthorKeys> keys;
    const auto rows = database.OpenRecordset(
        "SELECT DISTINCTROW * FROM qb_taxon_authors_lookup WHERE qb_taxon_author_id In " + list + ";",
        RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        keys.push_back({static_cast<int>(rows->Get("qb_taxon_author_id").AsLong()),
                        rows->Get("taxon_author_id"), rows->Get("kingdom_id")});
    }
    return keys;
}

}  // namespace

std::vector<std::string> IdLists(const std::vector<int>& ids) {
    std::vector<std::string> lists;
    for (std::size_t first = 0; first < ids.size(); first += kIdsInAList) {
        std::string list = "(";
        for (std::size_t i = first; i < std::min(ids.size(), first + kIdsInAList); ++i)
            list += (i == first ? "" : ", ") + std::to_string(ids[i]);
        lists.push_back(list + ")");
    }
    return lists;
}

int FindReplacement(store::Database& database, const std::string& author) {
    if (const int exact = records::FindAuthor(database, author); exact != 0) return exact;
    const auto row = database.OpenRecordset(
        "select qb_taxon_author_id from  qb_taxon_authors_lookup where taxon_author = \"" +
            QuoteDoubleQuotes(author) + "\";",
        RecordsetType::ForwardOnly);
    return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
}

std::vector<int> TaxaOf(store::Database& database, const std::vector<int>& authors) {
    std::vector<int> taxa;
    for (const std::string& list : IdLists(authors)) {
        const auto rows = database.OpenRecordset(
            "SELECT DISTINCT qb_id  FROM qb_taxonomic_units WHERE "
            "((qb_taxonomic_units.qb_taxon_author_id In " +
                list + "))",
            RecordsetType::ForwardOnly);
        for (; !rows->Eof(); rows->MoveNext()) taxa.push_back(static_cast<int>(rows->At(0).AsLong()));
    }
    std::sort(taxa.begin(), taxa.end());
    return taxa;
}

void MergeAuthors(const records::RecordStore& records, const std::vector<int>& authors, int replacement) {
    std::vector<int> others = authors;
    std::erase(others, replacement);
    for (const std::string& list : IdLists(others)) {
        records.database.Execute(
            "UPDATE DISTINCTROW qb_taxonomic_units SET qb_taxonomic_units.qb_taxon_author_id = " +
            std::to_string(replacement) + " WHERE ((qb_taxonomic_units.qb_taxon_author_id In " + list +
            "));");
        for (const AuthorKeys& author : KeysOf(records.database, list)) {
            if (author.taxon_author_id.AsLong() == 0) continue;
            records::WriteTombstone(records, "taxon_authors_lookup", author.taxon_author_id,
                                    author.kingdom_id);
        }
        records.database.Execute("DELETE * FROM qb_taxon_authors_lookup WHERE qb_taxon_author_id In " + list +
                                 ";");
    }
}

}  // namespace quillon::curation
