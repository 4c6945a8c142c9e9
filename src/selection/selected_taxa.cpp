#include "selection/selected_taxa.h"

#include <fmt/format.h>

#include "selection/record_filter.h"

namespace quillon::selection {

namespace {

using store::RowStream;

constexpr std::size_t kFewIds = 5000;

// The condition is a column instead of a restriction, so that rows that do not meet it are turns too.
constexpr std::string_view kMatching =
    "SELECT qb_id, qb_taxon_author_id, IIf({}, 1, 0) AS matches FROM qb_taxonomic_units;";
std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

}  // namespace

store::TableRows RowsAmong(std::string_view column, const IdSet& ids, store::TableRows::Order order) {
    if (ids.Count() > kFewIds) return {order};
    return {order, column, ids.Ids()};
}

SelectedTaxa::SelectedTaxa(store::Database& database, std::string_view filter, Turns turns)
    : all_(filter == kNoFilter) {
    if (all_) return;
    if (filter == kJournalFilter)
        ReadJournal(database, turns);
    else
        ReadMatching(database, filter, turns);
}

void SelectedTaxa::Add(const RowStream& taxon) {
    ids_.Add(Id(taxon, 0));
    if (taxon.IsNull(1)) return;
    const std::int32_t author = Id(taxon, 1);
    authors_.Add(author);
    taxaOfAuthor_.Add(author, taxaOfAuthor_.Find(author) + 1);
}

void SelectedTaxa::ReadJournal(store::Database& database, Turns turns) {
    RowStream journal(database, "journal", {"qb_id"});
    while (journal.Next() && turns.Next()) listed_.Add(Id(journal, 0));
    RowStream taxa(database, "qb_taxonomic_units", {"qb_id", "qb_taxon_author_id"},
                   RowsAmong("qb_id", listed_));
    while (taxa.Next() && turns.Next())
        if (listed_.Has(Id(taxa, 0))) Add(taxa);
}

void SelectedTaxa::ReadMatching(store::Database& database, std::string_view filter, Turns turns) {
    RowStream taxa(database, fmt::format(fmt::runtime(kMatching), ConditionOf(filter)));
    while (taxa.Next() && turns.Next())
        if (taxa.Long(2) != 0) Add(taxa);
    listed_ = ids_;
}

void SelectedTaxa::ReachDocuments(store::Database& database, Turns turns) {
    if (all_ || reached_) return;
    reached_ = true;
    RowStream links(database, "qb_reference_links",
                    {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id"}, RowsAmong("qb_id", ids_));
    while (links.Next() && turns.Next())
        if (Has(links.Long(0))) documents_.Add(links.Text(1), Id(links, 2));
}

}  // namespace quillon::selection
