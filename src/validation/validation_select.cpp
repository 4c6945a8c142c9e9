// The selects of the tables that validation visits, and their counts.

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/text.h"
#include "validation/record_filter.h"

namespace quillon::validation {

namespace {

struct TableSelect {
    std::string_view table;
    std::string_view rows;         // the head that gives the rows
    std::string_view count;        // the head that counts them
    std::string_view journalBody;  // behind the head, for the changed taxa
    std::string_view clauseBody;   // behind the head, before the clause
    std::string_view order;        // the table's key, where a join stands for it
};

// clang-format off
constexpr std::array<TableSelect, 9> kSelects = {{
    {"qb_taxonomic_units",
     "SELECT qb_taxonomic_units.* ",
     "SELECT COUNT(*) As expr1000 ",
     "FROM qb_taxonomic_units INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     " FROM qb_taxonomic_units ",
     "qb_taxonomic_units.qb_id"},
    {"qb_taxon_authors_lookup",
     "SELECT qb_taxon_authors_lookup.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
     "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id",
     "FROM qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
     "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id",
     "qb_taxon_authors_lookup.qb_taxon_author_id"},
    {"qb_reference_links",
     "SELECT qb_reference_links.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_reference_links ON "
     "qb_taxonomic_units.qb_id = qb_reference_links.qb_id ",
     "qb_taxonomic_units.qb_id, qb_reference_links.qb_documentation_id_prefix, "
     "qb_reference_links.qb_documentation_id"},
    {"qb_vern_ref_links",
     "SELECT qb_vern_ref_links.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN qb_vern_ref_links ON "
     "qb_taxonomic_units.qb_id = qb_vern_ref_links.qb_id) "
     "INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_vern_ref_links ON "
     "qb_taxonomic_units.qb_id = qb_vern_ref_links.qb_id ",
     "qb_taxonomic_units.qb_id, qb_vern_ref_links.qb_documentation_id_prefix, "
     "qb_vern_ref_links.qb_documentation_id, qb_vern_ref_links.qb_vern_id"},
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
     "AND (qb_reference_links.qb_documentation_id = qb_experts.qb_expert_id)",
     "qb_experts.expert_id_prefix, qb_experts.qb_expert_id"},
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
     "AND (qb_reference_links.qb_documentation_id_prefix = qb_other_sources.source_id_prefix)",
     "qb_other_sources.source_id_prefix, qb_other_sources.qb_source_id"},
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
     "AND (qb_publications.publication_id_prefix = qb_reference_links.qb_documentation_id_prefix)",
     "qb_publications.publication_id_prefix, qb_publications.qb_publication_id"},
    {"qb_vernaculars",
     "SELECT qb_vernaculars.* ",
     "SELECT COUNT(*) ",
     "FROM qb_vernaculars INNER JOIN journal ON qb_vernaculars.qb_id = journal.qb_id;",
     "FROM qb_vernaculars INNER JOIN qb_taxonomic_units ON qb_vernaculars.qb_id = qb_taxonomic_units.qb_id ",
     "qb_vernaculars.qb_vern_id"},
    {"qb_jurisdiction",
     "SELECT qb_jurisdiction.* ",
     "SELECT COUNT(*) ",
     "FROM (qb_taxonomic_units INNER JOIN journal ON qb_taxonomic_units.qb_id = journal.qb_id) "
     "INNER JOIN qb_jurisdiction ON qb_taxonomic_units.qb_id = qb_jurisdiction.qb_id;",
     "FROM qb_taxonomic_units INNER JOIN qb_jurisdiction ON "
     "qb_taxonomic_units.qb_id = qb_jurisdiction.qb_id ",
     "qb_taxonomic_units.qb_id, qb_jurisdiction.jurisdiction_value"},
}};
// clang-format on

constexpr std::string_view kTaxa = "qb_taxonomic_units";
constexpr std::string_view kTaxonId = "qb_taxonomic_units.qb_id";
constexpr std::string_view kJournalId = "journal.qb_id";

const TableSelect* Find(std::string_view table) {
    const auto* found = std::find_if(kSelects.begin(), kSelects.end(),
                                     [&](const TableSelect& s) { return s.table == table; });
    return found == kSelects.end() ? nullptr : found;
}

// The engine knows nothing of the sizes of the tables that it joins. A sum is no field that it could look up
// by, so that it begins with the journal, which is short, and goes on to the taxa and their links.
std::string BeginningWithTheJournal(std::string select) {
    if (select.find("= journal.qb_id") == std::string::npos) return select;
    for (const std::string_view field : {"journal.qb_id", "qb_taxonomic_units.qb_taxon_author_id"})
        select = ReplaceText(select, fmt::format("= {}", field), fmt::format("= {} + 0", field));
    return ReplaceText(select, "qb_taxonomic_units.qb_id = qb_", "qb_taxonomic_units.qb_id + 0 = qb_");
}

std::string WithoutSemicolon(std::string select) {
    if (!select.empty() && select.back() == ';') select.pop_back();
    return select;
}

// The whole table. A document's prefix is part of its key and never Null; to say so lets the engine walk the
// key instead of sorting all rows first. The reference links of a taxon it walks by the key as they stand.
std::string AllRows(const TableSelect& select, std::string_view columns) {
    std::string rows = fmt::format("SELECT {} FROM {}", columns, select.table);
    const std::string_view firstOfKey = select.order.substr(0, select.order.find(','));
    if (firstOfKey.ends_with("_prefix")) rows += fmt::format(" WHERE {} Is Not Null", firstOfKey);
    if (select.table == "qb_reference_links") rows += " ORDER BY qb_id";
    return rows + ";";
}

int CountRows(store::Database& database, std::string_view table, std::string_view filter) {
    const auto row =
        database.CreateSnapshot(BeginningWithTheJournal(BuildValidationSelect(table, filter, true)));
    return row->Eof() ? 0 : static_cast<int>(row->Get("expr1000").AsLong());
}

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

std::string FilteredRows(std::string_view table, std::string_view filter, std::string_view columns) {
    const TableSelect* select = Find(table);
    if (select == nullptr) return {};
    if (filter == kNoFilter) return AllRows(*select, columns);
    const std::string rows = BeginningWithTheJournal(
        WithoutSemicolon(BuildValidationSelect(table, RunnableFilter(filter), false)));
    const std::string order(select->order);
    // The journal is the short one of the joined tables: its order lets the engine begin with it.
    const bool journal = filter == kJournalFilter;
    return fmt::format("{} ORDER BY {};", rows, journal ? ReplaceText(order, kTaxonId, kJournalId) : order);
}

std::string AndAmongTaxa(std::string_view column, std::string_view taxonField, std::string_view filter) {
    if (filter == kNoFilter) return {};
    const std::string rows = BeginningWithTheJournal(
        WithoutSemicolon(BuildValidationSelect(kTaxa, RunnableFilter(filter), false)));
    const std::string_view head = Find(kTaxa)->rows;
    return fmt::format(" AND {} IN (SELECT qb_taxonomic_units.{} {})", column, taxonField,
                       rows.substr(head.size()));
}

std::string LookUpFilter(store::Database& database, std::string_view filter) {
    constexpr int few = 8;  // in so many taxa one is worth a look-up of its own
    if (filter == kNoFilter) return std::string(filter);
    const int filtered = CountRows(database, kTaxa, RunnableFilter(filter));
    return std::string(filtered < CountRows(database, kTaxa, kNoFilter) / few ? filter : kNoFilter);
}

void CountBatchRecords(ApplicationState& state, store::Database& database) {
    const std::string filter = RunnableFilter(state.gRecordFilter);
    state.gRecordsTotal = 0;
    state.gValidatedTotal = 0;
    for (const CountedTable& counted : kCounted) {
        const int rows =
            CountRows(database, counted.table, counted.validated ? std::string_view(filter) : kNoFilter);
        state.gRecordsTotal += rows;
        if (counted.validated) state.gValidatedTotal += rows;
    }
}

}  // namespace quillon::validation
