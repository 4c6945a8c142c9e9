#include <gtest/gtest.h>

#include <vector>

#include "core/vocabulary.h"

namespace quillon {
namespace {

constexpr KingdomFamily kAnimal = KingdomFamily::Animal;
constexpr KingdomFamily kPlant = KingdomFamily::Plant;

void ExpectRewritten(KingdomFamily family, const char* reason, const char* expected) {
    const OldReason result = RewriteOldReason(family, "invalid", reason);
    EXPECT_EQ(result.reason, expected) << reason;
    EXPECT_FALSE(result.unnamed) << reason;
    EXPECT_EQ(result.finding, "") << reason;
}

struct RewriteCase {
    const char* reason;
    const char* plant;
    const char* animal;
};

TEST(RewriteOldReason, FollowsTheTable) {
    const std::vector<RewriteCase> cases = {
        {"misspelling", "orthographic variant (misspelling)", "unavailable, literature misspelling"},
        {"nomen nudum", "invalidly published, nomen nudum", "unavailable, nomen nudum"},
        {"homonym", "homonym (illegitimate)", "homonym"},
        {"nomina utique rejicienda", "rejected name", "nomina utique rejicienda"},
        {"orthographic variant", "orthographic variant (misspelling)", "orthographic variant"},
        {"excluded", "other, see comments", "excluded"},
        {"database artifact", "database artifact", "unavailable, database artifact"},
        {"syn-original combination", "syn-original combination", "original name/combination"},
        {"syn-subsequent comb.", "syn-subsequent comb.", "subsequent name/combination"},
    };
    for (const RewriteCase& expected : cases) {
        ExpectRewritten(kPlant, expected.reason, expected.plant);
        ExpectRewritten(kAnimal, expected.reason, expected.animal);
    }
}

TEST(RewriteOldReason, ComparesInLowerCaseAndKeepsOtherReasonsAsWritten) {
    ExpectRewritten(kPlant, "Nomen Nudum", "invalidly published, nomen nudum");
    ExpectRewritten(kAnimal, "HOMONYM", "HOMONYM");
    ExpectRewritten(kPlant, "Synonym", "Synonym");
    ExpectRewritten(kAnimal, "junior synonym", "junior synonym");
    ExpectRewritten(kAnimal, "illegitimate", "illegitimate");
    ExpectRewritten(kAnimal, "invalid", "invalid");
    ExpectRewritten(kAnimal, "nomen invalidum", "nomen invalidum");
    ExpectRewritten(kPlant, "incertae sedis", "incertae sedis");
    ExpectRewritten(kPlant, "", "");
}

TEST(RewriteOldReason, LogsIllegitimatePlants) {
    const OldReason result = RewriteOldReason(kPlant, "not accepted", "Illegitimate");
    EXPECT_EQ(result.reason, "Illegitimate");
    EXPECT_FALSE(result.unnamed);
    EXPECT_EQ(
        result.finding,
        "Unacceptability_reason of {Illegitimate} is no longer a valid unacceptability reason - need to "
        "change "
        "to 'homonym (illegitimate)'  or 'superfluous renaming (illegitimate)', or 'other, see comments'");
}

TEST(RewriteOldReason, LogsInvalidPlants) {
    for (const std::string reason : {"invalid", "nomen invalidum"}) {
        const OldReason result = RewriteOldReason(kPlant, "not accepted", reason);
        EXPECT_EQ(result.reason, reason);
        EXPECT_EQ(result.finding, "Unacceptability_reason of {" + reason +
                                      "} is no longer a valid unacceptability reason - need to change to "
                                      "'invalidly published, nomen nudum'  or 'invalidly published, other'");
    }
}

TEST(RewriteOldReason, AValidAnimalOfUncertainPlaceBecomesUnnamed) {
    const OldReason result = RewriteOldReason(kAnimal, "valid", "Incertae Sedis");
    EXPECT_EQ(result.reason, "");
    EXPECT_TRUE(result.unnamed);
    EXPECT_EQ(result.finding, "");
}

TEST(RewriteOldReason, AnyOtherAnimalOfUncertainPlaceIsLogged) {
    for (const char* usage : {"invalid", "", "accepted"}) {
        const OldReason result = RewriteOldReason(kAnimal, usage, "incertae sedis");
        EXPECT_EQ(result.reason, "incertae sedis");
        EXPECT_FALSE(result.unnamed);
        EXPECT_EQ(result.finding,
                  "Unacceptability_reason of {incertae sedis} is no longer a valid unacceptability reason - "
                  "need to "
                  "change to a valid reason");
    }
}

}  // namespace
}  // namespace quillon
