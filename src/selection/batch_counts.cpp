#include "selection/batch_counts.h"

#include <array>
#include <vector>

#include "core/document_kinds.h"
#include "selection/record_filter.h"
#include "store/row_stream.h"
#include "store/statement_turns.h"

namespace quillon::selection {

namespace {

constexpr std::string_view kTaxa = "qb_taxonomic_units";
constexpr store::TableRows::Order kAny = store::TableRows::Order::Any;

// COUNT(*) would be one step of the store's machine, in which no turn can be taken; COUNT(1) is one a row.
int CountAll(store::Database& database, std::string_view table, Turns turns) {
    const store::StatementTurns withinStatement(database, [&turns] { return turns.Next(); });
    try {
        store::RowStream rows(database, "SELECT COUNT(1) AS expr1000 FROM " + std::string(table));
        return rows.Next() ? static_cast<int>(rows.Long(0)) : 0;
    } catch (const store::StoreError&) {
        // A statement that the Cancel interrupted has not failed.
        if (!turns.Canceled()) throw;
        return 0;
    }
}

// Counts the rows of a table under a filter, as often as the select would.
class FilteredCount {
public:
    FilteredCount(store::Database& database, SelectedTaxa& taxa, Turns turns)
        : database_(database), taxa_(taxa), turns_(turns) {
        taxa_.ReachDocuments(database_, turns_);
    }

    int Of(std::string_view table) const {
        if (table == kTaxa) return static_cast<int>(taxa_.Ids().Count());
        if (table == "qb_taxon_authors_lookup") return Authors();
        if (const DocumentKind* kind = DocumentKindOfTable(table)) return Links(*kind);
        return table == "qb_vernaculars" ? OfTaxa(table, taxa_.Listed()) : OfTaxa(table, taxa_.Ids());
    }

private:
    // The sum of `count` over all rows.
    template <typename Count>
    int Sum(std::string_view table, const std::vector<std::string_view>& columns,
            const store::TableRows& among, const Count& count) const {
        int sum = 0;
        Turns turns = turns_;
        store::RowStream rows(database_, table, columns, among);
        while (rows.Next() && turns.Next()) sum += count(rows);
        return sum;
    }
    int Authors() const {
        constexpr std::string_view id = "qb_taxon_author_id";
        return Sum("qb_taxon_authors_lookup", {id}, RowsAmong(id, taxa_.Authors(), kAny),
                   [&](const store::RowStream& row) {
                       return taxa_.CountOfAuthor(static_cast<std::int32_t>(row.Long(0)));
                   });
    }
    int Links(const DocumentKind& kind) const {
        const DocumentLinks& documents = taxa_.Documents();
        return Sum(kind.table, {kind.prefixColumn, kind.idColumn},
                   RowsAmong(kind.idColumn, documents.Ids(), kAny), [&](const store::RowStream& row) {
                       return documents.Count(row.Text(0), static_cast<std::int32_t>(row.Long(1)));
                   });
    }
    int OfTaxa(std::string_view table, const IdSet& ids) const {
        return Sum(table, {"qb_id"}, RowsAmong("qb_id", ids, kAny), [&](const store::RowStream& row) {
            return ids.Has(static_cast<std::int32_t>(row.Long(0))) ? 1 : 0;
        });
    }

    store::Database& database_;
    SelectedTaxa& taxa_;
    Turns turns_;
};

// The tables to count, in order. Tables that only an export visits count with all rows.
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

void CountBatchRecords(ApplicationState& state, store::Database& database, SelectedTaxa& taxa, Turns turns) {
    const FilteredCount filtered(database, taxa, turns);
    state.gRecordsTotal = 0;
    state.gValidatedTotal = 0;
    for (const CountedTable& counted : kCounted) {
        if (!turns.Next()) return;
        const bool all = taxa.All() || !counted.validated;
        const int rows = all ? CountAll(database, counted.table, turns) : filtered.Of(counted.table);
        state.gRecordsTotal += rows;
        if (counted.validated) state.gValidatedTotal += rows;
    }
}

}  // namespace quillon::selection
