#include "selection/selected_rows.h"

#include "core/document_kinds.h"

namespace quillon::selection {

namespace {

std::vector<std::string_view> ColumnsOf(std::string_view list) {
    constexpr std::string_view separator = ", ";
    std::vector<std::string_view> columns;
    for (std::size_t end = list.find(separator); end != std::string_view::npos; end = list.find(separator)) {
        columns.push_back(list.substr(0, end));
        list.remove_prefix(end + separator.size());
    }
    columns.push_back(list);
    return columns;
}

}  // namespace

// A vernacular is found through the list of the filter, so also one of a taxon that was deleted.
SelectedRows::Reach SelectedRows::ReachOf(std::string_view table) {
    if (table == "qb_taxon_authors_lookup") return Reach::Author;
    if (table == "qb_vernaculars") return Reach::Listed;
    return DocumentKindOfTable(table) != nullptr ? Reach::Document : Reach::Taxon;
}

// Reference links are in file order within a taxon; all other rows are in text order.
store::TableRows SelectedRows::RowsOf(std::string_view table, const std::vector<std::string_view>& columns,
                                      const SelectedTaxa& taxa) {
    using Order = store::TableRows::Order;
    const Order order = table == "qb_reference_links" ? Order::Key : Order::Collated;
    if (taxa.All()) return {order};
    switch (ReachOf(table)) {
        case Reach::Author:
            return RowsAmong(columns[0], taxa.Authors(), order);
        case Reach::Document:
            return RowsAmong(columns[1], taxa.Documents().Ids(), order);
        case Reach::Listed:
            return RowsAmong(columns[0], taxa.Listed(), order);
        case Reach::Taxon:
            return RowsAmong(columns[0], taxa.Ids(), order);
    }
    return {order};
}

SelectedRows::SelectedRows(store::Database& database, std::string_view table, std::string_view columns,
                           const SelectedTaxa& taxa)
    : SelectedRows(database, table, ColumnsOf(columns), taxa) {}

SelectedRows::SelectedRows(store::Database& database, std::string_view table,
                           const std::vector<std::string_view>& columns, const SelectedTaxa& taxa)
    : taxa_(taxa), reach_(ReachOf(table)), rows_(database, table, columns, RowsOf(table, columns, taxa)) {}

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
