// The queries that compose names, on rows with Nulls in every place.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class NameQueries : public QueryTest {
protected:
    NameQueries() {
        AddAuthor(1, "Linnaeus, 1758");
        AddAuthor(2, "");
        AddTaxon({.qb_id = 1});
        AddTaxon({.qb_id = 2, .ind1 = "X", .usage = "valid", .author = 1});
        AddTaxon({.qb_id = 3, .name2 = "lupus", .name4 = "ater", .usage = "invalid", .author = 2});
        AddTaxon({.qb_id = 4, .name1 = "Canis"});
        AddTaxon({.qb_id = 5,
                  .ind1 = "X",
                  .name1 = "Mus",
                  .ind2 = "X",
                  .name2 = "novus",
                  .ind3 = "subsp.",
                  .name3 = "minor",
                  .ind4 = "var.",
                  .name4 = "albus",
                  .usage = "valid",
                  .author = 1});
        AddTaxon({.qb_id = 6, .name1 = "Mus", .name2 = "novus", .ind3 = "x", .name3 = "rex", .author = 99});
    }
};

TEST_F(NameQueries, TheListOfAllNames) {
    EXPECT_EQ(Rows("Get Data"), "1" + Nulls(5) + "\t ()\n" +                                           //
                                    "2" + Nulls(4) + "\tLinnaeus, 1758\tX Linnaeus, 1758 (valid)\n" +  //
                                    "3\t\\N\tlupus\t\\N\tater\t\\N\tlupus ater (invalid)\n" +          //
                                    "4\tCanis" + Nulls(4) + "\tCanis ()\n" +                           //
                                    "5\tMus\tnovus\tminor\talbus\tLinnaeus, 1758\t"
                                    "X Mus X novus subsp. minor var. albus Linnaeus, 1758 (valid)\n"
                                    "6\tMus\tnovus\trex\t\\N\t\\N\tMus novus x rex ()\n");
}

// No indicators but a third one that is X, which stands against the name behind it.
TEST_F(NameQueries, TheListOfAllAnimals) {
    EXPECT_EQ(Rows("Get Animal Data"), "1" + Nulls(5) + "\t ()\n" +  //
                                           "2" + Nulls(4) +
                                           "\tLinnaeus, 1758\t Linnaeus, 1758 (valid)\n" +             //
                                           "3\t\\N\tlupus\t\\N\tater\t\\N\tlupus ater  (invalid)\n" +  //
                                           "4\tCanis" + Nulls(4) + "\tCanis ()\n" +                    //
                                           "5\tMus\tnovus\tminor\talbus\tLinnaeus, 1758\t"
                                           "Mus novus minor albus Linnaeus, 1758 (valid)\n"
                                           "6\tMus\tnovus\trex\t\\N\t\\N\tMus novus xrex ()\n");
}

TEST_F(NameQueries, BlanksRoundNamesAndAuthorsAreTrimmedAtTheEndsOnly) {
    Execute("DELETE * FROM qb_taxonomic_units");
    AddAuthor(3, " Gray ");
    AddTaxon({.qb_id = 7, .name1 = " Mus ", .name2 = "a", .usage = "valid", .author = 3});
    EXPECT_EQ(Dump("SELECT line FROM [Get Data]"), "Mus a Gray (valid)\n");
    EXPECT_EQ(Dump("SELECT line FROM [Get Animal Data]"), "Mus a Gray (valid)\n");
}

TEST_F(NameQueries, AcceptedNamesOfTheStoredQuery) {
    EXPECT_EQ(Rows("Get Accepted Names"), "");
    Execute("UPDATE qb_taxonomic_units SET rank_id = 0");
    EXPECT_EQ(Rows("Get Accepted Names"),
              "\\N\t2\tX Linnaeus, 1758\nMus\t5\tX Mus X novus subsp. minor var. albus "
              "Linnaeus, 1758\n");
    Execute("UPDATE qb_taxonomic_units SET usage = 'ACCEPTED'");
    EXPECT_EQ(Dump("SELECT qb_id, line FROM [Get Accepted Names] ORDER BY qb_id"),
              "1\t\n2\tX Linnaeus, 1758\n3\tlupus ater\n4\tCanis\n"
              "5\tX Mus X novus subsp. minor var. albus Linnaeus, 1758\n6\tMus novus x rex\n");
}

TEST_F(NameQueries, AcceptedNamesAsTheProgramCutsTheQuery) {
    Execute("UPDATE qb_taxonomic_units SET usage = 'accepted', rank_id = 220 WHERE qb_id > 3");
    const std::string sql = db().OpenQueryDef("Get Accepted Names").SQL();
    const std::string cut = sql.substr(0, sql.find('0'));
    EXPECT_EQ(Dump(cut + "220 AND t.qb_id <> 5 ORDER BY t.unit_name1, t.unit_name2;"),
              "Canis\t4\tCanis\nMus\t6\tMus novus x rex\n");
}

TEST_F(NameQueries, ParentNamesEndInABlankEach) {
    Execute("UPDATE qb_taxonomic_units SET rank_id = 220, tsn = 50 WHERE qb_id Not In (1, 4)");
    EXPECT_EQ(Rows("Get Parent Names", {{"rank", 220}}),
              "2\t50\tX \n3\t50\tlupus ater \n5\t50\tX Mus X novus subsp. minor var. albus \n"
              "6\t50\tMus novus x rex \n");
    Execute("UPDATE qb_taxonomic_units SET rank_id = 20 WHERE qb_id = 1");
    EXPECT_EQ(Rows("Get Parent Names", {{"rank", 20}}), "1\t\\N\t\n");
    EXPECT_EQ(Rows("Get Parent Names", {{"rank", 10}}), "");
}

TEST_F(NameQueries, ANameIsCheckedByAllItsPartsWithoutBlanks) {
    const auto check = [&](const Value& name) { return Rows("Check Name", {{"thename", name}}); };
    EXPECT_EQ(check("Canis"), "4\n");
    EXPECT_EQ(check("cANIS  "), "4\n");
    EXPECT_EQ(check("XMusXnovussubsp.minorvar.albus Linnaeus, 1758"), "5\n");
    EXPECT_EQ(check("X Linnaeus, 1758"), "2\n");
    // An author without a name, and one who is not there, leave a blank at the end, which does not count.
    EXPECT_EQ(check("lupusater"), "3\n");
    EXPECT_EQ(check("Musnovusxrex"), "6\n");
    EXPECT_EQ(check("Canis "), "4\n");
    EXPECT_EQ(check(" Canis"), "");
    EXPECT_EQ(check(""), "1\n");
    EXPECT_EQ(check(Value()), "");
}

class SynonymQueries : public QueryTest {
protected:
    SynonymQueries() {
        AddAuthor(1, "Adams");
        AddTaxon({.qb_id = 1, .name1 = "Zeta", .author = 1});
        AddTaxon({.qb_id = 2, .name1 = "Beta", .name2 = "b", .author = 9});
        AddTaxon({.qb_id = 3, .ind1 = "X", .name1 = "Alpha"});
        Add("qb_synonym_links", {{"qb_id", 3}, {"qb_id_accepted", 1}, {"tsn_accepted", 100}});
        Add("qb_synonym_links", {{"qb_id", 3}, {"qb_id_accepted", 2}});
        Add("qb_synonym_links", {{"qb_id", 2}, {"qb_id_accepted", 1}});
        Add("qb_synonym_links", {{"qb_id", 3}, {"qb_id_accepted", 77}});  // there is no such taxon
        Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'synonym' WHERE qb_id = 2");
    }
};

TEST_F(SynonymQueries, AcceptedNamesOfASynonym) {
    EXPECT_EQ(Rows("Get Accepted Names of Synonym", {{"synonym_ID", 2}}),
              "1\t\\N\tZeta" + Nulls(6) + "\tAdams\t1\t\\N\n");
    std::string both = Rows("Get Accepted Names of Synonym", {{"Synonym_id", 3}});
    EXPECT_EQ(both, "1\t\\N\tZeta" + Nulls(6) + "\tAdams\t1\t100\n" + "2\t\\N\tBeta\t\\N\tb" + Nulls(5) +
                        "\t2\t\\N\n");
    EXPECT_EQ(Rows("Get Accepted Names of Synonym", {{"Synonym_id", 1}}), "");
    EXPECT_EQ(Rows("Get Accepted Names of Synonym"), "");
}

TEST_F(SynonymQueries, SynonymsOfAnAcceptedName) {
    EXPECT_EQ(Rows("Get Synonyms of Accepted Name", {{"Accepted_id", 1}}),
              "X\tAlpha" + Nulls(8) + "\t3\n" + "\\N\tBeta\t\\N\tb" + Nulls(5) + "\tsynonym\t2\n");
    EXPECT_EQ(Rows("Get Synonyms of Accepted Name", {{"Accepted_id", 3}}), "");
}

}  // namespace
}  // namespace quillon::store
