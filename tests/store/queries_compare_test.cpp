// The queries of the compare: name lines of both sides, what has no partner, and what has one.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class CompareQueries : public QueryTest {
protected:
    CompareQueries() {
        for (const TableSpec& table : DataSetTables())
            if (table.temporary) db().AppendTable(TableDefOf(table));
        AddAuthor(1, "Linnaeus");
        AddAuthor(3, "");
        AddTaxon({.qb_id = 1});
        AddTaxon(
            {.qb_id = 2, .name1 = "Canis", .name2 = "lupus", .usage = "valid", .author = 1, .rank = 220});
        AddTaxon({.qb_id = 3,
                  .ind1 = "X",
                  .name1 = "Canis",
                  .ind2 = "x",
                  .name2 = "niger",
                  .ind3 = "ssp.",
                  .name3 = "minor",
                  .ind4 = "var.",
                  .name4 = "albus",
                  .usage = "invalid",
                  .author = 3,
                  .rank = 230});
        AddTaxon({.qb_id = 4, .name1 = "Vulpes", .usage = "valid", .author = 9, .rank = 99});
        AddTaxon({.qb_id = 5, .name1 = "Vulpes", .usage = "valid"});  // the same line again

        AddAuthor(5, "LINNAEUS", "authors");
        AddAuthor(6, "Frisch", "authors");
        Theirs({.qb_id = 1});
        Theirs(
            {.qb_id = 2, .name1 = "canis", .name2 = "LUPUS", .usage = "accepted", .author = 5, .rank = 220});
        Theirs({.qb_id = 3, .name1 = "Vulpes", .author = 6, .rank = 180});
        Theirs({.qb_id = 4,
                .name1 = "Alopex",
                .name2 = "lagopus",
                .name3 = "a",
                .name4 = "z",
                .usage = "valid"});
        Theirs({.qb_id = 5,
                .name1 = "Alopex",
                .name2 = "lagopus",
                .name3 = "b",
                .name4 = "y",
                .usage = "valid"});
    }
    void Theirs(const TaxonRow& taxon) { AddTaxon(taxon, "taxunits"); }

    const std::string none = Nulls(4) + "\n";
    const std::string wolf = "\tCanis\tlupus" + Nulls(2) + "\n",
                      theirWolf = "\tcanis\tLUPUS" + Nulls(2) + "\n";
    const std::string niger = "\tCanis\tniger\tminor\talbus\n", fox = "\tVulpes" + Nulls(3) + "\n";
    const std::string arcticA = "\tAlopex\tlagopus\ta\tz\n", arcticB = "\tAlopex\tlagopus\tb\ty\n";
    const std::string nigerLine = "X Canis x niger ssp. minor var. albus";
    const std::string lineA = " Alopex  lagopus  a  z", lineB = " Alopex  lagopus  b  y";
};

TEST_F(CompareQueries, BuildTheLinesOfTheNames) {
    EXPECT_EQ(Rows("BuildNameQBTaxonomicunits"), Blanks(7) + "\t" + Blanks(7) + "()" + none +
                                                     " Canis  lupus    \t Canis  lupus    (valid)" + wolf +
                                                     nigerLine + "\t" + nigerLine + "(invalid)" + niger +
                                                     " Vulpes      \t Vulpes      (valid)" + fox);
    EXPECT_EQ(Rows("BuildNameTaxunits"), Blanks(7) + "\t" + Blanks(7) + "()" + none + lineA + "\t" + lineA +
                                             "(valid)" + arcticA + lineB + "\t" + lineB + "(valid)" +
                                             arcticB + " canis  LUPUS    \t canis  LUPUS    (accepted)" +
                                             theirWolf + " Vulpes      \t Vulpes      ()" + fox);
}

// Only the other side's shown line has no blank before the author.
TEST_F(CompareQueries, BuildTheLinesOfNamesAndAuthors) {
    EXPECT_EQ(Rows("BuildNameAuthorQBTaxonomicunits"),
              Blanks(8) + "\t" + Blanks(8) + "()" + none +
                  " Canis  lupus     Linnaeus\t Canis  lupus     Linnaeus(valid)" + wolf + nigerLine + " \t" +
                  nigerLine + " (invalid)" + niger + " Vulpes       \t Vulpes       (valid)" + fox);
    EXPECT_EQ(Rows("BuildNameAuthorTaxunits"),
              Blanks(8) + "\t" + Blanks(7) + "()" + none + lineA + " \t" + lineA + "(valid)" + arcticA +
                  lineB + " \t" + lineB + "(valid)" + arcticB +
                  " canis  LUPUS     LINNAEUS\t canis  LUPUS    LINNAEUS(accepted)" + theirWolf +
                  " Vulpes       Frisch\t Vulpes      Frisch()" + fox);
}

TEST_F(CompareQueries, BuildTheLinesOfNamesAuthorsAndRanks) {
    EXPECT_EQ(Rows("BuildNameAuthorRankQBTaxonomicunits"),
              Blanks(9) + "\t" + Blanks(10) + "()" + none +
                  " Canis  lupus     Linnaeus Species\t Canis  lupus     Linnaeus Species (valid)" + wolf +
                  nigerLine + "  Subspecies\t" + nigerLine + "  Subspecies (invalid)" + niger + " Vulpes" +
                  Blanks(8) + "\t Vulpes" + Blanks(9) + "(valid)" + fox);
    EXPECT_EQ(Rows("BuildNameAuthorRankTaxunits"),
              Blanks(9) + "\t" + Blanks(10) + "()" + none + lineA + "  \t" + lineA + "   (valid)" + arcticA +
                  lineB + "  \t" + lineB + "   (valid)" + arcticB +
                  " canis  LUPUS     LINNAEUS Species\t canis  LUPUS     LINNAEUS Species (accepted)" +
                  theirWolf + " Vulpes       Frisch Genus\t Vulpes       Frisch Genus ()" + fox);
}

// "Get NoMatch1" asks for a partner that differs from the line it was joined by.
TEST_F(CompareQueries, TheFirstNonMatchGivesNothingEver) {
    EXPECT_EQ(Rows("Get NoMatch1"), "");
    Execute("DELETE * FROM taxunits");
    EXPECT_EQ(Rows("Get NoMatch1"), "");
}

TEST_F(CompareQueries, NamesOfTheOtherSideWithoutAPartner) {
    EXPECT_EQ(Rows("Get NoMatch2"),
              lineA + "\t" + lineA + "(valid)" + arcticA + lineB + "\t" + lineB + "(valid)" + arcticB);
}

TEST_F(CompareQueries, NamesAndAuthorsWithoutAPartner) {
    EXPECT_EQ(Rows("Get NoMatch3"), nigerLine + " \t" + nigerLine + " (invalid)" + niger +
                                        " Vulpes       \t Vulpes       (valid)" + fox);
    // Sorted without the third unit.
    EXPECT_EQ(Rows("Get NoMatch4"), lineB + " \t" + lineB + "(valid)\t\\N" + arcticB + lineA + " \t" + lineA +
                                        "(valid)\t\\N" + arcticA +
                                        " Vulpes       Frisch\t Vulpes      Frisch()\t\\N" + fox);
    const auto rows = db().CreateSnapshot("Get NoMatch4");
    EXPECT_EQ(rows->Get("BuildNameAuthorTaxunits.Line"), Value(lineB + " "));
    EXPECT_TRUE(rows->Get("BuildNameAuthorQBTaxonomicunits.Line").IsNull());
}

TEST_F(CompareQueries, NamesAuthorsAndRanksWithoutAPartner) {
    EXPECT_EQ(Rows("Get NoMatch5"), nigerLine + "  Subspecies\t" + nigerLine + "  Subspecies (invalid)" +
                                        niger + " Vulpes" + Blanks(8) + "\t Vulpes" + Blanks(9) + "(valid)" +
                                        fox);
    EXPECT_EQ(Rows("Get NoMatch6"), lineB + "  \t" + lineB + "   (valid)\t\\N" + arcticB + lineA + "  \t" +
                                        lineA + "   (valid)\t\\N" + arcticA +
                                        " Vulpes       Frisch Genus\t Vulpes       Frisch Genus ()\t\\N" +
                                        fox);
    const auto rows = db().CreateSnapshot("Get NoMatch6");
    EXPECT_EQ(rows->Get("BuildNameAuthorRankTaxunits.Line"), Value(lineB + "  "));
    EXPECT_TRUE(rows->Get("BuildNameAuthorRankQBTaxonomicunits.Line").IsNull());
}

TEST_F(CompareQueries, NamesThatMatch) {
    const std::string blank = Blanks(7) + "()\t" + Blanks(7) + "()" + none;
    EXPECT_EQ(Rows("Taxmatch Name"), blank + " Canis  lupus    (valid)\t canis  LUPUS    (accepted)" + wolf +
                                         " Vulpes      (valid)\t Vulpes      ()" + fox);
    EXPECT_EQ(Rows("Taxmatch Name/Author"),
              Blanks(8) + "()\t" + Blanks(7) + "()" + none +
                  " Canis  lupus     Linnaeus(valid)\t canis  LUPUS    LINNAEUS(accepted)" + wolf);
    EXPECT_EQ(
        Rows("Taxmatch Name/Author/Rank"),
        Blanks(10) + "()\t" + Blanks(10) + "()" + none +
            " Canis  lupus     Linnaeus Species (valid)\t canis  LUPUS     LINNAEUS Species (accepted)" +
            wolf);
}

TEST_F(CompareQueries, NeedTheTemporaryTables) {
    db().DeleteTable("taxunits");
    EXPECT_EQ(FailureOf([&] { Rows("Get NoMatch2"); }).number, 3078);
    EXPECT_EQ(Rows("BuildNameQBTaxonomicunits").substr(0, 7), Blanks(7));
}

}  // namespace
}  // namespace quillon::store
