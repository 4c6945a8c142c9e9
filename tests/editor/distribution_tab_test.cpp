// Where a taxon lives: boxes and lists from the rows of the store, and back.
#include "editor/distribution_tab.h"

#include "core/vocabulary.h"
#include "tab_fixture.h"

namespace quillon::editor {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

class DistributionTabTest : public TabTest {
protected:
    void AddRegion(const std::string& value) {
        Run("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (2, '" + value + "')");
    }
    void AddJurisdiction(const std::string& value, const std::string& origin) {
        Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) VALUES (2, '" + value + "', " +
            origin + ")");
    }
    DistributionTabTest() { tab.Connect(data.state, data.prompter); }
    void Load(int qb_id) { tab.Load(qb_id); }
    std::string RegionsOn() {
        std::string names;
        for (const CheckControl* region : tab.Regions())
            if (region->Value()) names += region->Name() + ";";
        return names;
    }
    std::string Lists() {
        std::string texts;
        for (const ComboControl* list : tab.Jurisdictions()) texts += list->Text() + ";";
        return texts;
    }

    DistributionTab tab{form};
    const std::string none =
        "None Selected;None Selected;None Selected;None Selected;None Selected;None Selected;None Selected;";
};

TEST_F(DistributionTabTest, OffersTheRegionsAndOrigins) {
    std::string regions;
    for (const CheckControl* region : tab.Regions())
        regions += region->Name() + "=" + region->Caption() + "\n";
    EXPECT_EQ(regions,
              "chkNorthAmerica=North America\n"
              "chkMiddleAmerica=Middle America\n"
              "chkCaribbean=Caribbean\n"
              "chkSouthAmerica=South America\n"
              "chkEurasia=Europe && Northern Asia (excluding China)\n"
              "chkAfrica=Africa\n"
              "chkAsia=Southern Asia\n"
              "chkAustralia=Australia\n"
              "chkOceaniania=Oceania\n"
              "chkAntarctica=Antarctica/Southern Ocean\n"
              "chkEAtlantic=Eastern Atlantic Ocean\n"
              "chkWAtlantic=Western Atlantic Ocean\n"
              "chkIndoWestPacific=Indo-West Pacific\n"
              "chkEastPacific=East Pacific\n");
    EXPECT_EQ(ChoicesOf(tab.cboCarrTerr),
              "None Selected=0\nNative=0\nIntroduced=0\nNative and Introduced=0\nIncidental=0\n"
              "Native and Extirpated=0\nNative and Extinct=0\n");
    EXPECT_EQ(tab.lblCenPacTerr.Caption(), "Central Pacific Territories");
    EXPECT_EQ(Lists(), none);
}

TEST_F(DistributionTabTest, ARecordWithoutRowsShowsNothing) {
    Load(2);
    EXPECT_EQ(RegionsOn(), "");
    EXPECT_EQ(Lists(), none);
    EXPECT_EQ(tab.oldDivisions, std::vector<std::string>());
    EXPECT_EQ(tab.oldJurisdictions, Pairs());
}

TEST_F(DistributionTabTest, EachRegionTurnsItsOwnBoxOn) {
    for (std::size_t i = 0; i < tab.Regions().size(); ++i) {
        Run("DELETE * FROM qb_geographic_division");
        AddRegion(std::string(GeographicValues()[i]));
        Load(2);
        EXPECT_EQ(RegionsOn(), tab.Regions()[i]->Name() + ";");
    }
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>());
}

TEST_F(DistributionTabTest, EachOriginShowsItsScreenText) {
    AddJurisdiction("Continental US", "'Native'");
    AddJurisdiction("Alaska", "'Introduced'");
    AddJurisdiction("Hawaii", "'Native & Introduced'");
    AddJurisdiction("Central Pacific Territories", "'Incidental'");
    AddJurisdiction("Caribbean Territories", "'Native & Extirpated'");
    AddJurisdiction("Canada", "'Native & Extinct'");
    Load(2);
    EXPECT_EQ(Lists(),
              "Native;Introduced;Native and Introduced;Incidental;Native and Extirpated;Native and Extinct;"
              "None Selected;");
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>());
}

TEST_F(DistributionTabTest, UnknownRegionsAndOriginsAreReported) {
    AddRegion("Africa");
    AddRegion("Atlantis");
    AddRegion("Arctic");
    AddRegion("Oceania");
    AddJurisdiction("Alaska", "'Native and Extinct'");
    AddJurisdiction("Canada", "Null");
    AddJurisdiction("Hawaii", "'Native'");
    AddJurisdiction("Guam", "'Unheard of'");
    Load(2);
    EXPECT_EQ(data.prompter.messages,
              (std::vector<std::string>{"Unknown Distribution: Arctic", "Unknown Distribution: Atlantis",
                                        "Unknown Origin: Native and Extinct for Jurisdiction: Alaska",
                                        "Unknown Origin:  for Jurisdiction: Canada"}));
    EXPECT_EQ(RegionsOn(), "chkAfrica;chkOceaniania;");
    EXPECT_EQ(Lists(),
              "None Selected;None Selected;Native;None Selected;None Selected;None Selected;None Selected;");
    EXPECT_EQ(tab.oldDivisions, (std::vector<std::string>{"Africa", "Arctic", "Atlantis", "Oceania"}));
    EXPECT_EQ(
        tab.oldJurisdictions,
        (Pairs{
            {"Alaska", "Native and Extinct"}, {"Canada", ""}, {"Guam", "Unheard of"}, {"Hawaii", "Native"}}));
}

TEST_F(DistributionTabTest, AGenusShowsTheRowsThatItHas) {
    AddTaxon(2, "usage", "'valid'");
    Run("UPDATE qb_taxonomic_units SET rank_id = 180 WHERE qb_id = 2");
    AddRegion("Africa");
    AddJurisdiction("Mexico", "'Native & Extinct'");
    Load(2);
    EXPECT_EQ(RegionsOn(), "chkAfrica;");
    EXPECT_EQ(tab.cboMexico.Text(), "Native and Extinct");
}

TEST_F(DistributionTabTest, ALoadForgetsTheRecordBefore) {
    AddRegion("Africa");
    AddJurisdiction("Mexico", "'Native'");
    Load(2);
    Load(3);
    EXPECT_EQ(RegionsOn(), "");
    EXPECT_EQ(Lists(), none);
    EXPECT_EQ(tab.oldDivisions, std::vector<std::string>());
    EXPECT_EQ(tab.oldJurisdictions, Pairs());
}

TEST_F(DistributionTabTest, IsCollectedInTabOrderWithTheStoredTexts) {
    tab.chkEastPacific.UserSetValue(true);
    tab.chkEurasia.UserSetValue(true);
    tab.cboMexico.UserSetText("Native and Extinct");
    tab.cboAlaska.UserSetText("Incidental");
    CurrentTaxon taxon;
    taxon.divisions = {"Africa"};
    taxon.jurisdictions = {{"Canada", "Native"}};
    tab.Collect(taxon);
    EXPECT_EQ(taxon.divisions,
              (std::vector<std::string>{"Europe & Northern Asia (excluding China)", "East Pacific"}));
    EXPECT_EQ(taxon.jurisdictions, (Pairs{{"Alaska", "Incidental"}, {"Mexico", "Native & Extinct"}}));
}

}  // namespace
}  // namespace quillon::editor
