// Every field of every table as it is declared: type, size, attributes, and whether it is required.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "store/schema/field_attributes.h"

namespace quillon::store {
namespace {

using Lines = std::vector<std::string>;

std::string Line(const FieldDef& field) {
    constexpr std::array<const char*, 7> kTypes = {"Boolean",  "Byte", "Integer", "Long",
                                                   "DateTime", "Text", "Memo"};
    const int attributes = AttributesOf(field);
    return fmt::format("{} {} {} {}{}{}{}", field.name, kTypes.at(static_cast<std::size_t>(field.type)),
                       DeclaredSizeOf(field), Has(attributes, FieldAttribute::Fixed) ? "fixed" : "",
                       Has(attributes, FieldAttribute::Variable) ? "variable" : "",
                       Has(attributes, FieldAttribute::AutoIncrement) ? ", auto-increment" : "",
                       field.required ? " required" : "");
}

Lines LinesOf(const TableDef& table) {
    Lines lines;
    for (const FieldDef& field : table.fields) lines.push_back(Line(field));
    return lines;
}

const std::vector<std::pair<std::string, Lines>> kTables = {
    {"authors",
     {"qb_taxon_author_id Long 4 fixed, auto-increment", "taxon_author_id Long 4 fixed",
      "taxon_author Text 100 variable", "kingdom_id Byte 1 fixed"}},
    {"change_operations_lookup", {"chg_op_id Byte 1 fixed", "change_operation Text 25 variable"}},
    {"db_control", {"attribute Text 20 variable", "value Text 10 variable"}},
    {"db_delta",
     {"table_name Text 30 variable required", "old_pk1 Text 10 variable required", "old_pk2 Text 80 variable",
      "old_pk3 Text 10 variable", "new_pk1 Text 10 variable", "new_pk2 Text 80 variable",
      "new_pk3 Text 10 variable"}},
    {"db_tombstone",
     {"table_name Text 30 variable required", "pk1 Text 10 variable required", "pk2 Text 80 variable",
      "pk3 Text 10 variable", "pk4 Text 10 variable"}},
    {"journal", {"qb_id Long 4 fixed"}},
    {"kingdoms", {"kingdom_id Byte 1 fixed", "kingdom_name Text 10 variable"}},
    {"taxonomic_unit_types",
     {"kingdom_id Byte 1 fixed", "rank_id Integer 2 fixed", "rank_name Text 15 variable",
      "direct_parent_rank_id Integer 2 fixed", "required_parent_rank_id Integer 2 fixed"}},
    {"taxunits",
     {"qb_id Long 4 fixed, auto-increment",
      "tsn Long 4 fixed",
      "unit_ind1 Text 1 variable",
      "unit_name1 Text 35 variable",
      "unit_ind2 Text 1 variable",
      "unit_name2 Text 35 variable",
      "unit_ind3 Text 4 variable",
      "unit_name3 Text 35 variable",
      "unit_ind4 Text 4 variable",
      "unit_name4 Text 35 variable",
      "unnamed_taxon_ind Text 4 variable",
      "usage Text 12 variable",
      "unacceptability_reason Text 50 variable",
      "taxonomic_credibility_rating Text 40 variable",
      "taxonomic_completeness_rating Text 10 variable",
      "currency_rating Text 7 variable",
      "phylo_sort_sequence Byte 1 fixed",
      "initial_time_stamp Text 20 variable",
      "parent_tsn Long 4 fixed",
      "parent_qb_id Long 4 fixed",
      "qb_taxon_author_id Long 4 fixed",
      "hybrid_author_id Long 4 fixed",
      "kingdom_id Byte 1 fixed",
      "rank_id Integer 2 fixed",
      "uncertain_parent_ind Boolean 1 fixed"}},
    {"qb_change_comments",
     {"qb_change_track_id Long 4 fixed", "qb_chg_cmt_id Long 4 fixed, auto-increment",
      "change_track_id Long 4 fixed", "chg_cmt_id Integer 2 fixed", "change_detail Text 250 variable"}},
    {"qb_change_operations",
     {"qb_change_track_id Long 4 fixed", "chg_op_id Long 4 fixed, auto-increment",
      "change_track_id Long 4 fixed"}},
    {"qb_change_tracks",
     {"qb_change_track_id Long 4 fixed, auto-increment", "change_track_id Long 4 fixed",
      "old_tsn Long 4 fixed", "change_reason Text 40 variable", "change_initiator Text 100 variable",
      "change_reviewer Text 100 variable", "change_certifier Text 100 variable",
      "change_time_stamp Text 19 variable", "tsn Long 4 fixed", "qb_id Long 4 fixed"}},
    {"qb_comments",
     {"qb_comment_id Long 4 fixed, auto-increment", "comment_id Long 2 fixed",
      "commentator Text 100 variable", "comment_detail Memo 0 variable",
      "comment_time_stamp Text 14 variable"}},
    {"qb_experts",
     {"expert_id_prefix Text 3 variable", "qb_expert_id Long 4 fixed, auto-increment",
      "expert_id Long 2 fixed", "expert Text 100 variable", "exp_comment Memo 0 variable"}},
    {"qb_geographic_division",
     {"qb_id Long 4 fixed", "geographic_value Text 40 variable", "tsn Long 4 fixed"}},
    {"qb_jurisdiction",
     {"qb_id Long 4 fixed", "jurisdiction_value Text 30 variable", "origin Text 50 variable",
      "tsn Long 4 fixed"}},
    {"qb_nodc_ids", {"nodc_id Text 12 variable", "qb_id Long 4 fixed", "tsn Long 4 fixed"}},
    {"qb_other_sources",
     {"source_id_prefix Text 3 variable", "qb_source_id Long 4 fixed, auto-increment",
      "source_id Long 2 fixed", "source_type Text 10 variable", "source Text 64 variable",
      "version Text 10 variable", "acquisition_date Text 10 variable", "source_comment Memo 0 variable"}},
    {"qb_publications",
     {"publication_id_prefix Text 3 variable", "qb_publication_id Long 4 fixed, auto-increment",
      "publication_id Long 2 fixed", "reference_author Text 100 variable", "title Text 255 variable",
      "publication_name Text 255 variable", "listed_pub_date Text 10 variable",
      "actual_pub_date Text 10 variable", "publisher Text 80 variable", "pub_place Text 40 variable",
      "isbn Text 16 variable", "issn Text 16 variable", "pages Text 15 variable",
      "pub_comment Memo 0 variable"}},
    {"qb_reference_links",
     {"qb_id Long 4 fixed", "qb_documentation_id_prefix Text 3 variable", "qb_documentation_id Long 4 fixed",
      "tsn Long 4 fixed", "documentation_id Long 4 fixed", "original_desc_ind Boolean 1 fixed",
      "initial_orva_desc_ind Boolean 1 fixed", "qb_change_track_id Long 4 fixed",
      "vernacular_name Text 80 variable"}},
    {"qb_reviews",
     {"qb_id Long 4 fixed", "review_start_date DateTime 8 fixed", "tsn Long 4 fixed",
      "review_end_date DateTime 8 fixed", "review_reason Text 25 variable", "reviewer Text 100 variable",
      "review_comment Memo 0 variable"}},
    {"qb_synonym_links",
     {"qb_id Long 4 fixed", "qb_id_accepted Long 4 fixed", "tsn Long 4 fixed", "tsn_accepted Long 4 fixed"}},
    {"qb_taxon_authors_lookup",
     {"qb_taxon_author_id Long 4 fixed, auto-increment", "taxon_author_id Long 4 fixed",
      "taxon_author Text 100 variable", "kingdom_id Byte 1 fixed"}},
    {"qb_taxonomic_units",
     {"qb_id Long 4 fixed, auto-increment",
      "tsn Long 4 fixed",
      "unit_ind1 Text 1 variable",
      "unit_name1 Text 35 variable",
      "unit_ind2 Text 1 variable",
      "unit_name2 Text 35 variable",
      "unit_ind3 Text 7 variable",
      "unit_name3 Text 35 variable",
      "unit_ind4 Text 7 variable",
      "unit_name4 Text 35 variable",
      "unnamed_taxon_ind Text 4 variable",
      "usage Text 12 variable",
      "unacceptability_reason Text 50 variable",
      "taxonomic_credibility_rating Text 40 variable",
      "taxonomic_completeness_rating Text 10 variable",
      "currency_rating Text 7 variable",
      "phylo_sort_sequence Byte 1 fixed",
      "initial_time_stamp Text 20 variable",
      "parent_tsn Long 4 fixed",
      "parent_qb_id Long 4 fixed",
      "qb_taxon_author_id Long 4 fixed",
      "hybrid_author_id Long 4 fixed",
      "kingdom_id Byte 1 fixed",
      "rank_id Integer 2 fixed",
      "uncertain_parent_ind Boolean 1 fixed"}},
    {"qb_tu_comments_link",
     {"qb_id Long 4 fixed", "qb_comment_id Long 4 fixed", "tsn Long 4 fixed", "comment_id Long 2 fixed"}},
    {"qb_vernaculars",
     {"qb_id Long 4 fixed", "qb_vern_id Long 4 fixed, auto-increment", "vern_id Long 2 fixed",
      "vernacular_name Text 80 variable", "tsn Long 4 fixed", "language Text 15 variable",
      "approved_ind Boolean 1 fixed", "hex_vernacular_name Text 160 variable"}},
    {"qb_vern_ref_links",
     {"qb_id Long 4 fixed", "qb_vern_id Long 4 fixed", "vern_id Long 2 fixed",
      "qb_documentation_id_prefix Text 3 variable", "qb_documentation_id Long 4 fixed", "tsn Long 4 fixed",
      "documentation_id Long 4 fixed", "vernacular_name Text 80 variable"}},
};

TEST(SchemaFields, AreDeclaredWithTypeSizeAttributesAndWhetherRequired) {
    EXPECT_EQ(DataSetTables().size(), kTables.size());
    for (const auto& [name, lines] : kTables) {
        const auto table =
            std::find_if(DataSetTables().begin(), DataSetTables().end(),
                         [&wanted = name](const TableSpec& one) { return one.name == wanted; });
        ASSERT_NE(table, DataSetTables().end()) << name;
        EXPECT_EQ(LinesOf(TableDefOf(*table)), lines) << name;
    }
}

}  // namespace
}  // namespace quillon::store
