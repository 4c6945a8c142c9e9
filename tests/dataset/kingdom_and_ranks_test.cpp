// The kingdom and the rank that the program works with, from DataSet to DataSet.
#include "dataset/kingdom_and_ranks.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::dataset {
namespace {

class Kingdoms : public ::testing::Test {
protected:
    // Opens a new DataSet of the kingdom with the preferences as they are.
    void Open(const std::string& kingdom) {
        const std::string file = kingdom + ".mdb";
        const std::string path = f.dir.File(file);
        if (!std::filesystem::exists(path)) {
            testkit::DataSetFixture other;
            other.Make(kingdom, file);
            other.lifecycle.CloseDataSet();
            std::filesystem::copy_file(other.dir.File(file), path);
        }
        f.state.gDataSetPath = f.lifecycle.OpenDataSetFile(path);
        f.lifecycle.ReadKingdomAndRanks();
    }
    void Prefer(const std::string& kingdom, const std::string& rank) {
        f.state.gKingdomName = kingdom;
        f.state.gPrefRank = rank;
        f.state.gOldKingdomName.clear();
        f.state.gOldPrefRank.clear();
    }
    // What holds, and in brackets what it replaced.
    std::string Holding() const {
        return f.state.gKingdomName + " [" + f.state.gOldKingdomName + "] " + f.state.gPrefRank + " [" +
               f.state.gOldPrefRank + "]";
    }
    std::size_t Warnings() const { return f.prompter.messages.size(); }

    testkit::DataSetFixture f;
};

TEST_F(Kingdoms, OfADataSetReplaceThePreferenceWithAWarning) {
    Prefer("Animalia", "Subgenus");
    Open("Plantae");
    EXPECT_EQ(Holding(), "Plantae [Animalia] Subgenus []");
    EXPECT_EQ(f.state.gKingdomId, 3);
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{"Warning:  The 'Preference' kingdom does not match what is in the " +
                                       f.state.gDataSetPath + " dataset!  Dataset Kingdom will be used."});
}

TEST_F(Kingdoms, AndRanksOfThePreferencesHoldAgainWithADataSetThatHasThem) {
    Prefer("Plantae", "Variety");
    Open("Animalia");
    EXPECT_EQ(Holding(), "Animalia [Plantae] Kingdom [Variety]");
    EXPECT_EQ(Warnings(), 2U);
    Open("Plantae");
    EXPECT_EQ(Holding(), "Plantae [] Variety []");
    EXPECT_EQ(f.state.gKingdomId, 3);
    EXPECT_EQ(Warnings(), 2U);
}

TEST_F(Kingdoms, OfThePreferencesStayKnownThroughSeveralOthers) {
    Prefer("Plantae", "Variety");
    Open("Animalia");
    Open("Protozoa");
    EXPECT_EQ(Holding(), "Protozoa [Plantae] Kingdom [Variety]");
    Open("Plantae");
    EXPECT_EQ(Holding(), "Plantae [] Variety []");
}

TEST_F(Kingdoms, AreReloadedWithoutASecondWarning) {
    Prefer("Animalia", "Kingdom");
    Open("Plantae");
    f.lifecycle.ReadKingdomAndRanks();
    EXPECT_EQ(Holding(), "Plantae [Animalia] Kingdom []");
    EXPECT_EQ(Warnings(), 1U);
}

TEST_F(Kingdoms, OfNewPreferencesAreCheckedAgainstTheOpenDataSet) {
    Prefer("Animalia", "Kingdom");
    Open("Animalia");
    Prefer("Plantae", "Kingdom");
    f.lifecycle.ReadKingdomAndRanks();
    EXPECT_EQ(Holding(), "Animalia [Plantae] Kingdom []");
    EXPECT_EQ(f.state.gKingdomId, 5);
}

TEST_F(Kingdoms, OfANewDataSetIsThatOfThePreferences) {
    Prefer("Animalia", "Subgenus");
    Open("Plantae");
    f.prompter.filesToSave = {f.dir.File("new.mdb")};
    ASSERT_TRUE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.Dump("SELECT kingdom_name FROM kingdoms"), "Animalia\n");
    EXPECT_EQ(Holding(), "Animalia [] Subgenus []");
    EXPECT_EQ(f.state.gKingdomId, 5);
}

TEST_F(Kingdoms, StayWhenANewDataSetFails) {
    Prefer("Animalia", "Subgenus");
    Open("Plantae");
    f.state.gVersion = "10.11.12.13";  // one character more than the field takes
    f.prompter.filesToSave = {f.dir.File("new.mdb")};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.state.gKingdomName, "Plantae");
    EXPECT_EQ(f.state.gOldKingdomName, "Animalia");
}

TEST_F(Kingdoms, WithoutAPreferredRankStartFromKingdomInSilence) {
    Prefer("Animalia", "");
    Open("Animalia");
    EXPECT_EQ(Holding(), "Animalia [] Kingdom []");
    EXPECT_EQ(Warnings(), 0U);
}

}  // namespace
}  // namespace quillon::dataset
