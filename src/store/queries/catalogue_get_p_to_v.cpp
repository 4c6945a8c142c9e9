// Queries that read data, third part: parents, documentation, taxa and vernaculars.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kGetPToV[] = {
    {"Get Parent ID",
     "PARAMETERS qbid Long; "
     "SELECT parent_qb_id "
     "FROM qb_taxonomic_units "
     "WHERE qbid = qb_id;"},
    {"Get Parent Name",
     "PARAMETERS Parent_id Long; "
     "SELECT DISTINCT qb_taxonomic_units.unit_ind1, qb_taxonomic_units.unit_name1, "
     "qb_taxonomic_units.unit_ind2, qb_taxonomic_units.unit_name2, qb_taxonomic_units.unit_ind3, "
     "qb_taxonomic_units.unit_name3, qb_taxonomic_units.unit_ind4, qb_taxonomic_units.unit_name4, "
     "qb_taxonomic_units.kingdom_id, qb_taxonomic_units.rank_id "
     "FROM qb_taxonomic_units "
     "WHERE ((qb_taxonomic_units.qb_id=[Parent_id]));"},
    {"Get Parent Names",
     "PARAMETERS rank Long; "
     R"(SELECT qb_id, tsn, IIf(IsNull([unit_ind1]),"",[unit_ind1] & " ") )"
     R"(& IIf(IsNull([unit_name1]),"",[unit_name1] & " ") & IIf(IsNull([unit_ind2]),"",[unit_ind2] )"
     R"(& " ") & IIf(IsNull([unit_name2]),"",[unit_name2] & " ") )"
     R"(& IIf(IsNull([unit_ind3]),"",[unit_ind3] & " ") & IIf(IsNull([unit_name3]),"",[unit_name3] )"
     R"(& " ") & IIf(IsNull([unit_ind4]),"",[unit_ind4] & " ") )"
     R"(& IIf(IsNull([unit_name4]),"",[unit_name4] & " ") AS Line )"
     "FROM qb_taxonomic_units "
     "WHERE rank = rank_id "
     "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4;"},
    {"Get Previous Equal",
     "PARAMETERS name Text, rank Long; "
     "SELECT max(unit_name1) "
     "FROM qb_taxonomic_units "
     "WHERE unit_name1 < name and rank = rank_id;"},
    {"Get Previous Species",
     "PARAMETERS name1 Text, name2 Text, rank Long; "
     "SELECT max(unit_name2) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and unit_name2 < name2 and rank = rank_id;"},
    {"Get Previous SubSpecies",
     "PARAMETERS name1 Text, name2 Text, name3 Text, rank Long; "
     "SELECT max(unit_name3) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and unit_name3 < name3 and rank = rank_id;"},
    {"Get Previous Variety",
     "PARAMETERS name1 Text, name2 Text, name3 Text, name4 Text, rank Long; "
     "SELECT max(unit_name4) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 "
     "and unit_name4< name4 and rank = rank_id;"},
    {"Get Pub Dummy ID",
     "PARAMETERS pub Text; "
     "SELECT qb_publication_id "
     "FROM qb_publications "
     "WHERE pub = publication_name;"},
    {"Get Publication Data",
     "PARAMETERS author Text, ptitle Text, name Text, listdate Text, actdate Text, pub Text, "
     "location Text, ibn Text, isn Text, pgs Text, comment Text; "
     "SELECT qb_publications.* "
     "FROM qb_publications "
     "WHERE (author = reference_author or reference_author Is Null) and (ptitle = title "
     "or title Is Null) and (name = publication_name or publication_name Is Null) "
     "and (listdate = listed_pub_date or listed_pub_date Is Null) and (actdate = actual_pub_date "
     "or actual_pub_date Is Null) and (pub = publisher or publisher Is Null) "
     "and (location = pub_place or pub_place Is Null) and (ibn = isbn or isbn Is Null) "
     "and (isn = issn or issn Is Null) and (pgs = pages or pages Is Null) "
     "and (comment = pub_comment or pub_comment Is Null);"},
    {"Get Publication ID",
     "PARAMETERS author Text, ptitle Text, name Text, listdate Text, actdate Text, pub Text, "
     "location Text, ibn Text, isn Text, pgs Text, comment Text; "
     "SELECT qb_publication_id, publication_id "
     "FROM qb_publications "
     "WHERE (author = reference_author or reference_author Is Null) and (ptitle = title "
     "or title Is Null) and (name = publication_name or publication_name Is Null) "
     "and (listdate = listed_pub_date or listed_pub_date Is Null) and (actdate = actual_pub_date "
     "or actual_pub_date Is Null) and (pub = publisher or publisher Is Null) "
     "and (location = pub_place or pub_place Is Null) and (ibn = isbn or isbn Is Null) "
     "and (isn = issn or issn Is Null) and (pgs = pages or pages Is Null) "
     "and (comment = pub_comment or pub_comment Is Null);"},
    {"Get Publications",
     "PARAMETERS QBid Long; "
     "SELECT qb_publications.*, qb_reference_links.original_desc_ind, "
     "qb_reference_links.vernacular_name "
     "FROM qb_reference_links INNER JOIN qb_publications "
     "ON qb_reference_links.qb_documentation_id = qb_publications.qb_publication_id "
     "WHERE ((qb_reference_links.qb_id=[QBid]) "
     R"(AND (qb_reference_links.qb_documentation_id_prefix="PUB"));)"},
    {"Get VPublications",
     "PARAMETERS QBid Long; "
     "SELECT qb_publications.*, qb_vern_ref_links.vernacular_name, qb_vern_ref_links.qb_vern_id "
     "FROM qb_vern_ref_links INNER JOIN qb_publications "
     "ON qb_vern_ref_links.qb_documentation_id = qb_publications.qb_publication_id "
     "WHERE ((qb_vern_ref_links.qb_id=[QBid]) "
     R"(AND (qb_vern_ref_links.qb_documentation_id_prefix="PUB"));)"},
    {"Get Rank ID",
     "PARAMETERS rank Text; "
     "SELECT rank_id "
     "FROM taxonomic_unit_types "
     "WHERE rank_name = rank;"},
    {"Get Rank Info",
     "PARAMETERS rank Long; "
     "SELECT * "
     "FROM taxonomic_unit_types "
     "WHERE taxonomic_unit_types.rank_id=rank;"},
    {"Get Reference Links",
     "PARAMETERS qbid Long; "
     "SELECT * "
     "FROM qb_reference_links "
     "WHERE qbid = qb_id;"},
    {"Get VReference Links",
     "PARAMETERS qbid Long, qbvernid Long; "
     "SELECT * "
     "FROM qb_vern_ref_links "
     "WHERE qbid = qb_id and qbvernid = qb_vern_id;"},
    {"Get Source Data",
     "PARAMETERS src Text; "
     "SELECT * "
     "FROM qb_other_sources "
     "WHERE src = source;"},
    {"Get Src Dummy ID",
     "PARAMETERS src Text; "
     "SELECT qb_source_id "
     "FROM qb_other_sources "
     "WHERE src = source;"},
    {"Get Synonyms of Accepted Name",
     "PARAMETERS Accepted_id Long; "
     "SELECT DISTINCT qb_taxonomic_units.unit_ind1, qb_taxonomic_units.unit_name1, "
     "qb_taxonomic_units.unit_ind2, qb_taxonomic_units.unit_name2, qb_taxonomic_units.unit_ind3, "
     "qb_taxonomic_units.unit_name3, qb_taxonomic_units.unit_ind4, qb_taxonomic_units.unit_name4, "
     "qb_taxon_authors_lookup.taxon_author, qb_taxonomic_units.unacceptability_reason, "
     "qb_taxonomic_units.qb_id "
     "FROM (qb_synonym_links INNER JOIN qb_taxonomic_units "
     "ON qb_synonym_links.qb_id = qb_taxonomic_units.qb_id) "
     "LEFT JOIN qb_taxon_authors_lookup ON qb_taxonomic_units.qb_taxon_author_id = "
     "qb_taxon_authors_lookup.qb_taxon_author_id "
     "WHERE (((qb_synonym_links.qb_id_accepted)=[Accepted_id])) "
     "ORDER BY qb_taxonomic_units.unit_name1, qb_taxonomic_units.unit_name2, "
     "qb_taxonomic_units.unit_name3, qb_taxonomic_units.unit_name4;"},
    {"Get Taxon by Author",
     "PARAMETERS authorid Long; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE authorid = qb_taxon_author_id or authorid = hybrid_author_id;"},
    {"Get Taxon Data",
     "PARAMETERS qbid Long; "
     "SELECT * "
     "FROM qb_taxonomic_units "
     "WHERE qbid = qb_id;"},
    {"Get Taxon ID",
     "PARAMETERS name Text, rank Long; "
     "SELECT qb_id, qb_taxon_author_id "
     "FROM qb_taxonomic_units "
     "WHERE name = unit_name1 and rank_id = rank;"},
    {"Get Taxon Names",
     "PARAMETERS rank Long; "
     "SELECT qb_id, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, "
     "unit_name4 "
     "FROM qb_taxonomic_units "
     "WHERE rank = rank_id "
     "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4;"},
    {"Get Taxonomic ID",
     "PARAMETERS rank Long, name1 Text, name2 Text, name3 Text, name4 Text, author Long; "
     "SELECT * "
     "FROM qb_taxonomic_units "
     "WHERE rank = rank_id and name1 = unit_name1 "
     "and IIf(name2 Is Null, unit_name2 Is Null, name2 = unit_name2) "
     "and IIf(name3 Is Null, unit_name3 Is Null, name3 = unit_name3)  "
     "and IIf(name4 Is Null, unit_name4 Is Null, name4 = unit_name4) "
     "and (qb_taxon_author_id = author or qb_taxon_author_id Is Null);"},
    {"Get Vernaculars",
     "PARAMETERS qbid Long; "
     "SELECT * "
     "FROM qb_vernaculars "
     "WHERE qbid = qb_id;"},
    {"Get Vern Dummy ID",
     "PARAMETERS name Text; "
     "SELECT qb_vern_id "
     "FROM qb_vernaculars "
     "WHERE name = vernacular_name;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> GetQueriesPToV() {
    return kGetPToV;
}

}  // namespace quillon::store
