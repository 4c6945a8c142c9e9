// What the closing pass resolves, reports and removes.
#include <gmock/gmock.h>

#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;

constexpr std::string_view kParents =
    "SELECT qb_id, parent_tsn, parent_qb_id FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id";

class ClosingPass : public ImportTest {};

TEST_F(ClosingPass, AnEmptyFileStoresNothing) {
    ImportText("");
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
    EXPECT_THAT(gauge, ElementsAre(98, 100));
}

TEST_F(ClosingPass, ParentsAreFoundByLocalIdElseByTsnWhereverTheyStand) {
    Import({TaxonLine{.qb_id = "5", .parent_tsn = "300", .parent_qb_id = "6"},
            TaxonLine{.qb_id = "6", .parent_tsn = "300"}, TaxonLine{.tsn = "300"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kParents), "2\t300\t3\n3\t300\t4\n4\t\\N\t\\N\n");
}

TEST_F(ClosingPass, AParentThatTheFileLacksKeepsTheFilesLocalIdOnly) {
    Import({TaxonLine{.qb_id = "5", .parent_tsn = "300", .parent_qb_id = "77"},
            TaxonLine{.qb_id = "6", .parent_tsn = "300"}});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kParents), "2\t300\t77\n3\t300\t\\N\n");
}

TEST_F(ClosingPass, RowsThatWereThereBeforeKeepTheirAuthors) {
    set.db().Execute(
        "INSERT INTO qb_taxonomic_units (unit_name1, parent_qb_id, qb_taxon_author_id, "
        "hybrid_author_id) VALUES ('Old', 1, 70, 71)");
    Import({"[TA]|70|Linnaeus|5|", "[TA]|71|Gray|5|",
            TaxonLine{.qb_id = "5", .taxon_author_id = "70", .hybrid_author_id = "71"}});
    EXPECT_EQ(
        Dump("SELECT unit_name1, parent_qb_id, qb_taxon_author_id, hybrid_author_id FROM qb_taxonomic_units "
             "WHERE qb_id > 1 ORDER BY qb_id"),
        "Old\t1\t70\t71\nAlpha\t\\N\t1\t2\n");
}

TEST_F(ClosingPass, ParentsOfRowsThatWereThereBeforeStay) {
    set.db().Execute("INSERT INTO qb_taxonomic_units (unit_name1, parent_qb_id) VALUES ('Old', 5)");
    Import({TaxonLine{.qb_id = "5"}});
    EXPECT_EQ(Dump(kParents), "2\t\\N\t5\n3\t\\N\t\\N\n");
}

TEST_F(ClosingPass, AMissingTaxonIsReportedAndLeavesNothingBehind) {
    Import({"[GD]|Africa|100|", "[JR]|Alaska||100|", "[NO]77|100|5|", "[VR]5|9|900|Whale||English|Yes|",
            "[SY]||100|200|"});
    EXPECT_EQ(findings, (Findings{{"The accepted tsn  <accepted id=-1> was not found in synonym link.", ""},
                                  {"The taxonomic unit record for Imported record <100> was not found!", ""},
                                  {"The taxonomic unit record for Imported record <5> was not found!", ""}}));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
    for (const std::string table :
         {"qb_geographic_division", "qb_jurisdiction", "qb_nodc_ids", "qb_vernaculars", "qb_synonym_links"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
    // Its links had keys of the authority.
    EXPECT_EQ(Dump("SELECT * FROM db_tombstone"), "synonym_links\t100\t200\t\\N\t\\N\n");
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>{});
}

TEST_F(ClosingPass, AMissingTaxonStaysWhenItHasChildren) {
    Import({"[GD]|Africa|100|", TaxonLine{.tsn = "200", .parent_tsn = "100"}});
    EXPECT_EQ(findings,
              (Findings{{"The taxonomic unit record for Imported record <100> was not found!", ""}}));
    EXPECT_THAT(set.prompter.messages,
                ElementsAre("All Children must be deleted before this record can be deleted!"));
    EXPECT_EQ(
        Dump("SELECT qb_id, unit_name1, parent_qb_id FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id"),
        "2\tDummy#100\t-1\n3\tAlpha\t2\n");
}

TEST_F(ClosingPass, TheCurrentTaxonOfTheProgramIsNotUsed) {
    set.state.currentTaxon.qb_id = 1;
    set.state.currentTaxon.tsn = 202423;
    set.state.currentTaxon.unit_name1 = "Animalia";
    Import({"[GD]|Africa|100|", "[CL]|3|200|30|", "[RF]|PUB|7|200||||||||", TaxonLine{.tsn = "200"}});
    EXPECT_EQ(findings.size(), 3U);
    EXPECT_EQ(set.state.currentTaxon.qb_id, 1);
    EXPECT_EQ(set.state.currentTaxon.tsn, 202423);
    EXPECT_EQ(set.state.currentTaxon.unit_name1, "Animalia");
}

TEST_F(ClosingPass, DocumentsAndCommentsWithoutALinkAreReportedAndRemoved) {
    Import({"[CM]3|30|Smith|detail||", "[EX]EXP|4||Smith||", "[PB]PUB||60|A|T|N|||||||||", "[OS]SRC|||||||||",
            "[OS]SRC||80|||||||"});
    EXPECT_EQ(
        findings,
        (Findings{{"Neither qb_source_id nor source_id is present in the following <OS> data line of import "
                   "file!",
                   "[OS]SRC|||||||||"},
                  {"The Imported comment record<3> was not linked to a comments_link record!", ""},
                  {"The Imported expert record<4> was not linked to a reference_link record!", ""},
                  {"The Imported publication record<60> was not linked to a reference_link record!", ""},
                  {"The Imported other source record<80> was not linked to a reference_link record!", ""}}));
    for (const std::string table : {"qb_comments", "qb_experts", "qb_publications", "qb_other_sources"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
    EXPECT_EQ(
        Dump("SELECT * FROM db_tombstone"),
        "comments\t30\t\\N\t\\N\t\\N\npublications\tPUB\t60\t\\N\t\\N\nother_sources\tSRC\t80\t\\N\t\\N\n");
}

TEST_F(ClosingPass, LinksToMissingRecordsAreReportedWithTheKeysOfTheFileAndRemoved) {
    Import({TaxonLine{.tsn = "100"}, "[CL]|3|100|30|", "[RF]|EXP|4|100||||||||", "[RF]|PUB||100||60||||||",
            "[RF]|SRC||100||80||||||"});
    EXPECT_EQ(
        findings,
        (Findings{
            {"The Imported comments_link record for Comment <3> and taxon <100> was not linked to a "
             "comment record!",
             ""},
            {"The Imported reference_link record for Expert <4> and taxon <100> was not linked to an "
             "expert record!",
             ""},
            {"The Imported reference_link record for Publication <60> and taxon <100> was not linked to "
             "a publication record!",
             ""},
            {"The Imported reference_link record for Other Source <80> and taxon <100> was not linked "
             "to an other source record!",
             ""}}));
    for (const std::string table : {"qb_comments", "qb_tu_comments_link", "qb_experts", "qb_publications",
                                    "qb_other_sources", "qb_reference_links"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
    EXPECT_EQ(Dump("SELECT * FROM db_tombstone"),
              "tu_comments_link\t100\t30\t\\N\t\\N\n"
              "reference_links\tPUB\t60\t100\t\\N\n"
              "reference_links\tSRC\t80\t100\t\\N\n");
}

TEST_F(ClosingPass, OnlyTheLastLinkToAMissingRecordIsRemoved) {
    Import({TaxonLine{.tsn = "100"}, TaxonLine{.tsn = "200"}, "[RF]|PUB|7|100||||||||",
            "[RF]|PUB|7|200||||||||"});
    EXPECT_EQ(findings,
              (Findings{{"The Imported reference_link record for Publication <7> and taxon <200> was not "
                         "linked to a publication record!",
                         ""}}));
    EXPECT_EQ(Dump("SELECT qb_id, qb_documentation_id FROM qb_reference_links"), "2\t1\n");
    EXPECT_EQ(Dump("SELECT publication_id_prefix, publication_name FROM qb_publications"), "PUB\tDummy#7\n");
}

TEST_F(ClosingPass, ALinkOfAVernacularToAMissingRecordIsReportedAndStays) {
    Import({TaxonLine{.tsn = "100"}, "[VR]||900|Whale|100|English|Yes|", "[VL]||900|PUB|7|100|||"});
    EXPECT_EQ(findings,
              (Findings{{"The Imported reference_link record for Publication <7> and taxon <100> was not "
                         "linked to a publication record!",
                         ""}}));
    EXPECT_EQ(Dump("SELECT qb_id, qb_vern_id, qb_documentation_id, vernacular_name FROM qb_vern_ref_links"),
              "2\t1\t1\tWhale\n");
    EXPECT_EQ(Dump("SELECT publication_name FROM qb_publications"), "Dummy#7\n");
}

TEST_F(ClosingPass, ALinkLineWithAFindingStillMarksItsDocument) {
    const std::string link = "[RF]|PUB|7|100||||||Whale|";
    Import({TaxonLine{.tsn = "100"}, "[PB]PUB|7||A|T|N|||||||||", link});
    EXPECT_EQ(findings,
              (Findings{{"Invalid vernacular_id in the following <VL> data line of import file!", link}}));
    EXPECT_EQ(Dump("SELECT publication_name FROM qb_publications"), "N\n");
}

TEST_F(ClosingPass, AnUnlinkedTaxonTakesItsDocumentWithIt) {
    Import({"[RF]|PUB|7|100||||||||", "[PB]PUB|7||A|T|N|||||||||"});
    EXPECT_EQ(findings,
              (Findings{{"The taxonomic unit record for Imported record <100> was not found!", ""}}));
    EXPECT_EQ(Dump("SELECT * FROM qb_publications"), "");
    EXPECT_EQ(Dump("SELECT * FROM qb_reference_links"), "");
}

TEST_F(ClosingPass, AChangeTrackWithoutOperationsIsRemovedWithItsComments) {
    Import({TaxonLine{.tsn = "100"}, "[CT]9|||reason|||||100||", "[CC]9|||detail|"});
    EXPECT_EQ(
        findings,
        (Findings{{"There is no Change Operation for Imported Change Track <9> and taxon <100>!", ""}}));
    for (const std::string table : {"qb_change_tracks", "qb_change_operations", "qb_change_comments"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
}

TEST_F(ClosingPass, OperationsAndCommentsWithoutATrackAreRemoved) {
    Import({"[CO]9|3||", "[CC]9|||detail|", "[CC]10|||detail|"});
    EXPECT_EQ(findings,
              (Findings{{"An Imported Change Operation or Change Comment record for taxon <0> is not "
                         "linked to a Change Track record!",
                         ""},
                        {"There is no Change Operation for Imported Change Track <10> and taxon <0>!", ""}}));
    for (const std::string table : {"qb_change_tracks", "qb_change_operations", "qb_change_comments"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
}

TEST_F(ClosingPass, AnotherImportIntoTheSameDataSetAddsToIt) {
    Import({TaxonLine{.tsn = "100", .taxon_author_id = "70"}, "[TA]|70|Linnaeus|5|",
            "[PB]PUB|7||A|T|N|||||||||", "[RF]|PUB|7|100||||||||"});
    Import({TaxonLine{.tsn = "100", .taxon_author_id = "71"}, "[TA]|71|Linnaeus|5|",
            "[PB]PUB|7||A|T|N|||||||||", "[RF]|PUB|7|100||||||||"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT qb_id, tsn, qb_taxon_author_id FROM qb_taxonomic_units WHERE qb_id > 1"),
              "2\t100\t1\n3\t100\t1\n");
    EXPECT_EQ(Dump("SELECT qb_id, qb_documentation_id FROM qb_reference_links ORDER BY qb_id"),
              "2\t1\n3\t2\n");
}

TEST_F(ClosingPass, ChildrenOfTheOldKingdomRecordBecomeThoseOfTheNewOne) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First", .parent_qb_id = "9"},
            TaxonLine{.qb_id = "9", .unit_name1 = "Animalia", .rank_id = "10"}});
    set.db().Execute("INSERT INTO qb_taxonomic_units (unit_name1, parent_qb_id) VALUES ('Local', 3)");
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "Second", .parent_qb_id = "9"},
            TaxonLine{.qb_id = "9", .unit_name1 = "Animalia", .rank_id = "10"}});
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1, parent_qb_id FROM qb_taxonomic_units ORDER BY qb_id"),
              "2\tFirst\t6\n4\tLocal\t6\n5\tSecond\t6\n6\tAnimalia\t6\n");
}

TEST_F(ClosingPass, ChildrenOfAReplacedKingdomRecordOfTheFileBecomeThoseOfTheLast) {
    Import({TaxonLine{.qb_id = "5", .unit_name1 = "First", .rank_id = "10"},
            TaxonLine{.qb_id = "7", .unit_name1 = "Child", .parent_qb_id = "5"},
            TaxonLine{.qb_id = "6", .unit_name1 = "Second", .rank_id = "10"}});
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1, parent_qb_id FROM qb_taxonomic_units ORDER BY qb_id"),
              "3\tChild\t4\n4\tSecond\t4\n");
}

}  // namespace
}  // namespace quillon::importing
