// What the user's choice of a rank, a hybrid formula or a quadrinomial changes on the first tab, and what a
// save takes from it then.
#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

class RankChange : public RecViewFixture {
protected:
    void MakePlants() {
        data.state.gPrefRank = "Kingdom";
        data.Make("Plantae");
        Show();
        AddTaxon(2, "1", 180, "'Rosa', Null, Null", "'accepted'");
        AddTaxon(3, "2", 220, "'Rosa', 'alba', Null", "'accepted'");
        AddTaxon(4, "3", 240, "'Rosa', 'alba', 'minor'", "'accepted'");
        AddTaxon(5, "2", 220, "'Rosa', 'canina', Null", "'accepted'");
    }
    void Choose(const char* rank) { ASSERT_TRUE(tab.cboRank.UserSetText(rank)) << rank; }
    // The units as a save takes them.
    std::string Entered() const {
        return tab.EnteredUnit(1) + "," + tab.EnteredUnit(2) + "," + tab.EnteredUnit(3) + "," +
               tab.EnteredUnit(4);
    }
    std::string Visible() const {
        std::string names;
        for (const Control* control : std::initializer_list<const Control*>{
                 &tab.cboName1, &tab.txtName1, &tab.cboName2, &tab.txtName2, &tab.cboName3Rank, &tab.txtName3,
                 &tab.txtName4, &tab.chkHybrid3, &tab.chkQuad, &tab.cboAuth2}) {
            if (control->Visible()) names += (names.empty() ? "" : " ") + control->Name();
        }
        return names;
    }
    // Whether valid and invalid are on.
    std::string Usage() const {
        return std::string(tab.optValid.Value() ? "1" : "0") + (tab.optInvalid.Value() ? "1" : "0");
    }
};

TEST_F(RankChange, BringsFieldsParentRanksAndTheUsualParentRank) {
    Make();
    Select(2);
    Choose("Species");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Visible(), "cboName1 txtName2 chkHybrid3");
    EXPECT_EQ(Texts(tab.cboDPRank).substr(0, 18), "Kingdom|Subkingdom");
    EXPECT_EQ(tab.cboDPRank.Text(), "Genus");
    EXPECT_EQ(data.state.currentTaxon.direct_parent_rank_id, 180);
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus");
    EXPECT_EQ(Texts(tab.cboName1), "Cetus|Gladiator|Orca");
    EXPECT_TRUE(RankHasDistribution(tab.cboRank.Text()));
}

TEST_F(RankChange, TheUsualParentRankDependsOnTheKingdom) {
    Make();
    Select(6);
    Choose("Class");
    EXPECT_EQ(tab.cboDPRank.Text(), "Subphylum");
    Choose("Order");
    EXPECT_EQ(tab.cboDPRank.Text(), "Superorder");
    Choose("Kingdom");
    EXPECT_EQ(tab.cboDPRank.Text(), "Kingdom");
    EXPECT_EQ(Texts(tab.cboDPRank), "Kingdom");
}

TEST_F(RankChange, PlantsHaveParentRanksOfTheirOwn) {
    MakePlants();
    Select(5);
    Choose("Class");
    EXPECT_EQ(tab.cboDPRank.Text(), "Subdivision");
    Choose("Genus");
    EXPECT_EQ(tab.cboDPRank.Text(), "Subtribe");
}

TEST_F(RankChange, AKingdomOfNeitherFamilyKeepsTheParentRankWhereTheFamiliesDiffer) {
    Make();
    Select(6);
    data.state.gKingdomName = "Viruses";
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Phylum"));
    Choose("Class");
    EXPECT_EQ(tab.cboDPRank.Text(), "Phylum");
    Choose("Subclass");
    EXPECT_EQ(tab.cboDPRank.Text(), "Class");
}

TEST_F(RankChange, KeepsWhatWasTypedButASaveLeavesHiddenNamesOut) {
    Make();
    Select(4);
    Choose("Species");
    EXPECT_EQ(tab.txtName3.Text(), "minor");
    EXPECT_EQ(Entered(), "Orca,alpha,,");
    Choose("Genus");
    EXPECT_EQ(Entered(), "Orca,,,");
    Choose("Subspecies");
    EXPECT_EQ(Entered(), "Orca,alpha,minor,");
}

TEST_F(RankChange, NamesThatAreHiddenSinceTheLoadAreWrittenBack) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET unit_name3 = 'rest', hybrid_author_id = 2 WHERE qb_id = 3");
    Select(3);
    EXPECT_EQ(Entered() + "|" + tab.EnteredHybridAuthor(), "Orca,alpha,rest,|Brown");
    Choose("Genus");
    EXPECT_EQ(Entered() + "|" + tab.EnteredHybridAuthor(), "Orca,,rest,|Brown");
    recView.SelectExplorerItem(2, false);
    recView.SelectExplorerItem(3, false);
    EXPECT_EQ(Entered(), "Orca,alpha,rest,") << "loaded again";
}

TEST_F(RankChange, MarksStayAsLongAsTheRankHasThem) {
    Make();
    Select(3);
    tab.chkHybrid1.UserSetValue(true);
    tab.chkHybrid2.UserSetValue(true);
    Choose("Subspecies");
    EXPECT_TRUE(tab.chkHybrid1.Value() && tab.chkHybrid2.Value());
    Choose("Genus");
    EXPECT_TRUE(tab.chkHybrid1.Value());
    EXPECT_FALSE(tab.chkHybrid2.Value());
    Choose("Family");
    EXPECT_FALSE(tab.chkHybrid1.Value());
}

TEST_F(RankChange, EmptiesTheRatingsThatTheRankDoesNotHave) {
    Make();
    Execute(
        "UPDATE qb_taxonomic_units SET taxonomic_completeness_rating = 'partial', currency_rating = '1999' "
        "WHERE qb_id = 3");
    Select(3);
    EXPECT_EQ(tab.cboCoverage.Text() + "|" + tab.txtCurrency.Text(), "partial|1999");
    Choose("Subspecies");
    EXPECT_EQ(tab.cboCoverage.Text() + "|" + tab.txtCurrency.Text(), "|");
}

TEST_F(RankChange, NeverTouchesTheUsage) {
    MakePlants();
    Select(5);
    EXPECT_EQ(Usage(), "10");
    Choose("Variety");
    EXPECT_EQ(Usage(), "10");
    tab.optInvalid.UserChoose();
    Choose("Form");
    EXPECT_EQ(Usage(), "01");
    Choose("Genus");
    EXPECT_EQ(Usage(), "01");
    EXPECT_TRUE(data.prompter.messages.empty());
}

TEST_F(RankChange, AVarietyShowsThreeUnitsAndTheBoxForAFourth) {
    MakePlants();
    Select(5);
    Choose("Variety");
    EXPECT_EQ(Visible(), "cboName1 cboName2 txtName3 chkQuad");
    EXPECT_FALSE(tab.chkQuad.Value());
    EXPECT_EQ(tab.lblName3.Caption() + "," + tab.lblName4.Caption(), "Variety,");
}

TEST_F(RankChange, AFormulaShowsItsFieldsAndHidesThemAgain) {
    Make();
    Select(3);
    tab.chkHybrid3.UserSetValue(true);
    EXPECT_EQ(Visible(), "cboName1 txtName2 txtName3 txtName4 chkHybrid3 cboAuth2");
    EXPECT_EQ(tab.lblName3.Caption() + "," + tab.lblName4.Caption() + "," + tab.lblHybridAuthority.Caption(),
              "Genus,Species,Hybrid Author");
    tab.txtName3.UserSetText("Cetus");
    tab.txtName4.UserSetText("beta");
    tab.cboAuth2.UserSetText("Brown");
    EXPECT_EQ(Entered() + "|" + tab.EnteredHybridAuthor(), "Orca,alpha,Cetus,beta|Brown");
    tab.chkHybrid3.UserSetValue(false);
    EXPECT_EQ(Visible(), "cboName1 txtName2 chkHybrid3");
    EXPECT_EQ(tab.lblHybridAuthority.Caption(), "");
    EXPECT_EQ(Entered() + "|" + tab.EnteredHybridAuthor(), "Orca,alpha,,|");
    tab.chkHybrid3.UserSetValue(true);
    EXPECT_EQ(Entered(), "Orca,alpha,Cetus,beta");
    Choose("Subspecies");
    EXPECT_FALSE(tab.chkHybrid3.Value());
    EXPECT_EQ(Entered() + "|" + tab.EnteredHybridAuthor(), "Orca,alpha,,|");
}

TEST_F(RankChange, AQuadrinomialTakesTheThirdUnitAndGivesItBack) {
    MakePlants();
    Select(4);
    tab.chkQuad.UserSetValue(true);
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Visible(), "cboName1 cboName2 cboName3Rank txtName3 txtName4 chkQuad");
    EXPECT_EQ(Entered(), "Rosa,alba,,minor");
    EXPECT_EQ(tab.lblName4.Caption() + "|" + Texts(tab.cboName3Rank), "Variety|Subspecies");
    EXPECT_EQ(Usage(), "01") << "a quadrinomial cannot stay accepted";
    EXPECT_EQ(tab.cboParentName.Text(), "");
    tab.chkQuad.UserSetValue(false);
    EXPECT_EQ(Visible(), "cboName1 cboName2 txtName3 chkQuad");
    EXPECT_EQ(Entered(), "Rosa,alba,minor,");
    EXPECT_EQ(Usage(), "10");
    EXPECT_EQ(tab.cboParentName.Text(), "Rosa alba");
}

TEST_F(RankChange, AnAcceptedQuadrinomialLosesItsParentByTheLoad) {
    MakePlants();
    Execute(
        "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, unit_name2, unit_name3, "
        "unit_ind4, unit_name4, usage, kingdom_id) VALUES (6, 3, 240, 'Rosa', 'alba', 'minor', 'var.', "
        "'nana', 'accepted', 3)");
    Select(6);
    EXPECT_EQ(Usage(), "01");
    EXPECT_EQ(tab.cboParentName.Text() + std::to_string(data.state.currentTaxon.parent_qb_id), "0");
    EXPECT_EQ(tab.ChosenParent(), 0);
}

TEST_F(RankChange, AStoredWordThatItsListLacksIsShown) {
    Make();
    Execute(
        "UPDATE qb_taxonomic_units SET parent_qb_id = 4, taxonomic_credibility_rating = 'x' WHERE qb_id = 3");
    Select(3);
    EXPECT_EQ(tab.cboDPRank.Text() + "|" + tab.cboCredibility.Text(), "Subspecies|x");
}

}  // namespace
}  // namespace quillon::editor
