// The catalogue of the rules that a validation applies: a code that never changes, how severe a finding is,
// and the words for it. The log, "validate.tsv", the error viewer and the manual's page of rules take them
// from here; the checks decide what breaks a rule.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillon::validation {

// In the order in which a run comes to them. A rule that is added goes behind those of its table, with the
// next number, and a code is never given twice.
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

// A record with an error is left out of an export for the online system; one with warnings alone is not.
enum class Severity : std::uint8_t { Error, Warning };

struct RuleInfo {
    Rule rule;
    std::string_view code;  // a letter for the table, and two digits
    Severity severity;
    std::string_view field;     // of the record, or of the link, that breaks the rule
    std::string_view label;     // a few words for a finding
    std::string_view sentence;  // what the rule asks for
    std::string_view tab;       // the key of the tab of RecView where the fault is put right
};

// All rules, in the order of the enumeration.
std::span<const RuleInfo> AllRules();
const RuleInfo& InfoOf(Rule rule);
// "error" or "warning".
std::string_view WordFor(Severity severity);

}  // namespace quillon::validation
