// The name lines of both sides of a compare: names are matched by Line and shown as Line2. They differ in
// blanks, which is visible in the lists and must stay.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kBuildName[] = {
    {"BuildNameAuthorRankTaxunits",
     R"(SELECT DISTINCT c.[unit_ind1] & " " & c.[unit_name1] & " " & c.[unit_ind2] & " " )"
     R"(& c.[unit_name2] & " " & c.[unit_ind3] & " " & c.[unit_name3] & " " & c.[unit_ind4] & " " )"
     R"(& c.[unit_name4] & " " & b.taxon_author & " " & d.rank_name AS Line, )"
     R"([Unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] & " " & [unit_ind3] )"
     R"(& " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & " " )"
     R"sql(& b.taxon_author &" "& d.rank_name &" " & "(" & [usage] & ")" AS Line2, c.unit_name1, )sql"
     "c.unit_name2, c.unit_name3, c.unit_name4 "
     "FROM (taxonomic_unit_types AS d RIGHT JOIN taxunits AS c ON (d.rank_id=c.rank_id) "
     "AND (d.kingdom_id=c.kingdom_id)) LEFT JOIN authors AS b "
     "ON c.qb_taxon_author_id = b.qb_taxon_author_id "
     "ORDER BY c.unit_name1, c.unit_name2, c.unit_name3, c.unit_name4;"},
    {"BuildNameAuthorRankQBTaxonomicunits",
     R"(SELECT DISTINCT c.[unit_ind1] & " " & c.[unit_name1] & " " & c.[unit_ind2] & " " )"
     R"(& c.[unit_name2] & " " & c.[unit_ind3] & " " & c.[unit_name3] & " " & c.[unit_ind4] & " " )"
     R"(& c.[unit_name4] & " " & b.taxon_author & " " & d.rank_name AS Line, )"
     R"([Unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] & " " & [unit_ind3] )"
     R"(& " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & " " )"
     R"sql(& b.taxon_author &" "& d.rank_name &" " & "(" & [usage] & ")" AS Line2, c.unit_name1, )sql"
     "c.unit_name2, c.unit_name3, c.unit_name4 "
     "FROM (taxonomic_unit_types AS d RIGHT JOIN qb_taxonomic_units AS c ON (d.rank_id=c.rank_id) "
     "AND (d.kingdom_id=c.kingdom_id)) LEFT JOIN qb_taxon_authors_lookup AS b "
     "ON c.qb_taxon_author_id = b.qb_taxon_author_id "
     "ORDER BY c.unit_name1, c.unit_name2, c.unit_name3, c.unit_name4;"},
    {"BuildNameAuthorTaxunits",
     R"(SELECT DISTINCT [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] )"
     R"(& " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & " " )"
     R"(& b.taxon_author AS Line, [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " )"
     R"(& [unit_name2] & " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " )"
     R"sql(& [unit_name4] & b.taxon_author & "(" & [usage] & ")" AS Line2, a.unit_name1, a.unit_name2, )sql"
     "a.unit_name3, a.unit_name4 "
     "FROM taxunits AS a LEFT JOIN authors AS b ON a.qb_taxon_author_id = b.qb_taxon_author_id "
     "ORDER BY a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4;"},
    {"BuildNameAuthorQBTaxonomicunits",
     R"(SELECT DISTINCT [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] )"
     R"(& " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & " " )"
     R"(& b.taxon_author AS Line, [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " )"
     R"(& [unit_name2] & " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " )"
     R"sql(& [unit_name4] & " " & b.taxon_author & "(" & [usage] & ")" AS Line2, a.unit_name1, )sql"
     "a.unit_name2, a.unit_name3, a.unit_name4 "
     "FROM qb_taxonomic_units AS a LEFT JOIN qb_taxon_authors_lookup AS b "
     "ON a.qb_taxon_author_id = b.qb_taxon_author_id "
     "ORDER BY a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4;"},
    {"BuildNameTaxunits",
     R"(SELECT DISTINCT [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] )"
     R"(& " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] AS Line, )"
     R"([unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] & " " & [unit_ind3] )"
     R"sql(& " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & "(" & [usage] & ")" AS Line2, )sql"
     "a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4 "
     "FROM taxunits AS a "
     "ORDER BY a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4;"},
    {"BuildNameQBTaxonomicunits",
     R"(SELECT DISTINCT [unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] )"
     R"(& " " & [unit_ind3] & " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] AS Line, )"
     R"([unit_ind1] & " " & [unit_name1] & " " & [unit_ind2] & " " & [unit_name2] & " " & [unit_ind3] )"
     R"sql(& " " & [unit_name3] & " " & [unit_ind4] & " " & [unit_name4] & "(" & [usage] & ")" AS Line2, )sql"
     "a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4 "
     "FROM qb_taxonomic_units AS a "
     "ORDER BY a.unit_name1, a.unit_name2, a.unit_name3, a.unit_name4;"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> BuildNameQueries() {
    return kBuildName;
}

}  // namespace quillon::store
