// A Cancel at any turn of a validation: it ends soon, and the log holds the findings so far and no others.

#include "testkit/turn_meter.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

// A run ends with the first turn of each of the reads that are left.
constexpr int kMostTurnsAfterwards = 20;

class CancelAnywhere : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        for (int qb_id = 4; qb_id <= 9; ++qb_id) {
            AddTaxon(qb_id, "Gamma", 220, 2);
            Run(fmt::format("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES ({}, 'Alaska')",
                            qb_id));
            Run(fmt::format(
                "INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
                "VALUES ({0}, {0}, 'Moth', Null, {1})",
                qb_id, qb_id % 2 == 0));
            Run(fmt::format("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', {})",
                            qb_id));
            Refer(qb_id, "EXP", qb_id);
            Run(fmt::format(
                "INSERT INTO qb_vern_ref_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
                "qb_vern_id, vernacular_name) VALUES ({0}, 'EXP', {0}, {0}, '{1}')",
                qb_id, qb_id > 6 ? "Moth" : "Bee"));
            Run(fmt::format("INSERT INTO journal (qb_id) VALUES ({})", qb_id));
        }
        MakeSynonym(5, 6, "junior synonym");
        Link(6, 7);
        Unrefer(8);
    }
    std::string ValidateWith(EventPump& events, std::string_view filter) {
        set.state.gRecordFilter = filter;
        set.state.gBatchCancel = false;
        return testkit::ReadFile(
            ValidateDataSet(set.state, set.engine,
                            {set.prompter, events, clock, [](double) {}, set.dir.path(), [] {}})
                .logPath);
    }
    void CancelAtEachTurn(std::string_view filter) {
        testkit::TurnMeter whole(set.state);
        const std::string log = ValidateWith(whole, filter);
        ASSERT_NE(log, "");
        for (int turn = 1; turn <= whole.turns; ++turn) {
            testkit::TurnMeter meter(set.state);
            meter.cancelAt = turn;
            const std::string part = ValidateWith(meter, filter);
            EXPECT_EQ(log.substr(0, part.size()), part) << "canceled at turn " << turn;
            EXPECT_LE(meter.turns, turn + kMostTurnsAfterwards);
        }
    }
};

TEST_F(CancelAnywhere, EndsTheRunSoonWithoutFalseFindings) {
    CancelAtEachTurn(selection::kNoFilter);
}

TEST_F(CancelAnywhere, EndsARunOverTheJournalToo) {
    CancelAtEachTurn(selection::kJournalFilter);
}

TEST_F(CancelAnywhere, EndsARunUnderAConditionToo) {
    CancelAtEachTurn(selection::ColumnClause("rank_id", "=", "220"));
}

}  // namespace

}  // namespace quillon::validation
