#include "core/vocabulary.h"

#include <algorithm>
#include <iterator>

#include "core/text.h"

namespace quillon {

namespace {

std::string_view ByFamily(KingdomFamily family, std::string_view animal, std::string_view plant) {
    return family == KingdomFamily::Plant ? plant : animal;
}

constexpr std::array<std::string_view, 18> kAnimalReasons = {
    "homonym & junior synonym",
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
    "unnecessary replacement",
};

constexpr std::array<std::string_view, 12> kPlantReasons = {
    "database artifact",
    "homonym (illegitimate)",
    "horticultural",
    "invalidly published, nomen nudum",
    "invalidly published, other",
    "misapplied",
    "orthographic variant (misspelling)",
    "other, see comments",
    "pro parte",
    "rejected name",
    "superfluous renaming (illegitimate)",
    "synonym",
};

constexpr std::array<std::string_view, 4> kCredibilityRatings = {
    "No review; non-peer reviewed source",
    "No review; untreated NODC data",
    "Minimum taxonomic/nomenclature review",
    "KSP standards met",
};

constexpr std::array<std::string_view, 3> kCompletenessRatings = {"unknown", "partial", "complete"};

constexpr std::array<std::string_view, 14> kGeographicValues = {
    "North America",
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
    "East Pacific",
};

constexpr std::array<std::string_view, 7> kJurisdictionValues = {
    "Continental US",        "Alaska", "Hawaii", "Central Pacific Territories",
    "Caribbean Territories", "Canada", "Mexico",
};

constexpr std::array<OriginWord, 6> kOriginWords = {{
    {"Native", "Native"},
    {"Introduced", "Introduced"},
    {"Native and Introduced", "Native & Introduced"},
    {"Incidental", "Incidental"},
    {"Native and Extirpated", "Native & Extirpated"},
    {"Native and Extinct", "Native & Extinct"},
}};

constexpr std::array<std::string_view, 6> kChangeOperations = {
    "Authority Change", "Hybrid Authority Change", "Name Change", "Parent Change", "Rank Change",
    "Usage Change",
};

}  // namespace

int KingdomIndex(std::string_view kingdomName) {
    const auto place = std::find(kKingdomNames.begin(), kKingdomNames.end(), Trim(kingdomName));
    if (place == kKingdomNames.end()) return 0;
    return static_cast<int>(std::distance(kKingdomNames.begin(), place)) + 1;
}

KingdomFamily FamilyOfKingdom(std::string_view kingdomName) {
    const bool isPlant = kingdomName == "Plantae" || kingdomName == "Fungi" || kingdomName == "Chromista";
    return isPlant ? KingdomFamily::Plant : KingdomFamily::Animal;
}

std::string_view AcceptedUsage(KingdomFamily family) {
    return ByFamily(family, "valid", "accepted");
}

std::string_view RejectedUsage(KingdomFamily family) {
    return ByFamily(family, "invalid", "not accepted");
}

std::string_view AcceptedNameLabel(KingdomFamily family) {
    return ByFamily(family, "Valid Name", "Accepted Name");
}

std::string_view AcceptedNamesHeading(KingdomFamily family) {
    return ByFamily(family, "Valid Names", "Accepted Names");
}

int LowestCurrencyYear(KingdomFamily family) {
    return family == KingdomFamily::Plant ? 1753 : 1758;
}

std::string_view AlphabeticListQuery(KingdomFamily family) {
    return ByFamily(family, "Get Animal Data", "Get Data");
}

bool UsageIsInvalid(std::string_view usage) {
    const std::string lower = LowerCase(usage);
    return lower == "invalid" || lower == "not accepted";
}

bool UsageIsAccepted(std::string_view usage) {
    return usage == "valid" || usage == "accepted";
}

std::span<const std::string_view> UnacceptabilityReasons(KingdomFamily family) {
    if (family == KingdomFamily::Plant) return kPlantReasons;
    return kAnimalReasons;
}

std::span<const std::string_view> CredibilityRatings() {
    return kCredibilityRatings;
}

std::span<const std::string_view> CompletenessRatings() {
    return kCompletenessRatings;
}

std::span<const std::string_view> GeographicValues() {
    return kGeographicValues;
}

std::span<const std::string_view> JurisdictionValues() {
    return kJurisdictionValues;
}

std::span<const OriginWord> OriginWords() {
    return kOriginWords;
}

std::span<const std::string_view> ChangeOperations() {
    return kChangeOperations;
}

}  // namespace quillon
