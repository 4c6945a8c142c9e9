#include "selection/selected_rows.h"

#include <fmt/format.h>

namespace quillon::selection {

namespace {

// The first columns of a list.
std::string_view ColumnAt(std::string_view columns, int place) {
    for (; place > 0; --place) columns.remove_prefix(columns.find(',') + 2);
    return columns.substr(0, columns.find(','));
}

}  // namespace

// A vernacular is found through the filter's list itself, also one of a taxon that is gone.
SelectedRows::Reach SelectedRows::ReachOf(std::string_view table) {
    if (table == "qb_taxon_authors_lookup") return Reach::Author;
    if (table == "qb_vernaculars") return Reach::Listed;
    const bool isDocument =
        table == "qb_publications" || table == "qb_experts" || table == "qb_other_sources";
    return isDocument ? Reach::Document : Reach::Taxon;
}

// A document's prefix is part of its key and never Null; to say so lets the engine walk the key instead of
// sorting all rows first. The reference links of a taxon it walks by the key as they stand.
std::string SelectedRows::Select(std::string_view table, std::string_view columns, const SelectedTaxa& taxa) {
    const Reach reach = ReachOf(table);
    std::string condition = "True", order;
    if (reach == Reach::Document) condition = fmt::format("{} Is Not Null", ColumnAt(columns, 0));
    if (table == "qb_reference_links") order = " ORDER BY qb_id";
    if (!taxa.All() && reach == Reach::Taxon) condition += AndAmong(ColumnAt(columns, 0), taxa.Ids());
    if (!taxa.All() && reach == Reach::Listed) condition += AndAmong(ColumnAt(columns, 0), taxa.Listed());
    if (!taxa.All() && reach == Reach::Author) condition += AndAmong(ColumnAt(columns, 0), taxa.Authors());
    if (!taxa.All() && reach == Reach::Document)
        condition += AndAmong(ColumnAt(columns, 1), taxa.Documents().Ids());
    return fmt::format("SELECT {} FROM {} WHERE {}{};", columns, table, condition, order);
}

SelectedRows::SelectedRows(store::Database& database, std::string_view table, std::string_view columns,
                           const SelectedTaxa& taxa)
    : taxa_(taxa), reach_(ReachOf(table)), rows_(database, Select(table, columns, taxa)) {}

int SelectedRows::Visits() const {
    if (taxa_.All()) return 1;
    switch (reach_) {
        case Reach::Author:
            return taxa_.CountOfAuthor(static_cast<std::int32_t>(rows_.Long(0)));
        case Reach::Document:
            return taxa_.Documents().Count(rows_.Text(0), static_cast<std::int32_t>(rows_.Long(1))) > 0 ? 1
                                                                                                        : 0;
        case Reach::Listed:
            return taxa_.Listed().Has(static_cast<std::int32_t>(rows_.Long(0))) ? 1 : 0;
        case Reach::Taxon:
            return taxa_.Has(rows_.Long(0)) ? 1 : 0;
    }
    return 0;
}

}  // namespace quillon::selection
