// The rules on one taxon, by what a whole log says of it.

#include "testkit/golden.h"
#include "validation_fixture.h"

namespace quillon::validation {

namespace {

using TaxonRules = ValidationTest;
using PlantTaxonRules = PlantValidationTest;

TEST_F(TaxonRules, TaxaWithoutFaultsLeaveTheLogEmpty) {
    EXPECT_EQ(Validate(), "");
}
TEST_F(PlantTaxonRules, TaxaWithoutFaultsLeaveTheLogEmpty) {
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, RootIsNotChecked) {
    Set(1, "unit_name1", "'small'");
    Set(1, "usage", "'valid'");
    Set(1, "taxonomic_credibility_rating", "Null");
    Set(1, "taxonomic_completeness_rating", "Null");
    Set(1, "currency_rating", "Null");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, RowOfAnotherKingdomIsSkippedWithoutAHeading) {
    Set(3, "kingdom_id", "3");
    Set(3, "usage", "'wrong'");
    Set(3, "rank_id", "Null");
    EXPECT_EQ(Validate(), "");
    Set(3, "kingdom_id", "Null");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, MissingRankEndsTheTaxaAndNotTheRun) {
    AddTaxon(4, "gamma", 180);
    Set(3, "rank_id", "Null");
    Set(3, "usage", "Null");
    Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, kingdom_id) VALUES (2, 5)");
    EXPECT_EQ(Validate(), Lines({"ID =  3   Name = Alpha beta", "     a rank is required",
                                 "Author ID = 2  Name = ", "     a taxon author is required"}));
}

TEST_F(TaxonRules, MissingNameIsReportedOnceWithoutAFirstLetterFinding) {
    Set(2, "unit_name1", "Null");
    EXPECT_EQ(Validate(), Lines({"ID =  2   Name = ", "     missing scientific name"}));
}

TEST_F(TaxonRules, FirstLetterIsCapital) {
    Set(3, "unit_name1", "'alpha'");
    EXPECT_EQ(Validate(),
              Lines({"ID =  3   Name = alpha beta",
                     "     the first letter of the Scientific Name must be capitalized <alpha>"}));
    Set(3, "unit_name1", "'émile'");
    EXPECT_EQ(Validate(),
              Lines({"ID =  3   Name = émile beta",
                     "     the first letter of the Scientific Name must be capitalized <émile>"}));
    for (const char* name : {"'Émile'", "'(alpha)'", "'2-alpha'", "'×alpha'"}) {
        Set(3, "unit_name1", name);
        EXPECT_EQ(Validate(), "") << name;
    }
}

TEST_F(TaxonRules, SmallSubgenusGetsTwoMessages) {
    AddTaxon(4, "gamma", 190, 2);
    EXPECT_EQ(
        Validate(),
        Lines({"ID =  4   Name = gamma",
               "     the first letter of the Scientific Name must be capitalized <gamma>",
               "     the first letter of the SubGenus, enclosed in parens (), must be capitalized <gamma>"}));
}

TEST_F(PlantTaxonRules, SmallSubgenusGetsOneMessage) {
    AddTaxon(4, "gamma", 190, 2);
    EXPECT_EQ(Validate(),
              Lines({"ID =  4   Name = gamma",
                     "     the first letter of the Scientific Name must be capitalized <gamma>"}));
}

TEST_F(TaxonRules, UsageIsRequired) {
    Set(3, "usage", "Null");
    Set(3, "parent_qb_id", "Null");
    EXPECT_EQ(Validate(), OnSpecies({"     usage is a required field"}));
}

TEST_F(TaxonRules, EmptyUsageHasNoParentEither) {
    Set(3, "usage", "Null");
    EXPECT_EQ(Validate(), OnSpecies({"     usage is a required field",
                                     "     an invalid/not accepted Taxon cannot have a parent"}));
}

TEST_F(TaxonRules, UsageIsComparedExactly) {
    Set(3, "usage", "'Valid'");
    Set(3, "parent_qb_id", "Null");
    EXPECT_EQ(Validate(), OnSpecies({"     <Valid> is not a valid usage"}));
}

TEST_F(TaxonRules, UsageOfPlantsIsReportedWithTheGroupOfItsValue) {
    Set(3, "usage", "'accepted'");
    Link(3, 2);
    EXPECT_EQ(
        Validate(),
        OnSpecies({"     <accepted> is not a valid usage for the Plantae, Chromista and Fungi kingdoms"}));
    Set(3, "usage", "'not accepted'");
    Set(3, "parent_qb_id", "Null");
    Set(3, "unacceptability_reason", "'misapplied'");
    EXPECT_EQ(
        Validate(),
        OnSpecies(
            {"     <not accepted> is not a valid usage for the Plantae, Chromista and Fungi kingdoms"}));
}

TEST_F(PlantTaxonRules, UsageOfAnimalsIsReportedWithTheGroupOfItsValueAndNoLinkIsChecked) {
    Set(3, "usage", "'valid'");
    Link(3, 2);
    EXPECT_EQ(
        Validate(),
        OnSpecies({"     <valid> is not a valid usage for the Animalia, Monera and Protozoa kingdoms"}));
    Set(3, "usage", "'invalid'");
    Set(3, "parent_qb_id", "Null");
    Set(3, "unacceptability_reason", "'misapplied'");
    EXPECT_EQ(
        Validate(),
        OnSpecies({"     <invalid> is not a valid usage for the Animalia, Monera and Protozoa kingdoms"}));
}

TEST_F(PlantTaxonRules, QuadrinomialIsNotAccepted) {
    AddTaxon(4, "Alpha", 250, 3);
    for (const auto& [column, text] : {std::pair("unit_name2", "'beta'"), std::pair("unit_ind3", "'var.'"),
                                       std::pair("unit_name3", "'gamma'"), std::pair("unit_ind4", "'f.'"),
                                       std::pair("unit_name4", "'delta'")})
        Set(4, column, text);
    EXPECT_EQ(Validate(), Lines({"ID =  4   Name = Alpha beta var. gamma f. delta",
                                 "     a quadrinomial cannot be an accepted name"}));
    MakeSynonym(4, 3, "synonym");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, QuadrinomialMayBeValid) {
    Set(3, "unit_name3", "'gamma'");
    Set(3, "unit_name4", "'delta'");
    EXPECT_EQ(Validate(), "");
}

class PlantIndicators : public PlantValidationTest {
protected:
    void SetUp() override {
        PlantValidationTest::SetUp();
        AddTaxon(4, "Alpha", 230, 3);
        Set(4, "unit_name2", "'beta'");
        Set(4, "unit_name3", "'gamma'");
        MakeSynonym(4, 3, "synonym");
    }
};

TEST_F(PlantIndicators, TrinomialHasOne) {
    EXPECT_EQ(Validate(),
              Lines({"ID =  4   Name = Alpha beta gamma", "     the trinomial must have a rank indicator"}));
}

TEST_F(PlantIndicators, TrinomialHasAKnownOneAndNoQuadrinomialIsLookedAt) {
    const std::string message =
        "     the trinomial indicator must be one of the following: ssp. var. subvar. f. subf.";
    for (const char* indicator : {"ssp", "Ssp.", "X"}) {
        Set(4, "unit_ind3", fmt::format("'{}'", indicator));
        Set(4, "unit_ind4", "'odd'");
        EXPECT_EQ(Validate(),
                  Lines({fmt::format("ID =  4   Name = Alpha beta {} gamma odd ", indicator), message}));
    }
    Set(4, "unit_ind4", "Null");
    for (const char* indicator : {"ssp.", "var.", "subvar.", "f.", "subf."}) {
        Set(4, "unit_ind3", fmt::format("'{}'", indicator));
        EXPECT_EQ(Validate(), "") << indicator;
    }
}

TEST_F(PlantIndicators, QuadrinomialHasAKnownOneOtherThanSubspecies) {
    Set(4, "unit_ind3", "'ssp.'");
    Set(4, "unit_name4", "'delta'");
    EXPECT_EQ(Validate(), Lines({"ID =  4   Name = Alpha beta ssp. gamma delta",
                                 "     the quadnomial must have a rank indicator"}));
    Set(4, "unit_ind4", "'ssp.'");
    EXPECT_EQ(Validate(),
              Lines({"ID =  4   Name = Alpha beta ssp. gamma ssp. delta",
                     "     the quadnomial indicator must be one of the following: var. subvar. f. subf."}));
    for (const char* indicator : {"var.", "subvar.", "f.", "subf."}) {
        Set(4, "unit_ind4", fmt::format("'{}'", indicator));
        EXPECT_EQ(Validate(), "") << indicator;
    }
}

TEST_F(PlantIndicators, SpeciesNeedsNone) {
    Set(4, "rank_id", "220");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, SubspeciesOfAnimalsNeedsNoIndicator) {
    AddTaxon(4, "Alpha", 230, 3);
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, CredibilityIsRequiredAndKnown) {
    Set(3, "taxonomic_credibility_rating", "Null");
    EXPECT_EQ(Validate(), OnSpecies({"     a taxonomic credibility rating is required for all records"}));
    Set(3, "taxonomic_credibility_rating", "'KSP Standards Met'");
    EXPECT_EQ(Validate(), OnSpecies({"     <KSP Standards Met> is an invalid taxonomic credibility rating"}));
    for (const char* rating : {"No review; non-peer reviewed source", "No review; untreated NODC data",
                               "Minimum taxonomic/nomenclature review", "KSP standards met"}) {
        Set(3, "taxonomic_credibility_rating", fmt::format("'{}'", rating));
        EXPECT_EQ(Validate(), "") << rating;
    }
}

TEST_F(TaxonRules, CompletenessIsRequiredFromGenusUpAndKnown) {
    Set(2, "taxonomic_completeness_rating", "Null");
    Set(3, "taxonomic_completeness_rating", "Null");
    EXPECT_EQ(
        Validate(),
        Lines({"ID =  2   Name = Alpha",
               "     a taxonomic completeness rating (coverage) is required for ranks of Genus and above"}));
    Set(2, "taxonomic_completeness_rating", "'complete'");
    Set(3, "taxonomic_completeness_rating", "'Partial'");
    EXPECT_EQ(Validate(),
              OnSpecies({"     <Partial> is an invalid taxonomic completeness rating (coverage)"}));
    Set(3, "taxonomic_completeness_rating", "'unknown'");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, CurrencyIsRequiredFromGenusUp) {
    Set(2, "currency_rating", "Null");
    Set(3, "currency_rating", "Null");
    EXPECT_EQ(Validate(), Lines({"ID =  2   Name = Alpha",
                                 "     a currency rating is required for ranks of Genus and above"}));
}

TEST_F(TaxonRules, CurrencyIsUnknownOrAYearUpToNow) {
    for (const char* rating : {"unknown", "1758", "2024", "2000.4", " 1999"}) {
        Set(3, "currency_rating", fmt::format("'{}'", rating));
        EXPECT_EQ(Validate(), "") << rating;
    }
    for (const char* rating : {"Unknown", "1757", "2025", "19xx", "99999", "1e9", "-2000", "2024.6"}) {
        Set(3, "currency_rating", fmt::format("'{}'", rating));
        EXPECT_EQ(Validate(), OnSpecies({fmt::format("     <{}> is an invalid currency rating", rating)}));
    }
}

TEST_F(PlantTaxonRules, CurrencyOfPlantsStartsIn1753) {
    Set(3, "currency_rating", "'1753'");
    EXPECT_EQ(Validate(), "");
    Set(3, "currency_rating", "'1752'");
    EXPECT_EQ(Validate(), OnSpecies({"     <1752> is an invalid currency rating"}));
}

class FungiRules : public ValidationTest {
protected:
    FungiRules() : ValidationTest("Fungi") {}
};

TEST_F(FungiRules, CurrencyOf1757Passes) {
    Set(3, "currency_rating", "'1757'");
    EXPECT_EQ(Validate(), "");
}

TEST_F(FungiRules, EarliestYearFollowsTheRootRecord) {
    Set(3, "currency_rating", "'1757'");
    Set(1, "rank_id", "20");
    EXPECT_EQ(KingdomNameOfDataSet(set.db()), "");
    EXPECT_NE(Validate().find("     <1757> is an invalid currency rating\r\n"), std::string::npos);
}

TEST_F(TaxonRules, UnusableNameHasNoParent) {
    MakeSynonym(3, 2, "junior synonym");
    Set(3, "parent_qb_id", "2");
    EXPECT_EQ(Validate(), OnSpecies({"     an invalid/not accepted Taxon cannot have a parent"}));
}

TEST_F(TaxonRules, UsableNameHasAParent) {
    Set(3, "parent_qb_id", "Null");
    EXPECT_EQ(Validate(), OnSpecies({"     a parent is required for valid/accepted Taxa"}));
}

TEST_F(TaxonRules, ParentRanksHigherByItsNumber) {
    AddTaxon(4, "Alpha", 220, 3);
    EXPECT_EQ(Validate(), Lines({"ID =  4   Name = Alpha",
                                 "     the parent's rank <220> must be lower than the Taxon's <220>"}));
    Set(4, "rank_id", "190");
    EXPECT_EQ(Validate(), Lines({"ID =  4   Name = Alpha",
                                 "     the parent's rank <220> must be lower than the Taxon's <190>"}));
}

TEST_F(TaxonRules, ParentIsUsable) {
    AddTaxon(4, "Alpha", 230, 3);
    MakeSynonym(3, 2, "junior synonym");
    EXPECT_EQ(Validate(), Lines({"ID =  4   Name = Alpha", "     a parent must be a valid/accepted Taxon"}));
}

TEST_F(TaxonRules, ParentThatIsNotThereIsNotUsable) {
    Set(3, "parent_qb_id", "99");
    EXPECT_EQ(Validate(), OnSpecies({"     a parent must be a valid/accepted Taxon"}));
}

TEST_F(TaxonRules, ParentMayHaveTheUsageOfTheOtherGroup) {
    Set(1, "usage", "'accepted'");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, AuthorityIsRequiredFromGenusDown) {
    AddTaxon(4, "Alphidae", 140);
    Set(4, "qb_taxon_author_id", "Null");
    EXPECT_EQ(Validate(), "");
    Set(2, "qb_taxon_author_id", "Null");
    EXPECT_EQ(Validate(), Lines({"ID =  2   Name = Alpha",
                                 "     an authority is required for records with a rank of Genus or lower"}));
}

class AuthorDates : public ValidationTest {
protected:
    std::string ValidateWithAuthor(std::string_view author) {
        Run("DELETE * FROM qb_taxon_authors_lookup WHERE qb_taxon_author_id = 2");
        Run(
            fmt::format("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
                        "VALUES (2, '{}', 5)",
                        author));
        Set(3, "qb_taxon_author_id", "2");
        return Validate();
    }
};

TEST_F(AuthorDates, AuthorOfAnAnimalHasAYear) {
    EXPECT_EQ(ValidateWithAuthor("Smith, 1776"), "");
    EXPECT_EQ(ValidateWithAuthor("Smith"), OnSpecies({"     no date is associated with author <Smith>"}));
    EXPECT_EQ(ValidateWithAuthor("Smith 17th c."),
              OnSpecies({"     -1 is an invalid date with author Smith 17th c."}));
}

TEST_F(AuthorDates, AuthorThatIsNotThereHasNoText) {
    Set(3, "qb_taxon_author_id", "77");
    EXPECT_EQ(Validate(), OnSpecies({"     no date is associated with author <>"}));
}

TEST_F(PlantTaxonRules, AuthorOfAPlantNeedsNoYear) {
    Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) VALUES (2, 'L.', "
        "3)");
    Set(3, "qb_taxon_author_id", "2");
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonRules, AllRulesOfARowFollowOneHeadingInOrder) {
    Run("INSERT INTO qb_taxonomic_units (qb_id, kingdom_id, rank_id, unit_name1, usage, parent_qb_id, "
        "unacceptability_reason, currency_rating) VALUES (12, 5, 180, 'zeta', 'invalid', 2, 'synonym', "
        "'1700')");
    EXPECT_EQ(Validate(), testkit::Golden("validation/AllRulesOfARowFollowOneHeadingInOrder.log"));
}

TEST_F(TaxonRules, HeadingHasTheMarksAndStopsAtAMissingUnit) {
    Set(3, "unit_ind1", "'X'");
    Set(3, "unit_ind2", "'X'");
    Set(3, "unit_name4", "'lost'");
    Set(3, "usage", "'odd'");
    Set(3, "parent_qb_id", "Null");
    EXPECT_EQ(Validate(), Lines({"ID =  3   Name = X Alpha X beta", "     <odd> is not a valid usage"}));
}

TEST_F(TaxonRules, NegativeNumberOfAHeadingHasItsSignInTheBlanksPlace) {
    AddTaxon(-5, "alpha", 180);
    EXPECT_EQ(Validate(),
              Lines({"ID = -5   Name = alpha",
                     "     the first letter of the Scientific Name must be capitalized <alpha>"}));
}

}  // namespace

}  // namespace quillon::validation
