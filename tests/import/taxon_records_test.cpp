// [TU] and [TA]: what is stored of taxa and authors.
#include <gmock/gmock.h>

#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr std::string_view kTaxa =
    "SELECT qb_id, tsn, unit_name1, usage, parent_qb_id FROM qb_taxonomic_units ORDER BY qb_id";

class TaxonRecords : public ImportTest {};

TEST_F(TaxonRecords, EveryFieldIsStored) {
    Import(
        {"[TU]5|100|X|Alpha|X|beta|ssp.|gamma|var.|delta|Yes|invalid|other|cred|partial|2020|3|"
         "2020-01-02 03:04:05|9|8|7|6|4|5|220|Yes|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(
        Dump("SELECT * FROM qb_taxonomic_units WHERE qb_id = 2"),
        "2\t100\tX\tAlpha\tX\tbeta\tssp.\tgamma\tvar.\tdelta\tYes\tinvalid\tother\tcred\tpartial\t2020\t3\t"
        "2020-01-02 03:04:05\t9\t8\t6\t4\t5\t220\tTrue\n");
}

TEST_F(TaxonRecords, EmptyFieldsAndZerosAreNull) {
    Import({"[TU]5||||||||||||||||||||||||||", "[TU]6|0|||||||||||||||0||0|0|0|0|0|0|0||"});
    EXPECT_EQ(findings, Findings{});
    const std::string nulls =
        "\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N"
        "\t\\N\t"
        "\\N\t\\N\t\\N\n";
    EXPECT_EQ(Dump("SELECT * FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id"),
              "2" + nulls + "3" + nulls);
}

TEST_F(TaxonRecords, ALineOfTheOlderLayoutHasANullUncertainParent) {
    const std::string fields25 = "[TU]5|||Alpha||||||||valid||||||||||||5|220|";
    Import({fields25});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(
        Dump("SELECT unit_name1, rank_id, uncertain_parent_ind FROM qb_taxonomic_units WHERE qb_id = 2"),
        "Alpha\t220\t\\N\n");
    Import({fields25 + "No"});
    EXPECT_EQ(
        findings,
        (Findings{{"Unexpected end-of-line in the following data line of import file!", fields25 + "No"}}));
}

TEST_F(TaxonRecords, FieldsBeyondTheLastAreNotRead) {
    Import({std::string(TaxonLine{.qb_id = "5"}) + "more|",
            std::string(TaxonLine{.qb_id = "6"}) + std::string(234, '|')});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1, uncertain_parent_ind FROM qb_taxonomic_units WHERE qb_id > 1"),
              "2\tAlpha\tFalse\n3\tAlpha\tFalse\n");
}

TEST_F(TaxonRecords, TheParentIsUncertainForYesOnly) {
    const std::string before = "|||Alpha||||||||valid||||||||||||5|220|";
    Import({"[TU]5" + before + "YES|", "[TU]6" + before + "y|", "[TU]7" + before + "True|",
            "[TU]8" + before + "|"});
    EXPECT_EQ(Dump("SELECT uncertain_parent_ind FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id"),
              "True\nTrue\nFalse\n\\N\n");
}

TEST_F(TaxonRecords, ASecondLineWithTheKeyOverwritesTheFirst) {
    Import({TaxonLine{.qb_id = "5", .tsn = "100", .unit_name1 = "First", .parent_qb_id = "1"},
            TaxonLine{.qb_id = "5", .unit_name1 = "Second", .usage = "invalid"}});
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t\\N\tSecond\tinvalid\t\\N\n");
}

TEST_F(TaxonRecords, AQbIdAndATsnAreKeysOfTheSameMap) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First"}, TaxonLine{.tsn = "5", .unit_name1 = "Second"}});
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t5\tSecond\tvalid\t\\N\n");
}

TEST_F(TaxonRecords, NewIdsAreGivenAsKeysAreFirstSeen) {
    Import({"[GD]|Africa|300|", TaxonLine{.tsn = "100"}, "[NO]77|200|5|", TaxonLine{.tsn = "300"},
            TaxonLine{.qb_id = "5", .tsn = "200"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_id, tsn FROM qb_taxonomic_units ORDER BY qb_id"),
              "1\t202423\n2\t300\n3\t100\n4\t200\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "2\tAfrica\t300\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_nodc_ids"), "77\t4\t200\n");
}

TEST_F(TaxonRecords, ARecordThatCannotBeStoredLeavesAPlaceholderAndTheRunContinues) {
    Import({TaxonLine{.tsn = "100", .unit_name1 = std::string(36, 'a'), .parent_tsn = "200"},
            TaxonLine{.tsn = "200", .unit_name1 = "Parent"}});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_id, tsn, unit_name1, parent_tsn, parent_qb_id FROM qb_taxonomic_units "
                   "WHERE qb_id > 1 ORDER BY qb_id"),
              "2\t\\N\tDummy#100\t\\N\t3\n3\t200\tParent\t\\N\t\\N\n");
}

TEST_F(TaxonRecords, AFailedSecondLineLeavesTheFirst) {
    Import({TaxonLine{.tsn = "100", .unit_name1 = "First"},
            TaxonLine{.tsn = "100", .unit_name1 = std::string(36, 'a')}});
    EXPECT_EQ(set.prompter.messages.size(), 1U);
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t100\tFirst\tvalid\t\\N\n");
}

TEST_F(TaxonRecords, AKingdomRecordReplacesTheSeedRootAndIsItsOwnParent) {
    Import({TaxonLine{.tsn = "10", .unit_name1 = "Animalia", .parent_tsn = "10", .rank_id = "10"},
            TaxonLine{.tsn = "20", .unit_name1 = "Chordata", .parent_tsn = "10", .rank_id = "30"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kTaxa), "2\t10\tAnimalia\tvalid\t2\n3\t20\tChordata\tvalid\t2\n");
}

TEST_F(TaxonRecords, AKingdomRecordStaysItsOwnParentWhenItsNewIdIsAKeyOfTheFile) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "Animalia", .rank_id = "10"},
            TaxonLine{.qb_id = "2", .unit_name1 = "Chordata", .parent_qb_id = "5", .rank_id = "30"}});
    EXPECT_EQ(Dump(kTaxa), "2\t\\N\tAnimalia\tvalid\t2\n3\t\\N\tChordata\tvalid\t2\n");
}

TEST_F(TaxonRecords, AnInvalidNameOfKingdomRankReplacesNothing) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "Zoa", .usage = "invalid", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t\\N\tZoa\tinvalid\t\\N\n");
}

TEST_F(TaxonRecords, AUsageInAnotherCaseIsNoKingdomRecordButIsReplacedAsOne) {
    const TaxonLine other{.qb_id = "5", .unit_name1 = "Zoa", .usage = "VALID", .rank_id = "10"};
    Import({other});
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t\\N\tZoa\tVALID\t\\N\n");
    Import({other, TaxonLine{.qb_id = "6", .unit_name1 = "Animalia", .usage = "accepted", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "4\t\\N\tAnimalia\taccepted\t4\n");
}

TEST_F(TaxonRecords, AnotherKingdomRecordReplacesTheFirst) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First", .rank_id = "10"},
            TaxonLine{.qb_id = "6", .unit_name1 = "Second", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "3\t\\N\tSecond\tvalid\t3\n");
}

TEST_F(TaxonRecords, ASecondKingdomLineWithTheKeyOverwritesTheFirst) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First", .rank_id = "10"},
            TaxonLine{.qb_id = "7", .unit_name1 = "Child", .parent_qb_id = "5"},
            TaxonLine{.qb_id = "5", .unit_name1 = "Animalia", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "2\t\\N\tAnimalia\tvalid\t2\n3\t\\N\tChild\tvalid\t2\n");
    EXPECT_EQ(findings, Findings{});
}

TEST_F(TaxonRecords, AReplacedKingdomRecordIsNotUpdatedByALaterLine) {
    const TaxonLine kingdom{.qb_id = "5", .unit_name1 = "Animalia", .rank_id = "10"};
    Import({kingdom, TaxonLine{.qb_id = "6", .unit_name1 = "Second", .rank_id = "10"},
            TaxonLine{.qb_id = "5", .unit_name1 = "Third", .rank_id = "30"}});
    EXPECT_EQ(Dump(kTaxa), "3\t\\N\tSecond\tvalid\t3\n");
}

TEST_F(TaxonRecords, AReplacedKingdomRecordComesBackWithAnotherKingdomLine) {
    const TaxonLine first{.qb_id = "5", .unit_name1 = "First", .rank_id = "10"};
    Import({first, TaxonLine{.qb_id = "6", .unit_name1 = "Second", .rank_id = "10"},
            TaxonLine{.qb_id = "7", .unit_name1 = "Child", .parent_qb_id = "6"}, first});
    EXPECT_EQ(Dump(kTaxa), "2\t\\N\tFirst\tvalid\t2\n4\t\\N\tChild\tvalid\t2\n");
}

TEST_F(TaxonRecords, AKingdomLineThatCannotBeStoredLeavesTheOldRecord) {
    const std::string tooLong(36, 'a');
    Import({TaxonLine{.qb_id = "5", .unit_name1 = tooLong, .rank_id = "10"}});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(Dump(kTaxa), "1\t202423\tAnimalia  \tvalid\t1\n2\t\\N\tDummy#5\t\\N\t2\n");
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "Animalia", .rank_id = "10"},
            TaxonLine{.qb_id = "5", .unit_name1 = tooLong, .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "2\t\\N\tDummy#5\t\\N\t2\n3\t\\N\tAnimalia\tvalid\t3\n");
}

TEST_F(TaxonRecords, AFormerKingdomRecordStays) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First", .usage = "VALID", .rank_id = "10"},
            TaxonLine{.qb_id = "5", .unit_name1 = "Now", .usage = "invalid", .rank_id = "10"},
            TaxonLine{.qb_id = "6", .unit_name1 = "Animalia", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "2\t\\N\tNow\tinvalid\t\\N\n3\t\\N\tAnimalia\tvalid\t3\n");
}

TEST_F(TaxonRecords, AnOldReasonIsStoredInItsCurrentForm) {
    Import({TaxonLine{.qb_id = "5", .usage = "invalid", .reason = "Misspelling"},
            TaxonLine{.qb_id = "6", .usage = "valid", .reason = "incertae sedis"},
            TaxonLine{.qb_id = "7", .usage = "invalid", .reason = "illegitimate"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(
        Dump("SELECT unacceptability_reason, unnamed_taxon_ind FROM qb_taxonomic_units WHERE qb_id > 1"),
        "unavailable, literature misspelling\t\\N\n\\N\tYes\nillegitimate\t\\N\n");
}

TEST_F(TaxonRecords, AReasonThatNeedsAPersonIsReportedAndTheRecordStored) {
    const std::string line =
        TaxonLine{.qb_id = "5", .unnamed_taxon_ind = "No", .usage = "invalid", .reason = "Incertae sedis"};
    Import({line});
    EXPECT_EQ(findings, (Findings{{"Unacceptability_reason of {Incertae sedis} is no longer a valid "
                                   "unacceptability reason - need to change to a valid reason",
                                   line}}));
    EXPECT_EQ(
        Dump("SELECT unacceptability_reason, unnamed_taxon_ind FROM qb_taxonomic_units WHERE qb_id = 2"),
        "Incertae sedis\tNo\n");
}

class PlantRecords : public ImportTest {
protected:
    PlantRecords() : ImportTest("Plantae") {}
};

TEST_F(PlantRecords, ReasonsFollowTheKingdomOfTheRun) {
    const std::string illegitimate =
        TaxonLine{.qb_id = "5", .usage = "not accepted", .reason = "illegitimate"};
    const std::string invalid = TaxonLine{.qb_id = "6", .usage = "not accepted", .reason = "invalid"};
    Import(
        {illegitimate, invalid, TaxonLine{.qb_id = "7", .usage = "not accepted", .reason = "misspelling"}});
    EXPECT_EQ(
        findings,
        (Findings{
            {"Unacceptability_reason of {illegitimate} is no longer a valid unacceptability reason - "
             "need to change to 'homonym (illegitimate)'  or 'superfluous renaming (illegitimate)', or "
             "'other, see comments'",
             illegitimate},
            {"Unacceptability_reason of {invalid} is no longer a valid unacceptability reason - need to "
             "change to 'invalidly published, nomen nudum'  or 'invalidly published, other'",
             invalid}}));
    EXPECT_EQ(Dump("SELECT unacceptability_reason FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id"),
              "illegitimate\ninvalid\northographic variant (misspelling)\n");
}

TEST_F(PlantRecords, AnAcceptedKingdomRecordReplacesTheSeedRoot) {
    Import({TaxonLine{.tsn = "10", .unit_name1 = "Plantae", .usage = "accepted", .rank_id = "10"}});
    EXPECT_EQ(Dump(kTaxa), "2\t10\tPlantae\taccepted\t2\n");
}

constexpr std::string_view kAuthors = "SELECT * FROM qb_taxon_authors_lookup ORDER BY qb_taxon_author_id";
constexpr std::string_view kAuthorsOfTaxa =
    "SELECT qb_id, qb_taxon_author_id, hybrid_author_id FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY "
    "qb_id";

class AuthorRecords : public ImportTest {};

TEST_F(AuthorRecords, AreMappedByEitherIdWhereverTheyStand) {
    Import({TaxonLine{.qb_id = "5", .taxon_author_id = "70"}, "[TA]|70|Linnaeus|5|", "[TA]8|80|Gray||",
            TaxonLine{
                .qb_id = "6", .taxon_author_id = "80", .qb_taxon_author_id = "8", .hybrid_author_id = "70"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kAuthors), "1\t70\tLinnaeus\t5\n2\t80\tGray\t0\n");
    EXPECT_EQ(Dump(kAuthorsOfTaxa), "2\t1\t\\N\n3\t2\t1\n");
}

TEST_F(AuthorRecords, WithTheSameTextLandOnTheFirstRow) {
    set.db().Execute("INSERT INTO qb_taxon_authors_lookup (taxon_author, kingdom_id) VALUES ('Gray', 5)");
    Import({"[TA]|70|Gray|5|", "[TA]|71|Linnaeus|5|", "[TA]|72|Linnaeus|5|", "[TA]|73|LINNAEUS|5|",
            TaxonLine{.qb_id = "5", .taxon_author_id = "70", .hybrid_author_id = "71"},
            TaxonLine{.qb_id = "6", .taxon_author_id = "72", .hybrid_author_id = "73"}});
    EXPECT_EQ(
        Dump(kAuthors),
        "1\t\\N\tGray\t5\n2\t70\tGray\t5\n3\t71\tLinnaeus\t5\n4\t72\tLinnaeus\t5\n5\t73\tLINNAEUS\t5\n");
    EXPECT_EQ(Dump(kAuthorsOfTaxa), "2\t1\t3\n3\t3\t5\n");
}

TEST_F(AuthorRecords, TheFirstLineOfAKeyCounts) {
    Import({"[TA]|70|Linnaeus|5|", "[TA]|70|Gray|5|", TaxonLine{.qb_id = "5", .taxon_author_id = "70"}});
    EXPECT_EQ(Dump(kAuthors), "1\t70\tLinnaeus\t5\n2\t70\tGray\t5\n");
    EXPECT_EQ(Dump(kAuthorsOfTaxa), "2\t1\t\\N\n");
}

TEST_F(AuthorRecords, AnEmptyTextIsStoredAndMapsNothing) {
    Import({"[TA]|70||5|", TaxonLine{.qb_id = "5", .taxon_author_id = "70"}});
    EXPECT_EQ(Dump(kAuthors), "1\t70\t\\N\t5\n");
    EXPECT_EQ(Dump(kAuthorsOfTaxa), "2\t70\t\\N\n");
}

TEST_F(AuthorRecords, ThatCannotBeStoredMapOnlyToARowThatIsThere) {
    Import({"[TA]|70|" + std::string(101, 'a') + "|5|", "[TA]|71|Gray|5|", "[TA]|72|Gray|256|",
            TaxonLine{.qb_id = "5", .taxon_author_id = "70", .hybrid_author_id = "72"}});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed "), StartsWith("Failed ")));
    EXPECT_EQ(Dump(kAuthors), "1\t71\tGray\t5\n");
    EXPECT_EQ(Dump(kAuthorsOfTaxa), "2\t70\t1\n");
}

}  // namespace
}  // namespace quillon::importing
