// The fields of each table, for schema.cpp. Other code calls DataSetTables().
#pragma once

#include "store/schema/schema.h"

namespace quillon::store::fields {

constexpr FieldSpec Boolean(std::string_view name) {
    return {name, FieldType::Boolean, 0, false, false};
}
constexpr FieldSpec Byte(std::string_view name) {
    return {name, FieldType::Byte, 0, false, false};
}
constexpr FieldSpec Integer(std::string_view name) {
    return {name, FieldType::Integer, 0, false, false};
}
constexpr FieldSpec Long(std::string_view name) {
    return {name, FieldType::Long, 0, false, false};
}
constexpr FieldSpec AutoNumber(std::string_view name) {
    return {name, FieldType::Long, 0, true, false};
}
constexpr FieldSpec DateAndTime(std::string_view name) {
    return {name, FieldType::DateTime, 0, false, false};
}
constexpr FieldSpec Text(std::string_view name, int size) {
    return {name, FieldType::Text, size, false, false};
}
constexpr FieldSpec RequiredText(std::string_view name, int size) {
    return {name, FieldType::Text, size, false, true};
}
constexpr FieldSpec Memo(std::string_view name) {
    return {name, FieldType::Memo, 0, false, false};
}

// One field a line.
// clang-format off
inline constexpr FieldSpec kAuthors[] = {
    AutoNumber("qb_taxon_author_id"),
    Long("taxon_author_id"),
    Text("taxon_author", 100),
    Byte("kingdom_id"),
};

inline constexpr FieldSpec kChangeOperationsLookup[] = {
    Byte("chg_op_id"),
    Text("change_operation", 25),
};

inline constexpr FieldSpec kDbControl[] = {
    Text("attribute", 20),
    Text("value", 10),
};

inline constexpr FieldSpec kDbDelta[] = {
    RequiredText("table_name", 30),
    RequiredText("old_pk1", 10),
    Text("old_pk2", 80),
    Text("old_pk3", 10),
    Text("new_pk1", 10),
    Text("new_pk2", 80),
    Text("new_pk3", 10),
};

inline constexpr FieldSpec kDbTombstone[] = {
    RequiredText("table_name", 30),
    RequiredText("pk1", 10),
    Text("pk2", 80),
    Text("pk3", 10),
    Text("pk4", 10),
};

inline constexpr FieldSpec kJournal[] = {
    Long("qb_id"),
};

inline constexpr FieldSpec kKingdoms[] = {
    Byte("kingdom_id"),
    Text("kingdom_name", 10),
};

inline constexpr FieldSpec kTaxonomicUnitTypes[] = {
    Byte("kingdom_id"),
    Integer("rank_id"),
    Text("rank_name", 15),
    Integer("direct_parent_rank_id"),
    Integer("required_parent_rank_id"),
};

// unit_ind3 and unit_ind4 are narrower than those of the taxa.
inline constexpr FieldSpec kTaxunits[] = {
    AutoNumber("qb_id"),
    Long("tsn"),
    Text("unit_ind1", 1),
    Text("unit_name1", 35),
    Text("unit_ind2", 1),
    Text("unit_name2", 35),
    Text("unit_ind3", 4),
    Text("unit_name3", 35),
    Text("unit_ind4", 4),
    Text("unit_name4", 35),
    Text("unnamed_taxon_ind", 4),
    Text("usage", 12),
    Text("unacceptability_reason", 50),
    Text("taxonomic_credibility_rating", 40),
    Text("taxonomic_completeness_rating", 10),
    Text("currency_rating", 7),
    Byte("phylo_sort_sequence"),
    Text("initial_time_stamp", 20),
    Long("parent_tsn"),
    Long("parent_qb_id"),
    Long("qb_taxon_author_id"),
    Long("hybrid_author_id"),
    Byte("kingdom_id"),
    Integer("rank_id"),
    Boolean("uncertain_parent_ind"),
};

inline constexpr FieldSpec kQbChangeComments[] = {
    Long("qb_change_track_id"),
    AutoNumber("qb_chg_cmt_id"),
    Long("change_track_id"),
    Integer("chg_cmt_id"),
    Text("change_detail", 250),
};

inline constexpr FieldSpec kQbChangeOperations[] = {
    Long("qb_change_track_id"),
    AutoNumber("chg_op_id"),
    Long("change_track_id"),
};

inline constexpr FieldSpec kQbChangeTracks[] = {
    AutoNumber("qb_change_track_id"),
    Long("change_track_id"),
    Long("old_tsn"),
    Text("change_reason", 40),
    Text("change_initiator", 100),
    Text("change_reviewer", 100),
    Text("change_certifier", 100),
    Text("change_time_stamp", 19),
    Long("tsn"),
    Long("qb_id"),
};

inline constexpr FieldSpec kQbComments[] = {
    AutoNumber("qb_comment_id"),
    Long("comment_id"),
    Text("commentator", 100),
    Memo("comment_detail"),
    Text("comment_time_stamp", 14),
};

inline constexpr FieldSpec kQbExperts[] = {
    Text("expert_id_prefix", 3),
    AutoNumber("qb_expert_id"),
    Long("expert_id"),
    Text("expert", 100),
    Memo("exp_comment"),
};

inline constexpr FieldSpec kQbGeographicDivision[] = {
    Long("qb_id"),
    Text("geographic_value", 40),
    Long("tsn"),
};

inline constexpr FieldSpec kQbJurisdiction[] = {
    Long("qb_id"),
    Text("jurisdiction_value", 30),
    Text("origin", 50),
    Long("tsn"),
};

inline constexpr FieldSpec kQbNodcIds[] = {
    Text("nodc_id", 12),
    Long("qb_id"),
    Long("tsn"),
};

inline constexpr FieldSpec kQbOtherSources[] = {
    Text("source_id_prefix", 3),
    AutoNumber("qb_source_id"),
    Long("source_id"),
    Text("source_type", 10),
    Text("source", 64),
    Text("version", 10),
    Text("acquisition_date", 10),
    Memo("source_comment"),
};

inline constexpr FieldSpec kQbPublications[] = {
    Text("publication_id_prefix", 3),
    AutoNumber("qb_publication_id"),
    Long("publication_id"),
    Text("reference_author", 100),
    Text("title", 255),
    Text("publication_name", 255),
    Text("listed_pub_date", 10),
    Text("actual_pub_date", 10),
    Text("publisher", 80),
    Text("pub_place", 40),
    Text("isbn", 16),
    Text("issn", 16),
    Text("pages", 15),
    Memo("pub_comment"),
};

inline constexpr FieldSpec kQbReferenceLinks[] = {
    Long("qb_id"),
    Text("qb_documentation_id_prefix", 3),
    Long("qb_documentation_id"),
    Long("tsn"),
    Long("documentation_id"),
    Boolean("original_desc_ind"),
    Boolean("initial_orva_desc_ind"),
    Long("qb_change_track_id"),
    Text("vernacular_name", 80),
};

inline constexpr FieldSpec kQbReviews[] = {
    Long("qb_id"),
    DateAndTime("review_start_date"),
    Long("tsn"),
    DateAndTime("review_end_date"),
    Text("review_reason", 25),
    Text("reviewer", 100),
    Memo("review_comment"),
};

inline constexpr FieldSpec kQbSynonymLinks[] = {
    Long("qb_id"),
    Long("qb_id_accepted"),
    Long("tsn"),
    Long("tsn_accepted"),
};

inline constexpr FieldSpec kQbTaxonAuthorsLookup[] = {
    AutoNumber("qb_taxon_author_id"),
    Long("taxon_author_id"),
    Text("taxon_author", 100),
    Byte("kingdom_id"),
};

inline constexpr FieldSpec kQbTaxonomicUnits[] = {
    AutoNumber("qb_id"),
    Long("tsn"),
    Text("unit_ind1", 1),
    Text("unit_name1", 35),
    Text("unit_ind2", 1),
    Text("unit_name2", 35),
    Text("unit_ind3", 7),
    Text("unit_name3", 35),
    Text("unit_ind4", 7),
    Text("unit_name4", 35),
    Text("unnamed_taxon_ind", 4),
    Text("usage", 12),
    Text("unacceptability_reason", 50),
    Text("taxonomic_credibility_rating", 40),
    Text("taxonomic_completeness_rating", 10),
    Text("currency_rating", 7),
    Byte("phylo_sort_sequence"),
    Text("initial_time_stamp", 20),
    Long("parent_tsn"),
    Long("parent_qb_id"),
    Long("qb_taxon_author_id"),
    Long("hybrid_author_id"),
    Byte("kingdom_id"),
    Integer("rank_id"),
    Boolean("uncertain_parent_ind"),
};

inline constexpr FieldSpec kQbTuCommentsLink[] = {
    Long("qb_id"),
    Long("qb_comment_id"),
    Long("tsn"),
    Long("comment_id"),
};

inline constexpr FieldSpec kQbVernaculars[] = {
    Long("qb_id"),
    AutoNumber("qb_vern_id"),
    Long("vern_id"),
    Text("vernacular_name", 80),
    Long("tsn"),
    Text("language", 15),
    Boolean("approved_ind"),
    Text("hex_vernacular_name", 160),
};

inline constexpr FieldSpec kQbVernRefLinks[] = {
    Long("qb_id"),
    Long("qb_vern_id"),
    Long("vern_id"),
    Text("qb_documentation_id_prefix", 3),
    Long("qb_documentation_id"),
    Long("tsn"),
    Long("documentation_id"),
    Text("vernacular_name", 80),
};

// clang-format on

}  // namespace quillon::store::fields
