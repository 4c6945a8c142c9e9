#include "validation/findings.h"

#include <algorithm>

namespace quillon::validation {

namespace {

constexpr std::string_view kTaxon = "taxon";
constexpr std::string_view kSynonyms = "synonyms";
constexpr std::string_view kVernacular = "vernacular";
constexpr std::string_view kDistribution = "distribution";
constexpr std::string_view kPublications = "publications";
constexpr std::string_view kExperts = "experts";
constexpr std::string_view kOtherSources = "othersources";

// In the order of the rules.
constexpr std::array<RuleInfo, kRuleCount> kRules = {{
    {Rule::RankMissing, "rank missing", kTaxon},
    {Rule::TrinomialIndicatorMissing, "trinomial indicator missing", kTaxon},
    {Rule::TrinomialIndicatorWrong, "trinomial indicator wrong", kTaxon},
    {Rule::QuadrinomialIndicatorMissing, "quadrinomial indicator missing", kTaxon},
    {Rule::QuadrinomialIndicatorWrong, "quadrinomial indicator wrong", kTaxon},
    {Rule::NameMissing, "name missing", kTaxon},
    {Rule::NameNotCapitalized, "name not capitalized", kTaxon},
    {Rule::SubgenusNotCapitalized, "subgenus not capitalized", kTaxon},
    {Rule::UsageMissing, "usage missing", kTaxon},
    {Rule::UsageUnknown, "usage unknown", kTaxon},
    {Rule::UsageOfOtherKingdoms, "usage of other kingdoms", kTaxon},
    {Rule::SynonymOfUsableName, "synonym link of a usable name", kSynonyms},
    {Rule::QuadrinomialAccepted, "quadrinomial accepted", kTaxon},
    {Rule::SynonymLinkBroken, "synonym link broken", kSynonyms},
    {Rule::SynonymOfSynonym, "synonym of a synonym", kSynonyms},
    {Rule::SynonymLinkMissing, "synonym link missing", kSynonyms},
    {Rule::ReasonOfOtherKingdoms, "reason of other kingdoms", kTaxon},
    {Rule::ReasonRetired, "reason retired", kTaxon},
    {Rule::ReasonUnknown, "reason unknown", kTaxon},
    {Rule::CredibilityMissing, "credibility missing", kTaxon},
    {Rule::CredibilityUnknown, "credibility unknown", kTaxon},
    {Rule::CompletenessMissing, "completeness missing", kTaxon},
    {Rule::CompletenessUnknown, "completeness unknown", kTaxon},
    {Rule::CurrencyMissing, "currency missing", kTaxon},
    {Rule::CurrencyWrong, "currency wrong", kTaxon},
    {Rule::ParentOfUnusableName, "parent of an unusable name", kTaxon},
    {Rule::ParentMissing, "parent missing", kTaxon},
    {Rule::ParentRankTooLow, "parent rank too low", kTaxon},
    {Rule::ParentUnusable, "parent not usable", kTaxon},
    {Rule::AuthorMissing, "author missing", kTaxon},
    {Rule::AuthorDateWrong, "author date wrong", kTaxon},
    {Rule::AuthorDateMissing, "author date missing", kTaxon},
    {Rule::OriginalYearDiffers, "original description of another year", kPublications},
    {Rule::SecondOriginalDescription, "second original description", kPublications},
    {Rule::ReferenceMissing, "reference missing", kPublications},
    {Rule::AuthorTextMissing, "author without a text", kTaxon},
    {Rule::AuthorKingdomMissing, "author without a kingdom", kTaxon},
    {Rule::LinkTaxonMissing, "reference link without a taxon", kPublications},
    {Rule::LinkPrefixMissing, "reference link without a prefix", kPublications},
    {Rule::LinkDocumentMissing, "reference link without a document", kPublications},
    {Rule::ExpertPrefixMissing, "expert prefix missing", kExperts},
    {Rule::ExpertIdMissing, "expert identifier missing", kExperts},
    {Rule::ExpertMissing, "expert missing", kExperts},
    {Rule::SourcePrefixMissing, "source prefix missing", kOtherSources},
    {Rule::SourceIdMissing, "source identifier missing", kOtherSources},
    {Rule::SourceTypeMissing, "source type missing", kOtherSources},
    {Rule::SourceMissing, "source missing", kOtherSources},
    {Rule::SourceDateMissing, "acquisition date missing", kOtherSources},
    {Rule::SourceVersionMissing, "source version missing", kOtherSources},
    {Rule::SourceDateWrong, "acquisition date wrong", kOtherSources},
    {Rule::PublicationPrefixMissing, "publication prefix missing", kPublications},
    {Rule::PublicationIdMissing, "publication identifier missing", kPublications},
    {Rule::PublicationNameMissing, "publication name missing", kPublications},
    {Rule::ListedDateWrong, "listed date wrong", kPublications},
    {Rule::ActualDateMissing, "actual date missing", kPublications},
    {Rule::ActualDateWrong, "actual date wrong", kPublications},
    {Rule::DatesOutOfOrder, "dates out of order", kPublications},
    {Rule::LanguageMissing, "language missing", kVernacular},
    {Rule::VernacularReferenceMissing, "vernacular without a reference", kVernacular},
    {Rule::OriginMissing, "origin missing", kDistribution},
}};

constexpr bool StandsInOrder() {
    for (std::size_t i = 0; i < kRules.size(); ++i)
        if (static_cast<std::size_t>(kRules[i].rule) != i) return false;
    return true;
}
static_assert(StandsInOrder());

}  // namespace

const RuleInfo& InfoOf(Rule rule) {
    return kRules[static_cast<std::size_t>(rule)];
}

std::string FindingMark::Prefix() const {
    return {prefix.begin(), std::find(prefix.begin(), prefix.end(), '\0')};
}

FindingMark MarkOf(const Finding& finding, std::uint32_t line) {
    FindingMark mark;
    mark.line = line;
    mark.id = finding.subject.id;
    mark.rule = finding.rule;
    mark.kind = finding.subject.kind;
    const std::string& prefix = finding.subject.prefix;
    std::copy_n(prefix.begin(), std::min(prefix.size(), mark.prefix.size()), mark.prefix.begin());
    return mark;
}

}  // namespace quillon::validation
