#include "validation/rules.h"

#include <array>

namespace quillon::validation {

namespace {

constexpr std::string_view kTaxon = "taxon";
constexpr std::string_view kSynonyms = "synonyms";
constexpr std::string_view kVernacular = "vernacular";
constexpr std::string_view kDistribution = "distribution";
constexpr std::string_view kPublications = "publications";
constexpr std::string_view kExperts = "experts";
constexpr std::string_view kOtherSources = "othersources";
constexpr Severity kError = Severity::Error, kWarning = Severity::Warning;

// clang-format off
constexpr std::array<RuleInfo, kRuleCount> kRules = {{
    {Rule::RankMissing, "T01", kError, "rank_id", "rank missing",
     "A taxon has a rank. The check of the taxa ends with the first one that has none.", kTaxon},
    {Rule::TrinomialIndicatorMissing, "T02", kError, "unit_ind3", "trinomial indicator missing",
     "A plant, fungus or chromist below the rank of Species has an indicator before its third name.", kTaxon},
    {Rule::TrinomialIndicatorWrong, "T03", kError, "unit_ind3", "trinomial indicator wrong",
     "The indicator before the third name is one of ssp., var., subvar., f. and subf.", kTaxon},
    {Rule::QuadrinomialIndicatorMissing, "T04", kError, "unit_ind4", "quadrinomial indicator missing",
     "A plant, fungus or chromist with a fourth name has an indicator before it.", kTaxon},
    {Rule::QuadrinomialIndicatorWrong, "T05", kError, "unit_ind4", "quadrinomial indicator wrong",
     "The indicator before the fourth name is one of var., subvar., f. and subf.", kTaxon},
    {Rule::NameMissing, "T06", kError, "unit_name1", "name missing",
     "A taxon has a scientific name.", kTaxon},
    {Rule::NameNotCapitalized, "T07", kError, "unit_name1", "name not capitalized",
     "A scientific name begins with a capital letter.", kTaxon},
    {Rule::SubgenusNotCapitalized, "T08", kError, "unit_name1", "subgenus not capitalized",
     "The name of an animal's subgenus begins with a capital letter.", kTaxon},
    {Rule::UsageMissing, "T09", kError, "usage", "usage missing",
     "A taxon has a usage.", kTaxon},
    {Rule::UsageUnknown, "T10", kError, "usage", "usage unknown",
     "The usage is one of valid, invalid, accepted and not accepted.", kTaxon},
    {Rule::UsageOfOtherKingdoms, "T11", kError, "usage", "usage of other kingdoms",
     "Plants, fungi and chromists are accepted or not accepted; animals, protozoa and monera are valid or invalid.", kTaxon},
    {Rule::SynonymOfUsableName, "T12", kError, "qb_id_accepted", "synonym link of a usable name",
     "A valid or accepted name is not linked to another name as its synonym.", kSynonyms},
    {Rule::QuadrinomialAccepted, "T13", kError, "unit_name4", "quadrinomial accepted",
     "A name of four parts is not accepted.", kTaxon},
    {Rule::SynonymLinkBroken, "T14", kError, "qb_id_accepted", "synonym link broken",
     "The name to which a synonym is linked is in the DataSet.", kSynonyms},
    {Rule::SynonymOfSynonym, "T15", kError, "qb_id_accepted", "synonym of a synonym",
     "A synonym is linked to a valid or accepted name.", kSynonyms},
    {Rule::SynonymLinkMissing, "T16", kError, "qb_id_accepted", "synonym link missing",
     "An invalid or not accepted name is linked to the name that is used instead.", kSynonyms},
    {Rule::ReasonOfOtherKingdoms, "T17", kError, "unacceptability_reason", "reason of other kingdoms",
     "The reason why a name is not used is one of those for the kingdom.", kTaxon},
    {Rule::ReasonRetired, "T18", kError, "unacceptability_reason", "reason retired",
     "The reason is not one of the words of older files, which have been replaced.", kTaxon},
    {Rule::ReasonUnknown, "T19", kError, "unacceptability_reason", "reason unknown",
     "An invalid or not accepted name has one of the known reasons.", kTaxon},
    {Rule::CredibilityMissing, "T20", kError, "taxonomic_credibility_rating", "credibility missing",
     "A taxon has a credibility rating.", kTaxon},
    {Rule::CredibilityUnknown, "T21", kError, "taxonomic_credibility_rating", "credibility unknown",
     "The credibility rating is one of the known ones, letter by letter.", kTaxon},
    {Rule::CompletenessMissing, "T22", kError, "taxonomic_completeness_rating", "completeness missing",
     "A taxon of the rank Genus or above has a completeness rating.", kTaxon},
    {Rule::CompletenessUnknown, "T23", kError, "taxonomic_completeness_rating", "completeness unknown",
     "The completeness rating is one of unknown, partial and complete.", kTaxon},
    {Rule::CurrencyMissing, "T24", kError, "currency_rating", "currency missing",
     "A taxon of the rank Genus or above has a currency rating.", kTaxon},
    {Rule::CurrencyWrong, "T25", kError, "currency_rating", "currency wrong",
     "The currency rating is unknown, or a year from 1753 for plants, fungi and chromists or 1758 for others to this year.", kTaxon},
    {Rule::ParentOfUnusableName, "T26", kError, "parent_qb_id", "parent of an unusable name",
     "An invalid or not accepted name has no parent.", kTaxon},
    {Rule::ParentMissing, "T27", kError, "parent_qb_id", "parent missing",
     "A valid or accepted name has a parent.", kTaxon},
    {Rule::ParentRankTooLow, "T28", kError, "rank_id", "parent rank too low",
     "The rank of the parent is above that of the taxon.", kTaxon},
    {Rule::ParentUnusable, "T29", kError, "parent_qb_id", "parent not usable",
     "The parent is a valid or accepted name of the DataSet.", kTaxon},
    {Rule::AuthorMissing, "T30", kError, "qb_taxon_author_id", "author missing",
     "A taxon of the rank Genus or below has an author.", kTaxon},
    {Rule::AuthorDateWrong, "T31", kError, "qb_taxon_author_id", "author date wrong",
     "The first digit in the author of an animal, protozoon or moneran begins a year of four digits.", kTaxon},
    {Rule::AuthorDateMissing, "T32", kError, "qb_taxon_author_id", "author date missing",
     "The author of an animal, protozoon or moneran has a year.", kTaxon},
    {Rule::OriginalYearDiffers, "T33", kError, "actual_pub_date", "original description of another year",
     "The author's year is the year in which the original description was published.", kPublications},
    {Rule::SecondOriginalDescription, "T34", kError, "original_desc_ind", "second original description",
     "One publication of a taxon, and no more, is its original description.", kPublications},
    {Rule::ReferenceMissing, "T35", kError, "qb_documentation_id", "reference missing",
     "A taxon has at least one reference: a publication, an expert or another source.", kPublications},
    {Rule::AuthorTextMissing, "A01", kWarning, "taxon_author", "author without a text",
     "An author has a text.", kTaxon},
    {Rule::AuthorKingdomMissing, "A02", kWarning, "kingdom_id", "author without a kingdom",
     "An author has a kingdom.", kTaxon},
    {Rule::LinkTaxonMissing, "L01", kError, "qb_id", "reference link without a taxon",
     "A reference link has a taxon.", kPublications},
    {Rule::LinkPrefixMissing, "L02", kError, "qb_documentation_id_prefix", "reference link without a prefix",
     "A reference link has the prefix of a document.", kPublications},
    {Rule::LinkDocumentMissing, "L03", kError, "qb_documentation_id", "reference link without a document",
     "A reference link has the number of a document.", kPublications},
    {Rule::ExpertPrefixMissing, "E01", kError, "expert_id_prefix", "expert prefix missing",
     "An expert has a prefix.", kExperts},
    {Rule::ExpertIdMissing, "E02", kError, "qb_expert_id", "expert identifier missing",
     "An expert has a number.", kExperts},
    {Rule::ExpertMissing, "E03", kError, "expert", "expert missing",
     "An expert has a name.", kExperts},
    {Rule::SourcePrefixMissing, "S01", kError, "source_id_prefix", "source prefix missing",
     "A source has a prefix.", kOtherSources},
    {Rule::SourceIdMissing, "S02", kError, "qb_source_id", "source identifier missing",
     "A source has a number.", kOtherSources},
    {Rule::SourceTypeMissing, "S03", kError, "source_type", "source type missing",
     "A source has a type.", kOtherSources},
    {Rule::SourceMissing, "S04", kError, "source", "source missing",
     "A source has a name.", kOtherSources},
    {Rule::SourceDateMissing, "S05", kError, "acquisition_date", "acquisition date missing",
     "A source has the date of its acquisition.", kOtherSources},
    {Rule::SourceVersionMissing, "S06", kError, "version", "source version missing",
     "A source has a version.", kOtherSources},
    {Rule::SourceDateWrong, "S07", kError, "acquisition_date", "acquisition date wrong",
     "The date of acquisition is a date of the form dd/mm/yyyy, not before the earliest year and not after this one.", kOtherSources},
    {Rule::PublicationPrefixMissing, "P01", kError, "publication_id_prefix", "publication prefix missing",
     "A publication has a prefix.", kPublications},
    {Rule::PublicationIdMissing, "P02", kError, "qb_publication_id", "publication identifier missing",
     "A publication has a number.", kPublications},
    {Rule::PublicationNameMissing, "P03", kError, "publication_name", "publication name missing",
     "A publication has a name.", kPublications},
    {Rule::ListedDateWrong, "P04", kError, "listed_pub_date", "listed date wrong",
     "The listed date is a date of the form dd/mm/yyyy, not before the earliest year and not after this one.", kPublications},
    {Rule::ActualDateMissing, "P05", kError, "actual_pub_date", "actual date missing",
     "A publication has an actual date.", kPublications},
    {Rule::ActualDateWrong, "P06", kError, "actual_pub_date", "actual date wrong",
     "The actual date is a date of the form dd/mm/yyyy, not before the earliest year and not after this one.", kPublications},
    {Rule::DatesOutOfOrder, "P07", kError, "actual_pub_date", "dates out of order",
     "The actual date is not before the listed date.", kPublications},
    {Rule::LanguageMissing, "V01", kError, "language", "language missing",
     "A vernacular has a language.", kVernacular},
    {Rule::VernacularReferenceMissing, "V02", kError, "approved_ind", "vernacular without a reference",
     "An approved vernacular has a reference of its own.", kVernacular},
    {Rule::OriginMissing, "J01", kError, "origin", "origin missing",
     "A jurisdiction of a taxon has an origin.", kDistribution},
}};
// clang-format on

constexpr bool StandsInOrder() {
    for (std::size_t i = 0; i < kRules.size(); ++i)
        if (static_cast<std::size_t>(kRules[i].rule) != i) return false;
    return true;
}
static_assert(StandsInOrder());

}  // namespace

std::span<const RuleInfo> AllRules() {
    return kRules;
}

const RuleInfo& InfoOf(Rule rule) {
    return kRules[static_cast<std::size_t>(rule)];
}

std::string_view WordFor(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

}  // namespace quillon::validation
