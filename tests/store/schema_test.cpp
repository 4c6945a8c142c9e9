#include "store/schema/schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "store/schema/seed.h"

namespace quillon::store {
namespace {

using Names = std::vector<std::string>;

const TableSpec& Table(std::string_view name) {
    for (const TableSpec& table : DataSetTables()) {
        if (table.name == name) return table;
    }
    throw std::out_of_range(std::string(name));
}

const FieldSpec& Field(std::string_view table, std::string_view name) {
    for (const FieldSpec& field : Table(table).fields) {
        if (field.name == name) return field;
    }
    throw std::out_of_range(std::string(name));
}

std::string PrimaryKeyOf(std::string_view table) {
    std::string keys;
    for (const IndexSpec& index : Table(table).indexes) {
        if (index.primary) keys += index.fields;
    }
    return keys;
}

// "table.field" of every field for which the test holds.
template <typename Test>
Names FieldsWhere(Test test) {
    Names found;
    for (const TableSpec& table : DataSetTables()) {
        for (const FieldSpec& field : table.fields) {
            if (test(field)) found.push_back(std::string(table.name) + "." + std::string(field.name));
        }
    }
    return found;
}

TEST(Schema, HasTwentySevenTablesInTheOrderOfCreationWithTheirFieldCounts) {
    const std::vector<std::pair<std::string, std::size_t>> expected = {
        {"authors", 4},
        {"change_operations_lookup", 2},
        {"db_control", 2},
        {"db_delta", 7},
        {"db_tombstone", 5},
        {"journal", 1},
        {"kingdoms", 2},
        {"taxonomic_unit_types", 5},
        {"taxunits", 25},
        {"qb_change_comments", 5},
        {"qb_change_operations", 3},
        {"qb_change_tracks", 10},
        {"qb_comments", 5},
        {"qb_experts", 5},
        {"qb_geographic_division", 3},
        {"qb_jurisdiction", 4},
        {"qb_nodc_ids", 3},
        {"qb_other_sources", 8},
        {"qb_publications", 14},
        {"qb_reference_links", 9},
        {"qb_reviews", 7},
        {"qb_synonym_links", 4},
        {"qb_taxon_authors_lookup", 4},
        {"qb_taxonomic_units", 25},
        {"qb_tu_comments_link", 4},
        {"qb_vernaculars", 8},
        {"qb_vern_ref_links", 8},
    };
    std::vector<std::pair<std::string, std::size_t>> actual;
    for (const TableSpec& table : DataSetTables()) actual.emplace_back(table.name, table.fields.size());
    EXPECT_EQ(actual, expected);
}

TEST(Schema, OnlyTheCopiesForTheCompareAreTemporary) {
    Names temporary;
    for (const TableSpec& table : DataSetTables()) {
        if (table.temporary) temporary.emplace_back(table.name);
    }
    EXPECT_EQ(temporary, (Names{"authors", "taxunits"}));
}

TEST(Schema, OnlyTableNamesAndFirstKeysOfTheDeletionTablesAreRequired) {
    EXPECT_EQ(
        FieldsWhere([](const FieldSpec& field) { return field.required; }),
        (Names{"db_delta.table_name", "db_delta.old_pk1", "db_tombstone.table_name", "db_tombstone.pk1"}));
}

TEST(Schema, AutoNumbersAreTheLocalIdsAndTheOperationOfATrack) {
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) { return field.autoIncrement; }),
              (Names{"authors.qb_taxon_author_id", "taxunits.qb_id", "qb_change_comments.qb_chg_cmt_id",
                     "qb_change_operations.chg_op_id", "qb_change_tracks.qb_change_track_id",
                     "qb_comments.qb_comment_id", "qb_experts.qb_expert_id", "qb_other_sources.qb_source_id",
                     "qb_publications.qb_publication_id", "qb_taxon_authors_lookup.qb_taxon_author_id",
                     "qb_taxonomic_units.qb_id", "qb_vernaculars.qb_vern_id"}));
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) {
                  return field.autoIncrement && field.type != FieldType::Long;
              }),
              Names{});
}

TEST(Schema, MemosBooleansAndDatesStandWhereTheyBelong) {
    EXPECT_EQ(
        FieldsWhere([](const FieldSpec& field) { return field.type == FieldType::Memo; }),
        (Names{"qb_comments.comment_detail", "qb_experts.exp_comment", "qb_other_sources.source_comment",
               "qb_publications.pub_comment", "qb_reviews.review_comment"}));
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) { return field.type == FieldType::Boolean; }),
              (Names{"taxunits.uncertain_parent_ind", "qb_reference_links.original_desc_ind",
                     "qb_reference_links.initial_orva_desc_ind", "qb_taxonomic_units.uncertain_parent_ind",
                     "qb_vernaculars.approved_ind"}));
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) { return field.type == FieldType::DateTime; }),
              (Names{"qb_reviews.review_start_date", "qb_reviews.review_end_date"}));
}

TEST(Schema, SmallNumbersAreBytesAndIntegers) {
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) { return field.type == FieldType::Byte; }),
              (Names{"authors.kingdom_id", "change_operations_lookup.chg_op_id", "kingdoms.kingdom_id",
                     "taxonomic_unit_types.kingdom_id", "taxunits.phylo_sort_sequence", "taxunits.kingdom_id",
                     "qb_taxon_authors_lookup.kingdom_id", "qb_taxonomic_units.phylo_sort_sequence",
                     "qb_taxonomic_units.kingdom_id"}));
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) { return field.type == FieldType::Integer; }),
              (Names{"taxonomic_unit_types.rank_id", "taxonomic_unit_types.direct_parent_rank_id",
                     "taxonomic_unit_types.required_parent_rank_id", "taxunits.rank_id",
                     "qb_change_comments.chg_cmt_id", "qb_taxonomic_units.rank_id"}));
}

TEST(Schema, TheAuthoritysIdsAreLongs) {
    EXPECT_EQ(Field("qb_comments", "comment_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_experts", "expert_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_other_sources", "source_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_publications", "publication_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_vernaculars", "vern_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_vern_ref_links", "vern_id").type, FieldType::Long);
    EXPECT_EQ(Field("qb_tu_comments_link", "comment_id").type, FieldType::Long);
}

TEST(Schema, SizesAreThoseOfTheFormat) {
    EXPECT_EQ(Field("qb_taxonomic_units", "unit_ind1").size, 1);
    EXPECT_EQ(Field("qb_taxonomic_units", "unit_name4").size, 35);
    EXPECT_EQ(Field("qb_taxonomic_units", "usage").size, 12);
    EXPECT_EQ(Field("qb_taxonomic_units", "unacceptability_reason").size, 50);
    EXPECT_EQ(Field("qb_taxonomic_units", "currency_rating").size, 7);
    EXPECT_EQ(Field("qb_taxonomic_units", "initial_time_stamp").size, 20);
    EXPECT_EQ(Field("qb_taxon_authors_lookup", "taxon_author").size, 100);
    EXPECT_EQ(Field("qb_publications", "title").size, 255);
    EXPECT_EQ(Field("qb_publications", "publisher").size, 80);
    EXPECT_EQ(Field("qb_other_sources", "source").size, 64);
    EXPECT_EQ(Field("qb_nodc_ids", "nodc_id").size, 12);
    EXPECT_EQ(Field("qb_vernaculars", "vernacular_name").size, 80);
    EXPECT_EQ(Field("qb_vernaculars", "hex_vernacular_name").size, 160);
    EXPECT_EQ(Field("qb_jurisdiction", "origin").size, 50);
    EXPECT_EQ(Field("qb_comments", "comment_time_stamp").size, 14);
    EXPECT_EQ(Field("qb_change_tracks", "change_time_stamp").size, 19);
    EXPECT_EQ(Field("db_control", "value").size, 10);
    EXPECT_EQ(Field("kingdoms", "kingdom_name").size, 10);
    EXPECT_EQ(Field("taxonomic_unit_types", "rank_name").size, 15);
}

TEST(Schema, EveryTextHasASizeAndNothingElseHas) {
    EXPECT_EQ(FieldsWhere([](const FieldSpec& field) {
                  const bool sized = field.size >= 1 && field.size <= 255;
                  return field.type == FieldType::Text ? !sized : field.size != 0;
              }),
              Names{});
}

TEST(Schema, TheCopyForTheCompareIsNarrowerInTheLastTwoMarksOnly) {
    EXPECT_EQ(Field("qb_taxonomic_units", "unit_ind3").size, 7);
    EXPECT_EQ(Field("qb_taxonomic_units", "unit_ind4").size, 7);
    EXPECT_EQ(Field("taxunits", "unit_ind3").size, 4);
    EXPECT_EQ(Field("taxunits", "unit_ind4").size, 4);

    const auto taxa = Table("qb_taxonomic_units").fields;
    const auto copy = Table("taxunits").fields;
    ASSERT_EQ(taxa.size(), copy.size());
    Names different;
    for (std::size_t i = 0; i < taxa.size(); ++i) {
        EXPECT_EQ(taxa[i].name, copy[i].name);
        EXPECT_EQ(taxa[i].type, copy[i].type);
        if (taxa[i].size != copy[i].size) different.emplace_back(taxa[i].name);
    }
    EXPECT_EQ(different, (Names{"unit_ind3", "unit_ind4"}));
}

TEST(Schema, PrimaryKeysAreGivenInTheEnginesForm) {
    EXPECT_EQ(PrimaryKeyOf("db_control"), "+attribute;+value");
    EXPECT_EQ(PrimaryKeyOf("taxonomic_unit_types"), "+kingdom_id;+rank_id");
    EXPECT_EQ(PrimaryKeyOf("qb_taxonomic_units"), "+qb_id");
    EXPECT_EQ(PrimaryKeyOf("qb_nodc_ids"), "+nodc_id;+qb_id");
    EXPECT_EQ(PrimaryKeyOf("qb_experts"), "+expert_id_prefix;+qb_expert_id");
    EXPECT_EQ(PrimaryKeyOf("qb_geographic_division"), "+qb_id;+geographic_value");
    EXPECT_EQ(PrimaryKeyOf("qb_vernaculars"), "+qb_vern_id");
    EXPECT_EQ(PrimaryKeyOf("qb_reference_links"), "+qb_id;+qb_documentation_id_prefix;+qb_documentation_id");
    EXPECT_EQ(PrimaryKeyOf("qb_vern_ref_links"),
              "+qb_id;+qb_documentation_id_prefix;+qb_documentation_id;+qb_vern_id");
    EXPECT_EQ(Table("qb_taxonomic_units").indexes[0].name, "PrimaryKey");
}

TEST(Schema, EveryTableButTheDeletionTablesHasAPrimaryKeyOfItsOwnFields) {
    Names without;
    for (const TableSpec& table : DataSetTables()) {
        if (table.indexes.empty()) {
            without.emplace_back(table.name);
            continue;
        }
        std::string names(table.indexes[0].fields);
        ASSERT_TRUE(table.indexes[0].primary) << table.name;
        std::size_t at = 0;
        while (at < names.size()) {
            ASSERT_EQ(names[at], '+') << names;
            const std::size_t end = std::min(names.find(';', at), names.size());
            EXPECT_NO_THROW(Field(table.name, names.substr(at + 1, end - at - 1))) << table.name;
            at = end + 1;
        }
    }
    EXPECT_EQ(without, (Names{"db_delta", "db_tombstone"}));
}

TEST(Schema, TheTaxaHaveElevenSecondaryIndexesOfOneField) {
    const Names expected = {"kingdom_id", "unit_ind1",  "unit_ind2",         "unit_ind3",
                            "unit_ind4",  "unit_name1", "unit_name2",        "unit_name3",
                            "unit_name4", "usage",      "qb_taxon_author_id"};
    for (const std::string_view table : {"qb_taxonomic_units", "taxunits"}) {
        Names names;
        for (const IndexSpec& index : Table(table).indexes) {
            if (index.primary) continue;
            names.emplace_back(index.name);
            EXPECT_EQ(index.fields, "+" + std::string(index.name));
        }
        EXPECT_EQ(names, expected) << table;
    }
}

TEST(Seed, TheRootTaxonIsThatOfItsKingdom) {
    const RootTaxon* monera = RootTaxonOf(1);
    ASSERT_NE(monera, nullptr);
    EXPECT_EQ(monera->tsn, 202420);
    EXPECT_EQ(monera->credibility, "No review; untreated NODC data");
    EXPECT_EQ(monera->completeness, "unknown");
    EXPECT_EQ(monera->currency, "unknown");
    EXPECT_EQ(monera->stamp, "1996-06-13 14:51:08");

    const RootTaxon* plantae = RootTaxonOf(3);
    ASSERT_NE(plantae, nullptr);
    EXPECT_EQ(plantae->tsn, 202422);
    EXPECT_EQ(plantae->credibility, "KSP standards met");
    EXPECT_EQ(plantae->completeness, "partial");
    EXPECT_EQ(plantae->currency, "2004");

    EXPECT_EQ(RootTaxonOf(2)->tsn, 630577);
    EXPECT_EQ(RootTaxonOf(2)->stamp, "2004-05-25 11:20:46");
    EXPECT_EQ(RootTaxonOf(4)->tsn, 555705);
    EXPECT_EQ(RootTaxonOf(4)->currency, "1999");
    EXPECT_EQ(RootTaxonOf(4)->stamp, "1999-03-04 13:24:08");
    EXPECT_EQ(RootTaxonOf(5)->tsn, 202423);
    EXPECT_EQ(RootTaxonOf(6)->tsn, 630578);
    EXPECT_EQ(RootTaxonOf(6)->stamp, "2004-05-25 11:21:01");
}

TEST(Seed, AnUnknownKingdomNumberHasNoRootTaxon) {
    EXPECT_EQ(RootTaxonOf(0), nullptr);
    EXPECT_EQ(RootTaxonOf(-1), nullptr);
    EXPECT_EQ(RootTaxonOf(7), nullptr);
}

}  // namespace
}  // namespace quillon::store
