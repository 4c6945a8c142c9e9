// The queries that read publications, experts, other sources and comments, and their links.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

// Documents 1 (full) and 2 (nothing but its prefix) of each kind; taxon 1 has links to all, taxon 2 to the
// first ones; its vernacular 4 has links to the second ones.
class DocumentQueries : public QueryTest {
protected:
    DocumentQueries() {
        Add("qb_publications", {{"publication_id_prefix", "PUB"},
                                {"publication_id", 11},
                                {"reference_author", "Gray"},
                                {"title", "On cats"},
                                {"publication_name", "Annals"},
                                {"listed_pub_date", "1867"},
                                {"actual_pub_date", "1868"},
                                {"publisher", "Taylor"},
                                {"pub_place", "London"},
                                {"isbn", "i-1"},
                                {"issn", "s-1"},
                                {"pages", "1-9"},
                                {"pub_comment", "Good"}});
        Add("qb_publications", {{"publication_id_prefix", "PUB"}});
        Add("qb_experts",
            {{"expert_id_prefix", "EXP"}, {"expert_id", 21}, {"expert", "Ann"}, {"exp_comment", "cats"}});
        Add("qb_experts", {{"expert_id_prefix", "EXP"}});
        Add("qb_other_sources", {{"source_id_prefix", "SRC"},
                                 {"source_id", 31},
                                 {"source_type", "website"},
                                 {"source", "List"},
                                 {"version", "2"},
                                 {"acquisition_date", "2001"},
                                 {"source_comment", "ok"}});
        Add("qb_other_sources", {{"source_id_prefix", "SRC"}});
        for (const char* prefix : {"PUB", "EXP", "SRC"}) {
            Link(1, prefix, 1, "cat", true);
            Link(1, prefix, 2, "", false);
            Link(2, prefix, 1, "", false);
            Add("qb_vern_ref_links", {{"qb_id", 2},
                                      {"qb_vern_id", 4},
                                      {"qb_documentation_id_prefix", prefix},
                                      {"qb_documentation_id", 2},
                                      {"vernacular_name", "puss"}});
        }
    }
    void Link(int qb_id, const char* prefix, int document, const char* vernacular, bool original) {
        Add("qb_reference_links", {{"qb_id", qb_id},
                                   {"qb_documentation_id_prefix", prefix},
                                   {"qb_documentation_id", document},
                                   {"original_desc_ind", original},
                                   {"initial_orva_desc_ind", false},
                                   {"vernacular_name", Value::TextOrNull(vernacular)}});
    }

    const std::string pub1 =
        "PUB\t1\t11\tGray\tOn cats\tAnnals\t1867\t1868\tTaylor\tLondon\ti-1\ts-1\t1-9\tGood";
    const std::string pub2 = "PUB\t2" + Nulls(12);
    const std::string exp1 = "EXP\t1\t21\tAnn\tcats", exp2 = "EXP\t2" + Nulls(3);
    const std::string src1 = "SRC\t1\t31\twebsite\tList\t2\t2001\tok", src2 = "SRC\t2" + Nulls(6);
};

TEST_F(DocumentQueries, AreReadWhole) {
    EXPECT_EQ(Rows("Get All Publications"), pub1 + "\n" + pub2 + "\n");
    EXPECT_EQ(Rows("Get All Experts"), exp1 + "\n" + exp2 + "\n");
    EXPECT_EQ(Rows("Get All Other Sources"), src1 + "\n" + src2 + "\n");
}

TEST_F(DocumentQueries, OfATaxon) {
    EXPECT_EQ(Rows("Get Publications", {{"qbid", 1}}), pub1 + "\tTrue\tcat\n" + pub2 + "\tFalse\t\\N\n");
    EXPECT_EQ(Rows("Get Experts", {{"QBid", 1}}), exp1 + "\tcat\n" + exp2 + "\t\\N\n");
    EXPECT_EQ(Rows("Get Other Sources", {{"QBid", 1}}), src1 + "\tcat\n" + src2 + "\t\\N\n");
    EXPECT_EQ(Rows("Get Publications", {{"QBid", 2}}), pub1 + "\tFalse\t\\N\n");
    EXPECT_EQ(Rows("Get Experts"), "");
    EXPECT_EQ(Rows("Get Other Sources", {{"QBid", 3}}), "");
}

TEST_F(DocumentQueries, OfTheVernacularsOfATaxon) {
    EXPECT_EQ(Rows("Get VPublications", {{"QBid", 2}}), pub2 + "\tpuss\t4\n");
    EXPECT_EQ(Rows("Get VExperts", {{"QBid", 2}}), exp2 + "\tpuss\t4\n");
    EXPECT_EQ(Rows("Get VOther Sources", {{"QBid", 2}}), src2 + "\tpuss\t4\n");
    EXPECT_EQ(Rows("Get VPublications", {{"QBid", 1}}), "");
}

TEST_F(DocumentQueries, LinksAreReadWhole) {
    const auto link = [](int qb_id, const char* prefix, int document, const char* original,
                         const char* vernacular) {
        return std::to_string(qb_id) + "\t" + prefix + "\t" + std::to_string(document) + Nulls(2) + "\t" +
               original + "\tFalse\t\\N\t" + vernacular + "\n";
    };
    const std::string ofTwo = link(2, "EXP", 1, "False", "\\N") + link(2, "PUB", 1, "False", "\\N") +
                              link(2, "SRC", 1, "False", "\\N");
    EXPECT_EQ(Rows("Get Reference Links", {{"qbid", 2}}), ofTwo);
    std::string ofOne;
    for (const char* prefix : {"EXP", "PUB", "SRC"})
        ofOne += link(1, prefix, 1, "True", "cat") + link(1, prefix, 2, "False", "\\N");
    EXPECT_EQ(Rows("Get All Reference Links"), ofOne + ofTwo);
    EXPECT_EQ(Rows("Get Reference Links"), "");
    EXPECT_EQ(Rows("Get VReference Links", {{"qbid", 2}, {"qbvernid", 4}}),
              "2\t4\t\\N\tEXP\t2" + Nulls(2) + "\tpuss\n2\t4\t\\N\tPUB\t2" + Nulls(2) +
                  "\tpuss\n2\t4\t\\N\tSRC\t2" + Nulls(2) + "\tpuss\n");
    EXPECT_EQ(Rows("Get VReference Links", {{"qbid", 2}, {"qbvernid", 5}}), "");
    EXPECT_EQ(Rows("Get VReference Links", {{"qbid", 2}}), "");
}

// A stored Null agrees with everything asked for; a Null that is asked for agrees with a stored Null alone.
TEST_F(DocumentQueries, APublicationIsFoundByAllItsFields) {
    Parameters full = {{"author", "GRAY"},     {"ptitle", "on cats"}, {"name", "Annals"},
                       {"listdate", "1867"},   {"actdate", "1868"},   {"pub", "Taylor"},
                       {"location", "London"}, {"ibn", "I-1"},        {"isn", "s-1"},
                       {"pgs", "1-9"},         {"comment", "good "}};
    EXPECT_EQ(Rows("Get Publication Data", full), pub1 + "\n" + pub2 + "\n");
    EXPECT_EQ(Rows("Get Publication ID", full), "1\t11\n2\t\\N\n");
    for (std::size_t i = 0; i < full.size(); ++i) {
        for (const Value& other : {Value("other"), Value()}) {
            Parameters changed = full;
            changed[i].second = other;
            EXPECT_EQ(Rows("Get Publication Data", changed), pub2 + "\n") << full[i].first;
            EXPECT_EQ(Rows("Get Publication ID", changed), "2\t\\N\n") << full[i].first;
        }
    }
}

TEST_F(DocumentQueries, AnExpertIsFoundByNameAndComment) {
    Add("qb_experts", {{"expert_id_prefix", "EXP"}, {"expert", "ANN"}});
    EXPECT_EQ(Rows("Get Expert IDS", {{"exp", "ann"}, {"comment", "Cats"}}), "1\t21\n3\t\\N\n");
    EXPECT_EQ(Rows("Get Expert IDS", {{"exp", "ann"}, {"comment", Value()}}), "3\t\\N\n");
    EXPECT_EQ(Rows("Get Expert ID", {{"exp", "ann"}, {"comment", "Cats"}}), "1\n3\n");
    EXPECT_EQ(Rows("Get Expert ID", {{"exp", Value()}, {"comment", "Cats"}}), "");
    EXPECT_EQ(Rows("Get Expert Comment", {{"exp", "Ann"}}), "cats\t1\t21\n\\N\t3\t\\N\n");
    EXPECT_EQ(Rows("Get Exp Dummy ID", {{"exp", "Ann"}}), "1\n3\n");
    EXPECT_EQ(Rows("Get Exp Dummy ID"), "");
}

TEST_F(DocumentQueries, AnotherSourceIsFoundByItsFields) {
    Add("qb_other_sources", {{"source_id_prefix", "SRC"}, {"source", "LIST"}});
    const Parameters full = {
        {"src", "list"}, {"type", "Website"}, {"ver", "2"}, {"adate", "2001"}, {"comment", "OK"}};
    EXPECT_EQ(Rows("Get Other Source ID", full), "1\n3\n");
    for (std::size_t i = 1; i < full.size(); ++i) {
        Parameters changed = full;
        changed[i].second = Value();
        EXPECT_EQ(Rows("Get Other Source ID", changed), "3\n") << full[i].first;
    }
    EXPECT_EQ(Rows("Get Other Source ID", {{"type", "website"}}), "");
    EXPECT_EQ(Rows("Get Source Data", {{"src", "LIST"}}),
              src1 + "\nSRC\t3" + Nulls(2) + "\tLIST" + Nulls(3) + "\n");
    EXPECT_EQ(Rows("Get Src Dummy ID", {{"src", "List"}}), "1\n3\n");
    EXPECT_EQ(Rows("Get Src Dummy ID"), "");
}

TEST_F(DocumentQueries, APlaceholderPublicationIsFoundByItsName) {
    EXPECT_EQ(Rows("Get Pub Dummy ID", {{"pub", "ANNALS"}}), "1\n");
    EXPECT_EQ(Rows("Get Pub Dummy ID"), "");
}

TEST_F(DocumentQueries, WhetherADocumentIsUsedElsewhere) {
    const auto check = [&](int qb_id, const char* prefix, int document) {
        return Rows("Check Reference Links", {{"qbid", qb_id}, {"prefix", prefix}, {"docid", document}});
    };
    EXPECT_EQ(check(2, "PUB", 1), "1\n");  // taxon 1 has it, too
    EXPECT_EQ(check(1, "PUB", 1), "1\n");  // taxon 2
    EXPECT_EQ(check(1, "pub", 2), "2\n");  // a vernacular
    EXPECT_EQ(check(3, "PUB", 9), "");
    Execute("DELETE * FROM qb_vern_ref_links");
    EXPECT_EQ(check(1, "PUB", 2), "");
}

TEST_F(DocumentQueries, WhetherADocumentOfAVernacularIsUsedElsewhere) {
    const auto check = [&](int qb_id, int vernacular) {
        return Rows("Check VReference Links",
                    {{"qbid", qb_id}, {"prefix", "PUB"}, {"docid", 2}, {"qbvernid", vernacular}});
    };
    EXPECT_EQ(check(2, 4), "2\n");  // taxon 1 has it
    Execute("DELETE * FROM qb_reference_links");
    EXPECT_EQ(check(2, 4), "");
    EXPECT_EQ(check(2, 5), "2\n");
    EXPECT_EQ(check(1, 4), "2\n");
    Add("qb_vern_ref_links",
        {{"qb_id", 3}, {"qb_vern_id", 6}, {"qb_documentation_id_prefix", "PUB"}, {"qb_documentation_id", 2}});
    EXPECT_EQ(check(2, 4), "2\n");
}

TEST_F(DocumentQueries, WhoUsesADocument) {
    EXPECT_EQ(Rows("Validate Reference Links", {{"prefix", "pub"}, {"docid", 1}}), "1\n2\n");
    EXPECT_EQ(Rows("Validate Reference Links", {{"prefix", "EXP"}, {"docid", 2}}), "1\n2\n");
    EXPECT_EQ(Rows("Validate Reference Links", {{"prefix", "EXP"}}), "");
}

class CommentQueries : public QueryTest {
protected:
    CommentQueries() {
        Add("qb_comments", {{"comment_id", 7},
                            {"commentator", "Ann"},
                            {"comment_detail", "Fine"},
                            {"comment_time_stamp", "2001-01-01"}});
        Add("qb_comments", {});
        Add("qb_comments", {{"commentator", "ANN"}});
        Add("qb_tu_comments_link", {{"qb_id", 1}, {"qb_comment_id", 1}, {"tsn", 10}, {"comment_id", 7}});
        Add("qb_tu_comments_link", {{"qb_id", 1}, {"qb_comment_id", 2}});
        Add("qb_tu_comments_link", {{"qb_id", 2}, {"qb_comment_id", 1}});
    }
};

TEST_F(CommentQueries, AreReadWholeAndByTaxon) {
    const std::string first = "1\t7\tAnn\tFine\t2001-01-01\n", second = "2" + Nulls(4) + "\n";
    EXPECT_EQ(Rows("Get All Comments"), first + second + "3\t\\N\tANN" + Nulls(2) + "\n");
    EXPECT_EQ(Rows("Get Comments", {{"qbid", 1}}), first + second);
    EXPECT_EQ(Rows("Get Comments", {{"qbid", 2}}), first);
    EXPECT_EQ(Rows("Get Comments"), "");
    EXPECT_EQ(Rows("Get Comment Links", {{"qbid", 1}}), "1\t1\t10\t7\n1\t2" + Nulls(2) + "\n");
    EXPECT_EQ(Rows("Get All Comment Links"), "1\t1\t10\t7\n1\t2" + Nulls(2) + "\n2\t1" + Nulls(2) + "\n");
}

TEST_F(CommentQueries, AreFoundByCommentatorAndText) {
    EXPECT_EQ(Rows("Get Comment ID", {{"com", "ann"}, {"detail", "FINE"}}), "1\n3\n");
    EXPECT_EQ(Rows("Get Comment ID", {{"com", "ann"}}), "3\n");
    EXPECT_EQ(Rows("Get Comment ID", {{"detail", "Fine"}}), "");
    EXPECT_EQ(Rows("Get Com Dummy ID", {{"com", "Ann"}}), "1\n3\n");
    EXPECT_EQ(Rows("Get Com Dummy ID"), "");
}

TEST_F(CommentQueries, AreCheckedForOtherUsers) {
    EXPECT_EQ(Rows("Check Comment Links", {{"qbid", 1}, {"comid", 1}}), "1\n");
    EXPECT_EQ(Rows("Check Comment Links", {{"qbid", 1}, {"comid", 2}}), "");
    EXPECT_EQ(Rows("Check Comment Links", {{"qbid", Value()}, {"comid", 1}}), "");
    EXPECT_EQ(Rows("Validate Comment Links", {{"comID", 1}}), "1\n2\n");
    EXPECT_EQ(Rows("Validate Comment Links", {{"comID", 3}}), "");
}

}  // namespace
}  // namespace quillon::store
