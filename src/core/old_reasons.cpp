// Reasons that older files hold and the program no longer offers: each has a successor for each family of
// kingdoms, or advice for the person who has to choose one.
#include "core/text.h"
#include "core/vocabulary.h"

namespace quillon {

namespace {

// A word of older files and its successor; an empty successor keeps the reason.
struct Successor {
    std::string_view oldReason;
    std::string_view animal;
    std::string_view plant;
};

constexpr std::array<Successor, 9> kSuccessors = {{
    {"misspelling", "unavailable, literature misspelling", "orthographic variant (misspelling)"},
    {"nomen nudum", "unavailable, nomen nudum", "invalidly published, nomen nudum"},
    {"homonym", "", "homonym (illegitimate)"},
    {"nomina utique rejicienda", "", "rejected name"},
    {"orthographic variant", "", "orthographic variant (misspelling)"},
    {"excluded", "", "other, see comments"},
    {"database artifact", "unavailable, database artifact", ""},
    {"syn-original combination", "original name/combination", ""},
    {"syn-subsequent comb.", "subsequent name/combination", ""},
}};

// A word without a single successor, which the user must change.
struct Withdrawn {
    std::string_view oldReason;
    std::string_view advice;
};

constexpr std::string_view kIllegitimateAdvice =
    "'homonym (illegitimate)'  or 'superfluous renaming (illegitimate)', or 'other, see comments'";
constexpr std::string_view kInvalidAdvice =
    "'invalidly published, nomen nudum'  or 'invalidly published, other'";

constexpr std::array<Withdrawn, 3> kWithdrawnPlantReasons = {{
    {"illegitimate", kIllegitimateAdvice},
    {"invalid", kInvalidAdvice},
    {"nomen invalidum", kInvalidAdvice},
}};

std::string_view SuccessorOf(KingdomFamily family, std::string_view lowerReason) {
    for (const Successor& entry : kSuccessors) {
        if (entry.oldReason == lowerReason)
            return family == KingdomFamily::Plant ? entry.plant : entry.animal;
    }
    return {};
}

std::string_view AdviceOnPlantReason(std::string_view lowerReason) {
    for (const Withdrawn& entry : kWithdrawnPlantReasons) {
        if (entry.oldReason == lowerReason) return entry.advice;
    }
    return {};
}

std::string Finding(std::string_view reason, std::string_view advice) {
    return std::string("Unacceptability_reason of {")
        .append(reason)
        .append("} is no longer a valid unacceptability reason - need to change to ")
        .append(advice);
}

OldReason KeptWithFinding(std::string_view reason, std::string_view advice) {
    return {std::string(reason), false, Finding(reason, advice)};
}

// A valid taxon of uncertain position is now an unnamed one without a reason.
OldReason RewriteIncertaeSedis(std::string_view usage, std::string_view reason) {
    if (usage == AcceptedUsage(KingdomFamily::Animal)) return {"", true, ""};
    return KeptWithFinding(reason, "a valid reason");
}

}  // namespace

OldReason RewriteOldReason(KingdomFamily family, std::string_view usage, std::string_view reason) {
    const std::string lower = LowerCase(reason);
    if (family == KingdomFamily::Animal && lower == "incertae sedis")
        return RewriteIncertaeSedis(usage, reason);
    if (family == KingdomFamily::Plant) {
        const std::string_view advice = AdviceOnPlantReason(lower);
        if (!advice.empty()) return KeptWithFinding(reason, advice);
    }
    const std::string_view successor = SuccessorOf(family, lower);
    return {std::string(successor.empty() ? reason : successor), false, ""};
}

}  // namespace quillon
