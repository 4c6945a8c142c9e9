// The statements of cBioList, in the store's dialect. `theId` is a qb_id, or a rank_id for the root.
#pragma once

#include <cstdint>
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

// For several taxa: {0} declares their parameters, {1} lists them.
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

// The sort keys of the items under a taxon: (qb_id, rank_id, phylo_sort_sequence, four units), ordered by id,
// after `theLast`.
inline constexpr std::int64_t kFirstKey = -2147483648;
inline constexpr std::string_view kChildKeysSql =
    "PARAMETERS theId Long, theLast Long; SELECT qb_id, rank_id, phylo_sort_sequence, "
    "unit_name1, unit_name2, unit_name3, unit_name4 FROM qb_taxonomic_units "
    "WHERE parent_qb_id = [theId] AND qb_id <> parent_qb_id AND qb_id > [theLast] ORDER BY qb_id";
inline constexpr std::string_view kSynonymKeysSql =
    "PARAMETERS theId Long, theLast Long; SELECT s.qb_id, t.rank_id, t.phylo_sort_sequence, "
    "t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4 "
    "FROM qb_synonym_links AS s INNER JOIN qb_taxonomic_units AS t ON s.qb_id = t.qb_id "
    "WHERE s.qb_id_accepted = [theId] AND s.qb_id > [theLast] ORDER BY s.qb_id";
// The same for all taxa without a parent, a row for each of its synonym links, or one. The last column is the
// accepted name of the link, and Null where there is none.
inline constexpr std::string_view kOrphanKeysSql =
    "PARAMETERS theLast Long; SELECT t.qb_id, t.rank_id, t.phylo_sort_sequence, "
    "t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.qb_id AS LinkedId "
    "FROM (qb_taxonomic_units AS t LEFT JOIN qb_synonym_links AS s ON t.qb_id = s.qb_id) "
    "LEFT JOIN qb_taxonomic_units AS a ON s.qb_id_accepted = a.qb_id "
    "WHERE t.parent_qb_id Is Null AND t.qb_id > [theLast] ORDER BY t.qb_id";
inline constexpr std::string_view kKingdomNamesSql = "SELECT kingdom_name FROM kingdoms";

// The numbers of children and of synonyms of several taxa: (qb_id, count).
inline constexpr std::string_view kChildrenOfManySql =
    "PARAMETERS {0}; SELECT parent_qb_id, count(*) AS ChildCount FROM qb_taxonomic_units "
    "WHERE parent_qb_id In ({1}) AND qb_id <> parent_qb_id GROUP BY parent_qb_id";
inline constexpr std::string_view kSynonymsOfManySql =
    "PARAMETERS {0}; SELECT qb_id_accepted, count(*) AS ChildCount FROM qb_synonym_links "
    "WHERE qb_id_accepted In ({1}) GROUP BY qb_id_accepted";

}  // namespace quillon::navigation
