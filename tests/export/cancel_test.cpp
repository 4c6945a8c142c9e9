// A Cancel at any turn of an export: it ends soon, and the file holds the lines so far and no others.

#include "export_fixture.h"
#include "random_rows.h"
#include "testkit/turn_meter.h"

namespace quillon::exporting {
namespace {

// A run ends with the first turn of each of the reads that are left.
constexpr int kMostTurnsAfterwards = 20;
constexpr int kStride = 5;  // between the turns that are tried

class CancelAnywhere : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        FillWithOddRows(set.engine, set.db(), 7);
        RunJob();  // fills the parents' tsn, so that each run below reads the same rows
    }
    std::string Export(EventPump& events, const ExportOrder& order, ExportOutcome expected) {
        set.state.gBatchCancel = false;
        set.state.gRecordsDone = 0;
        ExportJob job(set.state, set.engine, {set.prompter, events, clock, [](double) {}, set.dir.path()});
        EXPECT_EQ(job.Run(order).outcome, expected);
        return OutFile();
    }
    void CancelAtTurns(const ExportOrder& order) {
        testkit::TurnMeter whole(set.state);
        const std::string all = Export(whole, order, ExportOutcome::Done);
        for (int turn = 1; turn <= whole.turns; turn += kStride) {
            testkit::TurnMeter meter(set.state);
            meter.cancelAt = turn;
            const std::string part = Export(meter, order, ExportOutcome::Canceled);
            EXPECT_EQ(all.substr(0, part.size()), part) << "canceled at turn " << turn;
            EXPECT_TRUE(part.empty() || part.ends_with("\r\n"));
            EXPECT_LE(meter.turns, turn + kMostTurnsAfterwards);
        }
    }
};

TEST_F(CancelAnywhere, LeavesTheFirstLinesOfTheFile) {
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFirstLinesUnderTheJournal) {
    FilterByJournal();
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFirstLinesUnderAClause) {
    FilterBy("tsn", ">", "9");
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFirstLinesForTheOnlineSystem) {
    ExportOrder order;
    order.kind = ExportKind::Online;
    CancelAtTurns(order);
}

TEST_F(CancelAnywhere, LeavesTheFirstLinesOfAList) {
    ExportOrder order;
    order.kind = ExportKind::List;
    order.listType = 3;
    CancelAtTurns(order);
}

}  // namespace
}  // namespace quillon::exporting
