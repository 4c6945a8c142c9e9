// The queries that add a row: the whole row after each, once with everything given and once with nothing but
// Nulls.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class InsertQueries : public QueryTest {
protected:
    std::string All(const std::string& table) { return Dump("SELECT * FROM " + table); }
};

TEST_F(InsertQueries, Authors) {
    EXPECT_EQ(Run("Import Author", {{"author", "Gray"}, {"aid", 900}, {"kingdom", 5}}), 1);
    EXPECT_EQ(Run("Insert Author", {{"author", " Ångström "}, {"kingdom", 3}}), 1);
    EXPECT_EQ(Run("Insert Author", {}), 1);
    EXPECT_EQ(Run("Import Author", {}), 1);
    EXPECT_EQ(All("qb_taxon_authors_lookup"),
              "1\t900\tGray\t5\n2\t\\N\t Ångström \t3\n3" + Nulls(3) + "\n4" + Nulls(3) + "\n");
}

TEST_F(InsertQueries, Comments) {
    Run("Insert Comment", {{"comid", 7}, {"com", "Ann"}, {"detail", "Fine"}, {"ts", "2001-01-01"}});
    Run("Insert Comment", {});
    Run("Insert Com Dummy", {{"com", "comment 5"}});
    EXPECT_EQ(All("qb_comments"),
              "1\t7\tAnn\tFine\t2001-01-01\n2" + Nulls(4) + "\n3\t\\N\tcomment 5" + Nulls(2) + "\n");
    Run("Insert Comment Link", {{"qbid", 1}, {"commentid", 3}, {"tsn", 10}, {"comID", 7}});
    Run("Insert Comment Link", {{"qbid", 2}, {"commentid", 3}});
    EXPECT_EQ(All("qb_tu_comments_link"), "1\t3\t10\t7\n2\t3" + Nulls(2) + "\n");
    EXPECT_EQ(NumberOf([&] { Run("Insert Comment Link", {{"qbid", 2}}); }), 3314);
}

TEST_F(InsertQueries, DistributionAndNumbersOfATaxon) {
    Run("Insert Division", {{"qbid", 1}, {"division", "Asia"}, {"thetsn", 10}});
    Run("Insert Division", {{"qbid", 1}, {"division", "Africa"}});
    EXPECT_EQ(All("qb_geographic_division"), "1\tAfrica\t\\N\n1\tAsia\t10\n");
    Run("Insert Jurisdiction", {{"qbid", 1}, {"jurisdiction", "Guam"}, {"origin", "Native"}, {"thetsn", 10}});
    Run("Insert Jurisdiction", {{"qbid", 1}, {"jurisdiction", "Alaska"}});
    EXPECT_EQ(All("qb_jurisdiction"), "1\tAlaska\t\\N\t\\N\n1\tGuam\tNative\t10\n");
    Run("Insert NODC", {{"qbid", 1}, {"nodcid", "123"}, {"thetsn", 10}});
    Run("Insert NODC", {{"qbid", 2}, {"nodcid", "123"}});
    EXPECT_EQ(All("qb_nodc_ids"), "123\t1\t10\n123\t2\t\\N\n");
    Run("Insert Synonym", {{"qbid", 1}, {"synID", 2}, {"thetsn", 10}, {"tsnsyn", 20}});
    Run("Insert Synonym", {{"qbid", 1}, {"synID", 3}});
    EXPECT_EQ(All("qb_synonym_links"), "1\t2\t10\t20\n1\t3" + Nulls(2) + "\n");
}

TEST_F(InsertQueries, DocumentsHaveTheirPrefix) {
    Run("Insert Publication", {{"pubid", 11},
                               {"author", "Gray"},
                               {"ptitle", "On cats"},
                               {"name", "Annals"},
                               {"listdate", "1867"},
                               {"actdate", "1868"},
                               {"pub", "Taylor"},
                               {"location", "London"},
                               {"ibn", "i-1"},
                               {"isn", "s-1"},
                               {"pgs", "1-9"},
                               {"comment", "Good"}});
    Run("Insert Publication", {});
    Run("Insert Pub Dummy", {{"pub", "PUB 9"}});
    EXPECT_EQ(All("qb_publications"),
              "PUB\t1\t11\tGray\tOn cats\tAnnals\t1867\t1868\tTaylor\tLondon\ti-1\ts-1\t1-9\tGood\n"
              "PUB\t2" +
                  Nulls(12) + "\nPUB\t3" + Nulls(3) + "\tPUB 9" + Nulls(8) + "\n");
    Run("Insert Expert", {{"expid", 21}, {"exp", "Ann"}, {"comment", "cats"}});
    Run("Insert Expert", {});
    Run("Insert Exp Dummy", {{"exp", "EXP 9"}});
    EXPECT_EQ(All("qb_experts"), "EXP\t1\t21\tAnn\tcats\nEXP\t2" + Nulls(3) + "\nEXP\t3\t\\N\tEXP 9\t\\N\n");
    Run("Insert Other Source", {{"srcid", 31},
                                {"type", "website"},
                                {"src", "List"},
                                {"ver", "2"},
                                {"adate", "2001"},
                                {"comment", "ok"}});
    Run("Insert Other Source", {});
    Run("Insert Src Dummy", {{"src", "SRC 9"}});
    EXPECT_EQ(All("qb_other_sources"), "SRC\t1\t31\twebsite\tList\t2\t2001\tok\nSRC\t2" + Nulls(6) +
                                           "\nSRC\t3" + Nulls(2) + "\tSRC 9" + Nulls(3) + "\n");
}

// The change track is a text that goes into a number, the indicators are texts that go into Booleans.
TEST_F(InsertQueries, Links) {
    Run("Insert Reference Link", {{"qbid", 1},
                                  {"prefix", "PUB"},
                                  {"qbdocid", 2},
                                  {"tsn", 10},
                                  {"docid", 11},
                                  {"org", "True"},
                                  {"initial", "No"},
                                  {"track", "77"},
                                  {"vname", "cat"}});
    Run("Insert Reference Link",
        {{"qbid", 1}, {"prefix", "PUB"}, {"qbdocid", 3}, {"org", "0"}, {"initial", "-1"}});
    EXPECT_EQ(All("qb_reference_links"), "1\tPUB\t2\t10\t11\tTrue\tFalse\t77\tcat\n1\tPUB\t3" + Nulls(2) +
                                             "\tFalse\tTrue" + Nulls(2) + "\n");
    EXPECT_EQ(FailureOf([&] {
                  Run("Insert Reference Link", {{"qbid", 1},
                                                {"prefix", "PUB"},
                                                {"qbdocid", 4},
                                                {"org", "No"},
                                                {"initial", "No"},
                                                {"Track", "x"}});
              }),
              (Failure{3421, "Data type conversion error in the field 'qb_change_track_id'."}));
    Run("Insert VReference Link", {{"qbid", 1},
                                   {"qbvernid", 4},
                                   {"vernid", 40},
                                   {"prefix", "EXP"},
                                   {"qbdocid", 2},
                                   {"tsn", 10},
                                   {"docid", 21}});
    Run("Insert VReference Link", {{"qbid", 1}, {"qbvernid", 5}, {"prefix", "EXP"}, {"qbdocid", 2}});
    EXPECT_EQ(All("qb_vern_ref_links"), "1\t4\t40\tEXP\t2\t10\t21\t\\N\n1\t5\t\\N\tEXP\t2" + Nulls(3) + "\n");
}

// tsn, usage, uncertain_parent_ind and the like are parameters here, as there is no table to take fields
// from.
TEST_F(InsertQueries, Taxa) {
    Run("Insert Dummy", {{"name", "taxon 5"}});
    Run("Insert Taxon Data", {{"thetsn", 10},
                              {"ind1", "X"},
                              {"name1", "Mus"},
                              {"ind2", "x"},
                              {"name2", "novus"},
                              {"ind3", "ssp."},
                              {"name3", "minor"},
                              {"ind4", "var."},
                              {"name4", "albus"},
                              {"unnamed", "Y"},
                              {"usage", "invalid"},
                              {"reason", "synonym"},
                              {"credibility", "good"},
                              {"coverage", "full"},
                              {"current", "2001"},
                              {"phylo", 7},
                              {"ts", "2001-02-03 04:05:06"},
                              {"parenttsn", 20},
                              {"parent", 2},
                              {"author", 3},
                              {"hybrid", 4},
                              {"kingdom", 5},
                              {"rank", 240},
                              {"uncertain_parent_ind", "Yes"}});
    Run("Insert Taxon Data", {{"uncertain_parent_ind", "0"}});
    EXPECT_EQ(
        All("qb_taxonomic_units"),
        "2" + Nulls(2) + "\ttaxon 5" + Nulls(21) + "\n" +
            "3\t10\tX\tMus\tx\tnovus\tssp.\tminor\tvar.\talbus\tY\tinvalid\tsynonym\tgood\tfull\t2001\t7\t"
            "2001-02-03 04:05:06\t20\t2\t3\t4\t5\t240\tTrue\n" +
            "4" + Nulls(23) + "\tFalse\n");
    EXPECT_EQ(FailureOf([&] {
                  Run("Insert Taxon Data", {{"phylo", 256}});
              }),
              (Failure{3349, "Numeric field overflow in the field 'phylo_sort_sequence'."}));
}

TEST_F(InsertQueries, Vernaculars) {
    Run("Insert Vern Dummy", {{"name", "vernacular 5"}});
    Run("Insert Vernacular", {{"qbid", 1},
                              {"thetsn", 10},
                              {"vername", "Bär"},
                              {"hexvername", "42E472"},
                              {"lang", "German"},
                              {"approved", "True"},
                              {"qbvernid", 8},
                              {"vernid", 80}});
    Run("Insert Vernacular", {{"approved", "False"}});
    EXPECT_EQ(
        Dump("SELECT qb_id, qb_vern_id, vern_id, vernacular_name, tsn, language, hex_vernacular_name FROM "
             "qb_vernaculars"),
        "\\N\t1\t\\N\tvernacular 5" + Nulls(3) + "\n1\t8\t80\tBär\t10\tGerman\t42E472\n\\N\t9" + Nulls(5) +
            "\n");
    EXPECT_EQ(Dump("SELECT approved_ind FROM qb_vernaculars WHERE qb_vern_id > 1"), "True\nFalse\n");
}

}  // namespace
}  // namespace quillon::store
