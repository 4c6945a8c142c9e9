#include "export_fixture.h"

namespace quillon::exporting {
namespace {

// Three taxa; the tests reject some of them as a validation does.
class ExclusionRules : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        AddTaxon(2, "Alpha");
        AddTaxon(3, "Beta");
        AddTaxon(4, "Gamma");
    }
    void Link(int qb_id, std::string_view prefix, int id) {
        Run(fmt::format(
            "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
            "VALUES ({}, '{}', {})",
            qb_id, prefix, id));
    }
    void LinkVernacular(int qb_id, int qb_vern_id, std::string_view prefix, int id) {
        Run(
            fmt::format("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
                        "qb_documentation_id) VALUES ({}, {}, '{}', {})",
                        qb_id, qb_vern_id, prefix, id));
    }
    void AddExperts(std::initializer_list<int> ids) {
        for (const int id : ids)
            Run(fmt::format("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', {})",
                            id));
    }
};

TEST_F(ExclusionRules, RejectedTaxonIsExcludedWithItsRowsUnlessItIsTheRoot) {
    Insert("qb_nodc_ids", "nodc_id, qb_id", {"'a', 1", "'b', 2", "'c', 3"});
    Insert("qb_vernaculars", "qb_id, qb_vern_id", {"2, 1", "3, 2"});
    Insert("qb_geographic_division", "qb_id, geographic_value", {"2, 'g'", "3, 'g'"});
    Insert("qb_jurisdiction", "qb_id, jurisdiction_value", {"2, 'j'", "3, 'j'"});
    set.state.gRejectedTaxa = {1, 2, 4};
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(3, "Beta", "100", 1), "[NO]c||3|", "[VR]3|2|||||No|",
                               "[GD]3|g||", "[JR]3|j|||"}));
    EXPECT_EQ(set.state.gExportedCount, 6);
}

TEST_F(ExclusionRules, ParentOfAWrittenTaxonMayBeRejected) {
    SetTaxon(3, "parent_qb_id", "2");
    set.state.gRejectedTaxa = {2};
    EXPECT_EQ(TaggedLines("[TU]3"), Lines({TaxonLine(3, "Beta", "101", 2)}));
}

TEST_F(ExclusionRules, SynonymLinkIsTestedByItsSynonymOnly) {
    Insert("qb_synonym_links", "qb_id, qb_id_accepted", {"2, 3", "3, 2"});
    set.state.gRejectedTaxa = {2};
    EXPECT_EQ(TaggedLines("[SY]"), Lines({"[SY]3|2|||"}));
}

TEST_F(ExclusionRules, AuthorNeedsATaxonThatIsNotRejected) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author", {"1, 'A'", "2, 'B'", "3, 'C'"});
    SetTaxon(2, "qb_taxon_author_id", "1");
    SetTaxon(3, "qb_taxon_author_id", "2");
    SetTaxon(4, "qb_taxon_author_id", "3");
    set.state.gRejectedTaxa = {2, 3};
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]3||C||"}));
    SetTaxon(4, "hybrid_author_id", "1");
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]1||A||", "[TA]3||C||"})) << "a hybrid author counts";
}

TEST_F(ExclusionRules, LinksOfRejectedTaxaAndDocumentsStayOut) {
    Link(2, "EXP", 1);
    Link(3, "EXP", 1);
    Link(3, "EXP", 2);
    LinkVernacular(2, 1, "EXP", 1);
    LinkVernacular(3, 1, "EXP", 1);
    LinkVernacular(3, 1, "EXP", 2);
    set.state.gRejectedTaxa = {2};
    set.state.gRejectedDocs = {{"EXP", 2}, {"PUB", 1}};
    EXPECT_EQ(TaggedLines("[RF]"), Lines({"[RF]3|EXP|1||EXP||No|No|||"}));
    EXPECT_EQ(TaggedLines("[VL]"), Lines({"[VL]3|1||EXP|1||EXP||"}));
}

TEST_F(ExclusionRules, RejectedDocumentStaysOutThoughNoTaxonIsRejected) {
    AddExperts({1, 2});
    Link(3, "EXP", 1);
    Link(3, "EXP", 2);
    set.state.gRejectedDocs = {{"EXP", 2}};
    EXPECT_EQ(TaggedLines("[EX]"), Lines({"[EX]EXP|1||||"}));
}

TEST_F(ExclusionRules, WithOneRejectedTaxonADocumentNeedsALinkOfAnother) {
    AddExperts({1, 2, 3, 4});
    Link(2, "EXP", 1);
    Link(2, "EXP", 2);
    Link(3, "EXP", 2);
    LinkVernacular(2, 1, "EXP", 3);
    LinkVernacular(3, 1, "EXP", 4);
    set.state.gRejectedTaxa = {2, 2};
    EXPECT_EQ(TaggedLines("[EX]"), Lines({"[EX]EXP|2||||", "[EX]EXP|4||||"}));
}

TEST_F(ExclusionRules, WithTwoRejectedTaxaEveryLinkedDocumentStays) {
    AddExperts({1, 2, 3});
    Link(2, "EXP", 1);
    LinkVernacular(3, 1, "EXP", 2);
    set.state.gRejectedTaxa = {2, 3};
    EXPECT_EQ(TaggedLines("[EX]"), Lines({"[EX]EXP|1||||", "[EX]EXP|2||||"}));
}

TEST_F(ExclusionRules, CommentNeedsALinkOfATaxonThatIsNotRejected) {
    Insert("qb_tu_comments_link", "qb_id, qb_comment_id", {"2, 1", "2, 2", "3, 2"});
    Insert("qb_comments", "qb_comment_id, commentator", {"1, 'a'", "2, 'b'"});
    set.state.gRejectedTaxa = {2, 4};
    EXPECT_EQ(TaggedLines("[C"), Lines({"[CL]3|2|||", "[CM]2||b|||"}));
}

TEST_F(ExclusionRules, ChangesAreNotTested) {
    Insert("qb_change_tracks", "qb_change_track_id, qb_id", {"1, 2"});
    Insert("qb_change_operations", "qb_change_track_id, chg_op_id", {"1, 1"});
    Insert("qb_change_comments", "qb_change_track_id, chg_cmt_id", {"1, 1"});
    set.state.gRejectedTaxa = {2, 3};
    EXPECT_EQ(TaggedLines("[C"), Lines({"[CT]1|||||||||2|", "[CO]1|1||", "[CC]1||1||"}));
}

}  // namespace
}  // namespace quillon::exporting
