// The queries that delete: what goes, and what stays.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class DeleteQueries : public QueryTest {
protected:
    // Rows 1 and 2 in a table whose key is one counted number.
    void AddTwo(std::string_view table) {
        Add(table, {});
        Add(table, {});
    }
    std::string Ids(const std::string& column, const std::string& table) {
        return Dump("SELECT " + column + " FROM " + table);
    }
};

TEST_F(DeleteQueries, RowsWithANumberOfTheirOwn) {
    struct Case {
        const char *query, *parameter, *table, *column;
    };
    for (const Case& one : {Case{"Delete Author", "author", "qb_taxon_authors_lookup", "qb_taxon_author_id"},
                            Case{"Delete Comment", "comID", "qb_comments", "qb_comment_id"},
                            Case{"Delete Vernacular", "qbvernid", "qb_vernaculars", "qb_vern_id"}}) {
        AddTwo(one.table);
        EXPECT_EQ(Run(one.query, {{one.parameter, Value()}}), 0) << one.query;
        EXPECT_EQ(Run(one.query, {{one.parameter, 9}}), 0) << one.query;
        EXPECT_EQ(Ids(one.column, one.table), "1\n2\n") << one.query;
        EXPECT_EQ(Run(one.query, {{one.parameter, 1}}), 1) << one.query;
        EXPECT_EQ(Ids(one.column, one.table), "2\n") << one.query;
    }
    AddTaxon({.qb_id = 1});
    AddTaxon({.qb_id = 2, .parent = 1});
    EXPECT_EQ(Run("Delete Taxon", {{"qbid", 1}}), 1);
    EXPECT_EQ(Ids("qb_id", "qb_taxonomic_units"), "2\n");
    EXPECT_EQ(Run("Delete Taxon", {}), 0);
}

// Documents go by their number, whatever their prefix.
TEST_F(DeleteQueries, Documents) {
    struct Case {
        const char *query, *parameter, *table, *prefix, *id;
    };
    for (const Case& one :
         {Case{"Delete Publication", "pubid", "qb_publications", "publication_id_prefix",
               "qb_publication_id"},
          Case{"Delete Expert", "expid", "qb_experts", "expert_id_prefix", "qb_expert_id"},
          Case{"Delete Source", "srcid", "qb_other_sources", "source_id_prefix", "qb_source_id"}}) {
        Add(one.table, {{one.prefix, "ABC"}, {one.id, 1}});
        Add(one.table, {{one.prefix, "XYZ"}, {one.id, 1}});
        Add(one.table, {{one.prefix, "ABC"}, {one.id, 2}});
        EXPECT_EQ(Run(one.query, {{one.parameter, Value()}}), 0) << one.query;
        EXPECT_EQ(Run(one.query, {{one.parameter, 1}}), 2) << one.query;
        EXPECT_EQ(Ids(one.id, one.table), "2\n") << one.query;
    }
}

TEST_F(DeleteQueries, AllRowsOfATaxon) {
    for (const int taxon : {1, 2}) {
        Add("qb_geographic_division", {{"qb_id", taxon}, {"geographic_value", "Asia"}});
        Add("qb_geographic_division", {{"qb_id", taxon}, {"geographic_value", "Africa"}});
        Add("qb_jurisdiction", {{"qb_id", taxon}, {"jurisdiction_value", "Guam"}});
        Add("qb_nodc_ids", {{"qb_id", taxon}, {"nodc_id", "N"}});
        Add("qb_synonym_links", {{"qb_id", taxon}, {"qb_id_accepted", 3 - taxon}});
    }
    EXPECT_EQ(Run("Delete Division Data", {{"qbid", 1}}), 2);
    EXPECT_EQ(Run("Delete Jurisdiction Data", {{"qbid", 1}}), 1);
    EXPECT_EQ(Run("Delete NODC Link", {{"qbid", 1}}), 1);
    EXPECT_EQ(Run("Delete Synonym Data", {{"qbid", 1}}), 1);
    EXPECT_EQ(Ids("qb_id, geographic_value", "qb_geographic_division"), "2\tAfrica\n2\tAsia\n");
    EXPECT_EQ(Ids("qb_id, jurisdiction_value", "qb_jurisdiction"), "2\tGuam\n");
    EXPECT_EQ(Ids("qb_id, nodc_id", "qb_nodc_ids"), "2\tN\n");
    EXPECT_EQ(Ids("qb_id, qb_id_accepted", "qb_synonym_links"), "2\t1\n");
    for (const char* query :
         {"Delete Division Data", "Delete Jurisdiction Data", "Delete NODC Link", "Delete Synonym Data"})
        EXPECT_EQ(Run(query, {{"qbid", Value()}}), 0) << query;
}

TEST_F(DeleteQueries, OneLink) {
    for (const char* prefix : {"PUB", "EXP"}) {
        for (const int document : {1, 2}) {
            Add("qb_reference_links",
                {{"qb_id", 1}, {"qb_documentation_id_prefix", prefix}, {"qb_documentation_id", document}});
            for (const int vernacular : {4, 5})
                Add("qb_vern_ref_links", {{"qb_id", 1},
                                          {"qb_documentation_id_prefix", prefix},
                                          {"qb_documentation_id", document},
                                          {"qb_vern_id", vernacular}});
        }
    }
    EXPECT_EQ(Run("Delete Reference Link", {{"qbid", 1}, {"prefix", "pub"}, {"docid", 2}}), 1);
    EXPECT_EQ(Run("Delete Reference Link", {{"qbid", 1}, {"prefix", "PUB"}}), 0);
    EXPECT_EQ(Ids("qb_documentation_id_prefix, qb_documentation_id", "qb_reference_links"),
              "EXP\t1\nEXP\t2\nPUB\t1\n");
    EXPECT_EQ(Run("Delete VReference Link", {{"qbid", 1}, {"prefix", "PUB"}, {"docid", 2}, {"qbvernid", 4}}),
              1);
    EXPECT_EQ(Run("Delete VReference Link", {{"qbid", 1}, {"prefix", "PUB"}, {"docid", 1}}), 0);
    EXPECT_EQ(Ids("qb_documentation_id_prefix, qb_documentation_id, qb_vern_id", "qb_vern_ref_links"),
              "EXP\t1\t4\nEXP\t1\t5\nEXP\t2\t4\nEXP\t2\t5\nPUB\t1\t4\nPUB\t1\t5\nPUB\t2\t5\n");
    for (const int comment : {1, 2}) Add("qb_tu_comments_link", {{"qb_id", 1}, {"qb_comment_id", comment}});
    EXPECT_EQ(Run("Delete Comment Link", {{"qbid", 1}, {"comID", 2}}), 1);
    EXPECT_EQ(Run("Delete Comment Link", {{"comID", 1}}), 0);
    EXPECT_EQ(Ids("qb_comment_id", "qb_tu_comments_link"), "1\n");
}

// The parameter has the name of the field, so the field is compared with itself.
TEST_F(DeleteQueries, OldVernacularsAreAllDeletedForAnyParameter) {
    AddTwo("qb_vernaculars");
    EXPECT_EQ(Run("Delete Old Vernacular", {{"qb_vern_id", 99}}), 2);
    EXPECT_EQ(Ids("qb_vern_id", "qb_vernaculars"), "");
}

}  // namespace
}  // namespace quillon::store
