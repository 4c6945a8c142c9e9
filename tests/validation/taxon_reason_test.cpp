// Which reasons a name that is not usable may have in which kingdoms.

#include "validation_fixture.h"

namespace quillon::validation {

namespace {

using Words = std::vector<std::string>;

const Words kBoth = {"pro parte", "misapplied", "other, see comments"};
const Words kAnimals = {"homonym & junior synonym",
                        "junior homonym",
                        "junior synonym",
                        "nomen dubium",
                        "nomen oblitum",
                        "original name/combination",
                        "subsequent name/combination",
                        "unavailable, database artifact",
                        "unavailable, incorrect orig. spelling",
                        "unavailable, literature misspelling",
                        "unavailable, nomen nudum",
                        "unavailable, other",
                        "unavailable, suppressed by ruling",
                        "unjustified emendation",
                        "unnecessary replacement"};
const Words kPlants = {"database artifact",
                       "homonym (illegitimate)",
                       "horticultural",
                       "invalidly published, nomen nudum",
                       "invalidly published, other",
                       "orthographic variant (misspelling)",
                       "rejected name",
                       "superfluous renaming (illegitimate)",
                       "synonym"};
const Words kRetired = {"illegitimate", "invalid", "nomen invalidum"};

class ReasonRules : public ValidationTest {
protected:
    explicit ReasonRules(std::string kingdom = "Animalia") : ValidationTest(std::move(kingdom)) {}
    void SetUp() override {
        ValidationTest::SetUp();
        MakeSynonym(3, 2, "pro parte");
    }
    std::string ValidateReason(std::string_view reason) {
        Set(3, "unacceptability_reason", fmt::format("'{}'", reason));
        return Validate();
    }
    static std::string Finding(std::string_view reason, std::string_view rest) {
        return OnSpecies({fmt::format("     <{}> is {}", reason, rest)});
    }
};

class PlantReasonRules : public ReasonRules {
protected:
    PlantReasonRules() : ReasonRules("Plantae") {}
};
class MoneraReasonRules : public ReasonRules {
protected:
    MoneraReasonRules() : ReasonRules("Monera") {}
};
class ChromistaReasonRules : public ReasonRules {
protected:
    ChromistaReasonRules() : ReasonRules("Chromista") {}
};

constexpr std::string_view kNotForPlants =
    "not a valid unacceptability reason for the Plantae, Chromista and Fungi kingdoms";
constexpr std::string_view kNotForAnimals =
    "not a valid unacceptability reason for the Animalia, Monera and Protozoa kingdoms";
constexpr std::string_view kRequired = "not a valid unacceptability reason (required field)";

TEST_F(ReasonRules, AnimalsHaveTheirsAndThoseOfBoth) {
    for (const Words& words : {kBoth, kAnimals})
        for (const std::string& word : words) EXPECT_EQ(ValidateReason(word), "") << word;
}

TEST_F(ReasonRules, ReasonsOfPlantsAreReportedForAnimals) {
    for (const std::string& word : kPlants) EXPECT_EQ(ValidateReason(word), Finding(word, kNotForAnimals));
}

TEST_F(ReasonRules, RetiredReasonsAreJustWrongForAnimals) {
    for (const std::string& word : kRetired) EXPECT_EQ(ValidateReason(word), Finding(word, kRequired));
}

TEST_F(ReasonRules, CaseDoesNotCountAndTheValueIsReportedUnchanged) {
    EXPECT_EQ(ValidateReason("Junior SYNONYM"), "");
    EXPECT_EQ(ValidateReason("Synonym"), Finding("Synonym", kNotForAnimals));
    EXPECT_EQ(ValidateReason("Because"), Finding("Because", kRequired));
}

TEST_F(ReasonRules, MissingReasonIsReported) {
    Set(3, "unacceptability_reason", "Null");
    EXPECT_EQ(Validate(), Finding("", kRequired));
}

TEST_F(ReasonRules, UsableNameIsNotAskedForAReason) {
    Set(2, "unacceptability_reason", "'nonsense'");
    EXPECT_EQ(Validate(), "");
}

TEST_F(ReasonRules, UsageOfTheOtherGroupIsAskedForAReasonToo) {
    Set(3, "usage", "'not accepted'");
    EXPECT_EQ(
        ValidateReason("Because"),
        OnSpecies({"     <not accepted> is not a valid usage for the Plantae, Chromista and Fungi kingdoms",
                   "     <Because> is not a valid unacceptability reason (required field)"}));
}

TEST_F(PlantReasonRules, PlantsHaveTheirsAndThoseOfBoth) {
    for (const Words& words : {kBoth, kPlants})
        for (const std::string& word : words) EXPECT_EQ(ValidateReason(word), "") << word;
}

TEST_F(PlantReasonRules, ReasonsOfAnimalsAreReportedForPlants) {
    for (const std::string& word : kAnimals) EXPECT_EQ(ValidateReason(word), Finding(word, kNotForPlants));
}

TEST_F(PlantReasonRules, RetiredReasonsAreReportedWithAHint) {
    const std::string illegitimate =
        "no longer a valid unacceptability reason - need to change to 'homonym (illegitimate)'  or "
        "'superfluous "
        "renaming (illegitimate)', or 'other, see comments'";
    const std::string invalid =
        "no longer a valid unacceptability reason - need to change to 'invalidly published, nomen nudum'  or "
        "'invalidly published, other'";
    EXPECT_EQ(ValidateReason("illegitimate"), Finding("illegitimate", illegitimate));
    EXPECT_EQ(ValidateReason("Invalid"), Finding("Invalid", invalid));
    EXPECT_EQ(ValidateReason("nomen invalidum"), Finding("nomen invalidum", invalid));
}

TEST_F(MoneraReasonRules, MoneraIsOfTheAnimalGroup) {
    EXPECT_EQ(ValidateReason("nomen dubium"), "");
    EXPECT_EQ(ValidateReason("synonym"), Finding("synonym", kNotForAnimals));
}

TEST_F(ChromistaReasonRules, ChromistaIsOfThePlantGroup) {
    EXPECT_EQ(ValidateReason("synonym"), "");
    EXPECT_EQ(ValidateReason("nomen dubium"), Finding("nomen dubium", kNotForPlants));
}

}  // namespace

}  // namespace quillon::validation
