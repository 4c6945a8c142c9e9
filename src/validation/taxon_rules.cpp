#include "validation/taxon_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/text.h"
#include "validation/taxon_links.h"

namespace quillon::validation {

namespace {

constexpr std::array<std::string_view, 5> kTrinomialIndicators = {"ssp.", "var.", "subvar.", "f.", "subf."};
constexpr std::array<std::string_view, 4> kQuadrinomialIndicators = {"var.", "subvar.", "f.", "subf."};
constexpr std::string_view kUnknown = "unknown";

// A text field's text, without a copy; "" for Null.
std::string_view TextOf(const Value& value) {
    return value.IsText() ? std::string_view(value.Text()) : "";
}

template <typename Words>
bool Holds(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool Is(const Value& value, std::string_view word) {
    return value.IsText() && value.Text() == word;
}

bool StartsSmall(const Value& name) {
    const std::string_view first = LeftCharacters(TextOf(name), 1);
    return UpperCase(first) != first;
}

bool IsUsable(const Value& usage) {
    return usage.IsText() && UsageIsAccepted(usage.Text());
}

void CheckIndicator(const TaxonCheck& check, const Value& indicator, bool isKnown, Rule missing, Rule wrong,
                    std::string_view name, std::string_view known) {
    if (indicator.IsNull())
        check.Report(missing, fmt::format("     the {} must have a rank indicator", name));
    else if (!isKnown)
        check.Report(wrong,
                     fmt::format("     the {} indicator must be one of the following: {}", name, known));
}

// Checks that a word belongs to the kingdom. The messages name the word's kingdoms, not the row's.
void CheckUsageKingdom(const TaxonCheck& check, std::string_view usage) {
    const bool ofPlants = usage == "accepted" || usage == "not accepted";
    if (ofPlants && !check.run.IsPlant())
        check.Report(
            Rule::UsageOfOtherKingdoms,
            fmt::format("     <{}> is not a valid usage for the Plantae, Chromista and Fungi kingdoms",
                        usage));
    if (!ofPlants && !check.run.IsAnimal())
        check.Report(
            Rule::UsageOfOtherKingdoms,
            fmt::format("     <{}> is not a valid usage for the Animalia, Monera and Protozoa kingdoms",
                        usage));
}

void CheckUsageLinks(const TaxonCheck& check, std::string_view usage) {
    if (usage == "accepted" && check.run.IsPlant()) {
        CheckNoSynonymLink(check);
        if (!check.row.unit_name4.IsNull())
            check.Report(Rule::QuadrinomialAccepted, "     a quadrinomial cannot be an accepted name");
    } else if (usage == "valid" && check.run.IsAnimal()) {
        CheckNoSynonymLink(check);
    } else if ((usage == "not accepted" && check.run.IsPlant()) ||
               (usage == "invalid" && check.run.IsAnimal())) {
        CheckSynonymLinks(check);
    }
}

void CheckParentRank(const TaxonCheck& check, const TaxonFacts* parent) {
    if (parent == nullptr || !parent->hasRank || check.Rank() > parent->rank_id ||
        check.Rank() == kKingdomRankId)
        return;
    check.Report(Rule::ParentRankTooLow,
                 fmt::format("     the parent's rank <{}> must be lower than the Taxon's <{}>",
                             parent->rank_id, check.Rank()));
}

}  // namespace

void CheckTaxon(const TaxonCheck& check) {
    CheckIndicators(check);
    CheckName(check);
    CheckSubgenusName(check);
    CheckUsage(check);
    CheckReason(check);
    CheckCredibility(check);
    CheckCompleteness(check);
    CheckCurrency(check);
    CheckParent(check);
    CheckAuthority(check);
    CheckTaxonDocumentation(check);
}

void CheckIndicators(const TaxonCheck& check) {
    const TaxonRow& row = check.row;
    if (!check.run.IsPlant() || !check.run.speciesRank || check.Rank() <= *check.run.speciesRank) return;
    CheckIndicator(check, row.unit_ind3, Holds(kTrinomialIndicators, TextOf(row.unit_ind3)),
                   Rule::TrinomialIndicatorMissing, Rule::TrinomialIndicatorWrong, "trinomial",
                   "ssp. var. subvar. f. subf.");
    if (row.unit_name4.IsNull()) return;
    CheckIndicator(check, row.unit_ind4, Holds(kQuadrinomialIndicators, TextOf(row.unit_ind4)),
                   Rule::QuadrinomialIndicatorMissing, Rule::QuadrinomialIndicatorWrong, "quadnomial",
                   "var. subvar. f. subf.");
}

void CheckName(const TaxonCheck& check) {
    const Value& name = check.row.unit_name1;
    if (name.IsNull()) check.Report(Rule::NameMissing, "     missing scientific name");
    if (StartsSmall(name))
        check.Report(Rule::NameNotCapitalized,
                     fmt::format("     the first letter of the Scientific Name must be capitalized <{}>",
                                 name.AsText()));
}

// The message mentions parentheses, but the first unit is checked.
void CheckSubgenusName(const TaxonCheck& check) {
    const Value& name = check.row.unit_name1;
    if (!check.run.IsAnimal() || check.run.subgenusRank != check.Rank() || !StartsSmall(name)) return;
    check.Report(
        Rule::SubgenusNotCapitalized,
        fmt::format("     the first letter of the SubGenus, enclosed in parens (), must be capitalized <{}>",
                    name.AsText()));
}

void CheckUsage(const TaxonCheck& check) {
    static constexpr std::array<std::string_view, 4> words = {"valid", "invalid", "accepted", "not accepted"};
    if (check.row.usage.IsNull()) {
        check.Report(Rule::UsageMissing, "     usage is a required field");
        return;
    }
    const std::string_view usage = TextOf(check.row.usage);
    if (!Holds(words, usage)) {
        check.Report(Rule::UsageUnknown, fmt::format("     <{}> is not a valid usage", usage));
        return;
    }
    CheckUsageKingdom(check, usage);
    CheckUsageLinks(check, usage);
}

void CheckCredibility(const TaxonCheck& check) {
    const Value& rating = check.row.taxonomic_credibility_rating;
    if (rating.IsNull())
        check.Report(Rule::CredibilityMissing,
                     "     a taxonomic credibility rating is required for all records");
    else if (!Holds(CredibilityRatings(), TextOf(rating)))
        check.Report(Rule::CredibilityUnknown,
                     fmt::format("     <{}> is an invalid taxonomic credibility rating", rating.AsText()));
}

void CheckCompleteness(const TaxonCheck& check) {
    const Value& rating = check.row.taxonomic_completeness_rating;
    if (rating.IsNull() && check.run.genusRank && check.Rank() <= *check.run.genusRank)
        check.Report(
            Rule::CompletenessMissing,
            "     a taxonomic completeness rating (coverage) is required for ranks of Genus and above");
    if (!rating.IsNull() && !Holds(CompletenessRatings(), TextOf(rating)))
        check.Report(
            Rule::CompletenessUnknown,
            fmt::format("     <{}> is an invalid taxonomic completeness rating (coverage)", rating.AsText()));
}

void CheckCurrency(const TaxonCheck& check) {
    const Value& rating = check.row.currency_rating;
    if (rating.IsNull() && check.run.genusRank && check.Rank() <= *check.run.genusRank)
        check.Report(Rule::CurrencyMissing,
                     "     a currency rating is required for ranks of Genus and above");
    if (rating.IsNull() || Is(rating, kUnknown)) return;
    const auto year = ShortNumber(TextOf(rating));
    if (year && *year >= check.run.years.earliest && *year <= check.run.years.latest) return;
    check.Report(Rule::CurrencyWrong,
                 fmt::format("     <{}> is an invalid currency rating", rating.AsText()));
}

void CheckParent(const TaxonCheck& check) {
    const Value& parent_qb_id = check.row.parent_qb_id;
    if (!IsUsable(check.row.usage)) {
        if (!parent_qb_id.IsNull())
            check.Report(Rule::ParentOfUnusableName,
                         "     an invalid/not accepted Taxon cannot have a parent");
        return;
    }
    if (parent_qb_id.IsNull()) {
        check.Report(Rule::ParentMissing, "     a parent is required for valid/accepted Taxa");
        return;
    }
    const TaxonFacts* parent = check.lookUps.Taxon(parent_qb_id.AsLong());
    CheckParentRank(check, parent);
    if (parent == nullptr || !parent->isUsable)
        check.Report(Rule::ParentUnusable, "     a parent must be a valid/accepted Taxon");
}

void CheckAuthority(const TaxonCheck& check) {
    const Value& author = check.row.qb_taxon_author_id;
    if (author.IsNull() && check.run.genusRank && check.Rank() >= *check.run.genusRank)
        check.Report(Rule::AuthorMissing,
                     "     an authority is required for records with a rank of Genus or lower");
    if (check.run.IsAnimal() && !author.IsNull()) CheckAuthorDate(check);
}

void CheckAuthorDate(const TaxonCheck& check) {
    const AuthorFacts author = check.lookUps.Author(check.row.qb_taxon_author_id);
    if (author.year == kYearIsNoNumber)
        check.Report(Rule::AuthorDateWrong,
                     fmt::format("     -1 is an invalid date with author {}", author.text));
    if (author.year == kNoYear)
        check.Report(Rule::AuthorDateMissing,
                     fmt::format("     no date is associated with author <{}>", author.text));
}

}  // namespace quillon::validation
