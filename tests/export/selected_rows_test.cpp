// The rows that a validation visits, and their totals, against the selects that say which they are.

#include "selection/selected_rows.h"
#include "selection/batch_counts.h"
#include "selection/record_filter.h"

#include <algorithm>
#include <map>

#include "export_fixture.h"
#include "random_rows.h"

namespace quillon::exporting {
namespace {

using Texts = std::vector<std::string>;

// The key of each table, beginning with the columns by which a row belongs to a taxon.
const std::map<std::string, Texts> kKeys = {
    {"qb_taxonomic_units", {"qb_id"}},
    {"qb_taxon_authors_lookup", {"qb_taxon_author_id"}},
    {"qb_reference_links", {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id"}},
    {"qb_experts", {"expert_id_prefix", "qb_expert_id"}},
    {"qb_other_sources", {"source_id_prefix", "qb_source_id"}},
    {"qb_publications", {"publication_id_prefix", "qb_publication_id"}},
    {"qb_vernaculars", {"qb_id", "qb_vern_id"}},
    {"qb_jurisdiction", {"qb_id", "jurisdiction_value"}}};
const Texts kAllRows = {"qb_synonym_links",       "qb_tu_comments_link", "qb_comments",
                        "qb_geographic_division", "qb_nodc_ids",         "qb_change_tracks",
                        "qb_change_operations",   "qb_change_comments"};

class SelectedRowsTest : public ExportTest, public ::testing::WithParamInterface<std::uint32_t> {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        FillWithOddRows(set.engine, set.db(), GetParam());
    }
    static Texts Sorted(Texts texts) {
        std::sort(texts.begin(), texts.end());
        return texts;
    }
    std::string Select(std::string_view table, std::string_view filter, bool count) {
        return selection::BuildValidationSelect(table, selection::RunnableFilter(filter), count);
    }
    Texts ByTheSelect(const std::string& table, std::string_view filter) {
        Texts keys;
        for (const auto rows = set.db().CreateSnapshot(Select(table, filter, false)); !rows->Eof();
             rows->MoveNext()) {
            std::string key;
            for (const std::string& column : kKeys.at(table)) key += rows->Get(column).AsText() + " ";
            keys.push_back(key);
        }
        return keys;
    }
    Texts Visited(const std::string& table, const selection::SelectedTaxa& taxa) {
        Texts keys;
        const Texts& columns = kKeys.at(table);
        selection::SelectedRows rows(set.db(), table, fmt::format("{}", fmt::join(columns, ", ")), taxa);
        while (rows.Next()) {
            std::string key;
            for (std::size_t i = 0; i < columns.size(); ++i) key += std::string(rows.Row().Text(i)) + " ";
            for (int visit = 0; visit < rows.Visits(); ++visit) keys.push_back(key);
        }
        return keys;
    }
    int Count(std::string_view table, std::string_view filter) {
        return static_cast<int>(set.db().CreateSnapshot(Select(table, filter, true))->At(0).AsLong());
    }
    int ValidatedRows(std::string_view filter) {
        int rows = Count("qb_vern_ref_links", filter);
        for (const auto& [table, key] : kKeys)
            if (table != "qb_reference_links") rows += Count(table, filter);
        return rows;
    }

    void Compare(const std::string& filter) {
        const Turns turns(set.state, pump);
        selection::SelectedTaxa taxa(set.db(), filter, turns);
        set.state.gRecordFilter = filter;
        selection::CountBatchRecords(set.state, set.db(), taxa, turns);
        const int validated = ValidatedRows(filter);
        int all = validated;
        for (const std::string& table : kAllRows) all += Count(table, "none");
        EXPECT_EQ(set.state.gValidatedTotal, validated) << filter;
        EXPECT_EQ(set.state.gRecordsTotal, all) << filter;
        for (const auto& [table, key] : kKeys)
            EXPECT_EQ(Sorted(Visited(table, taxa)), Sorted(ByTheSelect(table, filter))) << table << filter;
    }
};

TEST_P(SelectedRowsTest, AreThoseOfTheSelect) {
    Compare("none");
    Compare("journal");
    Compare(selection::ColumnClause("kingdom_id", "=", "3"));
    Compare(selection::ColumnClause("qb_id", ">", "9"));
    Compare(selection::ColumnClause("unit_name1", "Like", "a*"));
    Compare(selection::ColumnClause("usage", "<>", "VALID"));
    Compare(selection::ColumnClause("uncertain_parent_ind", "=", "Yes"));
}

INSTANTIATE_TEST_SUITE_P(Seeds, SelectedRowsTest, ::testing::Range(std::uint32_t{1}, std::uint32_t{41}));

}  // namespace
}  // namespace quillon::exporting
