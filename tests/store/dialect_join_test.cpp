// Joins, sub-selects, queries over queries, and parameters.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

// Three taxa and two authors: 1 by author 7, 2 by none, 3 by an author who is gone; author 8 wrote nothing.
class DialectJoin : public StoreTest {
protected:
    DialectJoin() {
        Execute("DELETE * FROM qb_taxonomic_units");
        Author(7, "Adams");
        Author(8, "Brown");
        Taxon(1, "Aa", 7);
        Taxon(2, "Bb", Value());
        Taxon(3, "Cc", 9);
    }
    void Author(int id, const char* name) {
        db().CreateQueryDef("",
                            "PARAMETERS i Long, n Text; INSERT INTO qb_taxon_authors_lookup "
                            "(qb_taxon_author_id, taxon_author) VALUES (i, n)")
            .Set("i", id)
            .Set("n", name)
            .Execute();
    }
    void Taxon(int id, const char* name, const Value& author) {
        db().CreateQueryDef("",
                            "PARAMETERS i Long, n Text, a Long; INSERT INTO qb_taxonomic_units "
                            "(qb_id, unit_name1, qb_taxon_author_id, rank_id, kingdom_id) "
                            "VALUES (i, n, a, 220, 5)")
            .Set("i", id)
            .Set("n", name)
            .Set("a", author)
            .Execute();
    }
};

TEST_F(DialectJoin, AnInnerJoinGivesOnlyPairs) {
    EXPECT_EQ(Dump("SELECT t.qb_id, a.taxon_author FROM qb_taxonomic_units AS t INNER JOIN "
                   "qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id"),
              "1\tAdams\n");
}

TEST_F(DialectJoin, ALeftJoinKeepsTheLeftSide) {
    EXPECT_EQ(
        Dump("SELECT t.qb_id, a.taxon_author FROM qb_taxonomic_units AS t LEFT JOIN "
             "qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id ORDER BY t.qb_id"),
        "1\tAdams\n2\t\\N\n3\t\\N\n");
}

TEST_F(DialectJoin, ARightJoinKeepsTheRightSide) {
    EXPECT_EQ(Dump("SELECT t.qb_id, a.taxon_author FROM qb_taxonomic_units AS t RIGHT JOIN "
                   "qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
                   "ORDER BY a.taxon_author"),
              "1\tAdams\n\\N\tBrown\n");
}

TEST_F(DialectJoin, JoinsNestInParentheses) {
    EXPECT_EQ(
        Dump(
            "SELECT t.qb_id, r.rank_name, a.taxon_author FROM (taxonomic_unit_types AS r RIGHT JOIN "
            "qb_taxonomic_units AS t ON (r.rank_id = t.rank_id) AND (r.kingdom_id = t.kingdom_id)) LEFT JOIN "
            "qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id ORDER BY t.qb_id"),
        "1\tSpecies\tAdams\n2\tSpecies\t\\N\n3\tSpecies\t\\N\n");
    // The group stands on the right: an author without a taxon stays, a taxon without an author does not come
    // in.
    EXPECT_EQ(Dump("SELECT a.taxon_author, t.qb_id, r.rank_name FROM qb_taxon_authors_lookup AS a LEFT JOIN "
                   "(qb_taxonomic_units AS t INNER JOIN taxonomic_unit_types AS r ON t.rank_id = r.rank_id) "
                   "ON a.qb_taxon_author_id = t.qb_taxon_author_id ORDER BY a.taxon_author"),
              "Adams\t1\tSpecies\nBrown\t\\N\t\\N\n");
    EXPECT_EQ(Dump("SELECT a.taxon_author, t.qb_id FROM qb_taxon_authors_lookup AS a INNER JOIN "
                   "(qb_taxonomic_units AS t LEFT JOIN qb_nodc_ids AS n ON t.qb_id = n.qb_id) "
                   "ON a.qb_taxon_author_id = t.qb_taxon_author_id"),
              "Adams\t1\n");
}

TEST_F(DialectJoin, TablesInAListGiveAllCombinations) {
    EXPECT_EQ(
        Dump("SELECT t.qb_id, a.taxon_author FROM qb_taxonomic_units AS t, qb_taxon_authors_lookup AS a "
             "WHERE t.qb_id < 3 ORDER BY t.qb_id, a.taxon_author"),
        "1\tAdams\n1\tBrown\n2\tAdams\n2\tBrown\n");
}

TEST_F(DialectJoin, JoinsOverTextsUseTheCollation) {
    AddWords();
    AddWord("AA ");
    EXPECT_EQ(
        Dump("SELECT t.qb_id FROM qb_taxonomic_units AS t INNER JOIN words ON t.unit_name1 = words.word"),
        "1\n");
}

TEST_F(DialectJoin, DistinctRowFoldsRowsOfTheTablesThatAreShown) {
    Taxon(4, "Dd", 7);
    const std::string from =
        " qb_taxon_authors_lookup.taxon_author FROM qb_taxon_authors_lookup INNER JOIN qb_taxonomic_units ON "
        "qb_taxon_authors_lookup.qb_taxon_author_id = qb_taxonomic_units.qb_taxon_author_id";
    EXPECT_EQ(Dump("SELECT" + from), "Adams\nAdams\n");
    EXPECT_EQ(Dump("SELECT DISTINCTROW" + from), "Adams\n");
    // Two authors of one name are two rows, unlike with DISTINCT.
    Author(10, "Adams");
    Taxon(5, "Ee", 10);
    EXPECT_EQ(Dump("SELECT DISTINCTROW" + from), "Adams\nAdams\n");
    EXPECT_EQ(Dump("SELECT DISTINCT" + from), "Adams\n");
}

TEST_F(DialectJoin, SubSelectsSeeTheRowAroundThem) {
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_taxon_author_id IN "
                   "(SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup)"),
              "Aa\n");
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units AS t WHERE t.qb_taxon_author_id NOT IN "
                   "(SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup)"),
              "Cc\n");
    EXPECT_EQ(Dump("SELECT a.taxon_author, (SELECT count(*) FROM qb_taxonomic_units AS t WHERE "
                   "t.qb_taxon_author_id = a.qb_taxon_author_id) AS used FROM qb_taxon_authors_lookup AS a "
                   "ORDER BY a.taxon_author"),
              "Adams\t1\nBrown\t0\n");
}

TEST_F(DialectJoin, QueriesSelectFromQueries) {
    db().CreateQueryDef("named", "SELECT qb_id AS id, unit_name1 & '!' AS shout FROM qb_taxonomic_units");
    db().CreateQueryDef("later ones", "SELECT id, shout FROM named WHERE id > 1");
    EXPECT_EQ(Dump("SELECT shout FROM [later ones] ORDER BY shout DESC"), "Cc!\nBb!\n");
    EXPECT_EQ(Dump("SELECT a.shout, b.shout FROM named AS a INNER JOIN [later ones] AS b ON a.id = b.id "
                   "ORDER BY a.id"),
              "Bb!\tBb!\nCc!\tCc!\n");
    const auto rows =
        db().CreateSnapshot("SELECT a.shout, b.shout FROM named AS a INNER JOIN named AS b ON a.id = b.id");
    EXPECT_EQ(rows->ColumnName(0), "a.shout");
    EXPECT_EQ(rows->ColumnName(1), "b.shout");
}

TEST_F(DialectJoin, AQueryThatIsSelectedFromKeepsItsParameters) {
    db().CreateQueryDef("above",
                        "PARAMETERS least Long; SELECT qb_id, unit_name1 FROM qb_taxonomic_units "
                        "WHERE qb_id >= least");
    QueryDef query =
        db().CreateQueryDef("", "PARAMETERS most Long; SELECT unit_name1 FROM above WHERE qb_id <= most");
    EXPECT_EQ(query.Parameters(), (std::vector<std::string>{"most", "least"}));
    EXPECT_EQ(testkit::DumpRows(*query.Set("least", 2).Set("most", 2).CreateSnapshot()), "Bb\n");
}

TEST_F(DialectJoin, ParametersAreBoundByNameWithoutRegardToCase) {
    QueryDef query = db().CreateQueryDef("",
                                         "PARAMETERS theQbId Long; SELECT unit_name1 FROM qb_taxonomic_units "
                                         "WHERE qb_id = THEQBID");
    EXPECT_EQ(testkit::DumpRows(*query.Set("theQBID", 3).CreateSnapshot()), "Cc\n");
    EXPECT_EQ(FailureOf([&] { query.Set("qbid", 3); }),
              (Failure{3265, "The query '' has no parameter 'qbid'."}));
}

TEST_F(DialectJoin, AParameterThatIsNotSetIsNull) {
    QueryDef query =
        db().CreateQueryDef("",
                            "PARAMETERS x Long, y Text; SELECT unit_name1 FROM qb_taxonomic_units "
                            "WHERE qb_id = x or (y Is Null and qb_id = 2)");
    EXPECT_EQ(testkit::DumpRows(*query.CreateSnapshot()), "Bb\n");
    EXPECT_EQ(testkit::DumpRows(*query.Set("x", 1).Set("y", "no").CreateSnapshot()), "Aa\n");
}

TEST_F(DialectJoin, ATextForALongParameterHasToBeANumber) {
    QueryDef query = db().CreateQueryDef("",
                                         "PARAMETERS x Long; SELECT unit_name1 FROM qb_taxonomic_units "
                                         "WHERE qb_id = x");
    EXPECT_EQ(testkit::DumpRows(*query.Set("x", "2").CreateSnapshot()), "Bb\n");
    EXPECT_EQ(FailureOf([&] { query.Set("x", "two").CreateSnapshot(); }),
              (Failure{3421, "Data type conversion error in the parameter 'x'."}));
}

TEST_F(DialectJoin, AFieldHidesAParameterOfItsName) {
    QueryDef query = db().CreateQueryDef("",
                                         "PARAMETERS qb_id Long; SELECT unit_name1 FROM qb_taxonomic_units "
                                         "WHERE qb_id = qb_id ORDER BY unit_name1");
    EXPECT_EQ(testkit::DumpRows(*query.Set("qb_id", 2).CreateSnapshot()), "Aa\nBb\nCc\n");
}

TEST_F(DialectJoin, AnActionWithParametersRunsAsTextWithAllOfThemNull) {
    const char* sql = "PARAMETERS x Long; DELETE * FROM qb_taxonomic_units WHERE qb_id = x";
    EXPECT_EQ(db().CreateQueryDef("", sql).Set("x", 1).Execute(), 1);
    EXPECT_EQ(Execute(sql), 0);
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "2\n3\n");
}

}  // namespace
}  // namespace quillon::store
