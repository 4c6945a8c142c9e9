// The queries that read taxa, authors, kingdoms and ranks.
#include <gtest/gtest.h>

#include "query_fixture.h"

namespace quillon::store {
namespace {

class TaxonQueries : public QueryTest {
protected:
    // All 25 fields of a taxon that has an id, a first name, and what follows from a rank.
    static std::string Whole(int id, const char* name1, const char* name2 = "\\N", const char* author = "\\N",
                             const char* parent = "\\N", int rank = 220) {
        return std::to_string(id) + "\t\\N\t\\N\t" + name1 + "\t\\N\t" + name2 + Nulls(13) + "\t" + parent +
               "\t" + author + "\t\\N\t5\t" + std::to_string(rank) + "\t\\N\n";
    }
};

TEST_F(TaxonQueries, ATaxonIsReadWholeByItsId) {
    AddTaxon({.qb_id = 1, .name1 = "Aa", .name2 = "bb", .author = 3, .rank = 220, .parent = 9});
    AddTaxon({.qb_id = 2});
    EXPECT_EQ(Rows("Get Taxon Data", {{"qbid", 1}}), Whole(1, "Aa", "bb", "3", "9"));
    EXPECT_EQ(Rows("Get Taxon Data", {{"qbid", 2}}), "2" + Nulls(24) + "\n");
    EXPECT_EQ(Rows("Get Taxon Data", {{"qbid", 3}}), "");
    EXPECT_EQ(Rows("Get Taxon Data"), "");
    EXPECT_EQ(Rows("Get All Taxons"), Whole(1, "Aa", "bb", "3", "9") + "2" + Nulls(24) + "\n");
}

TEST_F(TaxonQueries, ATaxonIsFoundByItsNamesAndAuthor) {
    AddTaxon({.qb_id = 1, .name1 = "Aa", .rank = 220});
    AddTaxon({.qb_id = 2, .name1 = "AA", .name2 = "bb", .author = 3, .rank = 220});
    AddTaxon({.qb_id = 3, .name1 = "Aa", .name2 = "bb", .author = 4, .rank = 220});
    AddTaxon({.qb_id = 4, .name1 = "Aa", .name2 = "bb", .rank = 220});
    AddTaxon({.qb_id = 5, .name1 = "Aa", .rank = 230});
    const auto find = [&](const Value& name2, const Value& author) {
        return Rows("Get Taxonomic ID",
                    {{"rank", 220}, {"name1", "aa"}, {"name2", name2}, {"author", author}});
    };
    // A second name that is Null finds only a row without one; a row without an author is found by every
    // author.
    EXPECT_EQ(find(Value(), 3), Whole(1, "Aa"));
    EXPECT_EQ(find("BB", 3), Whole(2, "AA", "bb", "3") + Whole(4, "Aa", "bb"));
    EXPECT_EQ(find("bb", Value()), Whole(4, "Aa", "bb"));
    EXPECT_EQ(find("cc", 3), "");
    EXPECT_EQ(Rows("Get Taxonomic ID", {{"rank", 220}, {"name1", "aa"}, {"name2", "bb"}, {"name3", "c"}}),
              "");
    EXPECT_EQ(Rows("Get Taxonomic ID", {{"rank", 220}, {"name1", "aa"}, {"name2", "bb"}, {"name4", "c"}}),
              "");
    EXPECT_EQ(Rows("Get Taxonomic ID", {{"rank", 230}, {"name1", "Aa"}}),
              Whole(5, "Aa", "\\N", "\\N", "\\N", 230));
    EXPECT_EQ(Rows("Get Taxonomic ID", {{"rank", 220}}), "");
}

TEST_F(TaxonQueries, ATaxonIsFoundByItsFirstName) {
    AddTaxon({.qb_id = 1, .name1 = "Aa", .author = 7, .rank = 180});
    AddTaxon({.qb_id = 2, .name1 = "aa ", .rank = 180});
    AddTaxon({.qb_id = 3, .name1 = "Aa", .rank = 190});
    AddTaxon({.qb_id = 4, .rank = 180});
    EXPECT_EQ(Rows("Get Taxon ID", {{"name", "AA"}, {"rank", 180}}), "1\t7\n2\t\\N\n");
    EXPECT_EQ(Rows("Get Taxon ID", {{"rank", 180}}), "");
    EXPECT_EQ(Rows("Get Dummy ID", {{"name", "AA"}}), "1\n2\n3\n");
    EXPECT_EQ(Rows("Get Dummy ID", {{"name", Value()}}), "");
}

TEST_F(TaxonQueries, NamesOfARankComeInOrder) {
    AddTaxon({.qb_id = 1, .ind1 = "X", .name1 = "b", .rank = 180});
    AddTaxon({.qb_id = 2, .name1 = "B", .name2 = "a", .ind4 = "f.", .name4 = "q", .rank = 180});
    AddTaxon({.qb_id = 3, .name1 = "a", .rank = 180});
    AddTaxon({.qb_id = 4, .rank = 180});
    AddTaxon({.qb_id = 5, .name1 = "c", .rank = 220});
    EXPECT_EQ(Rows("Get Taxon Names", {{"rank", 180}}), "4" + Nulls(8) + "\n3\t\\N\ta" + Nulls(6) +
                                                            "\n1\tX\tb" + Nulls(6) + "\n2\t\\N\tB\t\\N\ta" +
                                                            Nulls(2) + "\tf.\tq\n");
}

TEST_F(TaxonQueries, ChildrenAndParents) {
    AddTaxon({.qb_id = 1, .ind1 = "X", .name1 = "Aa", .rank = 180, .parent = 1});
    AddTaxon({.qb_id = 2, .name1 = "Aa", .name2 = "bb", .author = 4, .rank = 220, .parent = 1});
    AddTaxon({.qb_id = 3});
    EXPECT_EQ(Rows("Get Children", {{"parent", 1}}), "Aa" + Nulls(4) + "\nAa\tbb" + Nulls(2) + "\t4\n");
    EXPECT_EQ(Rows("Get Children", {{"parent", Value()}}), "");
    EXPECT_EQ(Rows("Get Parent Name", {{"parent_ID", 1}}), "X\tAa" + Nulls(6) + "\t5\t180\n");
    EXPECT_EQ(Rows("Get Parent Name", {{"Parent_id", 3}}), "\\N" + Nulls(9) + "\n");
    EXPECT_EQ(Rows("Get Parent Name", {{"Parent_id", 4}}), "");
    EXPECT_EQ(Rows("Get Parent ID", {{"qbid", 2}}), "1\n");
    EXPECT_EQ(Rows("Get Parent ID", {{"qbid", 3}}), "\\N\n");
}

TEST_F(TaxonQueries, AuthorsAreFoundExactlyAndReadById) {
    AddAuthor(1, "Gray");
    AddAuthor(2, "GRAY");
    AddAuthor(3, "Gray ");
    AddAuthor(4, "");
    EXPECT_EQ(Rows("Get Author ID", {{"author", "Gray"}}), "1\n");
    EXPECT_EQ(Rows("Get Author ID", {{"author", "GRAY"}}), "2\n");
    EXPECT_EQ(Rows("Get Author ID", {{"author", "Gray "}}), "3\n");
    EXPECT_EQ(Rows("Get Author ID", {{"author", "gray"}}), "");
    EXPECT_EQ(Rows("Get Author ID", {{"author", Value()}}), "");
    Execute(
        "UPDATE qb_taxon_authors_lookup SET taxon_author_id = 900, kingdom_id = 5 WHERE qb_taxon_author_id = "
        "1");
    EXPECT_EQ(Rows("Get Author Name", {{"authorid", 1}}), "Gray\t900\n");
    EXPECT_EQ(Rows("Get Author Name", {{"authorid", 4}}), "\\N\t\\N\n");
    EXPECT_EQ(Rows("Get Author Name", {{"authorid", 5}}), "");
    EXPECT_EQ(Rows("Get All Authors"),
              "1\t900\tGray\t5\n2\t\\N\tGRAY\t\\N\n3\t\\N\tGray \t\\N\n4" + Nulls(3) + "\n");
}

TEST_F(TaxonQueries, TaxaOfAnAuthorInEitherPlace) {
    AddTaxon({.qb_id = 1, .author = 7});
    AddTaxon({.qb_id = 2, .hybrid = 7});
    AddTaxon({.qb_id = 3, .author = 7, .hybrid = 7});
    AddTaxon({.qb_id = 4, .author = 8});
    AddTaxon({.qb_id = 5});
    EXPECT_EQ(Dump("SELECT count(*) FROM qb_taxonomic_units"), "5\n");
    EXPECT_EQ(Rows("Get Taxon by Author", {{"authorid", 7}}), "1\n2\n3\n");
    EXPECT_EQ(Rows("Get Taxon by Author", {{"authorid", Value()}}), "");
}

TEST_F(TaxonQueries, KingdomsAndRanks) {
    Add("kingdoms", {{"kingdom_id", 6}});
    EXPECT_EQ(Rows("Get Kingdom Index", {{"kingdom", "ANIMALIA"}}), "5\n");
    EXPECT_EQ(Rows("Get Kingdom Index", {{"kingdom", Value()}}), "");
    EXPECT_EQ(Rows("Get Kingdom Name", {{"kingid", 5}}), "Animalia\n");
    EXPECT_EQ(Rows("Get Kingdom Name", {{"kingid", 6}}), "\\N\n");
    EXPECT_EQ(Rows("Get Kingdom Name", {{"kingid", 1}}), "");
    EXPECT_EQ(Rows("Get Rank ID", {{"rank", "species"}}), "220\n");
    EXPECT_EQ(Rows("Get Rank ID", {{"rank", "Nothing"}}), "");
    EXPECT_EQ(Rows("Get Rank Info", {{"rank", 220}}), "5\t220\tSpecies\t190\t180\n");
    EXPECT_EQ(Rows("Get Rank Info", {{"rank", 1}}), "");
    Add("taxonomic_unit_types", {{"kingdom_id", 6}, {"rank_id", 220}});
    EXPECT_EQ(Rows("Get Rank Info", {{"rank", 220}}), "5\t220\tSpecies\t190\t180\n6\t220" + Nulls(3) + "\n");
}

TEST_F(TaxonQueries, RowsOfATaxon) {
    Add("qb_nodc_ids", {{"nodc_id", "N1"}, {"qb_id", 1}, {"tsn", 10}});
    Add("qb_nodc_ids", {{"nodc_id", "N2"}, {"qb_id", 2}});
    EXPECT_EQ(Rows("Get NODC Id", {{"id", 1}}), "N1\n");
    EXPECT_EQ(Rows("Get NODC Id"), "");
    Add("qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "Asia"}, {"tsn", 10}});
    Add("qb_geographic_division", {{"qb_id", 1}, {"geographic_value", "africa"}});
    Add("qb_geographic_division", {{"qb_id", 2}, {"geographic_value", "Europe"}});
    EXPECT_EQ(Rows("Get Distrib Data", {{"qbid", 1}}), "africa\t\\N\nAsia\t10\n");
    EXPECT_EQ(Rows("Get All Distrib Data"), "1\tafrica\t\\N\n1\tAsia\t10\n2\tEurope\t\\N\n");
    Add("qb_jurisdiction", {{"qb_id", 1}, {"jurisdiction_value", "Guam"}, {"origin", "Native"}, {"tsn", 10}});
    Add("qb_jurisdiction", {{"qb_id", 2}, {"jurisdiction_value", "Alaska"}});
    EXPECT_EQ(Rows("Get Jurisdiction Data", {{"qbid", 1}}), "Guam\tNative\t10\n");
    EXPECT_EQ(Rows("Get Jurisdiction Data", {{"qbid", 2}}), "Alaska\t\\N\t\\N\n");
    EXPECT_EQ(Rows("Get All Jurisdiction Data"), "1\tGuam\tNative\t10\n2\tAlaska\t\\N\t\\N\n");
    Add("qb_synonym_links", {{"qb_id", 1}, {"qb_id_accepted", 2}, {"tsn_accepted", 11}});
    EXPECT_EQ(Rows("Get All Synonym Links"), "1\t2\t\\N\t11\n");
}

TEST_F(TaxonQueries, Vernaculars) {
    Add("qb_vernaculars",
        {{"qb_id", 1}, {"vernacular_name", "wolf"}, {"language", "English"}, {"approved_ind", "Yes"}});
    Add("qb_vernaculars", {{"approved_ind", false}});
    EXPECT_EQ(Rows("Get Vernaculars", {{"qbid", 1}}), "1\t1\t\\N\twolf\t\\N\tEnglish\tTrue\t\\N\n");
    EXPECT_EQ(Rows("Get Vernaculars", {{"qbid", Value()}}), "");
    EXPECT_EQ(Rows("Get Vern Dummy ID", {{"name", "WOLF"}}), "1\n");
    EXPECT_EQ(Rows("Get Vern Dummy ID", {{"name", Value()}}), "");
    EXPECT_EQ(Rows("Get All Vernaculars"),
              "1\t1\t\\N\twolf\t\\N\tEnglish\tTrue\t\\N\n\\N\t2" + Nulls(4) + "\tFalse\t\\N\n");
}

}  // namespace
}  // namespace quillon::store
