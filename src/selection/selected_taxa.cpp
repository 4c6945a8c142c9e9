#include "selection/selected_taxa.h"

#include <fmt/format.h>

#include "core/text.h"
#include "selection/record_filter.h"

namespace quillon::selection {

namespace {

using store::RowStream;

constexpr std::size_t kFewIds = 5000;

// The condition is a column and not a restriction: then rows that do not meet it are turns, too.
constexpr std::string_view kMatching =
    "SELECT qb_id, qb_taxon_author_id, IIf({}, 1, 0) AS matches FROM qb_taxonomic_units;";
constexpr std::string_view kTaxaAmong =
    "SELECT qb_id, qb_taxon_author_id FROM qb_taxonomic_units WHERE True{};";
constexpr std::string_view kLinksAmong =
    "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id FROM qb_reference_links WHERE True{} "
    "ORDER BY qb_id;";

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

}  // namespace

std::string AndAmong(std::string_view column, const IdSet& ids) {
    if (ids.Count() > kFewIds) return {};
    if (ids.Count() == 0) return " AND False";
    return fmt::format(" AND {} IN ({})", column, fmt::join(ids.Ids(), ", "));
}

// The same bytes are looked for first: they nearly always are.
std::size_t DocumentLinks::Find(std::string_view prefix) const {
    for (std::size_t i = 0; i < byPrefix_.size(); ++i)
        if (byPrefix_[i].first == prefix) return i;
    for (std::size_t i = 0; i < byPrefix_.size(); ++i)
        if (EqualText(byPrefix_[i].first, prefix)) return i;
    return byPrefix_.size();
}

void DocumentLinks::Add(std::string_view prefix, std::int32_t id) {
    if (prefix.empty()) return;
    const std::size_t place = Find(prefix);
    if (place == byPrefix_.size()) byPrefix_.emplace_back(prefix, IdMap());
    IdMap& links = byPrefix_[place].second;
    links.Add(id, links.Find(id) + 1);
    ids_.Add(id);
}

std::int32_t DocumentLinks::Count(std::string_view prefix, std::int32_t id) const {
    const std::size_t place = prefix.empty() ? byPrefix_.size() : Find(prefix);
    return place == byPrefix_.size() ? 0 : byPrefix_[place].second.Find(id);
}

SelectedTaxa::SelectedTaxa(store::Database& database, std::string_view filter, const Continue& goOn)
    : all_(filter == kNoFilter) {
    if (all_) return;
    if (filter == kJournalFilter)
        ReadJournal(database, goOn);
    else
        ReadMatching(database, filter, goOn);
}

void SelectedTaxa::Add(const RowStream& taxon) {
    ids_.Add(Id(taxon, 0));
    if (taxon.IsNull(1)) return;
    const std::int32_t author = Id(taxon, 1);
    authors_.Add(author);
    taxaOfAuthor_.Add(author, taxaOfAuthor_.Find(author) + 1);
}

void SelectedTaxa::ReadJournal(store::Database& database, const Continue& goOn) {
    RowStream journal(database, "journal", {"qb_id"});
    while (journal.Next() && goOn()) listed_.Add(Id(journal, 0));
    RowStream taxa(database, fmt::format(fmt::runtime(kTaxaAmong), AndAmong("qb_id", listed_)));
    while (taxa.Next() && goOn())
        if (listed_.Has(Id(taxa, 0))) Add(taxa);
}

void SelectedTaxa::ReadMatching(store::Database& database, std::string_view filter, const Continue& goOn) {
    RowStream taxa(database, fmt::format(fmt::runtime(kMatching), ConditionOf(filter)));
    while (taxa.Next() && goOn())
        if (taxa.Long(2) != 0) Add(taxa);
    listed_ = ids_;
}

void SelectedTaxa::ReachDocuments(store::Database& database, const Continue& goOn) {
    if (all_ || reached_) return;
    reached_ = true;
    RowStream links(database, fmt::format(fmt::runtime(kLinksAmong), AndAmong("qb_id", ids_)));
    while (links.Next() && goOn())
        if (Has(links.Long(0))) documents_.Add(links.Text(1), Id(links, 2));
}

}  // namespace quillon::selection
