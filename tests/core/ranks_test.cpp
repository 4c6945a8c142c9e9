#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/vocabulary.h"

namespace quillon {
namespace {

constexpr KingdomFamily kAnimal = KingdomFamily::Animal;
constexpr KingdomFamily kPlant = KingdomFamily::Plant;

// One line a rank: id, name, direct parent, required parent.
std::vector<std::string> Listed(KingdomFamily family) {
    std::vector<std::string> lines;
    for (const Rank& rank : RanksOf(family)) {
        lines.push_back(std::to_string(rank.rank_id) + " " + std::string(rank.rank_name) + " " +
                        std::to_string(rank.direct_parent_rank_id) + " " +
                        std::to_string(rank.required_parent_rank_id));
    }
    return lines;
}

TEST(Ranks, OfAnimals) {
    const std::vector<std::string> expected = {
        "10 Kingdom 10 10",        "20 Subkingdom 10 10", "30 Phylum 20 10",       "40 Subphylum 30 30",
        "50 Superclass 40 30",     "60 Class 50 30",      "70 Subclass 60 60",     "80 Infraclass 70 60",
        "90 Superorder 80 60",     "100 Order 90 60",     "110 Suborder 100 100",  "120 Infraorder 110 100",
        "130 Superfamily 120 100", "140 Family 130 100",  "150 Subfamily 140 140", "160 Tribe 150 140",
        "170 Subtribe 160 140",    "180 Genus 170 140",   "190 Subgenus 180 180",  "220 Species 190 180",
        "230 Subspecies 220 180"};
    EXPECT_EQ(Listed(kAnimal), expected);
}

TEST(Ranks, OfPlantsKeepTheMissingRank50) {
    const std::vector<std::string> expected = {
        "10 Kingdom 10 10",    "20 Subkingdom 10 10",    "30 Division 20 10",   "40 Subdivision 30 30",
        "60 Class 40 30",      "70 Subclass 60 50",      "100 Order 70 50",     "110 Suborder 100 100",
        "140 Family 110 100",  "150 Subfamily 140 140",  "160 Tribe 150 140",   "170 Subtribe 160 140",
        "180 Genus 170 140",   "190 Subgenus 180 180",   "200 Section 190 180", "210 Subsection 200 180",
        "220 Species 210 180", "230 Subspecies 220 180", "240 Variety 230 180", "250 Subvariety 240 180",
        "260 Form 250 180",    "270 Subform 260 180"};
    EXPECT_EQ(Listed(kPlant), expected);
}

TEST(Ranks, RowsAFamilyLacksAreNamedError) {
    std::vector<int> animalErrors;
    std::vector<int> plantErrors;
    for (int row = 1; row <= 27; ++row) {
        EXPECT_EQ(RankRow(kAnimal, row).rank_id, row * 10);
        if (RankRow(kAnimal, row).rank_name == "Error") animalErrors.push_back(row);
        if (RankRow(kPlant, row).rank_name == "Error") plantErrors.push_back(row);
    }
    EXPECT_EQ(animalErrors, (std::vector<int>{20, 21, 24, 25, 26, 27}));
    EXPECT_EQ(plantErrors, (std::vector<int>{5, 8, 9, 12, 13}));
    EXPECT_EQ(RankRow(kPlant, 26).rank_name, "Form");
    EXPECT_EQ(RankRow(kAnimal, 18).required_parent_rank_id, 140);
}

TEST(Indicators, OfFiveRanksOnly) {
    EXPECT_EQ(GetIndicatorFromRank("Subspecies"), "ssp.");
    EXPECT_EQ(GetIndicatorFromRank("VARIETY"), "var.");
    EXPECT_EQ(GetIndicatorFromRank("subvariety"), "subvar.");
    EXPECT_EQ(GetIndicatorFromRank("Form"), "f.");
    EXPECT_EQ(GetIndicatorFromRank("Subform"), "subf.");
    EXPECT_EQ(GetIndicatorFromRank("Genus"), "");
    EXPECT_EQ(GetIndicatorFromRank("Forma"), "");
    EXPECT_EQ(GetIndicatorFromRank(""), "");
}

TEST(Indicators, GiveTheRankInUpperCase) {
    EXPECT_EQ(GetRankFromIndicator("SSP."), "SUBSPECIES");
    EXPECT_EQ(GetRankFromIndicator("var."), "VARIETY");
    EXPECT_EQ(GetRankFromIndicator("subvar."), "SUBVARIETY");
    EXPECT_EQ(GetRankFromIndicator("F."), "FORM");
    EXPECT_EQ(GetRankFromIndicator("subf."), "SUBFORM");
    EXPECT_EQ(GetRankFromIndicator("X"), "");
    EXPECT_EQ(GetRankFromIndicator(""), "");
}

struct ParentCase {
    const char* rank;
    const char* animal;
    const char* plant;
};

TEST(DefaultParentRank, FollowsTheFamily) {
    const std::vector<ParentCase> cases = {{"Kingdom", "Kingdom", "Kingdom"},
                                           {"Subkingdom", "Kingdom", "Kingdom"},
                                           {"Phylum", "Subkingdom", "Subkingdom"},
                                           {"Division", "Subkingdom", "Subkingdom"},
                                           {"Subphylum", "Phylum", "Phylum"},
                                           {"Subdivision", "Division", "Division"},
                                           {"Superclass", "Subphylum", "Subphylum"},
                                           {"Class", "Subphylum", "Subdivision"},
                                           {"Subclass", "Class", "Class"},
                                           {"Infraclass", "Subclass", "Subclass"},
                                           {"Superorder", "Infraclass", "Infraclass"},
                                           {"Order", "Superorder", "Subclass"},
                                           {"Suborder", "Order", "Order"},
                                           {"Infraorder", "Suborder", "Suborder"},
                                           {"Superfamily", "Infraorder", "Infraorder"},
                                           {"Family", "Superfamily", "Suborder"},
                                           {"Subfamily", "Family", "Family"},
                                           {"Tribe", "Subfamily", "Subfamily"},
                                           {"Subtribe", "Tribe", "Tribe"},
                                           {"Genus", "Tribe", "Subtribe"},
                                           {"Subgenus", "Genus", "Genus"},
                                           {"Section", "Genus", "Genus"},
                                           {"Subsection", "Genus", "Genus"},
                                           {"Species", "Genus", "Genus"},
                                           {"Subspecies", "Species", "Species"},
                                           {"Variety", "Species", "Species"},
                                           {"Subvariety", "Species", "Species"},
                                           {"Form", "Species", "Species"},
                                           {"Subform", "Species", "Species"},
                                           {"SPECIES", "Genus", "Genus"},
                                           {"Forma", "", ""},
                                           {"", "", ""}};
    for (const ParentCase& expected : cases) {
        EXPECT_EQ(DefaultParentRank(expected.rank, kAnimal), expected.animal) << expected.rank;
        EXPECT_EQ(DefaultParentRank(expected.rank, kPlant), expected.plant) << expected.rank;
    }
}

}  // namespace
}  // namespace quillon
