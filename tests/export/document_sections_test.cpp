#include "export_fixture.h"
#include "testkit/golden.h"

namespace quillon::exporting {
namespace {

constexpr std::string_view kLinkColumns =
    "qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn, documentation_id, original_desc_ind, "
    "initial_orva_desc_ind, qb_change_track_id, vernacular_name";
constexpr std::string_view kVernLinkColumns =
    "qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, qb_documentation_id, tsn, documentation_id";

class DocumentSections : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        AddTaxon(2, "Alpha");
        AddTaxon(3, "Beta", 2);
    }
    void Link(int qb_id, std::string_view prefix, int id) {
        Run(fmt::format(
            "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
            "VALUES ({}, '{}', {})",
            qb_id, prefix, id));
    }
    void LinkVernacular(int qb_id, std::string_view prefix, int id) {
        Run(
            fmt::format("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
                        "qb_documentation_id) VALUES ({}, 1, '{}', {})",
                        qb_id, prefix, id));
    }
    void AddPublications(std::initializer_list<int> ids) {
        for (const int id : ids)
            Run(fmt::format(
                "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) VALUES ('PUB', {})",
                id));
    }
};

TEST_F(DocumentSections, ReferenceLinksRepeatThePrefix) {
    Insert("qb_reference_links", kLinkColumns,
           {"3, 'PUB', 5, 102, 50, True, True, 9, 'bird'", "2, 'EXP', 4, 0, 0, False, False, 0, Null",
            "2, 'XYZ', 6, 101, 60, Null, Null, Null, Null", "9, 'PUB', 5, 1, 1, True, True, 1, 'x'"});
    EXPECT_EQ(TaggedLines("[RF]"), Lines({"[RF]2|EXP|4||EXP||No|No|||", "[RF]2|XYZ|6|101|XYZ|60|No|No|||",
                                          "[RF]3|PUB|5|102|PUB|50|Yes|Yes|9|bird|"}));
}

TEST_F(DocumentSections, VernacularReferencesRepeatThePrefix) {
    Insert("qb_vern_ref_links", kVernLinkColumns,
           {"3, 1, 11, 'PUB', 5, 102, 50", "2, 7, Null, 'SRC', 4, 0, Null", "9, 1, 1, 'PUB', 5, 1, 1"});
    EXPECT_EQ(TaggedLines("[VL]"), Lines({"[VL]2|7||SRC|4||SRC||", "[VL]3|1|11|PUB|5|102|PUB|50|"}));
}

TEST_F(DocumentSections, PublicationFieldsWithDatesTurned) {
    Link(2, "PUB", 1);
    Insert("qb_publications",
           "publication_id_prefix, qb_publication_id, publication_id, reference_author, title, "
           "publication_name, "
           "listed_pub_date, actual_pub_date, publisher, pub_place, isbn, issn, pages, pub_comment",
           {"'PUB', 1, 10, 'Ann', 'Moths', 'Journal', '31/12/1999', '1999', 'House', 'Town', '0-1', '1-2', "
            "'3-4', 'Good'"});
    EXPECT_EQ(TaggedLines("[PB]"),
              Lines({"[PB]PUB|1|10|Ann|Moths|Journal|12/31/1999||House|Town|0-1|1-2|3-4|Good|"}));
}

TEST_F(DocumentSections, ExpertAndSourceFields) {
    Link(2, "EXP", 1);
    Link(2, "SRC", 1);
    Insert("qb_experts", "expert_id_prefix, qb_expert_id, expert_id, expert, exp_comment",
           {"'EXP', 1, 10, 'Bob', 'Knows'"});
    Insert("qb_other_sources",
           "source_id_prefix, qb_source_id, source_id, source_type, source, version, acquisition_date, "
           "source_comment",
           {"'SRC', 1, Null, 'database', 'Web', '1.0', '01/02/2003', Null"});
    EXPECT_EQ(TaggedLines("[EX]"), Lines({"[EX]EXP|1|10|Bob|Knows|"}));
    EXPECT_EQ(TaggedLines("[OS]"), Lines({"[OS]SRC|1||database|Web|1.0|02/01/2003||"}));
}

TEST_F(DocumentSections, DocumentsAreReachedThroughEitherKindOfLinkAndOnce) {
    AddPublications({1, 2, 3, 4, 5});
    Link(2, "PUB", 4);
    Link(3, "PUB", 4);
    Link(2, "EXP", 1);
    LinkVernacular(2, "PUB", 2);
    LinkVernacular(2, "PUB", 4);
    LinkVernacular(9, "PUB", 5);
    EXPECT_EQ(TaggedLines("[PB]"), Lines({"[PB]PUB|2|||||||||||||", "[PB]PUB|4|||||||||||||"}));
    FilterBy("unit_name1", "=", "Beta");
    EXPECT_EQ(TaggedLines("[PB]"), Lines({"[PB]PUB|4|||||||||||||"}));
    AddToJournal({2});
    FilterByJournal();
    EXPECT_EQ(TaggedLines("[PB]"), Lines({"[PB]PUB|2|||||||||||||", "[PB]PUB|4|||||||||||||"}));
}

TEST_F(DocumentSections, PrefixesCompareAsTheStoreComparesTexts) {
    AddPublications({1, 2});
    Link(2, "pub", 2);
    EXPECT_EQ(TaggedLines("[PB]"), Lines({"[PB]PUB|2|||||||||||||"}));
}

TEST_F(DocumentSections, CommentIsThatOfTheFirstRowWithTheId) {
    Insert(
        "qb_experts", "expert_id_prefix, qb_expert_id, exp_comment",
        {"'EXP', 1, 'second'", "'AAA', 1, 'first'", "'EXP', 2, 'own'", "'AAA', 3, Null", "'EXP', 3, 'lost'"});
    Link(2, "EXP", 1);
    Link(2, "EXP", 2);
    Link(2, "EXP", 3);
    EXPECT_EQ(TaggedLines("[EX]"), Lines({"[EX]EXP|1|||first|", "[EX]EXP|2|||own|", "[EX]EXP|3||||"}));
}

TEST_F(DocumentSections, SectionsStandInTheirOrder) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author", {"1, 'A'"});
    SetTaxon(2, "qb_taxon_author_id", "1");
    Insert("qb_nodc_ids", "nodc_id, qb_id", {"'n', 2"});
    Insert("qb_vernaculars", "qb_id, qb_vern_id", {"2, 1"});
    Insert("qb_synonym_links", "qb_id, qb_id_accepted", {"2, 3"});
    Insert("qb_geographic_division", "qb_id, geographic_value", {"2, 'g'"});
    Insert("qb_jurisdiction", "qb_id, jurisdiction_value", {"2, 'j'"});
    AddPublications({1});
    Insert("qb_experts", "expert_id_prefix, qb_expert_id", {"'EXP', 1"});
    Insert("qb_other_sources", "source_id_prefix, qb_source_id", {"'SRC', 1"});
    for (const std::string_view prefix : {"PUB", "EXP", "SRC"}) Link(2, prefix, 1);
    LinkVernacular(2, "PUB", 1);
    Insert("qb_tu_comments_link", "qb_id, qb_comment_id", {"2, 1"});
    Insert("qb_comments", "qb_comment_id", {"1"});
    Insert("qb_change_tracks", "qb_change_track_id, qb_id", {"1, 2"});
    Insert("qb_change_operations", "qb_change_track_id, chg_op_id", {"1, 1"});
    Insert("qb_change_comments", "qb_change_track_id, chg_cmt_id", {"1, 1"});
    Insert("db_tombstone", "table_name, pk1", {"'comments', '1'"});
    SetTaxon(3, "parent_qb_id", "1");
    EXPECT_EQ(Tagged(), testkit::Golden("export/SectionsStandInTheirOrder.qln"));
    EXPECT_EQ(set.state.gExportedCount, 22);
}

}  // namespace
}  // namespace quillon::exporting
