// Every sentence that a handler writes, to the letter, with the line that calls for it.
#include "import_fixture.h"

namespace quillon::importing {
namespace {

struct Case {
    std::string line;
    std::string sentence;
    std::string table = {};  // which must stay empty
};

class HandlerFindings : public ImportTest {
protected:
    // The first finding is the one for the line; what the line made known by then may be reported at the end.
    void Check(const Case& expected) {
        Import({expected.line});
        ASSERT_FALSE(findings.empty()) << expected.line;
        EXPECT_EQ(findings.front(), (Finding{expected.sentence, expected.line}));
        if (!expected.table.empty()) {
            EXPECT_EQ(Dump("SELECT * FROM " + expected.table), "") << expected.line;
        }
    }
};

TEST_F(HandlerFindings, ALineWithoutALaterDelimiterGetsTheMessageOfItsTag) {
    for (const std::string letters :
         {"CT", "CO", "CC",  "CM",  "CL",  "EX",  "GD",  "JR",  "NO",  "OS",  "PB",  "RF",  "VL",  "SY", "TA",
          "TU", "VR", "CM-", "CL-", "EX-", "GD-", "JR-", "OS-", "PB-", "RF-", "VL-", "SY-", "TA-", "VR-"}) {
        for (const std::string rest : {"", "|", "|12", "12"}) {
            const std::string line = "[" + letters + "]" + rest;
            Import({line});
            EXPECT_EQ(findings, (Findings{{"Unexpected end-of-line in the following <" + letters +
                                               "> data line of import file!",
                                           line}}));
        }
    }
}

TEST_F(HandlerFindings, ALineThatEndsBeforeItsLastFieldStoresNothing) {
    for (const std::string letters :
         {"CT", "CO", "CC", "CM",  "CL",  "EX",  "GD",  "JR",  "NO",  "OS",  "PB",  "RF",  "VL", "SY",
          "TA", "TU", "VR", "CL-", "EX-", "GD-", "JR-", "OS-", "PB-", "RF-", "VL-", "SY-", "TA-"}) {
        const std::string line = "[" + letters + "]1|";
        Import({line});
        EXPECT_EQ(findings,
                  (Findings{{"Unexpected end-of-line in the following data line of import file!", line}}));
    }
    EXPECT_EQ(Dump("SELECT * FROM db_tombstone"), "");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
}

TEST_F(HandlerFindings, OfRecordsOfATaxon) {
    for (const Case& expected : std::vector<Case>{
             {"[GD]1||2|", "No geographic_value is present in the following <GD> data line of import file!",
              "qb_geographic_division"},
             {"[GD]|Africa||",
              "Neither qb_id nor tsn is present in the following <GD> data line of import file!",
              "qb_geographic_division"},
             {"[JR]1|||2|",
              "No jurisdiction_value is present in the following <JR> data line of import file!",
              "qb_jurisdiction"},
             {"[JR]|Alaska|||",
              "Neither qb_id nor tsn is present in the following <JR> data line of import file!",
              "qb_jurisdiction"},
             {"[NO]|1|2|", "There is no nodc_id present in the following <NO> data line of import file!",
              "qb_nodc_ids"},
             {"[NO]77|||", "Neither qb_id nor tsn is present in the following <NO> data line of import file!",
              "qb_nodc_ids"},
             {"[SY]|5||6|",
              "Neither qb_id nor tsn is present in the following <SY> data line of import file!",
              "qb_synonym_links"},
             {"[SY]5||6||",
              "Neither qb_id_accepted nor tsn_accepted is present in the following <SY> data line of import "
              "file!",
              "qb_synonym_links"},
             {"[VR]|1|2|Name||English|Yes|",
              "Neither qb_id nor tsn is present in the following <RF> data line of import file!",
              "qb_vernaculars"},
             {"[VR]1|||Name|2|English|Yes|",
              "Neither qb_vern_id nor vern_id is present in the following <VR> data line of import file!",
              "qb_vernaculars"},
         })
        Check(expected);
}

TEST_F(HandlerFindings, OfTaxaAndAuthors) {
    Check({TaxonLine{}, "Neither qb_id nor tsn is present in the following <TU> data line of import file!"});
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
    Check({"[TA]||Linnaeus|5|",
           "Neither qb_taxon_author_id nor taxon_author_id is present in the following <TA> data line of "
           "import "
           "file!",
           "qb_taxon_authors_lookup"});
}

TEST_F(HandlerFindings, OfDocumentsAndComments) {
    for (const Case& expected : std::vector<Case>{
             {"[EX]EXP|||Smith|note|",
              "Neither qb_expert_id nor expert_id is present in the following <EX> data line of import file!",
              "qb_experts"},
             {"[PB]PUB||||||||||||||",
              "Neither qb_publication_id nor publication_id is present in the following <PB> data line of "
              "import "
              "file!",
              "qb_publications"},
             {"[OS]SRC||||||||",
              "Neither qb_source_id nor source_id is present in the following <OS> data line of import file!",
              "qb_other_sources"},
             {"[CM]||Smith|detail||",
              "Neither qb_comment_id nor comment_id is present in the following <CM> data line of import "
              "file!",
              "qb_comments"},
             {"[CL]|1||2|",
              "Neither qb_id nor tsn is present in the following <CL> data line of import file!",
              "qb_tu_comments_link"},
             {"[CL]1||2||",
              "Neither qb_comment_id nor comment_id is present in the following <CL> data line of import "
              "file!",
              "qb_tu_comments_link"},
         })
        Check(expected);
}

TEST_F(HandlerFindings, OfDates) {
    const std::string tail = " in the following data line of import file!";
    for (const Case& expected : std::vector<Case>{
             {"[PB]PUB||6|A|T|N|1/1/1999|01/01/1999|||||||",
              "A time value <1/1/1999> is not the correct format <mm/dd/yyyy>" + tail, "qb_publications"},
             {"[PB]PUB||6|A|T|N|01/01/1999|1999|||||||",
              "A time value <1999> is not the correct format <mm/dd/yyyy>" + tail, "qb_publications"},
             {"[OS]SRC||6|book|S|1|01/01/99|note|",
              "A time value <01/01/99> is not the correct format <mm/dd/yyyy>" + tail, "qb_other_sources"},
             {"[CM]|6|Smith|detail|1999-12-31|",
              "A time value <1999-12-31> is not the correct format <yyyy-mm-dd hh:mm:ss>" + tail,
              "qb_comments"},
         }) {
        Check(expected);
        // Nothing is marked either, so nothing is missing at the end.
        EXPECT_EQ(findings.size(), 1U) << expected.line;
    }
}

TEST_F(HandlerFindings, OfReferences) {
    for (
        const Case& expected : std::vector<Case>{
            {"[RF]|PUB|1||PUB|2|Yes|No|||",
             "Neither qb_id nor tsn is present in the following <RF> data line of import file!",
             "qb_reference_links"},
            {"[RF]1|PUB||2|PUB||Yes|No|||",
             "Neither qb_documentation_id nor documentation_id is present in the following <RF> data line of "
             "import file!",
             "qb_reference_links"},
            {"[RF]1||3|2||4|Yes|No|||",
             "Neither qb_documentation_id_prefix nor documentation_id_prefix is present in the following "
             "<RF> data "
             "line of import file!",
             "qb_reference_links"},
            {"[RF]1|XYZ|3|2|PUB|4|Yes|No|||",
             "Invalid document prefix in the following <RF> data line of import file!", "qb_reference_links"},
            {"[RF]1|pub|3|2||4|Yes|No|||",
             "Invalid document prefix in the following <RF> data line of import file!", "qb_reference_links"},
            {"[RF]1|XYZ|3|2|PUB|4|Yes|No||Name|",
             "Invalid document prefix in the following <VL> data line of import file!", "qb_reference_links"},
            {"[RF]1|PUB|3|2|PUB|4|Yes|No||Name|",
             "Invalid vernacular_id in the following <VL> data line of import file!", "qb_reference_links"},
            {"[VL]|1|2|PUB|3||PUB|4|",
             "Neither qb_id nor tsn is present in the following <VL> data line of import file!",
             "qb_vern_ref_links"},
            {"[VL]1|1|2|PUB||5|PUB||",
             "Neither qb_documentation_id nor documentation_id is present in the following <VL> data line of "
             "import file!",
             "qb_vern_ref_links"},
            {"[VL]1|1|2||3|5||4|",
             "Neither qb_documentation_id_prefix nor documentation_id_prefix is present in the following "
             "<VL> data "
             "line of import file!",
             "qb_vern_ref_links"},
            {"[VL]1|1|2|XYZ|3|5|PUB|4|",
             "Invalid document prefix in the following <VL> data line of import file!", "qb_vern_ref_links"},
            {"[VL]1|1|2|PUB|3|5|PUB|4|",
             "Invalid vernacular_id in the following <VL> data line of import file!", "qb_vern_ref_links"},
        })
        Check(expected);
}

TEST_F(HandlerFindings, OfAVernacularWithoutAnIdOfTheAuthority) {
    const std::string reference = "[RF]5|PUB|3||PUB|4|Yes|No||Whale|";
    Import({TaxonLine{.qb_id = "5"}, "[VR]5|9||Whale||English|Yes|", reference});
    EXPECT_EQ(
        findings.front(),
        (Finding{"Invalid qb_vernacular_id in the following <VL> data line of import file!", reference}));
    EXPECT_EQ(Dump("SELECT * FROM qb_vern_ref_links"), "");
}

TEST_F(HandlerFindings, OfChangeTracks) {
    const std::string noTrack =
        "Neither qb_change_track_id nor change_track_id is present in the following <";
    for (const Case& expected : std::vector<Case>{
             {"[CT]1|2|3|reason|a|b|c|||||",
              "Neither qb_id nor tsn is present in the following <CT> data line of import file!",
              "qb_change_tracks"},
             {"[CT]||3|reason|a|b|c||1|2|", noTrack + "CT> data line of import file!", "qb_change_tracks"},
             {"[CO]|1||", noTrack + "CO> data line of import file!", "qb_change_operations"},
             {"[CO]1|||", "A chg_op_id is not present in the following <CO> data line of import file!",
              "qb_change_operations"},
             {"[CC]||1|detail|", noTrack + "CC> data line of import file!", "qb_change_comments"},
         })
        Check(expected);
}

TEST_F(HandlerFindings, OfDeletionRecords) {
    const auto missing = [](std::string_view field, std::string_view letters) {
        return "Missing " + std::string(field) + " in the following <" + std::string(letters) +
               "> data line of import file!";
    };
    for (const Case& expected : std::vector<Case>{
             {"[CM-]0|", missing("comment_id", "CM-")},
             {"[CM-]x|", missing("comment_id", "CM-")},
             {"[CL-]|1|", missing("tsn", "CL-")},
             {"[CL-]1||", missing("comment_id", "CL-")},
             {"[EX-]|1|", missing("expert_id_prefix", "EX-")},
             {"[EX-]EXP||", missing("expert_id", "EX-")},
             {"[GD-]|Africa|", missing("tsn", "GD-")},
             {"[GD-]1||", "Missing geographic_value in the following <GD-> data line!"},
             {"[JR-]|Alaska|", missing("tsn", "JR-")},
             {"[JR-]1||", missing("jurisdiction_value", "JR-")},
             {"[OS-]|1|", missing("source_id_prefix", "OS-")},
             {"[OS-]SRC||", missing("source_id", "OS-")},
             {"[PB-]|1|", missing("publication_id_prefix", "PB-")},
             {"[PB-]PUB||", missing("publication_id", "PB-")},
             {"[RF-]|1|2|", missing("documentation_id_prefix", "RF-")},
             {"[RF-]PUB||2|", missing("documentation_id", "RF-")},
             {"[RF-]PUB|1||", missing("tsn", "RF-")},
             {"[VL-]|1|2|3|", missing("documentation_id_prefix", "VL-")},
             {"[VL-]PUB||2|3|", missing("documentation_id", "VL-")},
             {"[VL-]PUB|1||3|", missing("tsn", "VL-")},
             {"[VL-]PUB|1|2||", missing("vern_id", "VL-")},
             {"[SY-]|1|", missing("tsn", "SY-")},
             {"[SY-]1||", missing("tsn_accepted", "SY-")},
             {"[TA-]|1|", missing("taxon_author_id", "TA-")},
             {"[TA-]1||", missing("kingdom_id", "TA-")},
             {"[VR-]0|", missing("tsn", "VR-")},
             {"[VR-]|7|", missing("tsn", "VR-")},
             // A prefix longer than the field that keeps it.
             {"[PB-]PUBLICATIONS|1|", "Unable to save the following <PB-> record in the database!"},
         }) {
        Import({expected.line});
        EXPECT_EQ(findings, (Findings{{expected.sentence, expected.line}}));
    }
    EXPECT_EQ(Dump("SELECT * FROM db_tombstone"), "");
}

TEST_F(HandlerFindings, AnUnknownTagIsReportedAndTheRunContinues) {
    Import({"[XX]1|2|", "no tag at all", "[tu]1|", "[TU", "[RV]1|2|", "[RV]", "[TA]|7|Linnaeus|5|"});
    const std::string sentence = "Invalid Table Tag in the following line of import file!";
    EXPECT_EQ(
        findings,
        (Findings{
            {sentence, "[XX]1|2|"}, {sentence, "no tag at all"}, {sentence, "[tu]1|"}, {sentence, "[TU"}}));
    EXPECT_EQ(Dump("SELECT taxon_author FROM qb_taxon_authors_lookup"), "Linnaeus\n");
}

}  // namespace
}  // namespace quillon::importing
