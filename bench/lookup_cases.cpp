#include "lookup_cases.h"

namespace quillon::bench {

namespace {

// The rowids of the taxa, in an order that jumps over the table.
constexpr std::string_view kTaxonKeys =
    "SELECT qb_id FROM qb_taxonomic_units ORDER BY (qb_id * 7919) % 100003 LIMIT 1000";

}  // namespace

const std::vector<LookupCase>& LookupCases() {
    static const std::vector<LookupCase> cases = {
        {"Get Taxon Data", "qbid", "SELECT * FROM qb_taxonomic_units WHERE qb_id = ?1", kTaxonKeys},
        {"Get Author Name", "authorid",
         "SELECT taxon_author, taxon_author_id FROM qb_taxon_authors_lookup WHERE qb_taxon_author_id = ?1",
         "SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup ORDER BY (qb_taxon_author_id * 7919) % "
         "25013 LIMIT 1000"},
        {"Get Rank Info", "rank", "SELECT * FROM taxonomic_unit_types WHERE rank_id = ?1",
         "SELECT rank_id FROM taxonomic_unit_types"},
        {"Get Children", "parent",
         "SELECT unit_name1, unit_name2, unit_name3, unit_name4, qb_taxon_author_id FROM qb_taxonomic_units "
         "WHERE parent_qb_id = ?1",
         "SELECT DISTINCT parent_qb_id FROM qb_taxonomic_units WHERE rank_id = 220 AND parent_qb_id IS NOT "
         "NULL "
         "GROUP BY parent_qb_id HAVING count(*) BETWEEN 2 AND 40 ORDER BY (parent_qb_id * 7919) % 100003 "
         "LIMIT 1000"},
        {"Get Author ID", "author",
         "SELECT qb_taxon_author_id FROM qb_taxon_authors_lookup WHERE taxon_author = ?1",
         "SELECT taxon_author FROM qb_taxon_authors_lookup ORDER BY (qb_taxon_author_id * 7919) % 25013 "
         "LIMIT 1000"},
        {"Get Parent Name", "Parent_id",
         "SELECT DISTINCT unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, "
         "unit_name4, "
         "kingdom_id, rank_id FROM qb_taxonomic_units WHERE qb_id = ?1",
         kTaxonKeys},
    };
    return cases;
}

}  // namespace quillon::bench
