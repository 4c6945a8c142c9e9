// A Cancel at any turn of an export: it ends soon, and leaves the file as it was and nothing beside it.

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
            EXPECT_EQ(Export(meter, order, ExportOutcome::Canceled), all) << "canceled at turn " << turn;
            EXPECT_LE(meter.turns, turn + kMostTurnsAfterwards);
        }
        for (const std::string& name : OtherFiles()) EXPECT_EQ(name.find("~new-"), std::string::npos) << name;
    }
};

TEST_F(CancelAnywhere, LeavesTheFile) {
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFileUnderTheJournal) {
    FilterByJournal();
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFileUnderAClause) {
    FilterBy("tsn", ">", "9");
    CancelAtTurns({});
}

TEST_F(CancelAnywhere, LeavesTheFileForTheOnlineSystem) {
    ExportOrder order;
    order.kind = ExportKind::Online;
    CancelAtTurns(order);
}

TEST_F(CancelAnywhere, LeavesTheList) {
    ExportOrder order;
    order.kind = ExportKind::List;
    order.listType = ListType::NameAuthorRank;
    CancelAtTurns(order);
}

}  // namespace
}  // namespace quillon::exporting
