// The rows of a taxon by its id: divisions, jurisdictions, NODC ids, vernaculars, synonym links.
#include <gmock/gmock.h>

#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class LinkRecords : public ImportTest {
protected:
    const std::string taxon = TaxonLine{.qb_id = "5", .tsn = "100"};  // its new id is 2
};

TEST_F(LinkRecords, DivisionsAndJurisdictionsAreStored) {
    Import({taxon, "[GD]5|Africa|100|", "[GD]5|Australia||", "[JR]5|Alaska|Native|100|", "[JR]5|Hawaii|||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division ORDER BY geographic_value"),
              "2\tAfrica\t100\n2\tAustralia\t\\N\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_jurisdiction ORDER BY jurisdiction_value"),
              "2\tAlaska\tNative\t100\n2\tHawaii\t\\N\t\\N\n");
}

TEST_F(LinkRecords, ADivisionMayComeBeforeItsTaxon) {
    Import({"[GD]5|Africa||", taxon});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "2\tAfrica\t\\N\n");
    EXPECT_EQ(Dump("SELECT qb_id, tsn, unit_name1 FROM qb_taxonomic_units WHERE qb_id > 1"),
              "2\t100\tAlpha\n");
}

TEST_F(LinkRecords, TheSameRowTwiceFailsAndTheRunContinues) {
    Import({taxon, "[GD]5|Africa||", "[GD]5|AFRICA||", "[GD]5|Australia||"});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division ORDER BY geographic_value"),
              "Africa\nAustralia\n");
}

TEST_F(LinkRecords, AValueTooLongFails) {
    Import({taxon, "[JR]5|" + std::string(31, 'a') + "|||", "[GD]5|" + std::string(40, 'a') + "||"});
    EXPECT_EQ(set.prompter.messages.size(), 1U);
    EXPECT_EQ(Dump("SELECT * FROM qb_jurisdiction"), "");
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division"), std::string(40, 'a') + "\n");
}

TEST_F(LinkRecords, QuotesAndBarsOfOtherKindsAreOrdinaryText) {
    Import({taxon, "[GD]5|d'Or \"x\" [y] ;--||"});
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division"), "d'Or \"x\" [y] ;--\n");
}

TEST_F(LinkRecords, NulAndControlCharactersOfAValueAreKept) {
    Import({taxon, std::string("[GD]5|a\0b\rc\nd||", 15)});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division"), std::string("a\0b\rc\nd\n", 8));
}

TEST_F(LinkRecords, VernacularsAreStoredWithTheirHexadecimalForm) {
    Import({taxon, "[VR]5|9|900|Caf\xE9|100|English|Yes|", "[VR]|10||||||", "[VR]5||901|||French|y|"});
    EXPECT_EQ(findings,
              (Findings{{"Neither qb_id nor tsn is present in the following <RF> data line of import file!",
                         "[VR]|10||||||"}}));
    EXPECT_EQ(Dump("SELECT * FROM qb_vernaculars ORDER BY qb_vern_id"),
              "2\t1\t900\tCaf\u00e9\t100\tEnglish\tTrue\t436166E9\n2\t2\t901\t\\N\t\\N\tFrench\tTrue\t\\N\n");
}

TEST_F(LinkRecords, AVernacularWithoutALanguageIsUnspecified) {
    Import({taxon, "[VR]5|9||Whale|||No|"});
    EXPECT_EQ(Dump("SELECT * FROM qb_vernaculars"),
              "2\t1\t\\N\tWhale\t\\N\tunspecified\tFalse\t5768616C65\n");
}

TEST_F(LinkRecords, ASecondVernacularLineWithTheKeyOverwritesTheFirst) {
    Import(
        {taxon, "[VR]5|9|900|Whale|100|English|Yes|", TaxonLine{.qb_id = "6"}, "[VR]6|9||Wal||German|No|"});
    EXPECT_EQ(Dump("SELECT * FROM qb_vernaculars"), "3\t1\t\\N\tWal\t\\N\tGerman\tFalse\t57616C\n");
}

TEST_F(LinkRecords, AVernacularThatCannotBeStoredLeavesItsPlaceholder) {
    Import({taxon, "[VR]5|9||" + std::string(81, 'a') + "||English|No|", "[VR]5|10||Whale||English|No|"});
    EXPECT_EQ(set.prompter.messages.size(), 1U);
    EXPECT_EQ(Dump("SELECT qb_id, qb_vern_id, vernacular_name FROM qb_vernaculars ORDER BY qb_vern_id"),
              "\\N\t1\tDummy#9\n2\t2\tWhale\n");
}

constexpr std::string_view kSynonyms = "SELECT * FROM qb_synonym_links ORDER BY qb_id, qb_id_accepted";

TEST_F(LinkRecords, ASynonymLinkTakesTheNewIdOfATsnThatIsKnown) {
    Import({TaxonLine{.tsn = "100"}, TaxonLine{.tsn = "200", .usage = "invalid"}, "[SY]||200|100|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kSynonyms), "3\t2\t200\t100\n");
}

TEST_F(LinkRecords, ASynonymLinkToATsnThatComesLaterIsPutRightAtTheEnd) {
    Import({"[SY]||200|100|", TaxonLine{.tsn = "200", .usage = "invalid"}, TaxonLine{.tsn = "100"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kSynonyms), "2\t3\t200\t100\n");
}

TEST_F(LinkRecords, ASynonymLinkWithBothAcceptedIdsTakesTheNewIdAndKeepsTheTsn) {
    Import({taxon, TaxonLine{.qb_id = "6", .usage = "invalid"}, "[SY]6|5||100|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kSynonyms), "3\t2\t\\N\t100\n");
}

TEST_F(LinkRecords, ASynonymLinkWithTheLocalIdAloneTakesTheNewId) {
    Import({taxon, TaxonLine{.qb_id = "6", .usage = "invalid"}, "[SY]6|5|||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kSynonyms), "3\t2\t\\N\t\\N\n");
}

TEST_F(LinkRecords, SynonymLinksOfOneNameMayHaveTheIdsOfEachOther) {
    // 5 becomes 3 and 3 becomes 2, 2 becomes 4: every new id is the file's id of another link.
    Import({TaxonLine{.qb_id = "3"}, TaxonLine{.qb_id = "5"}, TaxonLine{.qb_id = "2"},
            TaxonLine{.qb_id = "9", .usage = "invalid"}, "[SY]9|5||15|", "[SY]9|3||13|", "[SY]9|2||12|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_THAT(set.prompter.messages, ::testing::IsEmpty());
    EXPECT_EQ(Dump(kSynonyms), "5\t2\t\\N\t13\n5\t3\t\\N\t15\n5\t4\t\\N\t12\n");
}

TEST_F(LinkRecords, TwoSynonymLinksToOneNameAreAFailureAndTheSecondStays) {
    Import({TaxonLine{.qb_id = "7", .tsn = "100"}, taxon, "[SY]5|7|||", "[SY]5||| 7|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(Dump(kSynonyms), "3\t2\t\\N\t7\n3\t7\t\\N\t\\N\n");
}

TEST_F(LinkRecords, ASynonymLinkToAnUnknownNameIsReported) {
    Import({taxon, "[SY]5|77|||", "[SY]5|||88|"});
    EXPECT_EQ(findings, (Findings{{"The accepted tsn  <accepted id=-1> was not found in synonym link.", ""},
                                  {"The accepted id  <accepted tsn=> was not found in synonym link.", ""}}));
    EXPECT_EQ(Dump(kSynonyms), "2\t-1\t\\N\t88\n2\t77\t\\N\t\\N\n");
}

TEST_F(LinkRecords, ASynonymLinkThatWouldBecomeAnotherFails) {
    set.db().Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn_accepted) VALUES (2, 3, 1)");
    Import({"[SY]||200|100|", TaxonLine{.tsn = "200", .usage = "invalid"}, TaxonLine{.tsn = "100"}});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(Dump(kSynonyms), "2\t-1\t200\t100\n2\t3\t\\N\t1\n");
}

TEST_F(LinkRecords, SynonymLinksAreLeftAloneWhenTheFileNamesNoTaxon) {
    set.db().Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (2, 3)");
    Import({"[TA]|70|Linnaeus|5|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kSynonyms), "2\t3\t\\N\t\\N\n");
}

}  // namespace
}  // namespace quillon::importing
