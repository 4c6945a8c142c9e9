// Stepping through the taxa of one rank.
#include "rec_view_fixture.h"

namespace quillon::editor {

class RankStepTest : public RecViewFixture {
protected:
    RankStepTest() {
        Make();
        AddTaxon(7, "2", 220, "'Orca', 'beta', Null", "'valid'");
        AddTaxon(8, "6", 220, "'Cetus', 'magnus', Null", "'valid'");
        AddTaxon(9, "6", 220, "'Cetus', 'albus', Null", "'valid'");
        AddTaxon(10, "7", 230, "'Orca', 'beta', 'major'", "'valid'");
        Show();
    }
    // The taxa that a command leads to, from one to the next, until it stays.
    std::string Way(ButtonControl& command) {
        std::string ids;
        for (int before = 0; before != data.state.currentTaxon.qb_id && ids.size() < 60;) {
            before = data.state.currentTaxon.qb_id;
            ids += std::to_string(before) + " ";
            command.UserClick();
        }
        return ids;
    }
};

TEST_F(RankStepTest, StepsThroughTheGeneraByName) {
    Select(6);
    EXPECT_EQ(Way(form.mnuRankNext), "6 5 2 ");
    EXPECT_EQ(Way(form.mnuRankPrev), "2 5 6 ");
    EXPECT_EQ(Way(form.mnuRankLast), "6 2 ");
    EXPECT_EQ(Way(form.mnuRankFirst), "2 6 ");
}

TEST_F(RankStepTest, SpeciesGoOnWithTheNextGenus) {
    Select(9);
    EXPECT_EQ(Way(form.mnuRankNext), "9 8 3 7 ");
    EXPECT_EQ(Way(form.mnuRankPrev), "7 3 8 9 ");
    EXPECT_EQ(Way(form.mnuRankLast), "9 8 ");
}

TEST_F(RankStepTest, SubspeciesGoOnWithTheNextSpecies) {
    Select(4);
    EXPECT_EQ(Way(form.mnuRankNext), "4 10 ");
    EXPECT_EQ(Way(form.mnuRankPrev), "10 4 ");
}

TEST_F(RankStepTest, RefusesARecordWithoutRankOrKingdom) {
    Select(6);
    tab.cboRank.SetText("");
    form.mnuRankNext.UserClick();
    tab.txtKingdom.SetText("");
    form.mnuRankNext.UserClick();
    EXPECT_EQ(data.prompter.messages, (Messages{"Current Record is not complete (rank)",
                                                "Current Record is not complete (kingdom)"}));
    EXPECT_EQ(data.state.currentTaxon.qb_id, 6);
}

TEST_F(RankStepTest, NoKeepsTheUnsavedRecord) {
    Select(6);
    tab.txtName1.UserSetText("Zetus");
    data.prompter.yesNo = {false};
    form.mnuRankNext.UserClick();
    EXPECT_EQ(data.state.currentTaxon.qb_id, 6);
    EXPECT_EQ(tab.txtName1.Text(), "Zetus");
}

}  // namespace quillon::editor
