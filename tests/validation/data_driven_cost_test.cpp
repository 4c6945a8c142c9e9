// What a file can drive: chains of parents, circles of synonyms, thousands of names on one taxon. The turns
// of a run follow the number of rows.

#include "testkit/turn_meter.h"
#include "validation_fixture.h"

namespace quillon::validation {
namespace {

class CostOfARun : public ValidationTest {
protected:
    int TurnsOfARun() {
        testkit::TurnMeter meter(set.state);
        set.state.gRecordFilter = std::string(selection::kNoFilter);
        ValidateDataSet(set.state, set.engine,
                        {set.prompter, meter, clock, [](double) {}, set.dir.path(), [] {}});
        return meter.turns;
    }
    std::string Log() { return testkit::ReadFile(set.dir.File(kLogName)); }
};

// Each taxon costs its reading as a look-up, its visit, and the links that it has.
TEST_F(CostOfARun, OverAChainOfParentsFollowsItsLength) {
    constexpr int links = 3000;
    {
        const store::Job job(set.engine);
        for (int qb_id = 10; qb_id < 10 + links; ++qb_id) AddTaxon(qb_id, "Gamma", 220, qb_id + 1);
        AddTaxon(10 + links, "Gamma", 220, 10);
    }
    EXPECT_LT(TurnsOfARun(), 12 * links);
    EXPECT_NE(Log().find("the parent's rank <220> must be lower than the Taxon's <220>"), std::string::npos);
}

TEST_F(CostOfARun, EndsWithASynonymOfItself) {
    MakeSynonym(3, 3, "junior synonym");
    const int taken = TurnsOfARun();
    EXPECT_EQ(Log(), OnSpecies({"     an 'invalid'/'not accepted' taxon canot be linked to one that is also "
                                "'invalid'/'not accepted'"}));
    EXPECT_LT(taken, 60);
}

// Half of them have no reference of their own name.
TEST_F(CostOfARun, OverTheNamesOfOneTaxonFollowsTheirNumber) {
    constexpr int names = 2000;
    {
        const store::Job job(set.engine);
        for (int i = 1; i <= names; ++i) {
            Run(
                fmt::format("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, "
                            "approved_ind) VALUES (3, {0}, 'Moth {0}', 'English', True)",
                            i));
            Run(
                fmt::format("INSERT INTO qb_vern_ref_links (qb_id, qb_documentation_id_prefix, "
                            "qb_documentation_id, qb_vern_id, vernacular_name) VALUES (3, 'PUB', 1, {0}, "
                            "'Moth {1}')",
                            i, 2 * i));
        }
    }
    EXPECT_LT(TurnsOfARun(), 6 * names);
    std::string expected;
    for (int i = 1; i <= names; i += 2)
        expected += Lines(
            {fmt::format("Vernaculars:  QBID = <3> Vernacular Name = <Moth {}>  Language = <English>", i),
             "     a reference is required for an approved vernacular"});
    EXPECT_EQ(Log(), expected);
}

}  // namespace
}  // namespace quillon::validation
