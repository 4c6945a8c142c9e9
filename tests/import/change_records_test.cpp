// Change tracks with their operations and comments, and the deletion records.
#include "import_fixture.h"

namespace quillon::importing {
namespace {

constexpr std::string_view kTracks = "SELECT * FROM qb_change_tracks ORDER BY qb_change_track_id";
constexpr std::string_view kOperations =
    "SELECT * FROM qb_change_operations ORDER BY qb_change_track_id, chg_op_id";
constexpr std::string_view kComments = "SELECT * FROM qb_change_comments ORDER BY qb_chg_cmt_id";

class ChangeRecords : public ImportTest {
protected:
    const std::string taxon = TaxonLine{.qb_id = "5"};  // its new id is 2
};

TEST_F(ChangeRecords, ATrackIsStoredWithItsOperationsAndComments) {
    Import({taxon, "[CT]9|90|77|reason|initiator|reviewer|certifier|2020-01-02 03:04:05|100|5|",
            "[CO]9|3|90|", "[CO]9|5||", "[CC]9|90|4|detail|", "[CC]|9||it's|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kTracks),
              "1\t90\t77\treason\tinitiator\treviewer\tcertifier\t2020-01-02 03:04:05\t100\t2\n");
    EXPECT_EQ(Dump(kOperations), "1\t3\t90\n1\t5\t\\N\n");
    EXPECT_EQ(Dump(kComments), "1\t1\t90\t4\tdetail\n1\t2\t9\t\\N\tit's\n");
}

TEST_F(ChangeRecords, ATrackKnownFromAnOperationHasNoTaxon) {
    Import({"[CO]9|3||", taxon, "[CT]9|||||||||5|"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kTracks), "1\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t0\n");
    EXPECT_EQ(Dump(kOperations), "1\t3\t\\N\n");
}

TEST_F(ChangeRecords, ASecondTrackLineWithTheKeyOverwritesAllButTheTaxon) {
    Import({taxon, TaxonLine{.qb_id = "6"}, "[CT]9|90||first|a|b|c||1|5|", "[CT]9|||second||||||6|",
            "[CO]9|3||"});
    EXPECT_EQ(Dump(kTracks), "1\t\\N\t\\N\tsecond\t\\N\t\\N\t\\N\t\\N\t\\N\t2\n");
}

TEST_F(ChangeRecords, TheSameOperationTwiceFailsAndTheRunContinues) {
    Import({taxon, "[CT]9|||r||||||5|", "[CO]9|3||", "[CO]9|3|90|", "[CC]9||40000|too large|",
            "[CC]9||1|next|"});
    EXPECT_EQ(set.prompter.messages.size(), 2U);
    for (const std::string& message : set.prompter.messages) EXPECT_EQ(message.substr(0, 7), "Failed ");
    EXPECT_EQ(Dump(kOperations), "1\t3\t\\N\n");
    EXPECT_EQ(Dump(kComments), "1\t1\t\\N\t1\tnext\n");
}

TEST_F(ChangeRecords, ATrackThatCannotBeStoredLeavesItsPlaceholder) {
    Import({taxon, "[CT]9|||" + std::string(41, 'r') + "||||||5|", "[CO]9|3||"});
    EXPECT_EQ(set.prompter.messages.size(), 1U);
    EXPECT_EQ(Dump("SELECT qb_change_track_id, change_reason, qb_id FROM qb_change_tracks"),
              "1\tDummy#9\t2\n");
}

class DeletionRecords : public ImportTest {};

TEST_F(DeletionRecords, BecomeTombstonesInTheOrderOfTheFile) {
    Import({"[CM-]1|", "[CL-]1|2|", "[EX-]EXP|1|", "[GD-]1|Africa|", "[JR-]1|Alaska|", "[OS-]SRC|1|",
            "[PB-]PUB|1|", "[RF-]PUB|1|2|", "[VL-]EXP|1|2|3|", "[SY-]1|2|", "[TA-]1|5|", "[VR-]1|",
            "[VR-]1|77|", "[VR-]1||", "[VR-]1|77"});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump("SELECT * FROM db_tombstone"),
              "comments\t1\t\\N\t\\N\t\\N\n"
              "tu_comments_link\t1\t2\t\\N\t\\N\n"
              "experts\tEXP\t1\t\\N\t\\N\n"
              "geographic_division\t1\tAfrica\t\\N\t\\N\n"
              "jurisdiction\t1\tAlaska\t\\N\t\\N\n"
              "other_sources\tSRC\t1\t\\N\t\\N\n"
              "publications\tPUB\t1\t\\N\t\\N\n"
              "reference_links\tPUB\t1\t2\t\\N\n"
              "vern_ref_links\tEXP\t1\t2\t3\n"
              "synonym_links\t1\t2\t\\N\t\\N\n"
              "taxon_authors_lookup\t1\t5\t\\N\t\\N\n"
              "vernaculars\t1\t\\N\t\\N\t\\N\n"
              "vernaculars\t1\t77\t\\N\t\\N\n"
              "vernaculars\t1\t\\N\t\\N\t\\N\n"
              "vernaculars\t1\t\\N\t\\N\t\\N\n");
}

TEST_F(DeletionRecords, DeleteNothing) {
    Import({TaxonLine{.tsn = "100"}, "[GD]|Africa|100|", "[GD-]100|Africa|"});
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "2\tAfrica\t100\n");
}

}  // namespace
}  // namespace quillon::importing
