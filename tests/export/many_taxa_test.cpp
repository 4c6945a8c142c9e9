// Export of more taxa than are looked up one by one: a turn for the user at every row, wherever the run is,
// and the missing tsn of the parents filled in lots.

#include "export_fixture.h"
#include "testkit/turn_meter.h"

namespace quillon::exporting {
namespace {

constexpr int kFirst = 1001, kTaxa = 16384;
// A row costs the store some tens of steps, and a table of these many hundred thousand.
constexpr long kMostSteps = 10000;
// A lot of rows that are filled at a turn.
constexpr long kMostStepsOfALot = 200000;

class ManyTaxa : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        const store::Job job(set.engine);
        AddTaxon(kFirst, "Alpha");
        SetTaxon(kFirst, "qb_taxon_author_id", "1001");
        Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author", {"1001, 'Smith, 1900'"});
        Insert("qb_vernaculars", "qb_id, qb_vern_id, vernacular_name", {"1001, 1001, 'Moth'"});
        Insert("qb_publications", "publication_id_prefix, qb_publication_id, title",
               {"'PUB', 1001, 'Moths'"});
        Insert("qb_reference_links", "qb_id, qb_documentation_id_prefix, qb_documentation_id",
               {"1001, 'PUB', 1001"});
        for (int step = 1; step < kTaxa; step *= 2) {
            Copy("qb_taxonomic_units", {"qb_id", "qb_taxon_author_id", "tsn"},
                 "unit_name1, usage, parent_qb_id, kingdom_id, rank_id", step);
            Copy("qb_taxon_authors_lookup", {"qb_taxon_author_id"}, "taxon_author", step);
            Copy("qb_vernaculars", {"qb_id", "qb_vern_id"}, "vernacular_name", step);
            Copy("qb_publications", {"qb_publication_id"}, "publication_id_prefix, title", step);
            Copy("qb_reference_links", {"qb_id", "qb_documentation_id"}, "qb_documentation_id_prefix", step);
        }
    }
    // As many rows again, with numbers above those that there are.
    void Copy(std::string_view table, const std::vector<std::string>& numbers, std::string_view rest,
              int step) {
        std::vector<std::string> raised;
        raised.reserve(numbers.size());
        for (const std::string& number : numbers) raised.push_back(fmt::format("{} + {}", number, step));
        Run(fmt::format("INSERT INTO {0} ({1}, {2}) SELECT {3}, {2} FROM {0} WHERE {4} >= {5}", table,
                        fmt::join(numbers, ", "), rest, fmt::join(raised, ", "), numbers[0], kFirst));
    }
    std::string WithoutParentTsn() {
        return set.Dump("SELECT count(*) FROM qb_taxonomic_units WHERE parent_tsn Is Null");
    }
    // The longest stretch of a run without a turn.
    long Stretch(const ExportOrder& order, ExportOutcome outcome = ExportOutcome::Done, int cancelAt = 0) {
        testkit::TurnMeter meter(set.state);
        meter.cancelAt = cancelAt;
        meter.Watch();
        set.state.gBatchCancel = false;
        ExportJob job(set.state, set.engine, {set.prompter, meter, clock, [](double) {}, set.dir.path()});
        EXPECT_EQ(job.Run(order).outcome, outcome);
        return meter.Longest();
    }
};

TEST_F(ManyTaxa, GetTheirParentsTsnInLots) {
    EXPECT_LT(Stretch({}), kMostStepsOfALot);
    EXPECT_EQ(WithoutParentTsn(), "1\n") << "of the root, which has no parent";
    EXPECT_EQ(set.Dump("SELECT DISTINCT parent_tsn FROM qb_taxonomic_units WHERE qb_id > 1"), "100\n");
}

// The tables are counted and 16385 taxa looked at, then comes a turn a lot of 500 taxa.
TEST_F(ManyTaxa, KeepTheLotsThatWereFilledBeforeACancel) {
    const auto filled = [this] { return kTaxa + 1 - std::stoi(WithoutParentTsn()); };
    for (int turn = kTaxa + 1; filled() == 0; turn += 10) {
        ASSERT_LT(turn, 2 * kTaxa);
        EXPECT_LT(Stretch({}, ExportOutcome::Canceled, turn), kMostStepsOfALot);
    }
    const int lots = filled();
    EXPECT_LT(lots, kTaxa);
    EXPECT_EQ(lots % 500, 0);
    EXPECT_EQ(OutFile(), "");
    RunJob();
    EXPECT_EQ(filled(), lots) << "the Cancel still stands";
}

TEST_F(ManyTaxa, LeaveNoLongStretchWithoutATurn) {
    RunJob();
    ExportOrder list;
    list.kind = ExportKind::List;
    list.listType = ListType::NameAuthor;
    for (const std::string& filter :
         {std::string("none"), selection::ColumnClause("rank_id", "=", "180"),
          selection::ColumnClause("qb_id", "=", "9000"), selection::ColumnClause("qb_id", ">", "3000")}) {
        set.state.gRecordFilter = filter;
        EXPECT_LT(Stretch({}), kMostSteps) << filter;
        EXPECT_LT(Stretch(list), kMostSteps) << filter;
    }
}

// One taxon is the root's, and stays out under the filter.
TEST_F(ManyTaxa, AreWrittenWithTheirDependentRows) {
    RunJob();
    const int all = set.state.gExportedCount;
    EXPECT_EQ(all, 1 + 5 * kTaxa);
    FilterBy("rank_id", "=", "180");
    RunJob();
    EXPECT_EQ(set.state.gExportedCount, all);
    EXPECT_EQ(set.state.gRecordsTotal, 4 * kTaxa) << "taxa, authors, publications and vernaculars";
}

}  // namespace
}  // namespace quillon::exporting
