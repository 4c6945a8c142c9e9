#include "selection/batch_counts.h"

#include <fmt/format.h>

#include <array>

#include "selection/record_filter.h"
#include "store/row_stream.h"

namespace quillon::selection {

namespace {

constexpr std::string_view kTaxa = "qb_taxonomic_units";

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

}  // namespace quillon::selection
