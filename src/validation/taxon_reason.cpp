// The rule on the reason why a name is not usable. Some words belong to one family of kingdoms, some to both,
// and some come from older files.

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/text.h"
#include "validation/taxon_rules.h"

namespace quillon::validation {

namespace {

// The current words; shown only in the plant family.
struct RetiredReason {
    std::string_view word;
    std::string_view hint;
};
constexpr std::string_view kIllegitimateHint =
    "'homonym (illegitimate)'  or 'superfluous renaming (illegitimate)', or 'other, see comments'";
constexpr std::string_view kInvalidHint =
    "'invalidly published, nomen nudum'  or 'invalidly published, other'";
constexpr std::array<RetiredReason, 3> kRetired = {{
    {"illegitimate", kIllegitimateHint},
    {"invalid", kInvalidHint},
    {"nomen invalidum", kInvalidHint},
}};

bool IsReasonOf(KingdomFamily family, std::string_view reason) {
    const auto reasons = UnacceptabilityReasons(family);
    return std::find(reasons.begin(), reasons.end(), reason) != reasons.end();
}

const RetiredReason* FindRetired(std::string_view reason) {
    const auto* found = std::find_if(kRetired.begin(), kRetired.end(),
                                     [&](const RetiredReason& r) { return r.word == reason; });
    return found == kRetired.end() ? nullptr : found;
}

void CheckWord(const TaxonCheck& check, const std::string& value) {
    const std::string reason = LowerCase(value);
    const bool ofAnimals = IsReasonOf(KingdomFamily::Animal, reason);
    const bool ofPlants = IsReasonOf(KingdomFamily::Plant, reason);
    const RetiredReason* retired = FindRetired(reason);
    if ((ofAnimals && check.run.IsAnimal()) || (ofPlants && check.run.IsPlant()) || (ofAnimals && ofPlants))
        return;
    const std::string opening = fmt::format("     <{}> is ", value);
    if (ofAnimals)
        check.Report(
            Rule::ReasonOfOtherKingdoms,
            opening + "not a valid unacceptability reason for the Plantae, Chromista and Fungi kingdoms");
    else if (ofPlants)
        check.Report(
            Rule::ReasonOfOtherKingdoms,
            opening + "not a valid unacceptability reason for the Animalia, Monera and Protozoa kingdoms");
    else if (retired != nullptr && check.run.IsPlant())
        check.Report(Rule::ReasonRetired,
                     fmt::format("{}no longer a valid unacceptability reason - need to change to {}", opening,
                                 retired->hint));
    else
        check.Report(Rule::ReasonUnknown, opening + "not a valid unacceptability reason (required field)");
}

}  // namespace

// A usable name needs no reason.
void CheckReason(const TaxonCheck& check) {
    const Value& usage = check.row.usage;
    if (!usage.IsText() || (usage.Text() != "invalid" && usage.Text() != "not accepted")) return;
    CheckWord(check, check.row.unacceptability_reason.AsText());
}

}  // namespace quillon::validation
