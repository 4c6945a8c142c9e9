#include "selection/batch_counts.h"

#include "selection/record_filter.h"
#include "selection_fixture.h"
#include "testkit/turn_meter.h"

namespace quillon::selection {
namespace {

class BatchTotals : public SelectionTest {
protected:
    // Two of each kind of row that counts but for taxa, authors and publications.
    void SetUp() override {
        SelectionTest::SetUp();
        for (const int n : {1, 2}) {
            Run(fmt::format("INSERT INTO qb_vernaculars (qb_id, qb_vern_id) VALUES (3, {})", n));
            Run(fmt::format(
                "INSERT INTO qb_vern_ref_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
                "qb_vern_id) VALUES (3, 'PUB', 1, {})",
                n));
            Run(fmt::format("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', {})", n));
            Run(fmt::format(
                "INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) VALUES ('SRC', {})", n));
            Run(fmt::format("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Place {}')",
                            n));
            Run(fmt::format("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (9, {})", n));
            Run(fmt::format("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (3, {})", n));
            Run(fmt::format("INSERT INTO qb_comments (qb_comment_id) VALUES ({})", n));
            Run(fmt::format("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (3, '{}')",
                            n));
            Run(fmt::format("INSERT INTO qb_nodc_ids (nodc_id, qb_id) VALUES ('{}', 3)", n));
            Run(fmt::format("INSERT INTO qb_change_tracks (qb_change_track_id) VALUES ({})", n));
            Run(fmt::format("INSERT INTO qb_change_operations (qb_change_track_id, chg_op_id) VALUES ({}, 1)",
                            n));
            Run(fmt::format(
                "INSERT INTO qb_change_comments (qb_change_track_id, qb_chg_cmt_id) VALUES ({}, 1)", n));
        }
    }
    std::pair<int, int> Totals(std::string_view filter) {
        set.state.gRecordFilter = filter;
        SelectedTaxa taxa = Selected(filter);
        CountBatchRecords(set.state, set.db(), taxa, turns);
        return {set.state.gValidatedTotal, set.state.gRecordsTotal};
    }
};

// 3 taxa, 1 author, 1 publication, and 2 each of vernacular links, experts, sources, vernaculars and
// jurisdictions.
TEST_F(BatchTotals, CountAllRowsButReferenceLinks) {
    EXPECT_EQ(Totals("none"), std::pair(15, 31));
}

// A species with its author and publication, its 2 vernaculars, links and jurisdictions; no expert, no
// source.
TEST_F(BatchTotals, FilterTheTablesThatValidationVisits) {
    EXPECT_EQ(Totals(ColumnClause("rank_id", "=", "220")), std::pair(9, 25));
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    EXPECT_EQ(Totals("journal"), std::pair(9, 25));
}

TEST_F(BatchTotals, CountADocumentOnceALink) {
    Run("INSERT INTO journal (qb_id) VALUES (2)");
    Run("INSERT INTO journal (qb_id) VALUES (3)");
    EXPECT_EQ(Totals("journal"), std::pair(12, 28));  // a taxon, its author and its publication more
}

TEST_F(BatchTotals, TakeTurnsWithinTheCountOfALargeTable) {
    constexpr int rows = 50'000;
    {
        const store::Job job(set.engine);
        for (int id = 10; id < 10 + rows; ++id)
            set.db().Execute(fmt::format("INSERT INTO qb_comments (qb_comment_id) VALUES ({})", id));
    }
    testkit::TurnMeter meter(set.state);
    meter.Watch();
    SelectedTaxa taxa(set.db(), "none", Turns(set.state, meter));
    const int before = meter.turns;
    CountBatchRecords(set.state, set.db(), taxa, Turns(set.state, meter));
    EXPECT_EQ(set.state.gRecordsTotal, 31 + rows);
    EXPECT_GT(meter.turns - before, 20) << "16 tables, and turns within one of them";
    meter.cancelAt = meter.turns + 14;
    EXPECT_NO_THROW(CountBatchRecords(set.state, set.db(), taxa, Turns(set.state, meter)));
}

}  // namespace
}  // namespace quillon::selection
