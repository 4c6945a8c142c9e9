// Validation of as many taxa as a journal holds: rows are looked up for few of them and read whole for many,
// and no number of them is too large for a statement.

#include "validation_fixture.h"

namespace quillon::validation {
namespace {

constexpr int kFirst = 1001, kTaxa = 16384;

class JournalOf : public ValidationTest {
protected:
    // Species without a reference, from kFirst on: a finding each.
    void SetUp() override {
        ValidationTest::SetUp();
        const store::Job job(set.engine);
        AddTaxon(kFirst, "Alpha", 220, 2);
        Unrefer(kFirst);
        for (int step = 1; step < kTaxa; step *= 2)
            Run(
                fmt::format("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, "
                            "taxonomic_credibility_rating, parent_qb_id, qb_taxon_author_id, kingdom_id, "
                            "rank_id) SELECT qb_id + {}, unit_name1, usage, taxonomic_credibility_rating, "
                            "parent_qb_id, qb_taxon_author_id, kingdom_id, rank_id FROM qb_taxonomic_units "
                            "WHERE qb_id >= {}",
                            step, kFirst));
    }
    void JournalHolds(int taxa) {
        Run("DELETE * FROM journal");
        Run(
            fmt::format("INSERT INTO journal (qb_id) SELECT qb_id FROM qb_taxonomic_units WHERE qb_id "
                        "BETWEEN {} AND {}",
                        kFirst, kFirst + taxa - 1));
    }
};

TEST_F(JournalOf, AnySizeIsValidated) {
    std::string expected;
    int written = 0;
    for (const int taxa : {0, 1, 999, 1000, 1001, 2997, 2999, 3000, 4001, 4999, 5000, 5001, 6001, 10001}) {
        JournalHolds(taxa);
        for (; written < taxa; ++written)
            expected += Lines({fmt::format("ID =  {}   Name = Alpha", kFirst + written),
                               "     at least one reference is required"});
        EXPECT_EQ(Validate("journal") == expected, true) << taxa << " taxa";
        EXPECT_EQ(set.prompter.messages, std::vector<std::string>()) << taxa << " taxa";
    }
}

}  // namespace
}  // namespace quillon::validation
