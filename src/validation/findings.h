// The findings of a validation as data: which rule, on which record, in which words. The rules make them, the
// log file and the error viewer take them; nothing here decides whether there is one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::validation {

// The rules in the order in which a run comes to them.
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

// What the error viewer says of a rule: a few words for its counts, and the tab of RecView where the fault is
// put right.
struct RuleInfo {
    Rule rule;
    std::string_view label;
    std::string_view tab;
};
const RuleInfo& InfoOf(Rule rule);

enum class RecordKind : std::uint8_t {
    Taxon,
    Author,
    ReferenceLink,
    Expert,
    OtherSource,
    Publication,
    Vernacular,
    Jurisdiction,
};

// The record that a finding is about.
struct Subject {
    RecordKind kind = RecordKind::Taxon;
    std::int32_t id = 0;  // the qb_id of the taxon, but of an author or a document its own
    std::string prefix;   // of a document
    bool operator==(const Subject&) const = default;
};

struct Finding {
    Rule rule = Rule::RankMissing;
    Subject subject;
    std::string heading;  // empty when the record has had one
    std::string message;  // with its five leading blanks
    bool operator==(const Finding&) const = default;
};

using FindingSink = std::function<void(const Finding&)>;

// Where a finding stands in the log: enough to count, and to go to its record, with a million of them in
// memory.
struct FindingMark {
    std::uint32_t line = 0;  // of the message, from 0
    std::int32_t id =
        0;  // 0 when the record is not to be gone to: it is in another DataSet than the open one
    Rule rule = Rule::RankMissing;
    RecordKind kind = RecordKind::Taxon;
    std::array<char, 3> prefix{};  // of a document, filled up with NUL

    std::string Prefix() const;
};
using FindingMarks = std::vector<FindingMark>;

FindingMark MarkOf(const Finding& finding, std::uint32_t line);

}  // namespace quillon::validation
