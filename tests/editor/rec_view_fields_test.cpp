// Which fields the first tab has for a rank, and what a quadrinomial does to the usage.
#include "editor/taxon_fields.h"

#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

class RecViewFields : public RecViewFixture {
protected:
    void MakePlants() {
        data.state.gPrefRank = "Kingdom";
        data.Make("Plantae");
        Show();
    }
    std::string Labels() const {
        return tab.lblName1.Caption() + "," + tab.lblName2.Caption() + "," + tab.lblName3.Caption() + "," +
               tab.lblName4.Caption();
    }
    // The fields that are not always there.
    std::string Visible() const {
        std::string names;
        for (const Control* control : std::initializer_list<const Control*>{
                 &tab.cboName1,    &tab.txtName1,     &tab.cboName2,    &tab.txtName2,
                 &tab.cmdParen,    &tab.cboName3Rank, &tab.txtName3,    &tab.txtName4,
                 &tab.lblHybrid,   &tab.chkHybrid1,   &tab.chkHybrid2,  &tab.chkHybrid3,
                 &tab.chkQuad,     &tab.cboAuth2,     &tab.lblCurrency, &tab.txtCurrency,
                 &tab.lblComplete, &tab.cboCoverage,  &tab.lblCredible, &tab.cboCredibility}) {
            if (control->Visible()) names += (names.empty() ? "" : " ") + control->Name();
        }
        return names;
    }
    std::string ForRank(const char* rank) {
        if (tab.cboRank.FindText(rank) < 0) tab.cboRank.AddItem(rank);
        tab.cboRank.SetText(rank);
        tab.Fields().SetFieldsForRank();
        return Labels() + " " + Visible();
    }
    // A variety of Rosa alba with four units.
    void AddQuadrinomial(const char* usage, const char* tsn, const char* parent = "2") {
        AddTaxon(2, "1", 220, "'Rosa', 'alba', Null", "'accepted'");
        Execute(
            std::string("INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, rank_id, unit_name1, "
                        "unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4, usage, tsn, kingdom_id) "
                        "VALUES (3, ") +
            parent + ", 240, 'Rosa', 'alba', 'ssp.', 'minor', 'var.', 'nana', " + usage + ", " + tsn +
            ", 3)");
    }
};

constexpr const char* kRatings = "lblCurrency txtCurrency lblComplete cboCoverage lblCredible cboCredibility";
constexpr const char* kCredibility = "lblCredible cboCredibility";

TEST_F(RecViewFields, NoNameWithoutARank) {
    MakePlants();
    EXPECT_EQ(ForRank(""), std::string(",,, ") + kRatings);
    EXPECT_EQ(ForRank("Clade"), std::string(",,, ") + kRatings);
}

TEST_F(RecViewFields, RanksAboveGenusHaveOneUnitUnderTheirOwnWord) {
    MakePlants();
    for (const char* rank :
         {"Kingdom", "Subkingdom", "Phylum", "Subphylum", "Division", "Subdivision", "Superclass", "Class",
          "Subclass", "Infraclass", "Superorder", "Order", "Suborder", "Infraorder", "Superfamily", "Family",
          "Subfamily", "Tribe", "Subtribe"}) {
        EXPECT_EQ(ForRank(rank), std::string(rank) + ",,, txtName1 " + kRatings);
    }
    EXPECT_EQ(ForRank(" FAMILY "), std::string("Family,,, txtName1 ") + kRatings);
}

TEST_F(RecViewFields, RanksFromGenusDownHaveTheirUnits) {
    MakePlants();
    EXPECT_EQ(ForRank("Genus"), std::string("Genus,,, txtName1 lblHybrid chkHybrid1 ") + kRatings);
    EXPECT_EQ(ForRank("Subgenus"),
              std::string("Genus,Subgenus,, cboName1 txtName2 cmdParen ") + kCredibility);
    EXPECT_EQ(ForRank("Section"), std::string("Section,,, txtName1 ") + kCredibility);
    EXPECT_EQ(ForRank("Subsection"), std::string("Subsection,,, txtName1 ") + kCredibility);
    EXPECT_EQ(ForRank("Species"),
              std::string("Genus,Species,, cboName1 txtName2 lblHybrid chkHybrid1 chkHybrid2 chkHybrid3 ") +
                  kCredibility);
    EXPECT_EQ(ForRank("Subspecies"),
              std::string("Genus,Species,Subspecies, cboName1 cboName2 txtName3 lblHybrid chkHybrid1 "
                          "chkHybrid2 ") +
                  kCredibility);
    for (const std::string rank : {"Variety", "Subvariety", "Form", "Subform"}) {
        EXPECT_EQ(ForRank(rank.c_str()),
                  "Genus,Species," + rank +
                      ", cboName1 cboName2 txtName3 lblHybrid chkHybrid1 chkHybrid2 chkQuad " + kCredibility);
        EXPECT_TRUE(tab.optValid.Value());
    }
}

TEST_F(RecViewFields, RatingsThatARankLacksAreEmptied) {
    MakePlants();
    tab.txtCurrency.SetText("1999");
    tab.cboCoverage.SetText("partial");
    tab.cboCredibility.SetText("KSP standards met");
    ForRank("Genus");
    EXPECT_EQ(tab.txtCurrency.Text() + "|" + tab.cboCoverage.Text(), "1999|partial");
    ForRank("Species");
    EXPECT_EQ(tab.txtCurrency.Text() + "|" + tab.cboCoverage.Text() + "|" + tab.cboCredibility.Text(),
              "||KSP standards met");
}

TEST_F(RecViewFields, ARecordStillShowsTheRatingsItHas) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET taxonomic_completeness_rating = 'partial' WHERE qb_id = 3");
    Select(3);
    EXPECT_FALSE(tab.cboCoverage.Visible());
    EXPECT_EQ(tab.cboCoverage.Text(), "partial");
}

TEST_F(RecViewFields, TheDistributionIsOpenFromSpeciesDown) {
    for (const char* rank : {"Species", "SUBSPECIES", "variety", "Subvariety", "Form", "Subform"})
        EXPECT_TRUE(RankHasDistribution(rank)) << rank;
    for (const char* rank : {"Genus", "Subgenus", "Kingdom", ""})
        EXPECT_FALSE(RankHasDistribution(rank)) << rank;
}

TEST_F(RecViewFields, AHybridFormulaHasASecondGenusSpeciesAndAuthor) {
    Make();
    Execute(
        "UPDATE qb_taxonomic_units SET unit_ind3 = 'X', unit_name3 = 'Cetus', unit_name4 = 'beta', "
        "hybrid_author_id = 2 WHERE qb_id = 3");
    Select(3);
    EXPECT_EQ(Labels() + " " + Visible(),
              std::string("Genus,Species,Genus,Species cboName1 txtName2 txtName3 txtName4 lblHybrid "
                          "chkHybrid1 chkHybrid2 chkHybrid3 cboAuth2 ") +
                  kCredibility);
    EXPECT_EQ(tab.lblHybridAuthority.Caption() + "|" + tab.cboAuth2.Text(), "Hybrid Author|Brown");
    EXPECT_TRUE(tab.chkHybrid3.Value());
    Select(2);
    EXPECT_EQ(Labels() + tab.lblHybridAuthority.Caption(), "Genus,,,");
    EXPECT_FALSE(tab.txtName3.Visible() || tab.cboAuth2.Visible() || tab.chkHybrid3.Value());
}

TEST_F(RecViewFields, AQuadrinomialHasAFourthUnitAndARankForTheThird) {
    MakePlants();
    AddQuadrinomial("'not accepted'", "Null");
    Select(3);
    EXPECT_EQ(Labels() + " " + Visible(),
              std::string("Genus,Species,Variety,Variety cboName1 cboName2 cboName3Rank txtName3 txtName4 "
                          "lblHybrid chkHybrid1 chkHybrid2 chkQuad ") +
                  kCredibility);
    EXPECT_TRUE(tab.chkQuad.Value());
    EXPECT_TRUE(tab.chkQuad.Enabled());
    EXPECT_EQ(Texts(tab.cboName3Rank), "Subspecies");
    EXPECT_EQ(tab.cboName3Rank.Text(), "SUBSPECIES");
    EXPECT_EQ(tab.txtName3.Text() + " " + tab.txtName4.Text(), "minor nana");
    EXPECT_TRUE(data.prompter.messages.empty());
    Select(2);
    EXPECT_FALSE(tab.chkQuad.Value() || tab.chkQuad.Visible() || tab.cboName3Rank.Visible());
}

TEST_F(RecViewFields, APublishedQuadrinomialKeepsItsShape) {
    MakePlants();
    AddQuadrinomial("'not accepted'", "900");
    Select(3);
    EXPECT_TRUE(tab.chkQuad.Value());
    EXPECT_FALSE(tab.chkQuad.Enabled());
}

TEST_F(RecViewFields, AVarietyUnderTheKingdomKeepsItsShape) {
    MakePlants();
    AddQuadrinomial("'not accepted'", "Null", "1");
    Select(3);
    EXPECT_FALSE(tab.chkQuad.Enabled());
}

TEST_F(RecViewFields, AnAcceptedQuadrinomialIsNotAcceptedAnyMore) {
    MakePlants();
    AddQuadrinomial("'accepted'", "Null");
    Select(3);
    EXPECT_TRUE(tab.optInvalid.Value());
    EXPECT_EQ(data.state.currentTaxon.usage, "not accepted");
    EXPECT_TRUE(data.prompter.messages.empty());
    EXPECT_EQ(form.synonyms.lblSynonyms.Caption(), "Accepted Names");
}

TEST_F(RecViewFields, TheAuthorityIsNamedWhenAPublishedQuadrinomialIsNotAcceptedAnyMore) {
    MakePlants();
    AddQuadrinomial("'accepted'", "900");
    Select(3);
    EXPECT_EQ(data.prompter.messages,
              Messages{"This quadrinomial name has been downloaded from the\n"
                       "ORVA Online database with Usage = Accepted.  If you wish to export this\n"
                       "record for updating the Online database, note that the Usage has\n"
                       "changed to Not Accepted; identify an unacceptability reason, associate it\n"
                       "with an Accepted name, and press Save Changes."});
    EXPECT_TRUE(tab.optInvalid.Value());
    EXPECT_FALSE(data.state.RecordDirty) << "the load ends clean";
}

TEST_F(RecViewFields, RanksBetweenTwoLeaveBothOut) {
    MakePlants();
    EXPECT_EQ(tab.Lists().GetRanksBetween("Species", "Form"),
              (std::vector<std::string>{"Subspecies", "Variety", "Subvariety"}));
    EXPECT_TRUE(tab.Lists().GetRanksBetween("Species", "Subspecies").empty());
}

TEST_F(RecViewFields, ParenthesesAreAddedWhereTheyAreMissing) {
    Make();
    tab.cboRank.SetText("Subgenus");
    tab.Fields().SetFieldsForRank();
    for (const char* typed : {"Orcella", "(Orcella", "Orcella)", "(Orcella)", " Orcella "}) {
        tab.txtName2.SetText(typed);
        tab.cmdParen.UserClick();
        EXPECT_EQ(tab.txtName2.Text(), "(Orcella)") << typed;
    }
    EXPECT_TRUE(data.state.RecordDirty);
}

}  // namespace
}  // namespace quillon::editor
