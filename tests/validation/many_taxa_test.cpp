// Validation of more taxa than are looked up one by one: the same findings under a filter that lets all of
// them through, and a turn for the user at every row, wherever the run is.

#include "testkit/golden.h"
#include "testkit/turn_meter.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

constexpr int kFirst = 1001, kTaxa = 8192;
// A row costs the store some tens of steps, and a table of these many hundred thousand.
constexpr long kMostSteps = 10000;

// The genus and 8192 species below it, from 1001 on, each with an author, a publication, a vernacular and a
// jurisdiction of its own, that have its number.
class ManyTaxa : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        const store::Job job(set.engine);
        Run("DELETE * FROM qb_taxonomic_units WHERE qb_id = 3");
        Unrefer(3);
        AddTaxon(kFirst, "Alpha", 220, 2);
        Unrefer(kFirst);
        Refer(kFirst, "PUB", kFirst);
        Set(kFirst, "unit_name2", "'beta'");
        Set(kFirst, "qb_taxon_author_id", std::to_string(kFirst));
        Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
            "VALUES (1001, 'Smith, 1900', 5)");
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_name, title, "
            "actual_pub_date) VALUES ('PUB', 1001, 'Journal', 'Moths', '01/02/1900')");
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
            "VALUES (1001, 1001, 'Moth', 'English', True)");
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "qb_vern_id, vernacular_name) VALUES (1001, 'PUB', 1001, 1001, 'Moth')");
        Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) "
            "VALUES (1001, 'Alaska', 'Native')");
        for (int step = 1; step < kTaxa; step *= 2) Double(step);
    }

    // As many rows again, with numbers above those that there are.
    void Double(int step) {
        Copy("qb_taxonomic_units", {"qb_id", "qb_taxon_author_id"},
             "unit_name1, unit_name2, usage, taxonomic_credibility_rating, taxonomic_completeness_rating, "
             "currency_rating, parent_qb_id, kingdom_id, rank_id",
             step);
        Copy("qb_taxon_authors_lookup", {"qb_taxon_author_id"}, "taxon_author, kingdom_id", step);
        Copy("qb_publications", {"qb_publication_id"},
             "publication_id_prefix, publication_name, title, actual_pub_date", step);
        Copy("qb_reference_links", {"qb_id", "qb_documentation_id"},
             "qb_documentation_id_prefix, original_desc_ind", step);
        Copy("qb_vernaculars", {"qb_id", "qb_vern_id"}, "vernacular_name, language, approved_ind", step);
        Copy("qb_vern_ref_links", {"qb_id", "qb_documentation_id", "qb_vern_id"},
             "qb_documentation_id_prefix, vernacular_name", step);
        Copy("qb_jurisdiction", {"qb_id"}, "jurisdiction_value, origin", step);
    }
    void Copy(std::string_view table, const std::vector<std::string>& numbers, std::string_view rest,
              int step) {
        std::vector<std::string> raised;
        raised.reserve(numbers.size());
        for (const std::string& number : numbers) raised.push_back(fmt::format("{} + {}", number, step));
        Run(fmt::format("INSERT INTO {0} ({1}, {2}) SELECT {3}, {2} FROM {0} WHERE {4} >= {5}", table,
                        fmt::join(numbers, ", "), rest, fmt::join(raised, ", "), numbers[0], kFirst));
    }
    // Of each kind of fault one, far behind the rows without.
    void Spoil() {
        Unrefer(9000);
        Run("UPDATE qb_publications SET publication_name = Null WHERE qb_publication_id = 9001");
        Run("UPDATE qb_vern_ref_links SET vernacular_name = 'Other' WHERE qb_id = 9002");
        Run("UPDATE qb_jurisdiction SET origin = Null WHERE qb_id = 9003");
        Set(9004, "usage", "'invalid'");
        Run("UPDATE qb_taxon_authors_lookup SET kingdom_id = Null WHERE qb_taxon_author_id = 9005");
    }
    static std::string Findings() { return testkit::Golden("validation/ManyTaxa.log"); }
    ValidationResult ValidateWith(EventPump& events, std::string_view filter) {
        set.state.gRecordFilter = filter;
        return ValidateDataSet(set.state, set.engine,
                               {set.prompter, events, clock, [](double) {}, set.dir.path(), [] {}});
    }
};

TEST_F(ManyTaxa, AreReportedTheSameUnderAFilterThatMatchesAll) {
    Spoil();
    EXPECT_EQ(Validate(), Findings());
    EXPECT_EQ(Validate(selection::ColumnClause("rank_id", ">", "180")), Findings());
    EXPECT_EQ(Validate(selection::ColumnClause("qb_id", ">", "8999")), Findings());
    Run("INSERT INTO journal (qb_id) SELECT qb_id FROM qb_taxonomic_units WHERE rank_id > 180");
    EXPECT_EQ(Validate("journal"), Findings());
}

// 8192 of each of taxon, author, publication, vernacular, its reference and jurisdiction.
TEST_F(ManyTaxa, CountWithTheirDependentRows) {
    const ValidationResult result = ValidateInto(selection::ColumnClause("rank_id", "=", "220"));
    EXPECT_FALSE(result.errors);
    EXPECT_EQ(set.state.gValidatedTotal, 6 * kTaxa);
    EXPECT_EQ(set.state.gRecordsDone, 6 * kTaxa) << "links in place of the references of vernaculars";
}

TEST_F(ManyTaxa, LeaveNoLongStretchWithoutATurn) {
    Spoil();
    Run("INSERT INTO journal (qb_id) SELECT qb_id FROM qb_taxonomic_units WHERE rank_id > 180");
    for (const std::string& filter :
         {std::string(selection::kNoFilter), std::string(selection::kJournalFilter),
          selection::ColumnClause("rank_id", ">", "180"), selection::ColumnClause("qb_id", "=", "9000"),
          selection::ColumnClause("qb_id", ">", "3000"), selection::ColumnClause("usage", "=", "nothing")}) {
        testkit::TurnMeter meter(set.state);
        meter.Watch();
        EXPECT_TRUE(ValidateWith(meter, filter).ran);
        EXPECT_LT(meter.Longest(), kMostSteps) << filter;
        EXPECT_GT(meter.turns, kTaxa) << filter;
    }
}

}  // namespace

}  // namespace quillon::validation
