// The checks of authors, links, documents, vernaculars and jurisdictions.

#include "validation/table_checks.h"

#include "validation_fixture.h"

namespace quillon::validation {

namespace {

using TableChecks = ValidationTest;

// The findings of a rule on a row that no table would store.
class RowChecks : public ::testing::Test {
protected:
    template <typename Check>
    std::string LogOf(const Check& check) {
        ValidationLog log(state, [this](const Finding& finding) {
            if (!finding.heading.empty()) text += finding.heading + "\n";
            text += finding.message + "\n";
        });
        text.clear();
        log.BeginRecord();
        check(log);
        return text;
    }
    ApplicationState state;
    std::string text;
};

TEST_F(TableChecks, AuthorHasATextAndAKingdom) {
    Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id) VALUES (2)");
    Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (3, 'Jones')");
    EXPECT_EQ(Validate(), Lines({"Author ID = 2  Name = ", "     a taxon author is required",
                                 "     a kingdom is required", "Author ID = 3  Name = Jones",
                                 "     a kingdom is required"}));
}

TEST_F(RowChecks, ReferenceLinkHasAllOfItsKey) {
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckReferenceLink({}, log); }),
              "Reference Link:  QBID = <>  Prefix = <>  Document ID = <>\n"
              "     a qb_id is required\n"
              "     a documentation prefix is required\n"
              "     a documentation identifier is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckReferenceLink({3, "PUB", 1}, log); }), "");
}

TEST_F(RowChecks, ExpertGetsOneFindingAtATime) {
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckExpert({}, log); }),
              "Experts:  EXPID = <>  Expert = <>\n     an expert prefix is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) {
                  CheckExpert({"EXP", {}, {}}, log);
              }),
              "Experts:  EXPID = <>  Expert = <>\n     an expert identifier is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) {
                  CheckExpert({"EXP", 4, {}}, log);
              }),
              "Experts:  EXPID = <4>  Expert = <>\n     an expert is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckExpert({"EXP", 4, "Jones"}, log); }), "");
}

TEST_F(RowChecks, DocumentWithoutItsKeyGetsNoFurtherFinding) {
    const std::string source =
        "Other Sources:  SRCID = <>  Source = <>  Type = <>  Date = <>  Version = <>\n";
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckOtherSource({}, {}, log); }),
              source + "     a source prefix is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) {
                  CheckOtherSource({"SRC", {}, {}, {}, {}, {}}, {}, log);
              }),
              source + "     a source identifier is required\n");
    const std::string publication = "Publications:  PUBID = <>  Publication = <>  Title = <>\n";
    EXPECT_EQ(LogOf([](ValidationLog& log) { CheckPublication({}, {}, log); }),
              publication + "     a publication prefix is required\n");
    EXPECT_EQ(LogOf([](ValidationLog& log) {
                  CheckPublication({"PUB", {}, {}, {}, {}, {}}, {}, log);
              }),
              publication + "     a publication identifier is required\n");
}

TEST_F(TableChecks, ExpertIsRequired) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) VALUES ('EXP', 4)");
    EXPECT_EQ(Validate(), Lines({"Experts:  EXPID = <4>  Expert = <>", "     an expert is required"}));
}

TEST_F(TableChecks, OtherSourceGetsAFindingForEachMissingField) {
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) VALUES ('SRC', 5)");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_type, source, version, "
        "acquisition_date) "
        "VALUES ('SRC', 6, 'list', 'List', '1', '01/Fe/2000')");
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_type, source, version, "
        "acquisition_date) "
        "VALUES ('SRC', 7, 'list', 'List', '1', '01/02/2000')");
    EXPECT_EQ(
        Validate(),
        Lines({"Other Sources:  SRCID = <5>  Source = <>  Type = <>  Date = <>  Version = <>",
               "     a source type is required", "     a source is required",
               "     a source acquisition date is required", "     a source version is required",
               "Other Sources:  SRCID = <6>  Source = <List>  Type = <list>  Date = <01/Fe/2000>  Version = "
               "<1>",
               "     the acquisition date <01/Fe/2000> is not in the correct (dd/mm/yyyy) format (month "
               "incorrect)"}));
}

class Publications : public ValidationTest {
protected:
    std::string ValidateDates(std::string_view listed, std::string_view actual) {
        Run(fmt::format("UPDATE qb_publications SET listed_pub_date = {}, actual_pub_date = {}", listed,
                        actual));
        return Validate();
    }
    static std::string Finding(std::string_view message) {
        return Lines({"Publications:  PUBID = <1>  Publication = <Journal>  Title = <Moths>", message});
    }
};

TEST_F(Publications, HaveANameAndAnActualDate) {
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, title) VALUES ('PUB', 2, "
        "'Bees')");
    EXPECT_EQ(Validate(),
              Lines({"Publications:  PUBID = <2>  Publication = <>  Title = <Bees>",
                     "     a publication name is required", "     an actual_pub_date is required"}));
}

TEST_F(Publications, HaveGoodDates) {
    EXPECT_EQ(ValidateDates("'00/02/2000'", "'29/02/2000'"), "");
    EXPECT_EQ(ValidateDates("'1/2/2000'", "'29/02/2000'"),
              Finding("     the listed date <1/2/2000> is not in the correct (dd/mm/yyyy) format (Too many "
                      "characters)"));
    EXPECT_EQ(
        ValidateDates("Null", "'01/02/1757'"),
        Finding("     the actual date <01/02/1757> does not contain a valid year (1758-2024), format is "
                "dd/mm/yyyy"));
    EXPECT_EQ(
        ValidateDates("'30/02/2000'", "Null"),
        Lines({"Publications:  PUBID = <1>  Publication = <Journal>  Title = <Moths>",
               "     the listed date <30/02/2000> does not contain a valid day (01-29), format is dd/mm/yyyy",
               "     an actual_pub_date is required"}));
}

TEST_F(Publications, AreNotListedAfterTheyAppeared) {
    const std::string message =
        "     the actual publication date must be the same as or later than the listed publication date";
    EXPECT_EQ(ValidateDates("'01/02/2000'", "'01/02/2000'"), "");
    EXPECT_EQ(ValidateDates("'02/02/2000'", "'01/02/2000'"), Finding(message + "(02/02/2000 > 01/02/2000)"));
    EXPECT_EQ(ValidateDates("'01/02/2000'", "'01/02/2001'"), "");
}

class Vernaculars : public ValidationTest {
protected:
    void SetUp() override {
        ValidationTest::SetUp();
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
            "VALUES (3, 7, 'Beta moth', 'English', True)");
        Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 4, 'Jones')");
        Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_type, source, "
            "acquisition_date, "
            "version) VALUES ('SRC', 5, 'list', 'List', '01/02/2000', '1')");
    }
    void ReferName(int qb_id, int qb_vern_id, std::string_view name, std::string_view prefix, int document) {
        Run("DELETE * FROM qb_vern_ref_links");
        Run(
            fmt::format("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, vernacular_name, "
                        "qb_documentation_id_prefix, qb_documentation_id) VALUES ({}, {}, {}, '{}', {})",
                        qb_id, qb_vern_id, name, prefix, document));
    }
    static constexpr std::string_view kHeading =
        "Vernaculars:  QBID = <3> Vernacular Name = <Beta moth>  Language = <English>";
    static constexpr std::string_view kNoReference =
        "     a reference is required for an approved vernacular";
};

TEST_F(Vernaculars, ApprovedOneHasAReference) {
    EXPECT_EQ(Validate(), Lines({kHeading, kNoReference}));
    for (const auto& [prefix, id] : {std::pair("PUB", 1), std::pair("SRC", 5), std::pair("EXP", 4)}) {
        ReferName(3, 7, "'Beta moth'", prefix, id);
        EXPECT_EQ(Validate(), "") << prefix;
    }
}

TEST_F(Vernaculars, ReferenceOfAnotherNameDoesNotCount) {
    const std::string finding = Lines({kHeading, kNoReference});
    ReferName(3, 7, "'beta moth'", "PUB", 1);
    EXPECT_EQ(Validate(), finding);
    ReferName(3, 7, "'Other moth'", "PUB", 1);
    EXPECT_EQ(Validate(), finding);
    ReferName(3, 7, "Null", "PUB", 1);
    EXPECT_EQ(Validate(), finding);
    ReferName(2, 7, "'Beta moth'", "PUB", 1);
    EXPECT_EQ(Validate(), finding);
    ReferName(3, 7, "'Beta moth'", "PUB", 99);
    EXPECT_EQ(Validate(), finding);
}

TEST_F(Vernaculars, ReferenceIsFoundByTheNameAndNotByTheNumber) {
    ReferName(3, 99, "'Beta moth'", "PUB", 1);
    EXPECT_EQ(Validate(), "");
}

TEST_F(Vernaculars, UnapprovedOneNeedsNone) {
    for (const char* value : {"False", "Null"}) {
        Run(fmt::format("UPDATE qb_vernaculars SET approved_ind = {}", value));
        EXPECT_EQ(Validate(), "") << value;
    }
}

TEST_F(Vernaculars, HaveALanguage) {
    Run("UPDATE qb_vernaculars SET language = Null, approved_ind = False");
    EXPECT_EQ(Validate(), Lines({"Vernaculars:  QBID = <3> Vernacular Name = <Beta moth>  Language = <>",
                                 "     a language is required for a vernacular"}));
}

TEST_F(Vernaculars, AreVisitedInTheOrderOfTheirNumber) {
    ReferName(3, 7, "'Beta moth'", "PUB", 1);
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
        "VALUES (3, 6, 'Zeta moth', 'English', True)");
    Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vernacular_name, language, approved_ind) "
        "VALUES (2, 8, 'Alpha moth', 'English', True)");
    EXPECT_EQ(
        Validate(),
        Lines({"Vernaculars:  QBID = <3> Vernacular Name = <Zeta moth>  Language = <English>", kNoReference,
               "Vernaculars:  QBID = <2> Vernacular Name = <Alpha moth>  Language = <English>",
               kNoReference}));
}

TEST_F(TableChecks, JurisdictionHasAnOrigin) {
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) VALUES (3, 'Canada', 'Native')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Mexico')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (3, 'Alaska')");
    Run("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value) VALUES (99, 'Hawaii')");
    EXPECT_EQ(Validate(),
              Lines({"ID = 3  Name = Alpha beta", "     origin is required for jurisdiction 'Alaska'",
                     "ID = 3  Name = Alpha beta", "     origin is required for jurisdiction 'Mexico'",
                     "ID = 99  Name = ", "     origin is required for jurisdiction 'Hawaii'"}));
}

}  // namespace

}  // namespace quillon::validation
