// Tests whether a name, a comment or a document is used elsewhere, and deletions by key.
//
// "Delete Old Vernacular" has a parameter with the name of its field. The field wins, so it deletes every
// row.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kCheckAndDelete[] = {
    {"Check Comment Links",
     "PARAMETERS qbid Long, comid Long; "
     "SELECT qb_comment_id "
     "FROM qb_tu_comments_link "
     "WHERE comid = qb_comment_id and qbid <> qb_id;"},
    {"Check Name",
     "PARAMETERS thename Text; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
     "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
     "WHERE thename=(unit_ind1) & (unit_name1) & (unit_ind2) & (unit_name2) & (unit_ind3) "
     R"(& (unit_name3) & (unit_ind4) & (unit_name4) & IIf(IsNull(t.qb_taxon_author_id),Null," " )"
     "& a.taxon_author);"},
    {"Check Reference Links",
     "PARAMETERS qbid Long, prefix Text, docid Long; "
     "SELECT qb_documentation_id "
     "FROM qb_reference_links "
     "WHERE qb_documentation_id_prefix = prefix and docid = qb_documentation_id and qbid <> qb_id "
     "UNION "
     "SELECT qb_documentation_id "
     "FROM qb_vern_ref_links "
     "WHERE qb_documentation_id_prefix = prefix and docid = qb_documentation_id;"},
    {"Check VReference Links",
     "PARAMETERS qbid Long, prefix Text, docid Long, qbvernid Long; "
     "SELECT qb_documentation_id "
     "FROM qb_reference_links "
     "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid "
     "UNION "
     "SELECT qb_documentation_id from qb_vern_ref_links "
     "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid "
     "and qb_vern_id NOT IN (SELECT qb_vern_id "
     "FROM qb_vern_ref_links "
     "WHERE qb_documentation_id_prefix = prefix and qb_documentation_id = docid and qb_id = qbid "
     "and qb_vern_id = qbvernid);"},
    {"Delete Author",
     "PARAMETERS author Long; DELETE * FROM qb_taxon_authors_lookup WHERE author = qb_taxon_author_id;"},
    {"Delete Comment", "PARAMETERS comID Long; DELETE * FROM qb_comments WHERE comID = qb_comment_id;"},
    {"Delete Comment Link",
     "PARAMETERS qbid Long, comID Long; DELETE * FROM qb_tu_comments_link "
     "WHERE qbid = qb_id and comID = qb_comment_id;"},
    {"Delete Division Data",
     "PARAMETERS qbid Long; DELETE * FROM qb_geographic_division WHERE qbid = qb_id;"},
    {"Delete Expert", "PARAMETERS expid Long; DELETE * FROM qb_experts WHERE expid = qb_expert_id;"},
    {"Delete Jurisdiction Data",
     "PARAMETERS qbid Long; DELETE * FROM qb_jurisdiction WHERE qbid = qb_id;"},
    {"Delete NODC Link", "PARAMETERS qbid Long; DELETE * FROM qb_nodc_ids WHERE qbid = qb_id;"},
    {"Delete Old Vernacular",
     "PARAMETERS qb_vern_id Long; DELETE * FROM qb_vernaculars WHERE qb_vern_id = qb_vern_id;"},
    {"Delete Publication",
     "PARAMETERS pubid Long; DELETE * FROM qb_publications WHERE pubid = qb_publication_id;"},
    {"Delete Reference Link",
     "PARAMETERS qbid Long, prefix Text, docid Long; DELETE * FROM qb_reference_links "
     "WHERE qbid = qb_id and qb_documentation_id_prefix = prefix and docid = qb_documentation_id;"},
    {"Delete VReference Link",
     "PARAMETERS qbid Long, prefix Text, docid Long, qbvernid Long; DELETE * "
     "FROM qb_vern_ref_links "
     "WHERE qbid = qb_id and qb_documentation_id_prefix = prefix and docid = qb_documentation_id "
     "and qbvernid = qb_vern_id;"},
    {"Delete Source", "PARAMETERS srcid Long; DELETE * FROM qb_other_sources WHERE srcid = qb_source_id;"},
    {"Delete Synonym Data", "PARAMETERS qbid Long; DELETE * FROM qb_synonym_links WHERE qbid = qb_id;"},
    {"Delete Taxon", "PARAMETERS qbid Long; DELETE * FROM qb_taxonomic_units WHERE qbid = qb_id;"},
    {"Delete Vernacular",
     "PARAMETERS qbvernid Long; DELETE * FROM qb_vernaculars WHERE qbvernid = qb_vern_id;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> CheckAndDeleteQueries() {
    return kCheckAndDelete;
}

}  // namespace quillon::store
