// The statements of cBioList, in the store's dialect. `theId` is a qb_id, or a rank_id for the root.
#pragma once

#include <string_view>

namespace quillon::navigation {

inline constexpr std::string_view kTopRankSql = "SELECT min(rank_id) AS TopRank FROM qb_taxonomic_units";
inline constexpr std::string_view kRootSql =
    "PARAMETERS theId Long; SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE rank_id = [theId] AND (usage='valid' OR usage='accepted')";
inline constexpr std::string_view kOneRecordSql =
    "PARAMETERS theId Long; SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE qb_id = [theId]";

// Of several taxa: {0} declares their parameters, {1} lists them.
inline constexpr std::string_view kNamesSql =
    "PARAMETERS {0}; SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE qb_id In ({1})";

inline constexpr std::string_view kCountChildrenSql =
    "PARAMETERS theId Long; SELECT count(*) AS ChildCount FROM qb_taxonomic_units "
    "WHERE qb_id <> parent_qb_id AND parent_qb_id = [theId]";
inline constexpr std::string_view kCountSynonymsSql =
    "PARAMETERS theId Long; SELECT count(*) AS ChildCount FROM qb_synonym_links WHERE qb_id_accepted = "
    "[theId]";

inline constexpr std::string_view kChildrenSql =
    "PARAMETERS theId Long; SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE parent_qb_id = [theId] AND qb_id <> parent_qb_id "
    "ORDER BY rank_id, phylo_sort_sequence, unit_name1, unit_name2, unit_name3, unit_name4;";
inline constexpr std::string_view kSynonymsSql =
    "PARAMETERS theId Long; SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_synonym_links INNER JOIN "
    "(qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = "
    "a.qb_taxon_author_id) "
    "ON qb_synonym_links.qb_id = t.qb_id WHERE qb_synonym_links.qb_id_accepted = [theId] "
    "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4;";

// The counts of all items under one at once: (qb_id, how many).
inline constexpr std::string_view kChildrenOfChildrenSql =
    "PARAMETERS theId Long; SELECT c.parent_qb_id, count(*) AS ChildCount FROM qb_taxonomic_units AS p "
    "INNER JOIN qb_taxonomic_units AS c ON c.parent_qb_id = p.qb_id "
    "WHERE p.parent_qb_id = [theId] AND c.qb_id <> c.parent_qb_id GROUP BY c.parent_qb_id";
inline constexpr std::string_view kSynonymsOfChildrenSql =
    "PARAMETERS theId Long; SELECT s.qb_id_accepted, count(*) AS ChildCount FROM qb_taxonomic_units AS p "
    "INNER JOIN qb_synonym_links AS s ON s.qb_id_accepted = p.qb_id "
    "WHERE p.parent_qb_id = [theId] GROUP BY s.qb_id_accepted";
inline constexpr std::string_view kChildrenOfSynonymsSql =
    "PARAMETERS theId Long; SELECT c.parent_qb_id, count(*) AS ChildCount FROM qb_synonym_links AS p "
    "INNER JOIN qb_taxonomic_units AS c ON c.parent_qb_id = p.qb_id "
    "WHERE p.qb_id_accepted = [theId] AND c.qb_id <> c.parent_qb_id GROUP BY c.parent_qb_id";
inline constexpr std::string_view kSynonymsOfSynonymsSql =
    "PARAMETERS theId Long; SELECT s.qb_id_accepted, count(*) AS ChildCount FROM qb_synonym_links AS p "
    "INNER JOIN qb_synonym_links AS s ON s.qb_id_accepted = p.qb_id "
    "WHERE p.qb_id_accepted = [theId] GROUP BY s.qb_id_accepted";

// The links are looked up by their key, of which a DISTINCT would first make a copy.
inline constexpr std::string_view kOrphansSql =
    "SELECT t.*, a.taxon_author AS TaxAuthor FROM qb_taxonomic_units AS t "
    "LEFT JOIN qb_taxon_authors_lookup AS a ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "WHERE (((t.parent_qb_id) Is Null) AND t.qb_id Not In (SELECT qb_id FROM qb_synonym_links) AND "
    "((t.unit_name1) Not In (SELECT kingdom_name FROM kingdoms))) "
    "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4;";
// For all taxa without a parent; the parameter is not used.
inline constexpr std::string_view kChildrenOfOrphansSql =
    "PARAMETERS theId Long; SELECT c.parent_qb_id, count(*) AS ChildCount FROM qb_taxonomic_units AS p "
    "INNER JOIN qb_taxonomic_units AS c ON c.parent_qb_id = p.qb_id "
    "WHERE p.parent_qb_id Is Null AND c.qb_id <> c.parent_qb_id GROUP BY c.parent_qb_id";
inline constexpr std::string_view kSynonymsOfOrphansSql =
    "PARAMETERS theId Long; SELECT s.qb_id_accepted, count(*) AS ChildCount FROM qb_taxonomic_units AS p "
    "INNER JOIN qb_synonym_links AS s ON s.qb_id_accepted = p.qb_id "
    "WHERE p.parent_qb_id Is Null GROUP BY s.qb_id_accepted";

}  // namespace quillon::navigation
