// Rows for the tests of the named queries, laid down by their columns.
#pragma once

#include <cstdint>
#include <string>

#include "store_fixture.h"

namespace quillon::store {

inline std::string Nulls(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "\t\\N";
    return text;
}

inline std::string Blanks(int count) {
    return std::string(static_cast<std::size_t>(count), ' ');
}

// What a test says of a taxon; all else is Null.
struct TaxonRow {
    int qb_id = 0;
    const char *ind1 = "", *name1 = "", *ind2 = "", *name2 = "", *ind3 = "", *name3 = "", *ind4 = "",
               *name4 = "";
    const char* usage = "";
    int author = 0, hybrid = 0, rank = 0, parent = 0;
};

class QueryTest : public StoreTest {
protected:
    // Without the root taxon.
    QueryTest() { Execute("DELETE * FROM qb_taxonomic_units"); }

    void Add(std::string_view table, const Parameters& row) {
        const auto rows = db().OpenTable(table);
        rows->AddNew();
        for (const auto& [column, value] : row) rows->Set(column, value);
        rows->Update();
    }
    void AddTaxon(const TaxonRow& taxon, std::string_view table = "qb_taxonomic_units") {
        const auto text = [](const char* value) { return Value::TextOrNull(value); };
        Add(table, {{"qb_id", taxon.qb_id},
                    {"unit_ind1", text(taxon.ind1)},
                    {"unit_name1", text(taxon.name1)},
                    {"unit_ind2", text(taxon.ind2)},
                    {"unit_name2", text(taxon.name2)},
                    {"unit_ind3", text(taxon.ind3)},
                    {"unit_name3", text(taxon.name3)},
                    {"unit_ind4", text(taxon.ind4)},
                    {"unit_name4", text(taxon.name4)},
                    {"usage", text(taxon.usage)},
                    {"qb_taxon_author_id", Value::IdOrNull(taxon.author)},
                    {"hybrid_author_id", Value::IdOrNull(taxon.hybrid)},
                    {"rank_id", Value::IdOrNull(taxon.rank)},
                    {"kingdom_id", Value::IdOrNull(taxon.rank == 0 ? 0 : 5)},
                    {"parent_qb_id", Value::IdOrNull(taxon.parent)}});
    }
    void AddAuthor(int id, const char* name, std::string_view table = "qb_taxon_authors_lookup") {
        Add(table, {{"qb_taxon_author_id", id}, {"taxon_author", Value::TextOrNull(name)}});
    }
};

}  // namespace quillon::store
