// The rules on the synonym links and the documents of a taxon.

#include "validation/taxon_links.h"

#include "validation_fixture.h"

namespace quillon::validation {

namespace {

using SynonymLinks = ValidationTest;
using TaxonDocuments = ValidationTest;

constexpr std::string_view kMustBeLinked =
    "     an 'invalid'/'not accepted' taxon must be linked to a 'valid'/'accepted' one";
constexpr std::string_view kLinkedToSynonym =
    "     an 'invalid'/'not accepted' taxon canot be linked to one that is also 'invalid'/'not accepted'";

TEST_F(SynonymLinks, UnusableNameIsLinked) {
    MakeSynonym(3, 2, "junior synonym");
    EXPECT_EQ(Validate(), "");
    Run("DELETE * FROM qb_synonym_links");
    EXPECT_EQ(Validate(), OnSpecies({kMustBeLinked}));
}

TEST_F(SynonymLinks, UnusableNameIsLinkedToUsableOnes) {
    MakeSynonym(3, 2, "junior synonym");
    for (const int qb_id : {4, 5}) {
        AddTaxon(qb_id, "Alpha", 220, 2);
        MakeSynonym(qb_id, 2, "junior synonym");
        Link(3, qb_id);
    }
    EXPECT_EQ(Validate(), OnSpecies({kLinkedToSynonym, kLinkedToSynonym}));
}

TEST_F(SynonymLinks, AcceptedNameMayHaveAnyUsableWord) {
    MakeSynonym(3, 1, "junior synonym");
    Set(1, "usage", "'accepted'");
    EXPECT_EQ(Validate(), "");
    Set(1, "usage", "Null");
    EXPECT_EQ(Validate(), "ID =  2   Name = Alpha\r\n     a parent must be a valid/accepted Taxon\r\n" +
                              OnSpecies({kLinkedToSynonym}));
}

// The query joins the accepted taxon, so that a link to none gives no row at all.
TEST_F(SynonymLinks, LinkToAMissingTaxonDoesNotCount) {
    MakeSynonym(3, 99, "junior synonym");
    EXPECT_EQ(Validate(), OnSpecies({kMustBeLinked}));
}

TEST_F(SynonymLinks, UsableNameIsNotLinked) {
    Link(3, 2);
    EXPECT_EQ(Validate(),
              OnSpecies({"     'valid'/'accepted' records cannot be linked to other records as synonyms"}));
    Run("DELETE * FROM qb_synonym_links");
    Link(3, 99);
    EXPECT_EQ(Validate(), "");
}

TEST_F(SynonymLinks, AcceptedNameThatDoesNotExistIsNamed) {
    TaxonRow row;
    row.qb_id = 3;
    row.unit_name1 = "Alpha";
    TaxonLookUps lookUps(set.db(), Selected(selection::kNoFilter), turns);
    std::vector<Finding> findings;
    ValidationLog log(set.state, [&](const Finding& finding) { findings.push_back(finding); });
    log.BeginRecord();
    const std::vector<AcceptedLink> links = {{77, false, false}};
    CheckSynonymLinks({row, {}, lookUps, log, turns}, links);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0], (Finding{Rule::SynonymLinkBroken,
                                    {RecordKind::Taxon, 3, "", "Alpha"},
                                    "ID =  3   Name = Alpha",
                                    "     Synonym link to '77' is invalid, record does not exist"}));
}

TEST_F(TaxonDocuments, OneReferenceIsRequired) {
    Unrefer(3);
    EXPECT_EQ(Validate(), OnSpecies({"     at least one reference is required"}));
}

TEST_F(TaxonDocuments, ExpertOrOtherSourceIsAReferenceToo) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 4, 'Jones')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_type, source, "
        "acquisition_date, version) "
        "VALUES ('SRC', 5, 'list', 'List', '01/02/2000', '1')");
    Unrefer(3);
    Refer(3, "EXP", 4);
    EXPECT_EQ(Validate(), "");
    Unrefer(3);
    Refer(3, "SRC", 5);
    EXPECT_EQ(Validate(), "");
}

TEST_F(TaxonDocuments, LinkToAMissingDocumentDoesNotCount) {
    Unrefer(3);
    for (const char* prefix : {"PUB", "EXP", "SRC"}) Refer(3, prefix, 99);
    Refer(3, "XYZ", 1);
    EXPECT_EQ(Validate(), OnSpecies({"     at least one reference is required"}));
}

class OriginalDescription : public ValidationTest {
protected:
    void Describe(int qb_id, std::string_view actual_pub_date) {
        Unrefer(qb_id);
        Run(fmt::format("UPDATE qb_publications SET actual_pub_date = {}", actual_pub_date));
        Refer(qb_id, "PUB", 1, true);
    }
    static constexpr std::string_view kHeading =
        "Publications: ID = <3> PUBID = <1>  Publication = <Journal>  Title = <Moths>";
};

TEST_F(OriginalDescription, IsOfTheAuthorsYear) {
    Describe(3, "'31/12/1900'");
    EXPECT_EQ(Validate(), "");
    Describe(3, "'01/01/1901'");
    EXPECT_EQ(Validate(),
              Lines({kHeading,
                     "     the year associated with the author <1900> must be the same as the actual "
                     "publication year <1901>"}));
}

TEST_F(OriginalDescription, IsNotComparedWithoutBothYears) {
    Describe(3, "'1901'");
    EXPECT_EQ(Validate().find("associated with the author <1900>"), std::string::npos);
    Describe(3, "Null");
    EXPECT_EQ(Validate().find("associated with the author <1900>"), std::string::npos);
    Describe(3, "'01/01/1901'");
    Set(3, "rank_id", "150");
    Set(3, "parent_qb_id", "1");
    Set(3, "qb_taxon_author_id", "Null");
    EXPECT_EQ(Validate(), "");
}

TEST_F(OriginalDescription, IsOneAlone) {
    for (const int id : {2, 3})
        Run(fmt::format(
            "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_name, "
            "actual_pub_date) VALUES ('PUB', {}, 'Book {}', '01/01/1950')",
            id, id));
    Unrefer(3);
    Refer(3, "PUB", 1);
    Refer(3, "PUB", 2, true);
    Refer(3, "PUB", 3, true);
    EXPECT_EQ(Validate(), Lines({"Publications: ID = <3> PUBID = <2>  Publication = <Book 2>  Title = <>",
                                 "     the year associated with the author <1900> must be the same as the "
                                 "actual publication year "
                                 "<1950>",
                                 "Publications: ID = <3> PUBID = <3>  Publication = <Book 3>  Title = <>",
                                 "     more than one publication record marked as the original descriptor"}));
}

class PlantDescription : public PlantValidationTest {};

TEST_F(PlantDescription, IsOfTheAuthorsYearForPlantsToo) {
    Unrefer(3);
    Run("UPDATE qb_publications SET actual_pub_date = '01/01/1901'");
    Refer(3, "PUB", 1, true);
    EXPECT_EQ(Validate(),
              Lines({"Publications: ID = <3> PUBID = <1>  Publication = <Journal>  Title = <Moths>",
                     "     the year associated with the author <1900> must be the same as the actual "
                     "publication year <1901>"}));
}

}  // namespace

}  // namespace quillon::validation
