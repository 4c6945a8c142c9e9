#include "core/vocabulary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillon {
namespace {

using testing::ElementsAre;

constexpr KingdomFamily kAnimal = KingdomFamily::Animal;
constexpr KingdomFamily kPlant = KingdomFamily::Plant;

TEST(Kingdoms, AreNumberedInTheirOrder) {
    EXPECT_THAT(kKingdomNames,
                ElementsAre("Monera", "Protozoa", "Plantae", "Fungi", "Animalia", "Chromista"));
    EXPECT_EQ(KingdomIndex("Monera"), 1);
    EXPECT_EQ(KingdomIndex(" Animalia "), 5);
    EXPECT_EQ(KingdomIndex("Chromista"), 6);
    EXPECT_EQ(KingdomIndex("animalia"), 0);
    EXPECT_EQ(KingdomIndex(""), 0);
}

TEST(Kingdoms, ThreeAreOfThePlantFamily) {
    for (const char* name : {"Plantae", "Fungi", "Chromista"})
        EXPECT_EQ(FamilyOfKingdom(name), kPlant) << name;
    for (const char* name : {"Monera", "Protozoa", "Animalia", "", "plantae", "Other"}) {
        EXPECT_EQ(FamilyOfKingdom(name), kAnimal) << name;
    }
}

TEST(Family, DecidesTheVocabulary) {
    EXPECT_EQ(AcceptedUsage(kPlant), "accepted");
    EXPECT_EQ(AcceptedUsage(kAnimal), "valid");
    EXPECT_EQ(RejectedUsage(kPlant), "not accepted");
    EXPECT_EQ(RejectedUsage(kAnimal), "invalid");
    EXPECT_EQ(AcceptedNameLabel(kPlant), "Accepted Name");
    EXPECT_EQ(AcceptedNameLabel(kAnimal), "Valid Name");
    EXPECT_EQ(AcceptedNamesHeading(kPlant), "Accepted Names");
    EXPECT_EQ(AcceptedNamesHeading(kAnimal), "Valid Names");
    EXPECT_EQ(AlphabeticListQuery(kPlant), "Get Data");
    EXPECT_EQ(AlphabeticListQuery(kAnimal), "Get Animal Data");
}

TEST(Family, ACurrencyOf1757IsForPlantsOnly) {
    EXPECT_LE(LowestCurrencyYear(kPlant), 1757);
    EXPECT_GT(LowestCurrencyYear(kAnimal), 1757);
    EXPECT_EQ(LowestCurrencyYear(kPlant), 1753);
    EXPECT_EQ(LowestCurrencyYear(kAnimal), 1758);
}

TEST(Usage, RejectedTermsIgnoreCaseAcceptedTermsDoNot) {
    for (const char* usage : {"invalid", "Invalid", "not accepted", "NOT ACCEPTED"}) {
        EXPECT_TRUE(UsageIsInvalid(usage)) << usage;
    }
    for (const char* usage : {"valid", "accepted", "", "notaccepted"})
        EXPECT_FALSE(UsageIsInvalid(usage)) << usage;
    for (const char* usage : {"valid", "accepted"}) EXPECT_TRUE(UsageIsAccepted(usage)) << usage;
    for (const char* usage : {"Valid", "Accepted", "", "invalid"})
        EXPECT_FALSE(UsageIsAccepted(usage)) << usage;
}

TEST(Reasons, OfPlants) {
    EXPECT_THAT(UnacceptabilityReasons(kPlant),
                ElementsAre("database artifact", "homonym (illegitimate)", "horticultural",
                            "invalidly published, nomen nudum", "invalidly published, other", "misapplied",
                            "orthographic variant (misspelling)", "other, see comments", "pro parte",
                            "rejected name", "superfluous renaming (illegitimate)", "synonym"));
}

TEST(Reasons, OfAnimals) {
    const auto reasons = UnacceptabilityReasons(kAnimal);
    const std::vector<std::string_view> expected = {"homonym & junior synonym",
                                                    "junior homonym",
                                                    "junior synonym",
                                                    "misapplied",
                                                    "nomen dubium",
                                                    "nomen oblitum",
                                                    "original name/combination",
                                                    "other, see comments",
                                                    "pro parte",
                                                    "subsequent name/combination",
                                                    "unavailable, database artifact",
                                                    "unavailable, incorrect orig. spelling",
                                                    "unavailable, literature misspelling",
                                                    "unavailable, nomen nudum",
                                                    "unavailable, other",
                                                    "unavailable, suppressed by ruling",
                                                    "unjustified emendation",
                                                    "unnecessary replacement"};
    EXPECT_EQ(std::vector<std::string_view>(reasons.begin(), reasons.end()), expected);
}

TEST(Ratings, StandInTheirOrder) {
    EXPECT_THAT(CredibilityRatings(),
                ElementsAre("No review; non-peer reviewed source", "No review; untreated NODC data",
                            "Minimum taxonomic/nomenclature review", "KSP standards met"));
    EXPECT_THAT(CompletenessRatings(), ElementsAre("unknown", "partial", "complete"));
}

TEST(Places, StandInTheirOrder) {
    const auto values = GeographicValues();
    const std::vector<std::string_view> expected = {"North America",
                                                    "Middle America",
                                                    "Caribbean",
                                                    "South America",
                                                    "Europe & Northern Asia (excluding China)",
                                                    "Africa",
                                                    "Southern Asia",
                                                    "Australia",
                                                    "Oceania",
                                                    "Antarctica/Southern Ocean",
                                                    "Eastern Atlantic Ocean",
                                                    "Western Atlantic Ocean",
                                                    "Indo-West Pacific",
                                                    "East Pacific"};
    EXPECT_EQ(std::vector<std::string_view>(values.begin(), values.end()), expected);
    EXPECT_THAT(JurisdictionValues(),
                ElementsAre("Continental US", "Alaska", "Hawaii", "Central Pacific Territories",
                            "Caribbean Territories", "Canada", "Mexico"));
}

TEST(Origins, AreStoredWithAnAmpersand) {
    std::vector<std::pair<std::string_view, std::string_view>> words;
    for (const OriginWord& word : OriginWords()) words.emplace_back(word.shown, word.stored);
    using Pair = std::pair<std::string_view, std::string_view>;
    EXPECT_THAT(words, ElementsAre(Pair("Native", "Native"), Pair("Introduced", "Introduced"),
                                   Pair("Native and Introduced", "Native & Introduced"),
                                   Pair("Incidental", "Incidental"),
                                   Pair("Native and Extirpated", "Native & Extirpated"),
                                   Pair("Native and Extinct", "Native & Extinct")));
}

TEST(ChangeOperations, AreTheSixKinds) {
    EXPECT_THAT(ChangeOperations(), ElementsAre("Authority Change", "Hybrid Authority Change", "Name Change",
                                                "Parent Change", "Rank Change", "Usage Change"));
}

}  // namespace
}  // namespace quillon
