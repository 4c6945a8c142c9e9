// The matches of a compare, updates of rows, and the users of a comment or a document.
//
// "Update VVern_Ref Link" moves a link to the taxon's vernacular vernid (a qb_vern_id) and copies that row's
// vern_id.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kMatchUpdateAndValidate[] = {
    {"Taxmatch Name",
     "SELECT DISTINCTROW BuildNameQBTaxonomicunits.Line2, BuildNameTaxunits.Line2 AS line, "
     "BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
     "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4 "
     "FROM BuildNameQBTaxonomicunits INNER JOIN BuildNameTaxunits "
     "ON BuildNameQBTaxonomicunits.Line = BuildNameTaxunits.Line "
     "ORDER BY BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
     "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4;"},
    {"Taxmatch Name/Author",
     "SELECT DISTINCTROW BuildNameAuthorQBTaxonomicunits.Line2, "
     "BuildNameAuthorTaxunits.Line2 AS line, BuildNameAuthorQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorQBTaxonomicunits.unit_name2, BuildNameAuthorQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorQBTaxonomicunits.unit_name4 "
     "FROM BuildNameAuthorQBTaxonomicunits "
     "INNER JOIN BuildNameAuthorTaxunits "
     "ON BuildNameAuthorQBTaxonomicunits.Line = BuildNameAuthorTaxunits.Line "
     "ORDER BY BuildNameAuthorQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorQBTaxonomicunits.unit_name2, BuildNameAuthorQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorQBTaxonomicunits.unit_name4;"},
    {"Taxmatch Name/Author/Rank",
     "SELECT DISTINCTROW BuildNameAuthorRankQBTaxonomicunits.Line2, "
     "BuildNameAuthorRankTaxunits.Line2 AS line, BuildNameAuthorRankQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name2, BuildNameAuthorRankQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name4 "
     "FROM BuildNameAuthorRankQBTaxonomicunits "
     "INNER JOIN BuildNameAuthorRankTaxunits "
     "ON BuildNameAuthorRankQBTaxonomicunits.Line = BuildNameAuthorRankTaxunits.Line "
     "ORDER BY BuildNameAuthorRankQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name2, BuildNameAuthorRankQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name4;"},
    {"Update Comment",
     "PARAMETERS qbcomid Long, comid Long, com Text, detail Text, ts Text; "
     "UPDATE qb_comments "
     "SET comment_id = comid, commentator = com, comment_detail = detail, comment_time_stamp = ts "
     "WHERE qbcomid = qb_comment_id;"},
    {"Update Expert",
     "PARAMETERS qbexpid Long, expid Long, exp Text, comment Text; "
     "UPDATE qb_experts "
     "SET expert_id = expid, expert = exp, exp_comment = comment "
     "WHERE qbexpid = qb_expert_id;"},
    {"Update Other Source",
     "PARAMETERS qbsrcid Long, srcid Long, type Text, src Text, ver Text, adate Text, comment Text; "
     "UPDATE qb_other_sources "
     "SET source_id = srcid, source_type = type, source = src, version = ver, "
     "acquisition_date = adate, source_comment = comment "
     "WHERE qbsrcid = qb_source_id;"},
    {"Update Publication",
     "PARAMETERS qbpubid Long, pubid Long, author Text, ptitle Text, name Text, listdate Text, "
     "actdate Text, pub Text, location Text, ibn Text, isn Text, pgs Text, comment Text; "
     "UPDATE qb_publications "
     "SET publication_id = pubid, reference_author = author, title = ptitle, publication_name = name, "
     "listed_pub_date = listdate, actual_pub_date = actdate, publisher = pub, pub_place = location, "
     "isbn = ibn, issn = isn, pages = pgs, pub_comment = comment "
     "WHERE qbpubid = qb_publication_id;"},
    {"Update Reference Link",
     "PARAMETERS qbid Long, prefix Text, qbdocid Long, org Text, initial Text, track Long, "
     "vname Text; "
     "UPDATE qb_reference_links "
     "SET original_desc_ind = org, initial_orva_desc_ind = initial, qb_change_track_id = track, "
     "vernacular_name = vname "
     "WHERE qb_id = qbid and qb_documentation_id_prefix = prefix and qb_documentation_id = qbdocid;"},
    {"Update Vern_Ref Link",
     "PARAMETERS qbid Long, prefix Text, qbdocid Long, vern Text, qbvernid Long, oldqbvernid Long; "
     "UPDATE qb_vern_ref_links "
     "SET vernacular_name = vern, qb_vern_id = qbvernid "
     "WHERE qb_id = qbid and qb_documentation_id_prefix = prefix "
     "and qb_documentation_id = qbdocid and qb_vern_id = oldqbvernid;"},
    {"Update VVern_Ref Link",
     "PARAMETERS qbid Long, prefix Text, qbdocid Long, vern Text, oldqbvernid Long, vernid Long; "
     "UPDATE qb_vern_ref_links INNER JOIN qb_vernaculars "
     "ON qb_vern_ref_links.qb_id = qb_vernaculars.qb_id "
     "SET qb_vern_ref_links.vernacular_name = vern, qb_vern_ref_links.qb_vern_id = vernid, "
     "qb_vern_ref_links.vern_id = qb_vernaculars.vern_id "
     "WHERE qb_vern_ref_links.qb_id = qbid "
     "and qb_vern_ref_links.qb_documentation_id_prefix = prefix "
     "and qb_vern_ref_links.qb_documentation_id = qbdocid "
     "and qb_vern_ref_links.qb_vern_id = oldqbvernid and qb_vernaculars.qb_vern_id = vernid;"},
    {"Update Taxon Data",
     "PARAMETERS qbid Long, thetsn Long, ind1 Text, name1 Text, ind2 Text, name2 Text, ind3 Text, "
     "name3 Text, ind4 Text, name4 Text, unnamed Text, use Text, reason Text, credibility Text, "
     "coverage Text, current Text, phylo Long, ts Text, parenttsn Long, parent Long, author Long, "
     "hybrid Long, kingdom Long, rank Long, uncert_ind Text; "
     "UPDATE qb_taxonomic_units "
     "SET tsn = thetsn, unit_ind1 = ind1, unit_name1 = name1, unit_ind2 = ind2, unit_name2 = name2, "
     "unit_ind3 = ind3, unit_name3 = name3, unit_ind4 = ind4, unit_name4 = name4, "
     "unnamed_taxon_ind = unnamed, usage = use, unacceptability_reason = reason, "
     "taxonomic_credibility_rating = credibility, taxonomic_completeness_rating = coverage, "
     "currency_rating = current, phylo_sort_sequence = phylo, initial_time_stamp = ts, "
     "parent_tsn = parenttsn, parent_qb_id = parent, qb_taxon_author_id = author, "
     "hybrid_author_id = hybrid, kingdom_id = kingdom, rank_id = rank, "
     "uncertain_parent_ind = uncert_ind "
     "WHERE qbid = qb_id;"},
    {"Update Vernacular",
     "PARAMETERS qbid Long, vername Text, hexvername Text, lang Text, approved Text, qbvernid Long;"
     "UPDATE qb_vernaculars "
     "SET qb_vernaculars.vernacular_name = vername, qb_vernaculars.[language] = lang, "
     "qb_vernaculars.approved_ind = approved,qb_vernaculars.hex_vernacular_name = hexvername "
     "WHERE qb_vern_id = qbvernid;"},
    {"Validate Comment Links",
     "PARAMETERS comID Long; "
     "SELECT qb_id "
     "FROM qb_tu_comments_link "
     "WHERE comID = qb_comment_id;"},
    {"Validate Reference Links",
     "PARAMETERS prefix Text, docid Long; "
     "SELECT qb_reference_links.qb_id "
     "FROM qb_reference_links "
     "WHERE qb_reference_links.qb_documentation_id_prefix=prefix AND docid=qb_documentation_id "
     "UNION "
     "SELECT qb_vern_ref_links.qb_id "
     "FROM qb_vern_ref_links "
     "WHERE qb_vern_ref_links.qb_documentation_id_prefix=prefix AND docid=qb_documentation_id;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> MatchUpdateAndValidateQueries() {
    return kMatchUpdateAndValidate;
}

}  // namespace quillon::store
