// The queries that change a row: the whole table after each; the row beside it stays.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class UpdateQueries : public QueryTest {
protected:
    std::string All(const std::string& table) { return Dump("SELECT * FROM " + table); }
};

TEST_F(UpdateQueries, AComment) {
    Add("qb_comments", {{"comment_id", 1}, {"commentator", "old"}});
    Add("qb_comments", {{"commentator", "other"}});
    EXPECT_EQ(Run("Update Comment",
                  {{"qbcomid", 1}, {"comid", 7}, {"com", "Ann"}, {"detail", "Fine"}, {"ts", "2001"}}),
              1);
    EXPECT_EQ(All("qb_comments"), "1\t7\tAnn\tFine\t2001\n2\t\\N\tother" + Nulls(2) + "\n");
    EXPECT_EQ(Run("Update Comment", {{"qbcomid", 1}}), 1);
    EXPECT_EQ(Run("Update Comment", {{"com", "nobody"}}), 0);
    EXPECT_EQ(All("qb_comments"), "1" + Nulls(4) + "\n2\t\\N\tother" + Nulls(2) + "\n");
}

TEST_F(UpdateQueries, AnExpert) {
    for (const char* expert : {"old", "other"})
        Add("qb_experts", {{"expert_id_prefix", "EXP"}, {"expert", expert}});
    EXPECT_EQ(Run("Update Expert", {{"qbexpid", 1}, {"expid", 21}, {"exp", "Ann"}, {"comment", "cats"}}), 1);
    EXPECT_EQ(All("qb_experts"), "EXP\t1\t21\tAnn\tcats\nEXP\t2\t\\N\tother\t\\N\n");
    EXPECT_EQ(Run("Update Expert", {{"qbexpid", 1}}), 1);
    EXPECT_EQ(All("qb_experts"), "EXP\t1" + Nulls(3) + "\nEXP\t2\t\\N\tother\t\\N\n");
}

TEST_F(UpdateQueries, AnotherSource) {
    for (const char* source : {"old", "other"})
        Add("qb_other_sources", {{"source_id_prefix", "SRC"}, {"source", source}});
    EXPECT_EQ(Run("Update Other Source", {{"qbsrcid", 1},
                                          {"srcid", 31},
                                          {"type", "website"},
                                          {"src", "List"},
                                          {"ver", "2"},
                                          {"adate", "2001"},
                                          {"comment", "ok"}}),
              1);
    const std::string other = "SRC\t2" + Nulls(2) + "\tother" + Nulls(3) + "\n";
    EXPECT_EQ(All("qb_other_sources"), "SRC\t1\t31\twebsite\tList\t2\t2001\tok\n" + other);
    EXPECT_EQ(Run("Update Other Source", {{"qbsrcid", 1}}), 1);
    EXPECT_EQ(All("qb_other_sources"), "SRC\t1" + Nulls(6) + "\n" + other);
}

TEST_F(UpdateQueries, APublication) {
    for (const char* title : {"old", "other"})
        Add("qb_publications", {{"publication_id_prefix", "PUB"}, {"title", title}});
    EXPECT_EQ(Run("Update Publication", {{"qbpubid", 1},
                                         {"pubid", 11},
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
                                         {"comment", "Good"}}),
              1);
    const std::string other = "PUB\t2" + Nulls(2) + "\tother" + Nulls(9) + "\n";
    EXPECT_EQ(All("qb_publications"),
              "PUB\t1\t11\tGray\tOn cats\tAnnals\t1867\t1868\tTaylor\tLondon\ti-1\ts-1\t1-9\tGood\n" + other);
    EXPECT_EQ(Run("Update Publication", {{"qbpubid", 1}}), 1);
    EXPECT_EQ(All("qb_publications"), "PUB\t1" + Nulls(12) + "\n" + other);
}

TEST_F(UpdateQueries, AReferenceLink) {
    for (const int document : {2, 3})
        Add("qb_reference_links", {{"qb_id", 1},
                                   {"qb_documentation_id_prefix", "PUB"},
                                   {"qb_documentation_id", document},
                                   {"tsn", 10},
                                   {"original_desc_ind", false},
                                   {"initial_orva_desc_ind", false}});
    EXPECT_EQ(Run("Update Reference Link", {{"qbid", 1},
                                            {"prefix", "pub"},
                                            {"qbdocid", 2},
                                            {"org", "Yes"},
                                            {"initial", "-1"},
                                            {"track", 77},
                                            {"vname", "cat"}}),
              1);
    EXPECT_EQ(
        Run("Update Reference Link", {{"qbid", 1}, {"prefix", "PUB"}, {"org", "Yes"}, {"initial", "Yes"}}),
        0);
    EXPECT_EQ(All("qb_reference_links"),
              "1\tPUB\t2\t10\t\\N\tTrue\tTrue\t77\tcat\n"
              "1\tPUB\t3\t10\t\\N\tFalse\tFalse\t\\N\t\\N\n");
}

TEST_F(UpdateQueries, ALinkOfAVernacularMovesToAnother) {
    for (const int vernacular : {4, 5})
        Add("qb_vern_ref_links", {{"qb_id", 1},
                                  {"qb_vern_id", vernacular},
                                  {"vern_id", 40},
                                  {"qb_documentation_id_prefix", "PUB"},
                                  {"qb_documentation_id", 2}});
    EXPECT_EQ(Run("Update Vern_Ref Link", {{"qbid", 1},
                                           {"prefix", "PUB"},
                                           {"qbdocid", 2},
                                           {"vern", "cat"},
                                           {"qbvernid", 6},
                                           {"oldqbvernid", 4}}),
              1);
    EXPECT_EQ(All("qb_vern_ref_links"),
              "1\t5\t40\tPUB\t2" + Nulls(3) + "\n1\t6\t40\tPUB\t2" + Nulls(2) + "\tcat\n");
    EXPECT_EQ(NumberOf([&] {
                  Run("Update Vern_Ref Link",
                      {{"qbid", 1}, {"prefix", "PUB"}, {"qbdocid", 2}, {"qbvernid", 5}, {"oldqbvernid", 6}});
              }),
              3022);
}

// The authority's number comes from the vernacular that the link moves to, which has to be one of the same
// taxon.
TEST_F(UpdateQueries, ALinkOfAVernacularStoresTheAuthoritysNumber) {
    Add("qb_vernaculars", {{"qb_id", 1}, {"qb_vern_id", 6}, {"vern_id", 60}});
    Add("qb_vernaculars", {{"qb_id", 1}, {"qb_vern_id", 7}});
    Add("qb_vernaculars", {{"qb_id", 2}, {"qb_vern_id", 8}, {"vern_id", 80}});
    for (const int document : {2, 3})
        Add("qb_vern_ref_links", {{"qb_id", 1},
                                  {"qb_vern_id", 4},
                                  {"vern_id", 40},
                                  {"qb_documentation_id_prefix", "PUB"},
                                  {"qb_documentation_id", document}});
    const auto move = [&](int from, int to) {
        return Run("Update VVern_Ref Link", {{"qbid", 1},
                                             {"prefix", "PUB"},
                                             {"qbdocid", 2},
                                             {"vern", "cat"},
                                             {"oldqbvernid", from},
                                             {"vernid", to}});
    };
    EXPECT_EQ(move(4, 6), 1);
    const std::string other = "1\t4\t40\tPUB\t3" + Nulls(3) + "\n";
    EXPECT_EQ(All("qb_vern_ref_links"), "1\t6\t60\tPUB\t2" + Nulls(2) + "\tcat\n" + other);
    EXPECT_EQ(move(6, 8), 0);
    EXPECT_EQ(move(6, 7), 1);
    EXPECT_EQ(All("qb_vern_ref_links"), "1\t7\t\\N\tPUB\t2" + Nulls(2) + "\tcat\n" + other);
}

TEST_F(UpdateQueries, ATaxon) {
    AddTaxon({.qb_id = 1, .name1 = "old", .usage = "valid", .rank = 220});
    AddTaxon({.qb_id = 2, .name1 = "other"});
    EXPECT_EQ(Run("Update Taxon Data", {{"qbid", 1},           {"thetsn", 10},
                                        {"ind1", "X"},         {"name1", "Mus"},
                                        {"ind2", "x"},         {"name2", "novus"},
                                        {"ind3", "ssp."},      {"name3", "minor"},
                                        {"ind4", "var."},      {"name4", "albus"},
                                        {"unnamed", "Y"},      {"use", "invalid"},
                                        {"reason", "synonym"}, {"credibility", "good"},
                                        {"coverage", "full"},  {"current", "2001"},
                                        {"phylo", 7},          {"ts", "2001-02-03 04:05:06"},
                                        {"parenttsn", 20},     {"parent", 2},
                                        {"author", 3},         {"hybrid", 4},
                                        {"kingdom", 5},        {"rank", 240},
                                        {"uncert_ind", "-1"}}),
              1);
    const std::string other = "2" + Nulls(2) + "\tother" + Nulls(21) + "\n";
    EXPECT_EQ(All("qb_taxonomic_units"),
              "1\t10\tX\tMus\tx\tnovus\tssp.\tminor\tvar.\talbus\tY\tinvalid\tsynonym\tgood\tfull\t2001\t7\t"
              "2001-02-03 04:05:06\t20\t2\t3\t4\t5\t240\tTrue\n" +
                  other);
    EXPECT_EQ(Run("Update Taxon Data", {{"qbid", 1}, {"uncert_ind", "No"}}), 1);
    EXPECT_EQ(All("qb_taxonomic_units"), "1" + Nulls(23) + "\tFalse\n" + other);
    EXPECT_EQ(NumberOf([&] {
                  Run("Update Taxon Data", {{"qbid", 1}, {"name1", std::string(36, 'a')}});
              }),
              3163);
    EXPECT_EQ(All("qb_taxonomic_units"), "1" + Nulls(23) + "\tFalse\n" + other);
}

// The taxon is declared and plays no part.
TEST_F(UpdateQueries, AVernacular) {
    Add("qb_vernaculars",
        {{"qb_id", 1}, {"vern_id", 40}, {"tsn", 10}, {"vernacular_name", "old"}, {"approved_ind", false}});
    Add("qb_vernaculars", {{"qb_id", 1}, {"vernacular_name", "other"}, {"approved_ind", false}});
    EXPECT_EQ(Run("Update Vernacular", {{"qbid", 99},
                                        {"vername", "Bär"},
                                        {"hexvername", "42E472"},
                                        {"lang", "German"},
                                        {"approved", "Yes"},
                                        {"qbvernid", 1}}),
              1);
    const std::string other = "1\t2\t\\N\tother" + Nulls(2) + "\tFalse\t\\N\n";
    EXPECT_EQ(All("qb_vernaculars"), "1\t1\t40\tBär\t10\tGerman\tTrue\t42E472\n" + other);
    EXPECT_EQ(Run("Update Vernacular", {{"qbvernid", 1}, {"approved", "False"}}), 1);
    EXPECT_EQ(All("qb_vernaculars"), "1\t1\t40\t\\N\t10\t\\N\tFalse\t\\N\n" + other);
}

}  // namespace
}  // namespace quillon::store
