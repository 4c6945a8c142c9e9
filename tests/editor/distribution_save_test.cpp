// The save of the distribution tab.
#include "editor/distribution_tab.h"
#include "tab_fixture.h"

namespace quillon::editor {
namespace {

using Texts = std::vector<std::string>;

class DistributionSave : public TabTest {
protected:
    DistributionSave() {
        tab.Connect(data.state, data.prompter);
        tab.SetRank("Species");
    }
    void AddRegion(const std::string& value) {
        Run("INSERT INTO qb_geographic_division (qb_id, geographic_value, tsn) VALUES (3, '" + value +
            "', 7001)");
    }
    void AddPlace(const std::string& value, const std::string& origin) {
        Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin, tsn) VALUES (3, '" + value +
            "', '" + origin + "', 7001)");
    }
    std::string Regions() {
        return data.Dump("SELECT qb_id, geographic_value, tsn FROM qb_geographic_division");
    }
    std::string Places() {
        return data.Dump("SELECT qb_id, jurisdiction_value, origin, tsn FROM qb_jurisdiction");
    }

    DistributionTab tab{form};
};

TEST_F(DistributionSave, ANewTaxonGetsWhatTheTabShows) {
    tab.EnterMode(EditorMode::Input);
    tab.chkEurasia.UserSetValue(true);
    tab.chkAfrica.UserSetValue(true);
    tab.cboAlaska.UserSetText("Native and Extirpated");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_FALSE(SaveNew(tab)) << "a taxon that was not stored";
    SetTaxon(4);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Regions(), "4\tAfrica\t\\N\n4\tEurope & Northern Asia (excluding China)\t\\N\n");
    EXPECT_EQ(Places(), "4\tAlaska\tNative & Extirpated\t\\N\n");
    EXPECT_EQ(Said(), Texts());
}

TEST_F(DistributionSave, ARegionThatIsTakenOffAPublishedNameLeavesATombstoneUntilItComesBack) {
    AddRegion("Africa");
    AddRegion("Oceania");
    AddPlace("Canada", "Native & Extinct");
    Edit(tab, 3, 7001);
    tab.chkOceaniania.UserSetValue(false);
    tab.cboCanada.UserSetText("Native");
    tab.cboMexico.UserSetText("Introduced");
    SaveChanges(tab);
    EXPECT_EQ(Regions(), "3\tAfrica\t7001\n");
    EXPECT_EQ(Places(), "3\tCanada\tNative\t7001\n3\tMexico\tIntroduced\t7001\n");
    EXPECT_EQ(Tombstones(), "geographic_division\t7001\tOceania\t\\N\t\\N\n");
    Edit(tab, 3, 7001);
    tab.chkOceaniania.UserSetValue(true);
    tab.cboMexico.UserSetText("None Selected");
    SaveChanges(tab);
    EXPECT_EQ(Regions(), "3\tAfrica\t7001\n3\tOceania\t7001\n");
    EXPECT_EQ(Places(), "3\tCanada\tNative\t7001\n");
    EXPECT_EQ(Tombstones(), "jurisdiction\t7001\tMexico\t\\N\t\\N\n");
}

TEST_F(DistributionSave, ANameThatWasNeverPublishedLeavesNoTombstone) {
    AddRegion("Africa");
    Edit(tab, 3);
    tab.chkAfrica.UserSetValue(false);
    SaveChanges(tab);
    EXPECT_EQ(Regions() + Tombstones(), "");
}

TEST_F(DistributionSave, WhatTheFormDoesNotKnowGoesWithItsTombstone) {
    AddRegion("Africa");
    AddRegion("Atlantis");
    AddPlace("Alaska", "Unheard of");
    AddPlace("Guam", "Native");
    AddPlace("Hawaii", "Native & Extinct");
    Edit(tab, 3, 7001);
    EXPECT_EQ(Said(), (Texts{"Unknown Distribution: Atlantis",
                             "Unknown Origin: Unheard of for Jurisdiction: Alaska"}));
    SaveChanges(tab);
    EXPECT_EQ(Regions(), "3\tAfrica\t7001\n");
    EXPECT_EQ(Places(), "3\tHawaii\tNative & Extinct\t7001\n");
    EXPECT_EQ(Tombstones(),
              "geographic_division\t7001\tAtlantis\t\\N\t\\N\n"
              "jurisdiction\t7001\tAlaska\t\\N\t\\N\n"
              "jurisdiction\t7001\tGuam\t\\N\t\\N\n");
}

TEST_F(DistributionSave, ARankAboveSpeciesKeepsItsRows) {
    AddRegion("Africa");
    tab.SetRank("Genus");
    Edit(tab, 3, 7001);
    SaveChanges(tab);
    EXPECT_EQ(Regions(), "3\tAfrica\t7001\n");
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(DistributionSave, ANewRecordThatKeepsTheDistributionHasNoOldValues) {
    AddRegion("Africa");
    AddPlace("Canada", "Native");
    Edit(tab, 3, 7001);
    SetTaxon(0);
    tab.EnterMode(EditorMode::Input);
    EXPECT_TRUE(tab.chkAfrica.Value());
    EXPECT_TRUE(tab.oldDivisions.empty() && tab.oldJurisdictions.empty());
    SetTaxon(4);
    EXPECT_TRUE(SaveNew(tab));
    EXPECT_EQ(Regions(), "3\tAfrica\t7001\n4\tAfrica\t\\N\n");
    EXPECT_EQ(Places(), "3\tCanada\tNative\t7001\n4\tCanada\tNative\t\\N\n");
}

}  // namespace
}  // namespace quillon::editor
