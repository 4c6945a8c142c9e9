// Documents, comments, and their links.
#include <gmock/gmock.h>

#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr std::string_view kReferences =
    "SELECT * FROM qb_reference_links ORDER BY qb_id, qb_documentation_id_prefix, qb_documentation_id";
constexpr std::string_view kVernReferences =
    "SELECT * FROM qb_vern_ref_links ORDER BY qb_id, qb_documentation_id_prefix, qb_documentation_id";

class DocumentRecords : public ImportTest {
protected:
    const std::string taxon = TaxonLine{.qb_id = "5"};  // its new id is 2
    const std::string publication = "[PB]PUB|7||A|T|N|||||||||";
};

TEST_F(DocumentRecords, APublicationIsStoredUnderItsOwnPrefix) {
    Import({taxon,
            "[PB]XYZ|7|70|Author|Title|Name|12/31/1999|01/02/2000|Publisher|Place|isbn|issn|1-2|comment|",
            "[RF]5|PUB|7||||Yes|Yes|||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_publications"),
              "PUB\t1\t70\tAuthor\tTitle\tName\t31/12/1999\t02/01/"
              "2000\tPublisher\tPlace\tisbn\tissn\t1-2\tcomment\n");
    EXPECT_EQ(Dump(kReferences), "2\tPUB\t1\t\\N\t\\N\tTrue\tTrue\t\\N\t\\N\n");
}

TEST_F(DocumentRecords, ExpertsAndOtherSourcesAreStoredUnderTheirOwnPrefixes) {
    Import({taxon, "[EX]|7|70|Smith|note|", "[OS]|8|80|book|Source|1|12/31/1999|comment|",
            "[RF]5|EXP|7||||||||", "[RF]5||8||SRC|80|||||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_experts"), "EXP\t1\t70\tSmith\tnote\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_other_sources"), "SRC\t1\t80\tbook\tSource\t1\t31/12/1999\tcomment\n");
}

TEST_F(DocumentRecords, EmptyFieldsOfDocumentsAreNull) {
    Import({taxon, publication, "[EX]|8||||", "[OS]|9|||||||", "[RF]5|PUB|7||||||||", "[RF]5|EXP|8||||||||",
            "[RF]5|SRC|9||||||||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_publications"),
              "PUB\t1\t\\N\tA\tT\tN\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_experts"), "EXP\t1\t\\N\t\\N\t\\N\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_other_sources"), "SRC\t1\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n");
}

TEST_F(DocumentRecords, ASecondLineOfADocumentReplacesTheFirst) {
    Import({taxon, "[EX]EXP|7|70|Smith|first memo|", "[EX]EXP|7||Jones|second|", "[RF]5|EXP|7||||||||",
            "[CM]3||Gray|first memo||", "[CM]3|30||second|1999-12-31 23:59:58|", "[CL]5|3|||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM qb_experts"), "EXP\t1\t\\N\tJones\tsecond\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_comments"), "1\t30\t\\N\tsecond\t31121999235958\n");
}

TEST_F(DocumentRecords, AReferenceMayComeBeforeTaxonAndDocument) {
    Import({"[RF]5|PUB|7|100|PUB|70|No|Yes|44||", publication, taxon});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kReferences), "2\tPUB\t1\t100\t70\tFalse\tTrue\t44\t\\N\n");
    EXPECT_EQ(Dump("SELECT publication_name FROM qb_publications"), "N\n");
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id > 1"), "Alpha\n");
}

TEST_F(DocumentRecords, OnlyAPublicationHoldsTheOriginalDescription) {
    Import({taxon, publication, "[EX]EXP|8||Smith||", "[RF]5|PUB|7||||yes||||", "[RF]5|EXP|8||||Yes|No|||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kReferences),
              "2\tEXP\t1\t\\N\t\\N\tFalse\tFalse\t\\N\t\\N\n"
              "2\tPUB\t1\t\\N\t\\N\tTrue\t\\N\t\\N\t\\N\n");
}

TEST_F(DocumentRecords, KindsOfDocumentsHaveMapsOfTheirOwn) {
    Import({taxon, "[PB]PUB|7||A|T|N|||||||||", "[EX]EXP|7||Smith||", "[OS]SRC|7|||S||||",
            "[RF]5|PUB|7||||||||", "[RF]5|EXP|7||||||||", "[RF]5|SRC|7||||||||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_documentation_id_prefix, qb_documentation_id FROM qb_reference_links "
                   "ORDER BY qb_documentation_id_prefix"),
              "EXP\t1\nPUB\t1\nSRC\t1\n");
}

TEST_F(DocumentRecords, AReferenceWithAVernacularNameIsAReferenceOfTheVernacular) {
    Import({taxon, "[VR]5||900|Whale||English|Yes|", publication, "[RF]5|PUB|7|100|PUB|70|Yes|No|3|Whale|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kReferences), "");
    EXPECT_EQ(Dump(kVernReferences), "2\t1\t900\tPUB\t1\t100\t70\tWhale\n");
}

TEST_F(DocumentRecords, TheVernacularOfAReferenceIsTheTaxonsOwnAndWrittenAlike) {
    const std::string otherTaxon = "[RF]6|PUB|7|||||||Whale|";
    const std::string otherLetters = "[RF]5|PUB|7|||||||WHALE|";
    const std::string tooLong = "[RF]5|PUB|7|||||||" + std::string(81, 'w') + "|";
    Import({taxon, TaxonLine{.qb_id = "6"}, "[VR]5||900|Whale||English|Yes|", publication, otherTaxon,
            otherLetters, tooLong});
    const std::string sentence = "Invalid vernacular_id in the following <VL> data line of import file!";
    EXPECT_EQ(findings, (Findings{{sentence, otherTaxon}, {sentence, otherLetters}, {sentence, tooLong}}));
    EXPECT_EQ(Dump(kVernReferences), "");
}

TEST_F(DocumentRecords, AVernacularReferenceFindsTheFirstVernacularOfTheAuthoritysId) {
    Import({taxon, "[VR]5|9|900|Whale||English|Yes|", "[VR]5|10|900|Wal||German|No|", publication,
            "[EX]EXP|8||Smith||", "[VL]5|10|900|PUB|7|100|PUB|70|", "[VL]5||900||8||EXP||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kVernReferences),
              "2\t1\t900\tEXP\t1\t\\N\t\\N\tWhale\n2\t1\t900\tPUB\t1\t100\t70\tWhale\n");
}

TEST_F(DocumentRecords, AVernacularReferenceBeforeItsVernacularIsNotStored) {
    const std::string link = "[VL]5||900|PUB|7|||";
    Import({taxon, publication, link + "|", "[VR]5||900|Whale||English|Yes|"});
    EXPECT_EQ(
        findings,
        (Findings{{"Invalid vernacular_id in the following <VL> data line of import file!", link + "|"}}));
    EXPECT_EQ(Dump(kVernReferences), "");
}

TEST_F(DocumentRecords, NamesAreFilledInWhereverALinkLacksOne) {
    set.db().Execute("INSERT INTO qb_vernaculars (qb_id, vernacular_name) VALUES (1, 'Old')");
    set.db().Execute(
        "INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
        "qb_documentation_id) VALUES (1, 1, 'PUB', 77)");
    set.db().Execute(
        "INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
        "qb_documentation_id, vernacular_name) VALUES (1, 1, 'PUB', 78, 'Kept')");
    set.db().Execute(
        "INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
        "qb_documentation_id) VALUES (1, 55, 'PUB', 79)");
    Import({});
    EXPECT_EQ(Dump("SELECT qb_documentation_id, vernacular_name FROM qb_vern_ref_links ORDER BY "
                   "qb_documentation_id"),
              "77\tOld\n78\tKept\n79\t\\N\n");
}

TEST_F(DocumentRecords, CommentsAndTheirLinksMeetInAnyOrder) {
    Import({"[CL]5|3|100|30|", taxon, "[CM]3|30|Smith|detail|1999-12-31 23:59:58|", TaxonLine{.qb_id = "6"},
            "[CL]6||||", "[CL]6|3|||"});
    EXPECT_EQ(findings,
              (Findings{{"Neither qb_comment_id nor comment_id is present in the following <CL> data line "
                         "of import file!",
                         "[CL]6||||"}}));
    EXPECT_EQ(Dump("SELECT * FROM qb_comments"), "1\t30\tSmith\tdetail\t31121999235958\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_tu_comments_link ORDER BY qb_id"), "2\t1\t100\t30\n3\t1\t\\N\t\\N\n");
}

TEST_F(DocumentRecords, AMemoTakesALongTextAndAFieldDoesNot) {
    const std::string memo(60000, 'm');
    Import({taxon, "[EX]EXP|7||Smith|" + memo + "|", "[EX]EXP|8||" + std::string(101, 's') + "|note|",
            "[RF]5|EXP|7||||||||", "[RF]5|EXP|8||||||||"});
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT expert_id_prefix, qb_expert_id, expert, exp_comment FROM qb_experts ORDER BY "
                   "qb_expert_id"),
              "EXP\t1\tSmith\t" + memo + "\nEXP\t2\tDummy#8\t\\N\n");
}

}  // namespace
}  // namespace quillon::importing
