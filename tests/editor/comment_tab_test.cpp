// The comments of a record: what the load shows, and what goes into the fields.
#include "editor/comment_tab.h"

#include "tab_fixture.h"

namespace quillon::editor {
namespace {

class CommentTabTest : public TabTest {
protected:
    CommentTabTest() {
        const std::string insert =
            "INSERT INTO qb_comments (qb_comment_id, comment_id, commentator, comment_detail, "
            "comment_time_stamp) VALUES ";
        Run(insert + "(4, 40, 'Smith', 'Seen in May', '01051999120000')");
        Run(insert + "(5, Null, 'Jones', Null, Null)");
        Run(insert + "(6, Null, 'Brown', 'Of another', Null)");
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (2, 4)");
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (2, 5)");
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (3, 4)");
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (3, 6)");
        tab.Connect(data.state, data.prompter);
    }
    std::string Fields() const { return tab.txtCommentator.Text() + "|" + tab.txtComment.Text(); }

    CommentTab tab{form};
};

TEST_F(CommentTabTest, BeginsWithTheEmptyRowAndWithoutCommands) {
    EXPECT_EQ(HeadingsOf(tab.grdComments), "Commentator;Comment;QB ID(hidden);ID(hidden);Timestamp(hidden);");
    EXPECT_EQ(RowsOf(tab.grdComments), "||||\n");
    EXPECT_FALSE(tab.cmdCAdd.Enabled());
    EXPECT_FALSE(tab.cmdCDelete.Enabled());
    EXPECT_EQ(tab.txtCommentator.MaxLength(), 100U);
    EXPECT_EQ(tab.txtComment.MaxLength(), 0U);
}

TEST_F(CommentTabTest, ShowsTheCommentsOfTheTaxon) {
    tab.Load(2);
    EXPECT_EQ(RowsOf(tab.grdComments),
              "Smith|Seen in May|4|40|01051999120000\n"
              "Jones||5|0|\n"
              "||||\n");
    EXPECT_EQ(tab.grdComments.SelectedRow(), -1);
}

TEST_F(CommentTabTest, ACommentOfTwoTaxaShowsOnBoth) {
    tab.Load(3);
    EXPECT_EQ(RowsOf(tab.grdComments),
              "Smith|Seen in May|4|40|01051999120000\n"
              "Brown|Of another|6|0|\n"
              "||||\n");
}

TEST_F(CommentTabTest, ALoadForgetsTheRecordBefore) {
    tab.Load(2);
    tab.grdComments.UserSelectRow(0);
    EXPECT_EQ(Fields(), "Smith|Seen in May");
    tab.removed = {5};
    tab.Load(7);
    EXPECT_EQ(RowsOf(tab.grdComments), "||||\n");
    EXPECT_EQ(tab.removed, std::vector<int>());
    EXPECT_EQ(Fields(), "|");
}

TEST_F(CommentTabTest, ARowThatIsChosenIsShown) {
    tab.Load(2);
    tab.grdComments.AddDataRow({"Green", "Two\nlines", "0", "0", ""});
    EXPECT_EQ(RowsOf(tab.grdComments),
              "Smith|Seen in May|4|40|01051999120000\n"
              "Jones||5|0|\n"
              "Green|Two\nlines|0|0|\n"
              "||||\n");
    tab.grdComments.UserSelectRow(2);
    EXPECT_EQ(Fields(), "Green|Two\nlines");
    tab.grdComments.UserSelectRow(1);
    EXPECT_EQ(Fields(), "Jones|");
    tab.grdComments.UserSelectRow(3);
    EXPECT_EQ(Fields(), "|") << "the empty row";
}

}  // namespace
}  // namespace quillon::editor
