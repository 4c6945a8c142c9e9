// Queries that read data, first part.
//
// The program replaces the first "0" of "Get Accepted Names" with a rank_id, so no other "0" may precede it.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kGetAToJ[] = {
    {"Get Accepted Names",
     R"(SELECT t.unit_name1, t.qb_id, Trim( trim( trim( Trim(trim([t].[unit_ind1] & " " )"
     R"(& [t].[unit_name1]) & " " & trim([t].[unit_ind2] & " " & [t].[unit_name2])) & " " )"
     R"(& trim([t].[unit_ind3] & " " & [t].[unit_name3]))& " " & trim([t].[unit_ind4] & " " )"
     R"(& [t].[unit_name4])) & " " & trim([a].[taxon_author])) AS line )"
     "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
     "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
     "WHERE ((t.usage)='accepted' Or (t.usage)='valid') AND t.rank_id=0 "
     "ORDER BY t.unit_name1;"},
    {"Get Accepted Names of Synonym",
     "PARAMETERS Synonym_id Long; "
     "SELECT DISTINCTROW qb_taxonomic_units.qb_id, qb_taxonomic_units.unit_ind1, "
     "qb_taxonomic_units.unit_name1, qb_taxonomic_units.unit_ind2, qb_taxonomic_units.unit_name2, "
     "qb_taxonomic_units.unit_ind3, qb_taxonomic_units.unit_name3, qb_taxonomic_units.unit_ind4, "
     "qb_taxonomic_units.unit_name4, qb_taxon_authors_lookup.taxon_author, "
     "qb_synonym_links.qb_id_accepted, qb_synonym_links.tsn_accepted "
     "FROM (qb_synonym_links INNER JOIN qb_taxonomic_units "
     "ON qb_synonym_links.qb_id_accepted = qb_taxonomic_units.qb_id) "
     "LEFT JOIN qb_taxon_authors_lookup ON qb_taxonomic_units.qb_taxon_author_id = "
     "qb_taxon_authors_lookup.qb_taxon_author_id "
     "WHERE ((qb_synonym_links.qb_id=[Synonym_id]));"},
    {"Get All Authors", "SELECT * FROM qb_taxon_authors_lookup;"},
    {"Get All Comment Links", "SELECT * FROM qb_tu_comments_link;"},
    {"Get All Comments", "SELECT * FROM qb_comments;"},
    {"Get All Distrib Data", "SELECT * FROM qb_geographic_division;"},
    {"Get All Experts", "SELECT * FROM qb_experts;"},
    {"Get All Jurisdiction Data", "SELECT * FROM qb_jurisdiction;"},
    {"Get All Other Sources", "SELECT * FROM qb_other_sources;"},
    {"Get All Publications", "SELECT * FROM qb_publications;"},
    {"Get All Reference Links", "SELECT * FROM qb_reference_links;"},
    {"Get All Synonym Links", "SELECT * FROM qb_synonym_links;"},
    {"Get All Taxons", "SELECT * FROM qb_taxonomic_units;"},
    {"Get All Vernaculars", "SELECT * FROM qb_vernaculars;"},
    {"Get Animal Data",
     "SELECT t.qb_id, t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author, "
     R"(Trim(Trim(Trim(t.unit_name1) & " " & t.unit_name2) & " " )"
     R"(& Trim(IIf(t.unit_ind3 = 'X',t.unit_ind3 & " ",)) & t.unit_name3) & " " & Trim(t.unit_name4 )"
     R"(& " " & Trim(a.taxon_author) & " (" & t.usage & ") " ) AS line )"
     "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
     "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
     "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author;"},
    {"Get Author ID",
     "PARAMETERS author Text; "
     "SELECT qb_taxon_author_id "
     "FROM qb_taxon_authors_lookup "
     "WHERE StrComp(taxon_author,author,0)=0;"},
    {"Get Author Name",
     "PARAMETERS authorid Long; "
     "SELECT taxon_author, taxon_author_id "
     "FROM qb_taxon_authors_lookup "
     "WHERE authorid = qb_taxon_author_id;"},
    {"Get Children",
     "PARAMETERS parent Long; "
     "SELECT unit_name1, unit_name2, unit_name3, unit_name4, qb_taxon_author_id "
     "FROM qb_taxonomic_units "
     "WHERE parent_qb_id = parent;"},
    {"Get Com Dummy ID",
     "PARAMETERS com Text; "
     "SELECT qb_comment_id "
     "FROM qb_comments "
     "WHERE com = commentator;"},
    {"Get Comment ID",
     "PARAMETERS com Text, detail Text; "
     "SELECT qb_comment_id "
     "FROM qb_comments "
     "WHERE com = commentator and (detail = comment_detail or comment_detail Is Null);"},
    {"Get Comment Links",
     "PARAMETERS qbid Long; "
     "SELECT * "
     "FROM qb_tu_comments_link "
     "WHERE qbid = qb_id;"},
    {"Get Comments",
     "PARAMETERS QBid Long; "
     "SELECT qb_comments.* "
     "FROM qb_tu_comments_link INNER JOIN qb_comments "
     "ON qb_tu_comments_link.qb_comment_id = qb_comments.qb_comment_id "
     "WHERE ((qb_tu_comments_link.qb_id=[QBid]));"},
    {"Get Data",
     "SELECT t.qb_id, t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author, "
     R"(Trim( Trim( Trim( Trim([t].[unit_ind1] & " " & [t].[unit_name1]) & " " & Trim([t].[unit_ind2] )"
     R"(& " " & [t].[unit_name2])) & " " & Trim([t].[unit_ind3] & " " & [t].[unit_name3])) & " " )"
     R"(& Trim([t].[unit_ind4] & " " & [t].[unit_name4])) & " " & Trim( Trim([a].[taxon_author]) )"
     R"sql(& " (" & [t].[usage] & ")" ) AS line )sql"
     "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
     "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
     "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author;"},
    {"Get Distrib Data",
     "PARAMETERS qbid Long; "
     "SELECT geographic_value, tsn "
     "FROM qb_geographic_division "
     "WHERE qbid = qb_id;"},
    {"Get Dummy ID",
     "PARAMETERS name Text; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE name = unit_name1;"},
    {"Get Exp Dummy ID",
     "PARAMETERS exp Text; "
     "SELECT qb_expert_id "
     "FROM qb_experts "
     "WHERE exp = expert;"},
    {"Get Expert Comment",
     "PARAMETERS exp Text; "
     "SELECT exp_comment, qb_expert_id, expert_id "
     "FROM qb_experts "
     "WHERE exp = expert;"},
    {"Get Expert IDS",
     "PARAMETERS exp Text, comment Text; "
     "SELECT qb_expert_id, expert_id "
     "FROM qb_experts "
     "WHERE exp = expert and (comment = exp_comment or exp_comment Is Null);"},
    {"Get Expert ID",
     "PARAMETERS exp Text, comment Text; "
     "SELECT qb_expert_id "
     "FROM qb_experts "
     "WHERE exp = expert and (comment = exp_comment or exp_comment Is Null);"},
    {"Get Experts",
     "PARAMETERS QBid Long; "
     "SELECT qb_experts.*, qb_reference_links.vernacular_name "
     "FROM qb_reference_links INNER JOIN qb_experts "
     "ON qb_reference_links.qb_documentation_id = qb_experts.qb_expert_id "
     "WHERE ((qb_reference_links.qb_id=[QBid]) "
     R"(AND (qb_reference_links.qb_documentation_id_prefix="EXP"));)"},
    {"Get VExperts",
     "PARAMETERS QBid Long; "
     "SELECT qb_experts.*, qb_vern_ref_links.vernacular_name, qb_vern_ref_links.qb_vern_id "
     "FROM qb_vern_ref_links INNER JOIN qb_experts "
     "ON qb_vern_ref_links.qb_documentation_id = qb_experts.qb_expert_id "
     "WHERE ((qb_vern_ref_links.qb_id=[QBid]) "
     R"(AND (qb_vern_ref_links.qb_documentation_id_prefix="EXP"));)"},
    {"Get First Equal",
     "PARAMETERS rank Long; "
     "SELECT min(unit_name1) "
     "FROM qb_taxonomic_units "
     "WHERE rank = rank_id;"},
    {"Get First Species",
     "PARAMETERS name1 Text, rank Long; "
     "SELECT min(unit_name2) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and rank = rank_id;"},
    {"Get First SubSpecies",
     "PARAMETERS name1 Text, name2 Text, rank Long; "
     "SELECT min(unit_name3) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and rank = rank_id;"},
    {"Get First Variety",
     "PARAMETERS name1 Text, name2 Text, name3 Text, rank Long; "
     "SELECT min(unit_name4) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 and rank = rank_id;"},
    {"Get ID",
     "PARAMETERS name Text, rank Long; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE name = unit_name1 and rank = rank_id;"},
    {"Get ID2",
     "PARAMETERS name1 Text, name2 Text, rank Long; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and rank = rank_id;"},
    {"Get ID3",
     "PARAMETERS name1 Text, name2 Text, name3 Text, rank Long; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 and rank = rank_id;"},
    {"Get ID4",
     "PARAMETERS name1 Text, name2 Text, name3 Text, name4 Text, rank Long; "
     "SELECT qb_id "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 "
     "and name4 = unit_name4 and rank = rank_id;"},
    {"Get Jurisdiction Data",
     "PARAMETERS qbid Long; "
     "SELECT jurisdiction_value, origin, tsn "
     "FROM qb_jurisdiction "
     "WHERE qbid = qb_id;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> GetQueriesAToJ() {
    return kGetAToJ;
}

}  // namespace quillon::store
