// Queries that add rows. The Dummy queries add the placeholder of a row that an import has not read yet, with
// the parameter as its marker, by which the "Get ... Dummy ID" queries find it.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kInsert[] = {
    {"Import Author",
     "PARAMETERS author Text, aid Long, kingdom Long; "
     "INSERT INTO qb_taxon_authors_lookup ( taxon_author, taxon_author_id, kingdom_id ) "
     "SELECT author, aid, kingdom;"},
    {"Insert Author",
     "PARAMETERS author Text, kingdom Long; "
     "INSERT INTO qb_taxon_authors_lookup ( taxon_author, kingdom_id ) SELECT author, kingdom;"},
    {"Insert Com Dummy", "PARAMETERS com Text; INSERT INTO qb_comments ( commentator ) SELECT com;"},
    {"Insert Comment",
     "PARAMETERS comid Long, com Text, detail Text, ts Text; "
     "INSERT INTO qb_comments ( comment_id, commentator, comment_detail, comment_time_stamp ) "
     "SELECT comid, com, detail, ts;"},
    {"Insert Comment Link",
     "PARAMETERS qbid Long, commentid Long, tsn Long, comID Long; "
     "INSERT INTO qb_tu_comments_link ( qb_id, qb_comment_id, tsn, comment_id ) "
     "SELECT qbid, commentid, tsn, comID;"},
    {"Insert Division",
     "PARAMETERS qbid Long, division Text, thetsn Long; "
     "INSERT INTO qb_geographic_division ( qb_id, geographic_value, tsn ) "
     "SELECT qbid, division, thetsn;"},
    {"Insert Dummy", "PARAMETERS name Text; INSERT INTO qb_taxonomic_units ( unit_name1 ) SELECT name;"},
    {"Insert Exp Dummy",
     R"(PARAMETERS exp Text; INSERT INTO qb_experts ( expert_id_prefix, expert ) SELECT "EXP", exp;)"},
    {"Insert Expert",
     "PARAMETERS expid Long, exp Text, comment Text; "
     "INSERT INTO qb_experts ( expert_id_prefix, expert_id, expert, exp_comment ) "
     R"(SELECT "EXP", expid, exp, comment;)"},
    {"Insert Jurisdiction",
     "PARAMETERS qbid Long, jurisdiction Text, origin Text, thetsn Long; "
     "INSERT INTO qb_jurisdiction ( qb_id, jurisdiction_value, origin, tsn ) "
     "SELECT qbid, jurisdiction, origin, thetsn;"},
    {"Insert NODC",
     "PARAMETERS qbid Long, nodcid Text, thetsn Long; INSERT INTO qb_nodc_ids ( nodc_id, qb_id, tsn ) "
     "SELECT nodcid, qbid, thetsn;"},
    {"Insert Other Source",
     "PARAMETERS srcid Long, type Text, src Text, ver Text, adate Text, comment Text; "
     "INSERT INTO qb_other_sources ( source_id_prefix, source_id, source_type, source, version, "
     "acquisition_date, source_comment ) "
     R"(SELECT "SRC", srcid, type, src, ver, adate, comment;)"},
    {"Insert Pub Dummy",
     "PARAMETERS pub Text; INSERT INTO qb_publications ( publication_id_prefix, publication_name ) "
     R"(SELECT "PUB", pub;)"},
    {"Insert Publication",
     "PARAMETERS pubid Long, author Text, ptitle Text, name Text, listdate Text, actdate Text, "
     "pub Text, location Text, ibn Text, isn Text, pgs Text, comment Text; "
     "INSERT INTO qb_publications ( publication_id_prefix, publication_id, reference_author, title, "
     "publication_name, listed_pub_date, actual_pub_date, publisher, pub_place, isbn, issn, pages, "
     "pub_comment ) "
     R"(SELECT "PUB", pubid, author, ptitle, name, listdate, actdate, pub, location, ibn, isn, pgs, )"
     "comment;"},
    {"Insert Reference Link",
     "PARAMETERS qbid Long, prefix Text, qbdocid Long, tsn Long, docid Long, org Text, initial Text, "
     "Track Text, vname Text; "
     "INSERT INTO qb_reference_links ( qb_id, qb_documentation_id_prefix, qb_documentation_id, tsn, "
     "documentation_id, original_desc_ind, initial_orva_desc_ind, qb_change_track_id, "
     "vernacular_name ) "
     "SELECT qbid, prefix, qbdocid, tsn, docid, org, initial, track, vname;"},
    {"Insert VReference Link",
     "PARAMETERS qbid Long, qbvernid Long, vernid Long, prefix Text, qbdocid Long, tsn Long, "
     "docid Long; "
     "INSERT INTO qb_vern_ref_links ( qb_id, qb_vern_id, vern_id, qb_documentation_id_prefix, "
     "qb_documentation_id, tsn, documentation_id ) "
     "SELECT qbid, qbvernid, vernid, prefix, qbdocid, tsn, docid;"},
    {"Insert Src Dummy",
     "PARAMETERS src Text; INSERT INTO qb_other_sources ( source_id_prefix, source ) "
     R"(SELECT "SRC", src;)"},
    {"Insert Synonym",
     "PARAMETERS qbid Long, synID Long, thetsn Long, tsnsyn Long; "
     "INSERT INTO qb_synonym_links ( qb_id, qb_id_accepted, tsn, tsn_accepted ) "
     "SELECT qbid, synID, thetsn, tsnsyn;"},
    {"Insert Taxon Data",
     "PARAMETERS thetsn Long, ind1 Text, name1 Text, ind2 Text, name2 Text, ind3 Text, name3 Text, "
     "ind4 Text, name4 Text, unnamed Text, usage Text, reason Text, credibility Text, coverage Text, "
     "current Text, phylo Long, ts Text, parenttsn Long, parent Long, author Long, hybrid Long, "
     "kingdom Long, rank Long, uncertain_parent_ind Text; "
     "INSERT INTO qb_taxonomic_units ( tsn, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, "
     "unit_name3, unit_ind4, unit_name4, unnamed_taxon_ind, usage, unacceptability_reason, "
     "taxonomic_credibility_rating, taxonomic_completeness_rating, currency_rating, "
     "phylo_sort_sequence, initial_time_stamp, parent_tsn, parent_qb_id, qb_taxon_author_id, "
     "hybrid_author_id, kingdom_id, rank_id, uncertain_parent_ind ) "
     "SELECT thetsn, ind1, name1, ind2, name2, ind3, name3, ind4, name4, unnamed, usage, reason, "
     "credibility, coverage, current, phylo, ts, parenttsn, parent, author, hybrid, kingdom, rank, "
     "uncertain_parent_ind;"},
    {"Insert Vernacular",
     "PARAMETERS qbid Long, thetsn Long, vername Text, hexvername Text, lang Text, approved Text, "
     "qbvernid Long, vernid Long;"
     "INSERT INTO qb_vernaculars ( qb_id, tsn, vernacular_name, hex_vernacular_name, language, "
     "approved_ind, qb_vern_id, vern_id ) "
     "VALUES (qbid, thetsn, vername, hexvername, lang, approved, qbvernid, vernid);"},
    {"Insert Vern Dummy",
     "PARAMETERS name Text; INSERT INTO qb_vernaculars ( vernacular_name ) SELECT name;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> InsertQueries() {
    return kInsert;
}

}  // namespace quillon::store
