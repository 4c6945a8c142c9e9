// The comments of a taxon as the save of a record stores them.
#include "records/comments.h"

#include <gmock/gmock.h>

#include "testkit/testkit.h"

namespace quillon::records {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kNow = "2026-12-31 23:59:58";

class CommentRows : public ::testing::Test {
protected:
    void SetUp() override { set.Make(); }
    RecordStore Records() { return {set.engine, set.db(), set.prompter}; }
    void Run(std::string_view sql) { set.db().Execute(sql); }
    std::string Comments() { return set.Dump("SELECT * FROM qb_comments ORDER BY qb_comment_id"); }
    std::string Links() {
        return set.Dump("SELECT qb_id, qb_comment_id, tsn, comment_id FROM qb_tu_comments_link");
    }
    std::string Tombstones() { return set.Dump("SELECT table_name, pk1, pk2 FROM db_tombstone"); }

    testkit::DataSetFixture set;
    const TaxonKey local{2, 0}, published{3, 7001};
};

TEST_F(CommentRows, GetTheTimeAtWhichTheyAreStored) {
    Comment comment{0, 0, "Smith", "Seen in May", ""};
    EXPECT_TRUE(AddComment(Records(), local, comment, "2026-03-01 08:05:09"));
    EXPECT_EQ(comment.qb_comment_id, 1);
    EXPECT_EQ(comment.timeStamp, "01032026080509");
    EXPECT_EQ(Comments(), "1\t\\N\tSmith\tSeen in May\t01032026080509\n");
    EXPECT_EQ(Links(), "2\t1\t\\N\t\\N\n");
}

TEST_F(CommentRows, OfOneCommentatorTakeTheNextFreeSecond) {
    for (const char* detail : {"one", "two", "three"}) {
        Comment comment{0, 0, "Smith", detail, ""};
        EXPECT_TRUE(AddComment(Records(), published, comment, kNow));
    }
    Comment other{0, 0, "Jones", "four", ""};
    EXPECT_TRUE(AddComment(Records(), published, other, kNow));
    EXPECT_EQ(Comments(),
              "1\t\\N\tSmith\tone\t31122026235958\n"
              "2\t\\N\tSmith\ttwo\t31122026235959\n"
              "3\t\\N\tSmith\tthree\t01012027000000\n"
              "4\t\\N\tJones\tfour\t31122026235958\n");
    EXPECT_EQ(Links(), "3\t1\t7001\t\\N\n3\t2\t7001\t\\N\n3\t3\t7001\t\\N\n3\t4\t7001\t\\N\n");
}

TEST_F(CommentRows, AreLinkedToManyTaxa) {
    Run("INSERT INTO qb_comments (qb_comment_id, comment_id, commentator) VALUES (4, 40, 'Smith')");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('tu_comments_link', '7001', '40')");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('tu_comments_link', '7002', '40')");
    EXPECT_TRUE(IsCommentStored(set.db(), 4));
    EXPECT_FALSE(IsCommentStored(set.db(), 5));
    EXPECT_FALSE(IsCommentStored(set.db(), 0));
    EXPECT_TRUE(LinkComment(Records(), local, {4, 40, "", "", ""}));
    EXPECT_TRUE(LinkComment(Records(), published, {4, 40, "", "", ""}));
    EXPECT_EQ(Links(), "2\t4\t\\N\t40\n3\t4\t7001\t40\n");
    EXPECT_EQ(Tombstones(), "tu_comments_link\t7002\t40\n");
    EXPECT_FALSE(LinkComment(Records(), local, {4, 40, "", "", ""})) << "linked already";
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_FALSE(set.engine.InTransaction());
}

TEST_F(CommentRows, AreRewrittenByTheirIdAndClearTheTombstoneOfTheLink) {
    Run("INSERT INTO qb_comments (qb_comment_id, comment_id, commentator, comment_time_stamp) "
        "VALUES (4, 40, 'Smith', '01011999000000')");
    Run("INSERT INTO qb_comments (qb_comment_id, commentator) VALUES (5, 'Jones')");
    for (const char* keys : {"'7001', '40'", "'7001', '41'", "'7002', '40'"}) {
        Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('tu_comments_link', " +
            std::string(keys) + ")");
    }
    UpdateComment(Records(), published, {4, 40, "Smith", "Corrected", "01011999000000"});
    UpdateComment(Records(), published, {5, 0, "Jones", "", ""});
    UpdateComment(Records(), published, {6, 60, "Nobody", "", ""});
    EXPECT_EQ(Comments(), "4\t40\tSmith\tCorrected\t01011999000000\n5\t\\N\tJones\t\\N\t\\N\n");
    EXPECT_EQ(Tombstones(), "tu_comments_link\t7001\t41\ntu_comments_link\t7002\t40\n");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(CommentRows, ThatCannotBeStoredAreReported) {
    Comment comment{0, 0, std::string(101, 'x'), "Seen in May", ""};
    EXPECT_FALSE(AddComment(Records(), local, comment, kNow));
    EXPECT_EQ(comment.qb_comment_id, 0);
    EXPECT_EQ(Comments() + Links(), "");
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
}

}  // namespace
}  // namespace quillon::records
