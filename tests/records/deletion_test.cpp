// Deleting a taxon with everything that belongs to it.
#include "records/deletion.h"

#include <gmock/gmock.h>

#include "records/links.h"
#include "records/vernaculars.h"
#include "testkit/testkit.h"

namespace quillon::records {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr std::string_view kTombstones = "SELECT * FROM db_tombstone";

// A DataSet with two taxa beside the root: 2, the one to delete, and 3.
class DeletionTest : public ::testing::Test {
protected:
    void SetUp() override {
        set.Make();
        for (const std::string id : {"2", "3"})
            Run("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, parent_qb_id, usage, rank_id, "
                "kingdom_id) "
                "VALUES (" +
                id + ", 'Alpha', 1, 'valid', 180, 5)");
    }
    void Run(const std::string& sql) { set.db().Execute(sql); }
    std::string Dump(std::string_view sql) { return set.Dump(sql); }
    RecordStore Records() { return {set.engine, set.db(), set.prompter}; }
    bool Delete(bool ask = false) { return DeleteTaxon(Records(), taxon, ask); }

    testkit::DataSetFixture set;
    DeletedTaxon taxon{2, 0, "valid"};
};

TEST_F(DeletionTest, ReportsThatThereIsNoRecord) {
    taxon.qb_id = 0;
    EXPECT_FALSE(Delete(true));
    EXPECT_THAT(set.prompter.messages, ElementsAre("No Current Record to Delete"));
    EXPECT_THAT(set.prompter.titles, ElementsAre(""));
}

TEST_F(DeletionTest, ARecordWithATsnStays) {
    taxon.tsn = 100;
    EXPECT_FALSE(Delete(true));
    EXPECT_THAT(set.prompter.messages,
                ElementsAre("You cannot delete a record with a TSN already assigned."));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id = 2"), "2\n");
}

TEST_F(DeletionTest, ARecordWithChildrenStays) {
    Run("UPDATE qb_taxonomic_units SET parent_qb_id = 2 WHERE qb_id = 3");
    EXPECT_FALSE(Delete(true));
    EXPECT_THAT(set.prompter.messages,
                ElementsAre("All Children must be deleted before this record can be deleted!"));
    EXPECT_THAT(set.prompter.titles, ElementsAre("Deleting Name"));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id = 2"), "2\n");
}

TEST_F(DeletionTest, AsksTheQuestionThatFitsTheCase) {
    set.prompter.yesNo = {false, false, false, false, false};
    EXPECT_FALSE(Delete(true));
    taxon.usage = "accepted";
    EXPECT_FALSE(Delete(true));
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (3, 2)");
    EXPECT_FALSE(Delete(true));
    taxon.usage = "invalid";
    EXPECT_FALSE(Delete(true));
    taxon.usage = "";
    EXPECT_FALSE(Delete(true));
    EXPECT_THAT(
        set.prompter.questions,
        ElementsAre("Are you sure you want to delete this name?",
                    "Are you sure you want to delete this name?",
                    "This record has one or more synonyms. \rIf you delete this record, they will be\r"
                    "deleted too.  Continue?",
                    "All links to this synonym will be deleted. Continue?",
                    "All links to this synonym will be deleted. Continue?"));
    EXPECT_THAT(set.prompter.titles, ::testing::Each("Deleting Name"));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id = 2"), "2\n");
}

TEST_F(DeletionTest, YesDeletes) {
    set.prompter.yesNo = {true};
    EXPECT_TRUE(Delete(true));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units ORDER BY qb_id"), "1\n3\n");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(DeletionTest, ALocalTaxonIsDeletedWithAllItsRowsAndNoTombstone) {
    Run("INSERT INTO qb_taxon_authors_lookup (taxon_author, kingdom_id) VALUES ('Linnaeus', 5)");
    Run("INSERT INTO qb_taxon_authors_lookup (taxon_author, kingdom_id) VALUES ('Gray', 5)");
    Run("UPDATE qb_taxonomic_units SET qb_taxon_author_id = 1, hybrid_author_id = 2 WHERE qb_id = 2");
    Run("INSERT INTO qb_publications (publication_id_prefix, title) VALUES ('PUB', 'T')");
    Run("INSERT INTO qb_experts (expert_id_prefix, expert) VALUES ('EXP', 'Smith')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, source) VALUES ('SRC', 'S')");
    for (const std::string prefix : {"PUB", "EXP"})
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) VALUES "
            "(2, '" +
            prefix + "', 1)");
    Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name) VALUES (2, 'Whale')");
    Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (2, 1, 'SRC', 1)");
    Run("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (2, 'Africa')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (2, 'Alaska')");
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (2, 3)");
    Run("INSERT INTO qb_nodc_ids (nodc_id, qb_id) VALUES ('77', 2)");
    Run("INSERT INTO qb_comments (commentator) VALUES ('Smith')");
    Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (2, 1)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units ORDER BY qb_id"), "1\n3\n");
    for (const std::string table :
         {"qb_taxon_authors_lookup", "qb_publications", "qb_experts", "qb_other_sources",
          "qb_reference_links", "qb_vernaculars", "qb_vern_ref_links", "qb_geographic_division",
          "qb_jurisdiction", "qb_synonym_links", "qb_nodc_ids", "qb_comments", "qb_tu_comments_link",
          "db_tombstone"})
        EXPECT_EQ(Dump("SELECT * FROM " + table), "") << table;
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(DeletionTest, TheRowsOfOtherTaxaStay) {
    Run("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (3, 'Africa')");
    Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name) VALUES (3, 'Whale')");
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (3, 2)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_geographic_division"), "3\n");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_vernaculars"), "3\n");
    // Links that name the record as accepted, and their synonyms, stay behind.
    EXPECT_EQ(Dump("SELECT qb_id, qb_id_accepted FROM qb_synonym_links"), "3\t2\n");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id = 3"), "3\n");
}

TEST_F(DeletionTest, ASynonymIsDeletedWithItsLinksAndTheAcceptedNameStays) {
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) VALUES (2, 3, 10, 20)");
    taxon.usage = "invalid";
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT * FROM qb_synonym_links"), "");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units ORDER BY qb_id"), "1\n3\n");
    EXPECT_EQ(Dump(kTombstones), "synonym_links\t10\t20\t\\N\t\\N\n");
}

TEST_F(DeletionTest, AnAuthorThatAnotherTaxonUsesSurvives) {
    Run("INSERT INTO qb_taxon_authors_lookup (taxon_author, taxon_author_id, kingdom_id) VALUES ('Linnaeus', "
        "70, 5)");
    Run("INSERT INTO qb_taxon_authors_lookup (taxon_author, taxon_author_id, kingdom_id) VALUES ('Gray', 71, "
        "5)");
    Run("UPDATE qb_taxonomic_units SET qb_taxon_author_id = 1, hybrid_author_id = 2 WHERE qb_id = 2");
    Run("UPDATE qb_taxonomic_units SET qb_taxon_author_id = 1 WHERE qb_id = 3");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT taxon_author FROM qb_taxon_authors_lookup"), "Linnaeus\n");
    EXPECT_EQ(Dump(kTombstones), "taxon_authors_lookup\t71\t5\t\\N\t\\N\n");
}

TEST_F(DeletionTest, ADocumentIsDeletedWithItsLastLink) {
    Run("INSERT INTO qb_publications (publication_id_prefix, publication_id, title) VALUES ('PUB', 60, "
        "'Shared')");
    Run("INSERT INTO qb_publications (publication_id_prefix, publication_id, title) VALUES ('PUB', 61, "
        "'Own')");
    Run("INSERT INTO qb_publications (publication_id_prefix, publication_id, title) VALUES ('PUB', 62, "
        "'Named')");
    for (const std::string link : {"2, 'PUB', 1", "3, 'PUB', 1", "2, 'PUB', 2", "2, 'PUB', 3"})
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) VALUES "
            "(" +
            link + ")");
    Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (3, 1, 'PUB', 3)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT title FROM qb_publications"), "Shared\nNamed\n");
    EXPECT_EQ(Dump("SELECT qb_id, qb_documentation_id FROM qb_reference_links"), "3\t1\n");
    EXPECT_EQ(Dump(kTombstones), "publications\tPUB\t61\t\\N\t\\N\n");
}

TEST_F(DeletionTest, TheSameNumberOfAnotherDocumentKindDoesNotCount) {
    Run("INSERT INTO qb_experts (expert_id_prefix, expert_id, expert) VALUES ('EXP', 40, 'Smith')");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) VALUES (2, "
        "'EXP', 1)");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) VALUES (3, "
        "'PUB', 1)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT * FROM qb_experts"), "");
    EXPECT_EQ(Dump(kTombstones), "experts\tEXP\t40\t\\N\t\\N\n");
}

TEST_F(DeletionTest, ACommentIsDeletedWithItsLastLink) {
    Run("INSERT INTO qb_comments (comment_id, commentator) VALUES (30, 'Shared')");
    Run("INSERT INTO qb_comments (comment_id, commentator) VALUES (31, 'Own')");
    for (const std::string link : {"2, 1, 10, 30", "3, 1, 11, 30", "2, 2, 10, 31"})
        Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id, tsn, comment_id) VALUES (" + link + ")");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump("SELECT commentator FROM qb_comments"), "Shared\n");
    EXPECT_EQ(Dump("SELECT qb_id, qb_comment_id FROM qb_tu_comments_link"), "3\t1\n");
    EXPECT_EQ(Dump(kTombstones),
              "tu_comments_link\t10\t30\t\\N\t\\N\n"
              "comments\t31\t\\N\t\\N\t\\N\n"
              "tu_comments_link\t10\t31\t\\N\t\\N\n");
}

TEST_F(DeletionTest, PublishedLinksLeaveTombstones) {
    Run("INSERT INTO qb_publications (publication_id_prefix, publication_id) VALUES ('PUB', 60)");
    Run("INSERT INTO qb_other_sources (source_id_prefix, source_id) VALUES ('SRC', 80)");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn, "
        "documentation_id) VALUES (2, 'PUB', 1, 10, 60)");
    Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name, tsn, vern_id) VALUES (2, 'Whale', 10, 900)");
    Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, "
        "qb_documentation_id, tsn, documentation_id) VALUES (2, 1, 900, 'SRC', 1, 10, 80)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump(kTombstones),
              "publications\tPUB\t60\t\\N\t\\N\n"
              "reference_links\tPUB\t60\t10\t\\N\n"
              "vernaculars\t10\t900\t\\N\t\\N\n"
              "other_sources\tSRC\t80\t\\N\t\\N\n"
              "vern_ref_links\tSRC\t80\t10\t900\n");
}

TEST_F(DeletionTest, HalfOfAPublishedKeyLeavesNoTombstone) {
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) VALUES (2, 3, 10, 0)");
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn_accepted) VALUES (2, 4, 20)");
    Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id, tsn) VALUES (2, 1, 10)");
    Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id, comment_id) VALUES (2, 2, 30)");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn) "
        "VALUES (2, 'PUB', 1, 10)");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
        "documentation_id) "
        "VALUES (2, 'PUB', 2, 60)");
    Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name, vern_id) VALUES (2, 'Whale', 900)");
    Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, "
        "qb_documentation_id, tsn) VALUES (2, 1, 900, 'SRC', 1, 10)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump(kTombstones), "");
}

TEST_F(DeletionTest, APublishedVernacularWithoutAnIdIsReportedByItsTaxon) {
    Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name, tsn) VALUES (2, 'Whale', 10)");
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Dump(kTombstones), "vernaculars\t10\t\\N\t\\N\t\\N\n");
}

TEST_F(DeletionTest, AClosedDataSetIsAFailure) {
    set.db().Close();
    EXPECT_FALSE(Delete());
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_THAT(set.prompter.titles, ElementsAre("Deleting Name"));
}

TEST_F(DeletionTest, AFailedStepStopsAndEarlierDeletionsRemain) {
    Run("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (2, 'Africa')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (2, 'Alaska')");
    set.db().DeleteQueryDef("Delete Jurisdiction Data");
    EXPECT_FALSE(Delete());
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "");
    EXPECT_EQ(Dump("SELECT jurisdiction_value FROM qb_jurisdiction"), "Alaska\n");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id = 2"), "2\n");
    EXPECT_FALSE(set.engine.InTransaction());
}

TEST_F(DeletionTest, AFailedHelperIsReportedAndTheDeletionContinues) {
    Run("INSERT INTO qb_comments (commentator) VALUES ('Smith')");
    Run("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (2, 1)");
    set.db().DeleteQueryDef("Delete Comment");
    EXPECT_TRUE(Delete());
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_THAT(set.prompter.titles, ElementsAre(""));
    EXPECT_EQ(Dump("SELECT commentator FROM qb_comments"), "Smith\n");
    EXPECT_EQ(Dump("SELECT * FROM qb_tu_comments_link"), "");
}

TEST_F(DeletionTest, SynonymsOfAnAcceptedNameLoseTheirLinks) {
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) VALUES (3, 2, 10, 20)");
    Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) VALUES (2, 3, 11, 21)");
    DeleteSynonymsOfAccepted(Records(), 2);
    EXPECT_EQ(Dump("SELECT qb_id, qb_id_accepted FROM qb_synonym_links"), "2\t3\n");
    EXPECT_EQ(Dump(kTombstones), "synonym_links\t10\t20\t\\N\t\\N\n");
}

TEST_F(DeletionTest, AVernacularLinkNeedsItsSeparator) {
    DeleteVernRefLink(Records(), 2, "PUB", "12");
    EXPECT_THAT(set.prompter.messages, ElementsAre("Error separating docid and qb_vern_id"));
}

TEST_F(DeletionTest, ADocumentOfAVernacularIsDeletedWithItsLastLink) {
    Run("INSERT INTO qb_publications (publication_id_prefix, title) VALUES ('PUB', 'T')");
    for (const std::string link : {"2, 1", "2, 2"})
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id) "
            "VALUES (" +
            link + ", 'PUB', 1)");
    DeleteVernRefLink(Records(), 2, "PUB", "1|1");
    EXPECT_EQ(Dump("SELECT qb_vern_id FROM qb_vern_ref_links"), "2\n");
    EXPECT_EQ(Dump("SELECT title FROM qb_publications"), "T\n");
    DeleteVernRefLink(Records(), 2, "PUB", "1|2");
    EXPECT_EQ(Dump("SELECT * FROM qb_vern_ref_links"), "");
    EXPECT_EQ(Dump("SELECT * FROM qb_publications"), "");
}

TEST_F(DeletionTest, VernacularsOtherThanTheGivenOneAreDeleted) {
    for (const std::string name : {"One", "Two", "Three"})
        Run("INSERT INTO qb_vernaculars (qb_id, vernacular_name) VALUES (2, '" + name + "')");
    DeleteVernaculars(Records(), 2, 2);
    EXPECT_EQ(Dump("SELECT vernacular_name FROM qb_vernaculars"), "Two\n");
    DeleteVernaculars(Records(), 2);
    EXPECT_EQ(Dump("SELECT vernacular_name FROM qb_vernaculars"), "");
}

}  // namespace
}  // namespace quillon::records
