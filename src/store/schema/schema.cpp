#include "store/schema/schema.h"

#include "store/schema/schema_fields.h"

namespace quillon::store {

namespace {

constexpr IndexSpec Key(std::string_view fieldList) {
    return {"PrimaryKey", fieldList, true};
}

constexpr IndexSpec kAuthorsKey[] = {Key("+qb_taxon_author_id")};
constexpr IndexSpec kChangeOperationsLookupKey[] = {Key("+chg_op_id")};
constexpr IndexSpec kDbControlKey[] = {Key("+attribute;+value")};
constexpr IndexSpec kJournalKey[] = {Key("+qb_id")};
constexpr IndexSpec kKingdomsKey[] = {Key("+kingdom_id")};
constexpr IndexSpec kTaxonomicUnitTypesKey[] = {Key("+kingdom_id;+rank_id")};
constexpr IndexSpec kQbChangeCommentsKey[] = {Key("+qb_change_track_id;+qb_chg_cmt_id")};
constexpr IndexSpec kQbChangeOperationsKey[] = {Key("+qb_change_track_id;+chg_op_id")};
constexpr IndexSpec kQbChangeTracksKey[] = {Key("+qb_change_track_id")};
constexpr IndexSpec kQbCommentsKey[] = {Key("+qb_comment_id")};
constexpr IndexSpec kQbExpertsKey[] = {Key("+expert_id_prefix;+qb_expert_id")};
constexpr IndexSpec kQbGeographicDivisionKey[] = {Key("+qb_id;+geographic_value")};
constexpr IndexSpec kQbJurisdictionKey[] = {Key("+qb_id;+jurisdiction_value")};
constexpr IndexSpec kQbNodcIdsKey[] = {Key("+nodc_id;+qb_id")};
constexpr IndexSpec kQbOtherSourcesKey[] = {Key("+source_id_prefix;+qb_source_id")};
constexpr IndexSpec kQbPublicationsKey[] = {Key("+publication_id_prefix;+qb_publication_id")};
constexpr IndexSpec kQbReferenceLinksKey[] = {Key("+qb_id;+qb_documentation_id_prefix;+qb_documentation_id")};
constexpr IndexSpec kQbReviewsKey[] = {Key("+qb_id;+review_start_date")};
constexpr IndexSpec kQbSynonymLinksKey[] = {Key("+qb_id;+qb_id_accepted")};
constexpr IndexSpec kQbTaxonAuthorsLookupKey[] = {Key("+qb_taxon_author_id")};
constexpr IndexSpec kQbTuCommentsLinkKey[] = {Key("+qb_id;+qb_comment_id")};
constexpr IndexSpec kQbVernacularsKey[] = {Key("+qb_vern_id")};
constexpr IndexSpec kQbVernRefLinksKey[] = {
    Key("+qb_id;+qb_documentation_id_prefix;+qb_documentation_id;+qb_vern_id")};
constexpr IndexSpec kTaxaIndexes[] = {
    Key("+qb_id"),
    {"kingdom_id", "+kingdom_id", false},
    {"unit_ind1", "+unit_ind1", false},
    {"unit_ind2", "+unit_ind2", false},
    {"unit_ind3", "+unit_ind3", false},
    {"unit_ind4", "+unit_ind4", false},
    {"unit_name1", "+unit_name1", false},
    {"unit_name2", "+unit_name2", false},
    {"unit_name3", "+unit_name3", false},
    {"unit_name4", "+unit_name4", false},
    {"usage", "+usage", false},
    {"qb_taxon_author_id", "+qb_taxon_author_id", false},
};

constexpr TableSpec kTables[] = {
    {"authors", fields::kAuthors, kAuthorsKey, true},
    {"change_operations_lookup", fields::kChangeOperationsLookup, kChangeOperationsLookupKey, false},
    {"db_control", fields::kDbControl, kDbControlKey, false},
    {"db_delta", fields::kDbDelta, {}, false},
    {"db_tombstone", fields::kDbTombstone, {}, false},
    {"journal", fields::kJournal, kJournalKey, false},
    {"kingdoms", fields::kKingdoms, kKingdomsKey, false},
    {"taxonomic_unit_types", fields::kTaxonomicUnitTypes, kTaxonomicUnitTypesKey, false},
    {"taxunits", fields::kTaxunits, kTaxaIndexes, true},
    {"qb_change_comments", fields::kQbChangeComments, kQbChangeCommentsKey, false},
    {"qb_change_operations", fields::kQbChangeOperations, kQbChangeOperationsKey, false},
    {"qb_change_tracks", fields::kQbChangeTracks, kQbChangeTracksKey, false},
    {"qb_comments", fields::kQbComments, kQbCommentsKey, false},
    {"qb_experts", fields::kQbExperts, kQbExpertsKey, false},
    {"qb_geographic_division", fields::kQbGeographicDivision, kQbGeographicDivisionKey, false},
    {"qb_jurisdiction", fields::kQbJurisdiction, kQbJurisdictionKey, false},
    {"qb_nodc_ids", fields::kQbNodcIds, kQbNodcIdsKey, false},
    {"qb_other_sources", fields::kQbOtherSources, kQbOtherSourcesKey, false},
    {"qb_publications", fields::kQbPublications, kQbPublicationsKey, false},
    {"qb_reference_links", fields::kQbReferenceLinks, kQbReferenceLinksKey, false},
    {"qb_reviews", fields::kQbReviews, kQbReviewsKey, false},
    {"qb_synonym_links", fields::kQbSynonymLinks, kQbSynonymLinksKey, false},
    {"qb_taxon_authors_lookup", fields::kQbTaxonAuthorsLookup, kQbTaxonAuthorsLookupKey, false},
    {"qb_taxonomic_units", fields::kQbTaxonomicUnits, kTaxaIndexes, false},
    {"qb_tu_comments_link", fields::kQbTuCommentsLink, kQbTuCommentsLinkKey, false},
    {"qb_vernaculars", fields::kQbVernaculars, kQbVernacularsKey, false},
    {"qb_vern_ref_links", fields::kQbVernRefLinks, kQbVernRefLinksKey, false},
};

}  // namespace

std::span<const TableSpec> DataSetTables() {
    return kTables;
}

}  // namespace quillon::store
