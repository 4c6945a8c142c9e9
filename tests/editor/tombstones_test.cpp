// Keys that the authority must be told of, written and forgotten.
#include <gmock/gmock.h>

#include "editor/deletion.h"
#include "testkit/testkit.h"

namespace quillon::editor {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Tombstones : public ::testing::Test {
protected:
    void SetUp() override { set.Make(); }
    std::string Dump() { return set.Dump("SELECT * FROM db_tombstone"); }

    testkit::DataSetFixture set;
    Deletion deletion{set.state, set.engine, set.prompter};
};

TEST_F(Tombstones, HoldAsManyKeysAsAreGiven) {
    deletion.WriteTombstone("comments", 30);
    deletion.WriteTombstone("experts", "EXP", 40);
    deletion.WriteTombstone("reference_links", "PUB", 60, 100);
    deletion.WriteTombstone("vern_ref_links", "PUB", 60, 100, 900);
    EXPECT_EQ(Dump(),
              "comments\t30\t\\N\t\\N\t\\N\n"
              "experts\tEXP\t40\t\\N\t\\N\n"
              "reference_links\tPUB\t60\t100\t\\N\n"
              "vern_ref_links\tPUB\t60\t100\t900\n");
}

TEST_F(Tombstones, HoldAKeyOnlyWhenThoseBeforeItAreGiven) {
    deletion.WriteTombstone("one", 1, std::nullopt, 3, 4);
    deletion.WriteTombstone("two", 1, 2, std::nullopt, 4);
    EXPECT_EQ(Dump(), "one\t1\t\\N\t\\N\t\\N\ntwo\t1\t2\t\\N\t\\N\n");
}

TEST_F(Tombstones, AreNotWrittenWithoutAFirstKeyAndNothingIsSaid) {
    deletion.WriteTombstone("comments", Value());
    EXPECT_FALSE(deletion.TryWriteTombstone("comments", ""));
    EXPECT_FALSE(deletion.TryWriteTombstone("comments", "12345678901"));
    EXPECT_TRUE(deletion.TryWriteTombstone("comments", "1234567890"));
    EXPECT_EQ(Dump(), "comments\t1234567890\t\\N\t\\N\t\\N\n");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
    EXPECT_FALSE(set.engine.InTransaction());
}

TEST_F(Tombstones, DoNotDisturbAUnitThatIsOpen) {
    set.engine.BeginTrans();
    EXPECT_FALSE(deletion.TryWriteTombstone("comments", 1));
    EXPECT_TRUE(set.engine.InTransaction());
    set.engine.Rollback();
}

TEST_F(Tombstones, AreForgottenByTheirWholeKey) {
    deletion.WriteTombstone("jurisdiction", 100, "Alaska");
    deletion.WriteTombstone("jurisdiction", 100, "Hawaii");
    deletion.WriteTombstone("jurisdiction", 101, "Alaska");
    deletion.WriteTombstone("geographic_division", 100, "Alaska");
    deletion.RemoveTombstone("jurisdiction", 100, "Alaska");
    EXPECT_EQ(Dump(),
              "jurisdiction\t100\tHawaii\t\\N\t\\N\n"
              "jurisdiction\t101\tAlaska\t\\N\t\\N\n"
              "geographic_division\t100\tAlaska\t\\N\t\\N\n");
    deletion.RemoveTombstone("jurisdiction", 100);
    EXPECT_EQ(Dump(), "jurisdiction\t101\tAlaska\t\\N\t\\N\ngeographic_division\t100\tAlaska\t\\N\t\\N\n");
}

TEST_F(Tombstones, AreForgottenByAllFourKeys) {
    deletion.WriteTombstone("vern_ref_links", "PUB", 60, 100, 900);
    deletion.WriteTombstone("vern_ref_links", "PUB", 60, 100, 901);
    deletion.RemoveTombstone("vern_ref_links", "PUB", 60, 100, 901);
    EXPECT_EQ(Dump(), "vern_ref_links\tPUB\t60\t100\t900\n");
}

TEST_F(Tombstones, AreComparedWithTheirCaseAndWithoutBlanksAtTheEnds) {
    deletion.WriteTombstone("jurisdiction", 100, "Alaska");
    deletion.RemoveTombstone("jurisdiction", 100, "ALASKA");
    EXPECT_EQ(Dump(), "jurisdiction\t100\tAlaska\t\\N\t\\N\n");
    deletion.RemoveTombstone("jurisdiction", 100, "  Alaska ");
    EXPECT_EQ(Dump(), "");
}

TEST_F(Tombstones, TakeQuotesAndBars) {
    deletion.WriteTombstone("jurisdiction", 100, "d'Or | \"x\"");
    deletion.RemoveTombstone("jurisdiction", 100, "d'Or | \"x\"");
    EXPECT_EQ(Dump(), "");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(Tombstones, ThatCannotBeForgottenAreTold) {
    set.db().Close();
    deletion.RemoveTombstone("comments", 30);
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
}

}  // namespace
}  // namespace quillon::editor
