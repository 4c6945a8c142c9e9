// The commands of the comments tab, and the save of what they entered.
#include "editor/comment_tab.h"
#include "tab_fixture.h"
#include "testkit/outside.h"

namespace quillon::editor {
namespace {

using Texts = std::vector<std::string>;

class CommentCommands : public TabTest {
protected:
    CommentCommands() {
        tab.Connect(data.state, data.prompter);
        tab.UseClock(clock);
        for (TextControl* field : {&tab.txtCommentator, &tab.txtComment})
            field->OnTakeFocus([this, field] { focus = field->Name(); });
        const std::string insert =
            "INSERT INTO qb_comments (qb_comment_id, comment_id, commentator, comment_detail, "
            "comment_time_stamp) VALUES ";
        Run(insert + "(4, 40, 'Smith', 'Seen in May', '01051999120000')");
        Run(insert + "(5, Null, 'Jones', Null, Null)");
        for (const char* ids : {"3, 4, 7001, 40", "3, 5, 7001, Null", "2, 4, Null, 40"}) {
            Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id, tsn, comment_id) VALUES (" +
                std::string(ids) + ")");
        }
    }
    void Add(std::string_view commentator, std::string_view comment) {
        tab.txtCommentator.UserSetText(commentator);
        tab.txtComment.UserSetText(comment);
        tab.cmdCAdd.UserClick();
    }
    void Remove(int row) {
        tab.grdComments.UserSelectRow(row);
        tab.cmdCDelete.UserClick();
    }
    std::string Rows() const { return RowsOf(tab.grdComments); }
    std::string Stored() { return data.Dump("SELECT * FROM qb_comments ORDER BY qb_comment_id"); }
    std::string Links() {
        return data.Dump(
            "SELECT qb_id, qb_comment_id, tsn, comment_id FROM qb_tu_comments_link "
            "ORDER BY qb_id, qb_comment_id");
    }

    testkit::FixedClock clock;  // at 2024-06-01 12:34:56
    CommentTab tab{form};
    std::string focus;
    const std::string smith = "4\t40\tSmith\tSeen in May\t01051999120000\n";
    const std::string jones = "5\t\\N\tJones\t\\N\t\\N\n";
    const std::string both = "Smith|Seen in May|4|40|01051999120000\nJones||5|0|\n";
};

TEST_F(CommentCommands, WaitForADataSet) {
    EXPECT_FALSE(tab.cmdCAdd.Enabled() || tab.cmdCDelete.Enabled());
    tab.EnterMode(EditorMode::Input);
    EXPECT_TRUE(tab.cmdCAdd.Enabled() && tab.cmdCDelete.Enabled());
    tab.EnterMode(EditorMode::None);
    EXPECT_FALSE(tab.cmdCAdd.Enabled() || tab.cmdCDelete.Enabled());
}

TEST_F(CommentCommands, ACommentIsAddedAndTheFieldsAreCleared) {
    Edit(tab, 3, 7001);
    Add("Green", "Two\nlines");
    EXPECT_EQ(Rows(), both + "Green|Two\nlines|0|0|\n||||\n");
    EXPECT_EQ(tab.txtCommentator.Text() + tab.txtComment.Text(), "");
    EXPECT_EQ(tab.grdComments.SelectedRow(), 3) << "the empty row";
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Said(), Texts());
}

TEST_F(CommentCommands, BothTextsAreRequired) {
    Edit(tab, 3, 7001);
    Add("", "");
    EXPECT_EQ(Said(), Texts{"A Commentator is required!"});
    EXPECT_EQ(focus, "txtCommentator");
    Add("Green", " ");
    EXPECT_EQ(Said(), Texts{"A Comment is required!"});
    EXPECT_EQ(focus, "txtComment");
    EXPECT_EQ(Rows(), both + "||||\n");
    EXPECT_EQ(tab.txtCommentator.Text(), "Green");
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(CommentCommands, DuplicatesAreRefused) {
    Edit(tab, 3, 7001);
    Add("Smith", "Seen in May");
    EXPECT_EQ(Said(), Texts{"Attempting to insert a duplicate Comment"});
    Add("Smith", "seen in May");
    EXPECT_EQ(Said(), Texts());
    EXPECT_EQ(Rows(), both + "Smith|seen in May|0|0|\n||||\n");
}

TEST_F(CommentCommands, DeleteTakesTheSelectedRow) {
    Edit(tab, 3, 7001);
    tab.cmdCDelete.UserClick();
    Remove(2);
    EXPECT_EQ(Rows(), both + "||||\n") << "no row, and the empty one";
    EXPECT_FALSE(data.state.RecordDirty);
    Remove(0);
    EXPECT_EQ(Rows(), "Jones||5|0|\n||||\n");
    EXPECT_EQ(tab.txtCommentator.Text(), "Jones") << "the next row is selected";
    EXPECT_EQ(tab.removed, std::vector<int>{4});
    EXPECT_TRUE(data.state.RecordDirty);
    Add("Green", "New");
    Remove(1);
    EXPECT_EQ(tab.removed, std::vector<int>{4}) << "the other one was never stored";
}

TEST_F(CommentCommands, ASaveRemovesTheLinkOfASharedComment) {
    Edit(tab, 3, 7001);
    Remove(0);
    SaveChanges(tab);
    EXPECT_EQ(Stored(), smith + jones);
    EXPECT_EQ(Links(), "2\t4\t\\N\t40\n3\t5\t7001\t\\N\n");
    EXPECT_EQ(Tombstones(), "tu_comments_link\t7001\t40\t\\N\t\\N\n");
    Edit(tab, 2);
    Remove(0);
    SaveChanges(tab);
    EXPECT_EQ(Stored(), jones);
    EXPECT_EQ(Links(), "3\t5\t7001\t\\N\n");
    EXPECT_EQ(Tombstones(), "tu_comments_link\t7001\t40\t\\N\t\\N\ncomments\t40\t\\N\t\\N\t\\N\n");
}

TEST_F(CommentCommands, CommentsOfOneSaveAreARowEach) {
    Edit(tab, 3, 7001);
    Add("Green", "one");
    Add("Green", "two");
    SaveChanges(tab);
    EXPECT_EQ(Stored(),
              smith + jones + "6\t\\N\tGreen\tone\t01062024123456\n7\t\\N\tGreen\ttwo\t01062024123457\n");
    EXPECT_EQ(Links(), "2\t4\t\\N\t40\n3\t4\t7001\t40\n3\t5\t7001\t\\N\n3\t6\t7001\t\\N\n3\t7\t7001\t\\N\n");
    EXPECT_EQ(Said(), Texts());
}

TEST_F(CommentCommands, AStoredCommentClearsTheTombstoneOfItsLink) {
    Edit(tab, 3, 7001);
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('tu_comments_link', '7001', '40')");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('tu_comments_link', '7001', '41')");
    SaveChanges(tab);
    EXPECT_EQ(Stored(), smith + jones);
    EXPECT_EQ(Tombstones(), "tu_comments_link\t7001\t41\t\\N\t\\N\n");
}

TEST_F(CommentCommands, CommentsThatANewRecordKeepsAreLinkedToBoth) {
    Edit(tab, 3, 7001);
    Add("Green", "one");
    Remove(1);
    SetTaxon(0);
    tab.EnterMode(EditorMode::Input);
    EXPECT_EQ(tab.removed, std::vector<int>());
    SetTaxon(8);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Stored(), smith + jones + "6\t\\N\tGreen\tone\t01062024123456\n");
    EXPECT_EQ(Rows(), "Smith|Seen in May|4|40|01051999120000\nGreen|one|6|0|01062024123456\n||||\n");
    data.state.gPrefSaveComments = "Yes";
    tab.ClearForNextEntry();
    SetTaxon(9);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Stored(), smith + jones + "6\t\\N\tGreen\tone\t01062024123456\n");
    EXPECT_EQ(Links(),
              "2\t4\t\\N\t40\n3\t4\t7001\t40\n3\t5\t7001\t\\N\n"
              "8\t4\t\\N\t40\n8\t6\t\\N\t\\N\n9\t4\t\\N\t40\n9\t6\t\\N\t\\N\n");
    data.state.gPrefSaveComments = "No";
    tab.ClearForNextEntry();
    EXPECT_EQ(Rows(), "||||\n");
}

TEST_F(CommentCommands, AKeptCommentThatIsGoneIsStoredAgain) {
    Edit(tab, 3, 7001);
    Run("DELETE * FROM qb_comments WHERE qb_comment_id = 4");
    tab.EnterMode(EditorMode::Input);
    SetTaxon(8);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Stored(), jones + "6\t40\tSmith\tSeen in May\t01062024123456\n");
}

TEST_F(CommentCommands, AFailedRowIsReportedAndTheOthersAreSaved) {
    tab.EnterMode(EditorMode::Input);
    tab.grdComments.AddDataRow({std::string(101, 'x'), "Too long a name", "0", "0", ""});
    Add("Green", "one");
    SetTaxon(0);
    EXPECT_FALSE(SaveNew(tab)) << "a taxon that was not stored";
    EXPECT_EQ(Stored(), smith + jones);
    SetTaxon(8);
    EXPECT_FALSE(SaveNew(tab));
    EXPECT_EQ(Stored(), smith + jones + "6\t\\N\tGreen\tone\t01062024123456\n");
    const Texts said = Said();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(said[0].substr(0, 7), "Failed ");
}

}  // namespace
}  // namespace quillon::editor
