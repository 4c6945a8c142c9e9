// The keys of deleted rows that the authority had assigned.
#include <gmock/gmock.h>

#include "records/tombstones.h"
#include "testkit/testkit.h"
#include "testkit/turn_meter.h"

namespace quillon::records {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Tombstones : public ::testing::Test {
protected:
    void SetUp() override { set.Make(); }
    RecordStore Records() { return {set.engine, set.db(), set.prompter}; }
    std::string Dump() { return set.Dump("SELECT * FROM db_tombstone"); }

    testkit::DataSetFixture set;
};

TEST_F(Tombstones, HoldAsManyKeysAsAreGiven) {
    WriteTombstone(Records(), "comments", 30);
    WriteTombstone(Records(), "experts", "EXP", 40);
    WriteTombstone(Records(), "reference_links", "PUB", 60, 100);
    WriteTombstone(Records(), "vern_ref_links", "PUB", 60, 100, 900);
    EXPECT_EQ(Dump(),
              "comments\t30\t\\N\t\\N\t\\N\n"
              "experts\tEXP\t40\t\\N\t\\N\n"
              "reference_links\tPUB\t60\t100\t\\N\n"
              "vern_ref_links\tPUB\t60\t100\t900\n");
}

TEST_F(Tombstones, HoldAKeyOnlyWhenThoseBeforeItAreGiven) {
    WriteTombstone(Records(), "one", 1, std::nullopt, 3, 4);
    WriteTombstone(Records(), "two", 1, 2, std::nullopt, 4);
    EXPECT_EQ(Dump(), "one\t1\t\\N\t\\N\t\\N\ntwo\t1\t2\t\\N\t\\N\n");
}

TEST_F(Tombstones, AreSilentlySkippedWithoutAFirstKey) {
    WriteTombstone(Records(), "comments", Value());
    EXPECT_FALSE(WriteTombstone(Records(), "comments", ""));
    EXPECT_FALSE(WriteTombstone(Records(), "comments", "12345678901"));
    EXPECT_TRUE(WriteTombstone(Records(), "comments", "1234567890"));
    EXPECT_EQ(Dump(), "comments\t1234567890\t\\N\t\\N\t\\N\n");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
    EXPECT_FALSE(set.engine.InTransaction());
}

TEST_F(Tombstones, CostTheSameHoweverManyThereAre) {
    {
        const store::Job job(set.engine);
        for (int tsn = 1; tsn <= 3000; ++tsn) WriteTombstone(Records(), "jurisdiction", tsn, "Alaska");
    }
    testkit::TurnMeter meter(set.state);
    meter.Watch();
    EXPECT_TRUE(WriteTombstone(Records(), "comments", 1));
    meter.Yield();
    RemoveTombstone(Records(), "jurisdiction", 7, "Alaska");
    EXPECT_LT(meter.Longest(), 500);
    EXPECT_EQ(set.Dump("SELECT count(*) FROM db_tombstone"), "3000\n");
}

TEST_F(Tombstones, LeaveAnOpenUnitAlone) {
    set.engine.BeginTrans();
    EXPECT_FALSE(WriteTombstone(Records(), "comments", 1));
    EXPECT_TRUE(set.engine.InTransaction());
    set.engine.Rollback();
}

TEST_F(Tombstones, AreForgottenByTheirWholeKey) {
    WriteTombstone(Records(), "jurisdiction", 100, "Alaska");
    WriteTombstone(Records(), "jurisdiction", 100, "Hawaii");
    WriteTombstone(Records(), "jurisdiction", 101, "Alaska");
    WriteTombstone(Records(), "geographic_division", 100, "Alaska");
    RemoveTombstone(Records(), "jurisdiction", 100, "Alaska");
    EXPECT_EQ(Dump(),
              "jurisdiction\t100\tHawaii\t\\N\t\\N\n"
              "jurisdiction\t101\tAlaska\t\\N\t\\N\n"
              "geographic_division\t100\tAlaska\t\\N\t\\N\n");
    RemoveTombstone(Records(), "jurisdiction", 100);
    EXPECT_EQ(Dump(), "jurisdiction\t101\tAlaska\t\\N\t\\N\ngeographic_division\t100\tAlaska\t\\N\t\\N\n");
}

TEST_F(Tombstones, AreForgottenByAllFourKeys) {
    WriteTombstone(Records(), "vern_ref_links", "PUB", 60, 100, 900);
    WriteTombstone(Records(), "vern_ref_links", "PUB", 60, 100, 901);
    RemoveTombstone(Records(), "vern_ref_links", "PUB", 60, 100, 901);
    EXPECT_EQ(Dump(), "vern_ref_links\tPUB\t60\t100\t900\n");
}

TEST_F(Tombstones, AreComparedWithTheirCaseAndWithoutBlanksAtTheEnds) {
    WriteTombstone(Records(), "jurisdiction", 100, "Alaska");
    RemoveTombstone(Records(), "jurisdiction", 100, "ALASKA");
    EXPECT_EQ(Dump(), "jurisdiction\t100\tAlaska\t\\N\t\\N\n");
    RemoveTombstone(Records(), "jurisdiction", 100, "  Alaska ");
    EXPECT_EQ(Dump(), "");
}

TEST_F(Tombstones, TakeQuotesAndBars) {
    WriteTombstone(Records(), "jurisdiction", 100, "d'Or | \"x\"");
    RemoveTombstone(Records(), "jurisdiction", 100, "d'Or | \"x\"");
    EXPECT_EQ(Dump(), "");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(Tombstones, ThatCannotBeForgottenAreReported) {
    set.db().Close();
    RemoveTombstone(Records(), "comments", 30);
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
}

}  // namespace
}  // namespace quillon::records
