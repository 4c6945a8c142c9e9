#include "export_fixture.h"

namespace quillon::exporting {
namespace {

class LinkSections : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        AddTaxon(2, "Alpha");
        AddTaxon(3, "Beta", 2);
    }
};

TEST_F(LinkSections, OnlyAuthorsOfTaxaTravel) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author_id, taxon_author, kingdom_id",
           {"7, 70, 'Used', 5", "8, Null, 'Hybrid only', 5", "9, 90, 'Nobody''s', 5",
            "6, 0, 'Ünused once', Null"});
    SetTaxon(2, "qb_taxon_author_id", "7");
    SetTaxon(3, "qb_taxon_author_id", "7");
    SetTaxon(3, "hybrid_author_id", "8");
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]7|70|Used|5|"}));
    SetTaxon(1, "qb_taxon_author_id", "6");
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]6||\xDCnused once||", "[TA]7|70|Used|5|"}));
}

TEST_F(LinkSections, AuthorsUnderAFilterAreThoseOfItsTaxaOnce) {
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author, kingdom_id",
           {"7, 'Seven', 5", "8, 'Eight', 3"});
    SetTaxon(1, "qb_taxon_author_id", "8");
    SetTaxon(2, "qb_taxon_author_id", "7");
    SetTaxon(3, "qb_taxon_author_id", "7");
    FilterBy("unit_name1", ">", "Alph");
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]7||Seven|5|", "[TA]8||Eight|3|"}));
    FilterBy("kingdom_id", "=", "3");
    EXPECT_EQ(TaggedLines("[TA]"), "") << "the kingdom is the taxon's, not the author's";
    AddToJournal({1});
    FilterByJournal();
    EXPECT_EQ(TaggedLines("[TA]"), Lines({"[TA]8||Eight|3|"}))
        << "the root's author, when the root is selected";
}

TEST_F(LinkSections, NodcIdsOfTaxa) {
    Insert("qb_nodc_ids", "nodc_id, qb_id, tsn", {"'0012', 3, 102", "'0011', 2, 0", "'0010', 44, 5"});
    EXPECT_EQ(TaggedLines("[NO]"), Lines({"[NO]0011||2|", "[NO]0012|102|3|"}));
    FilterBy("tsn", "=", "102");
    EXPECT_EQ(TaggedLines("[NO]"), Lines({"[NO]0012|102|3|"}));
    FilterBy("tsn", "=", "0");
    EXPECT_EQ(TaggedLines("[NO]"), "");
}

TEST_F(LinkSections, VernacularsOfTaxa) {
    Insert("qb_vernaculars", "qb_id, qb_vern_id, vern_id, vernacular_name, tsn, language, approved_ind",
           {"3, 1, 11, 'bird', 102, 'English', True", "2, 2, 0, 'Vögel', Null, 'German', False",
            "9, 3, 13, 'nobody', 1, 'English', True", "2, 4, 14, Null, 1, Null, Null"});
    EXPECT_EQ(TaggedLines("[VR]"), Lines({"[VR]3|1|11|bird|102|English|Yes|", "[VR]2|2||V\xF6gel||German|No|",
                                          "[VR]2|4|14||1||No|"}));
    AddToJournal({2});
    FilterByJournal();
    EXPECT_EQ(TaggedLines("[VR]"), Lines({"[VR]2|2||V\xF6gel||German|No|", "[VR]2|4|14||1||No|"}));
}

TEST_F(LinkSections, SynonymLinksNeedBothTaxa) {
    AddTaxon(4, "Gamma");
    Insert("qb_synonym_links", "qb_id, qb_id_accepted, tsn, tsn_accepted",
           {"3, 2, 102, 101", "4, 2, Null, 0", "9, 2, 1, 1", "3, 9, 1, 1"});
    EXPECT_EQ(TaggedLines("[SY]"), Lines({"[SY]3|2|102|101|", "[SY]4|2|||"}));
}

TEST_F(LinkSections, SynonymLinksUnderAClauseNeedBothTaxaSelected) {
    AddTaxon(4, "Gamma");
    Insert("qb_synonym_links", "qb_id, qb_id_accepted", {"3, 2", "4, 2", "4, 3"});
    FilterBy("unit_name1", ">=", "Beta");
    EXPECT_EQ(TaggedLines("[SY]"), Lines({"[SY]4|3|||"}));
}

TEST_F(LinkSections, SynonymLinksUnderTheJournalNeedOneTaxonInIt) {
    AddTaxon(4, "Gamma");
    AddTaxon(5, "Delta");
    Insert("qb_synonym_links", "qb_id, qb_id_accepted", {"3, 2", "4, 3", "4, 5", "3, 9", "9, 3", "3, 3"});
    AddToJournal({3, 9});
    FilterByJournal();
    EXPECT_EQ(TaggedLines("[SY]"), Lines({"[SY]3|2|||", "[SY]3|3|||", "[SY]4|3|||"}));
}

TEST_F(LinkSections, DivisionsAndJurisdictionsOfTaxa) {
    Insert("qb_geographic_division", "qb_id, geographic_value, tsn",
           {"3, 'Africa', 102", "2, 'Oceania', 0", "2, 'Africa', 101", "9, 'Africa', 1"});
    Insert("qb_jurisdiction", "qb_id, jurisdiction_value, origin, tsn",
           {"3, 'Alaska', 'Native', 102", "2, 'Hawaii', Null, Null", "9, 'Alaska', 'Native', 1"});
    EXPECT_EQ(TaggedLines("[GD]"), Lines({"[GD]2|Africa|101|", "[GD]2|Oceania||", "[GD]3|Africa|102|"}));
    EXPECT_EQ(TaggedLines("[JR]"), Lines({"[JR]2|Hawaii|||", "[JR]3|Alaska|Native|102|"}));
    FilterBy("tsn", "=", "102");
    EXPECT_EQ(TaggedLines("[GD]"), Lines({"[GD]3|Africa|102|"}));
    EXPECT_EQ(TaggedLines("[JR]"), Lines({"[JR]3|Alaska|Native|102|"}));
}

TEST_F(LinkSections, CommentLinksThenTheCommentsOnce) {
    Insert("qb_tu_comments_link", "qb_id, qb_comment_id, tsn, comment_id",
           {"2, 6, 101, 60", "3, 6, 0, 0", "3, 5, 102, 50", "9, 7, 1, 70"});
    Insert("qb_comments", "qb_comment_id, comment_id, commentator, comment_detail, comment_time_stamp",
           {"5, 50, 'Ann', 'Five', '03022001040506'", "6, Null, Null, 'Six', '0302200104050'",
            "7, 70, 'Bob', 'Seven', Null", "8, 80, 'Bob', 'Unlinked', Null"});
    EXPECT_EQ(TaggedLines("[C"), Lines({"[CL]2|6|101|60|", "[CL]3|5|102|50|", "[CL]3|6|||",
                                        "[CM]5|50|Ann|Five|2001-02-03 04:05:06|", "[CM]6|||Six||"}));
    FilterBy("unit_name1", "=", "Alpha");
    EXPECT_EQ(TaggedLines("[C"), Lines({"[CL]2|6|101|60|", "[CM]6|||Six||"}));
}

TEST_F(LinkSections, ChangeTracksWithOperationsAndComments) {
    Insert("qb_change_tracks",
           "qb_change_track_id, change_track_id, old_tsn, change_reason, change_initiator, change_reviewer, "
           "change_certifier, change_time_stamp, tsn, qb_id",
           {"1, 10, 98, 'Because', 'Ann', 'Bob', 'Cid', '2001-02-03 04:05:06', 101, 2",
            "2, Null, 0, Null, Null, Null, Null, '99', Null, 3", "3, 30, 1, 'x', 'x', 'x', 'x', 'x', 1, 9"});
    Insert("qb_change_operations", "qb_change_track_id, chg_op_id, change_track_id",
           {"2, 1, Null", "1, 3, 10", "1, 2, 10", "3, 1, 30", "8, 1, 80"});
    Insert("qb_change_comments", "qb_change_track_id, change_track_id, chg_cmt_id, change_detail",
           {"1, 10, 4, 'Four'", "2, 0, 0, Null", "3, 30, 1, 'x'"});
    EXPECT_EQ(Tagged(),
              Lines({kRootLine, TaxonLine(2, "Alpha", "100", 1), TaxonLine(3, "Beta", "101", 2),
                     "[CT]1|10|98|Because|Ann|Bob|Cid|2001-02-03 04:05:06|101|2|", "[CT]2|||||||99||3|",
                     "[CO]1|2|10|", "[CO]1|3|10|", "[CO]2|1||", "[CC]1|10|4|Four|", "[CC]2||||"}));
    AddToJournal({3});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine, TaxonLine(3, "Beta", "101", 1), "[CT]2|||||||99||3|", "[CO]2|1||",
                               "[CC]2||||"}));
}

TEST_F(LinkSections, TombstonesTravelUnderEveryFilterInTheOrderOfTheTable) {
    Insert("db_tombstone", "table_name, pk1, pk2, pk3, pk4",
           {"'vern_ref_links', '1', '2', '3', '4'", "'COMMENTS', '5', 'x', 'x', 'x'",
            "'tu_comments_link', '1', '2', 'x', 'x'", "'Experts', 'EXP', '2', 'x', 'x'",
            "'geographic_division', '1', 'Africa', 'x', 'x'", "'jurisdiction', '1', 'Alaska', 'x', 'x'",
            "'other_sources', 'SRC', '3', 'x', 'x'", "'publications', 'PUB', '4', 'x', 'x'",
            "'reference_links', 'PUB', '4', '101', 'x'", "'synonym_links', '1', '2', 'x', 'x'",
            "'taxon_authors_lookup', '1', '5', 'x', 'x'", "'vernaculars', '101', Null, 'x', 'x'",
            "'nodc_ids', '0', 'b', 'c', 'd'"});
    const std::string tombstones = Lines({"[VL-]1|2|3|4|", "[CM-]5|", "[CL-]1|2|", "[EX-]EXP|2|",
                                          "[GD-]1|Africa|", "[JR-]1|Alaska|", "[OS-]SRC|3|", "[PB-]PUB|4|",
                                          "[RF-]PUB|4|101|", "[SY-]1|2|", "[TA-]1|5|", "[VR-]101||", "0|b|"});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine}) + tombstones);
    EXPECT_EQ(set.state.gExportedCount, 14);
    FilterBy("tsn", "=", "100");
    set.state.gRejectedTaxa = {101, 1};
    EXPECT_EQ(Tagged(), Lines({kRootLine}) + tombstones);
}

TEST_F(LinkSections, EmptyJournalGivesTheRootAndAllTombstones) {
    SetTaxon(2, "qb_taxon_author_id", "4");
    Insert("qb_taxon_authors_lookup", "qb_taxon_author_id, taxon_author", {"4, 'Smith, 1900'"});
    Insert("qb_synonym_links", "qb_id, qb_id_accepted", {"2, 1"});
    Insert("db_tombstone", "table_name, pk1", {"'comments', '5'"});
    FilterByJournal();
    EXPECT_EQ(Tagged(), Lines({kRootLine, "[CM-]5|"}));
}

TEST(Tombstones, TagIsEmptyForATableItDoesNotKnow) {
    EXPECT_EQ(exchange::DeletionRecord("Vern_Ref_Links").tag, "[VL-]");
    EXPECT_EQ(exchange::DeletionRecord("nodc_ids").tag, "");
}

}  // namespace
}  // namespace quillon::exporting
