// The selects of the tables that validation visits.

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "selection/record_filter.h"

namespace quillon::selection {

namespace {

struct TableSelect {
    std::string_view table;
    std::string_view rows;         // the beginning of a select of rows
    std::string_view count;        // the beginning of a select of their count
    std::string_view journalBody;  // the rest, for the changed taxa
    std::string_view clauseBody;   // the rest before the clause
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

const TableSelect* Find(std::string_view table) {
    const auto* found = std::find_if(kSelects.begin(), kSelects.end(),
                                     [&](const TableSelect& s) { return s.table == table; });
    return found == kSelects.end() ? nullptr : found;
}

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

}  // namespace quillon::selection
