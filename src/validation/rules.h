// The catalogue of validation rules: for each a permanent code, the severity and the texts. The log,
// "validate.tsv", the error viewer and the manual's page of rules use it; the checks implement the rules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon::validation {

// In the order in which a run checks them. A new rule goes after those of its table, with the next number;
// codes are never reused.
enum class Rule : std::uint8_t {
    RankMissing,
    TrinomialIndicatorMissing,
    TrinomialIndicatorWrong,
    QuadrinomialIndicatorMissing,
    QuadrinomialIndicatorWrong,
    NameMissing,
    NameNotCapitalized,
    SubgenusNotCapitalized,
    UsageMissing,
    UsageUnknown,
    UsageOfOtherKingdoms,
    SynonymOfUsableName,
    QuadrinomialAccepted,
    SynonymLinkBroken,
    SynonymOfSynonym,
    SynonymLinkMissing,
    ReasonOfOtherKingdoms,
    ReasonRetired,
    ReasonUnknown,
    CredibilityMissing,
    CredibilityUnknown,
    CompletenessMissing,
    CompletenessUnknown,
    CurrencyMissing,
    CurrencyWrong,
    ParentOfUnusableName,
    ParentMissing,
    ParentRankTooLow,
    ParentUnusable,
    AuthorMissing,
    AuthorDateWrong,
    AuthorDateMissing,
    OriginalYearDiffers,
    SecondOriginalDescription,
    ReferenceMissing,
    AuthorTextMissing,
    AuthorKingdomMissing,
    LinkTaxonMissing,
    LinkPrefixMissing,
    LinkDocumentMissing,
    ExpertPrefixMissing,
    ExpertIdMissing,
    ExpertMissing,
    SourcePrefixMissing,
    SourceIdMissing,
    SourceTypeMissing,
    SourceMissing,
    SourceDateMissing,
    SourceVersionMissing,
    SourceDateWrong,
    PublicationPrefixMissing,
    PublicationIdMissing,
    PublicationNameMissing,
    ListedDateWrong,
    ActualDateMissing,
    ActualDateWrong,
    DatesOutOfOrder,
    LanguageMissing,
    VernacularReferenceMissing,
    OriginMissing,
};
inline constexpr std::size_t kRuleCount = static_cast<std::size_t>(Rule::OriginMissing) + 1;

// An export for the online system omits records with errors, but not those with only warnings.
enum class Severity : std::uint8_t { Error, Warning };

struct RuleInfo {
    Rule rule;
    std::string_view code;  // a letter for the table, and two digits
    Severity severity;
    std::string_view field;     // the field of the record or link that breaks the rule
    std::string_view label;     // a few words for a finding
    std::string_view sentence;  // what the rule requires
    std::string_view tab;       // the key of the tab of RecView where the fault is corrected
};

// All rules, in the order of the enumeration.
std::span<const RuleInfo> AllRules();
const RuleInfo& InfoOf(Rule rule);
// "error" or "warning".
std::string_view WordFor(Severity severity);

}  // namespace quillon::validation
