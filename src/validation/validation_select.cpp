// The selects of the tables that validation visits, and their counts.

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "store/row_stream.h"
#include "validation/record_filter.h"

namespace quillon::validation {

namespace {

struct TableSelect {
    std::string_view table;
    std::string_view rows;         // the head that gives the rows
    std::string_view count;        // the head that counts them
    std::string_view journalBody;  // behind the head, for the changed taxa
    std::string_view clauseBody;   // behind the head, before the clause
};

// clang-format off
constexpr std::array<TableSelect, 9> kSelects = {{
    {"qb_taxonomic_units",
     "SELECT qb_taxonomic_units.* ",
     "SELECT COUNT(*) As expr1000 ",
     "FROM qb_taxonomic_units INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     " FROM qb_taxonomic_units "},
    {"qb_taxon_authors_lookup",
     "SELECT qb_taxon_authors_lookup.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
     "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id",
     "FROM qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
     "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id"},
    {"qb_reference_links",
     "SELECT qb_reference_links.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id "},
    {"qb_vern_ref_links",
     "SELECT qb_vern_ref_links.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN qb_vern_ref_links ON "
     "qb_taxonomic_units.qb_id = qb_vern_ref_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_vern_ref_links ON "
     "qb_taxonomic_units.qb_id = qb_vern_ref_links.qb_id "},
    {"qb_experts",
     "SELECT DISTINCTROW qb_experts.* ",
     "SELECT COUNT(*) ",
     "FROM ((qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN qb_experts ON (qb_reference_links.qb_documentation_id_prefix = qb_experts.expert_id_prefix) "
     "AND (qb_reference_links.qb_documentation_id = qb_experts.qb_expert_id)) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     "FROM (qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN qb_experts ON (qb_reference_links.qb_documentation_id_prefix = qb_experts.expert_id_prefix) "
     "AND (qb_reference_links.qb_documentation_id = qb_experts.qb_expert_id)"},
    {"qb_other_sources",
     "SELECT DISTINCTROW qb_other_sources.* ",
     "SELECT COUNT(*) ",
     "FROM ((qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id) "
     "INNER JOIN qb_other_sources ON (qb_reference_links.qb_documentation_id = qb_other_sources.qb_source_id) "
     "AND (qb_reference_links.qb_documentation_id_prefix = qb_other_sources.source_id_prefix);",
     "FROM (qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN qb_other_sources ON (qb_reference_links.qb_documentation_id = qb_other_sources.qb_source_id) "
     "AND (qb_reference_links.qb_documentation_id_prefix = qb_other_sources.source_id_prefix)"},
    {"qb_publications",
     "SELECT DISTINCTROW qb_publications.* ",
     "SELECT COUNT(*) ",
     "FROM qb_publications INNER JOIN ((qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id) ON "
     "(qb_publications.qb_publication_id = qb_reference_links.qb_documentation_id) "
     "AND (qb_publications.publication_id_prefix = qb_reference_links.qb_documentation_id_prefix);",
     "FROM qb_publications INNER JOIN (qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) ON "
     "(qb_publications.qb_publication_id = qb_reference_links.qb_documentation_id) "
     "AND (qb_publications.publication_id_prefix = qb_reference_links.qb_documentation_id_prefix)"},
    {"qb_vernaculars",
     "SELECT qb_vernaculars.* ",
     "SELECT COUNT(*) ",
     "FROM qb_vernaculars INNER JOIN journal ON qb_vernaculars.qb_id = journal.qb_id;",
     "FROM qb_vernaculars INNER JOIN qb_taxonomic_units ON qb_vernaculars.qb_id = qb_taxonomic_units.qb_id "},
    {"qb_jurisdiction",
     "SELECT qb_jurisdiction.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id) "
     "INNER JOIN qb_jurisdiction ON qb_taxonomic_units.qb_id = qb_jurisdiction.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_jurisdiction ON "
     "qb_taxonomic_units.qb_id = qb_jurisdiction.qb_id "},
}};
// clang-format on

constexpr std::string_view kTaxa = "qb_taxonomic_units";

const TableSelect* Find(std::string_view table) {
    const auto* found = std::find_if(kSelects.begin(), kSelects.end(),
                                     [&](const TableSelect& s) { return s.table == table; });
    return found == kSelects.end() ? nullptr : found;
}

int CountAll(store::Database& database, std::string_view table) {
    store::RowStream rows(database, BuildValidationSelect(table, kNoFilter, true));
    return rows.Next() ? static_cast<int>(rows.Long(0)) : 0;
}

// The rows of a table under a filter, as often as the select counts them.
class FilteredCount {
public:
    FilteredCount(store::Database& database, SelectedTaxa& taxa, const Continue& goOn)
        : database_(database), taxa_(taxa), goOn_(goOn) {
        taxa_.ReachDocuments(database_, goOn_);
    }

    int Of(std::string_view table) const {
        if (table == kTaxa) return static_cast<int>(taxa_.Ids().Count());
        if (table == "qb_taxon_authors_lookup") return Authors();
        if (table == "qb_experts") return Links(table, "expert_id_prefix", "qb_expert_id");
        if (table == "qb_other_sources") return Links(table, "source_id_prefix", "qb_source_id");
        if (table == "qb_publications") return Links(table, "publication_id_prefix", "qb_publication_id");
        return table == "qb_vernaculars" ? OfTaxa(table, taxa_.Listed()) : OfTaxa(table, taxa_.Ids());
    }

private:
    // Sums what `count` gives for each row.
    template <typename Count>
    int Sum(const std::string& select, const Count& count) const {
        int sum = 0;
        store::RowStream rows(database_, select);
        while (rows.Next() && goOn_()) sum += count(rows);
        return sum;
    }
    int Authors() const {
        const std::string select =
            fmt::format("SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup WHERE True{};",
                        AndAmong("qb_taxon_author_id", taxa_.Authors()));
        return Sum(select, [&](const store::RowStream& row) {
            return taxa_.CountOfAuthor(static_cast<std::int32_t>(row.Long(0)));
        });
    }
    int Links(std::string_view table, std::string_view prefix, std::string_view id) const {
        const std::string select = fmt::format("SELECT {0}, {1} FROM {2} WHERE {0} Is Not Null{3};", prefix,
                                               id, table, AndAmong(id, taxa_.Documents().Ids()));
        return Sum(select, [&](const store::RowStream& row) {
            return taxa_.Documents().Count(row.Text(0), static_cast<std::int32_t>(row.Long(1)));
        });
    }
    int OfTaxa(std::string_view table, const IdSet& ids) const {
        const std::string select =
            fmt::format("SELECT qb_id FROM {} WHERE True{} ORDER BY qb_id;", table, AndAmong("qb_id", ids));
        return Sum(select, [&](const store::RowStream& row) {
            return ids.Has(static_cast<std::int32_t>(row.Long(0))) ? 1 : 0;
        });
    }

    store::Database& database_;
    SelectedTaxa& taxa_;
    const Continue& goOn_;
};

// The tables whose rows count, in the order of counting; all rows of those that only an export visits.
struct CountedTable {
    std::string_view table;
    bool validated;
};
constexpr std::array<CountedTable, 16> kCounted = {{{"qb_taxonomic_units", true},
                                                    {"qb_taxon_authors_lookup", true},
                                                    {"qb_vern_ref_links", true},
                                                    {"qb_experts", true},
                                                    {"qb_other_sources", true},
                                                    {"qb_publications", true},
                                                    {"qb_vernaculars", true},
                                                    {"qb_synonym_links", false},
                                                    {"qb_tu_comments_link", false},
                                                    {"qb_comments", false},
                                                    {"qb_geographic_division", false},
                                                    {"qb_jurisdiction", true},
                                                    {"qb_nodc_ids", false},
                                                    {"qb_change_tracks", false},
                                                    {"qb_change_operations", false},
                                                    {"qb_change_comments", false}}};

}  // namespace

std::string BuildValidationSelect(std::string_view table, std::string_view filter, bool countOnly) {
    const TableSelect* select = Find(table);
    if (filter == kNoFilter) {
        if (countOnly) return fmt::format("SELECT COUNT(*) As expr1000 FROM {}", table);
        return std::string(table);
    }
    if (select == nullptr) return {};
    const std::string_view head = countOnly ? select->count : select->rows;
    if (filter == kJournalFilter) return fmt::format("{}{}", head, select->journalBody);
    return fmt::format("{}{}{}", head, select->clauseBody, filter);
}

void CountBatchRecords(ApplicationState& state, store::Database& database, SelectedTaxa& taxa,
                       const Continue& goOn) {
    const FilteredCount filtered(database, taxa, goOn);
    state.gRecordsTotal = 0;
    state.gValidatedTotal = 0;
    for (const CountedTable& counted : kCounted) {
        if (!goOn()) return;
        const bool all = taxa.All() || !counted.validated;
        const int rows = all ? CountAll(database, counted.table) : filtered.Of(counted.table);
        state.gRecordsTotal += rows;
        if (counted.validated) state.gValidatedTotal += rows;
    }
}

}  // namespace quillon::validation
