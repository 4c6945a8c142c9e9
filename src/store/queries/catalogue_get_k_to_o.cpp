// Queries that read data, second part: vocabulary, steps through a rank, and names without a match.
//
// "Get NoMatch1" tests the joined side with <>, the others test for Null. "Get NoMatch4" and "Get NoMatch6"
// return the Line of both sides, so their columns have the name of their query.
#include "store/queries/catalogue_families.h"

namespace quillon::store {

namespace {

// clang-format off
constexpr NamedQuery kGetKToO[] = {
    {"Get Kingdom Index",
     "PARAMETERS kingdom Text; "
     "SELECT kingdom_id "
     "FROM kingdoms "
     "WHERE kingdom_name = kingdom;"},
    {"Get Kingdom Name",
     "PARAMETERS kingid Long; "
     "SELECT DISTINCTROW kingdoms.kingdom_name "
     "FROM kingdoms "
     "WHERE kingdoms.kingdom_id=[kingid];"},
    {"Get Last Equal",
     "PARAMETERS rank Long; "
     "SELECT max(unit_name1) "
     "FROM qb_taxonomic_units "
     "WHERE rank = rank_id;"},
    {"Get Last Species",
     "PARAMETERS name1 Text, rank Long; "
     "SELECT max(unit_name2) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and rank = rank_id;"},
    {"Get Last SubSpecies",
     "PARAMETERS name1 Text, name2 Text, rank Long; "
     "SELECT max(unit_name3) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and rank = rank_id;"},
    {"Get Last Variety",
     "PARAMETERS name1 Text, name2 Text, name3 Text, rank Long; "
     "SELECT max(unit_name4) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 and rank = rank_id;"},
    {"Get Next Equal",
     "PARAMETERS name Text, rank Long; "
     "SELECT min(unit_name1) "
     "FROM qb_taxonomic_units "
     "WHERE unit_name1 > name and rank = rank_id;"},
    {"Get Next Species",
     "PARAMETERS name1 Text, name2 Text, rank Long; "
     "SELECT min(unit_name2) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and unit_name2 > name2 and rank = rank_id;"},
    {"Get Next SubSpecies",
     "PARAMETERS name1 Text, name2 Text, name3 Text, rank Long; "
     "SELECT min(unit_name3) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and unit_name3 > name3 and rank = rank_id;"},
    {"Get Next Variety",
     "PARAMETERS name1 Text, name2 Text, name3 Text, name4 Text, rank Long; "
     "SELECT min(unit_name4) "
     "FROM qb_taxonomic_units "
     "WHERE name1 = unit_name1 and name2 = unit_name2 and name3 = unit_name3 "
     "and unit_name4 > name4 and rank = rank_id;"},
    {"Get NODC Id",
     "PARAMETERS ID Long; "
     "SELECT nodc_id "
     "FROM qb_nodc_ids "
     "WHERE ID = qb_id;"},
    {"Get NoMatch1",
     "SELECT DISTINCTROW BuildNameQBTaxonomicunits.Line, BuildNameQBTaxonomicunits.Line2, "
     "BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
     "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4 "
     "FROM BuildNameQBTaxonomicunits LEFT JOIN BuildNameTaxunits "
     "ON BuildNameQBTaxonomicunits.Line = BuildNameTaxunits.Line "
     "WHERE ((BuildNameQBTaxonomicunits.Line<>[BuildNameTaxunits].[Line])) "
     "ORDER BY BuildNameQBTaxonomicunits.unit_name1, BuildNameQBTaxonomicunits.unit_name2, "
     "BuildNameQBTaxonomicunits.unit_name3, BuildNameQBTaxonomicunits.unit_name4;"},
    {"Get NoMatch2",
     "SELECT DISTINCTROW BuildNameTaxunits.Line, BuildNameTaxunits.Line2, "
     "BuildNameTaxunits.unit_name1, BuildNameTaxunits.unit_name2, BuildNameTaxunits.unit_name3, "
     "BuildNameTaxunits.unit_name4 "
     "FROM BuildNameTaxunits LEFT JOIN BuildNameQBTaxonomicunits "
     "ON BuildNameTaxunits.Line = BuildNameQBTaxonomicunits.Line "
     "WHERE ((BuildNameQBTaxonomicunits.Line Is Null)) "
     "ORDER BY BuildNameTaxunits.unit_name1, BuildNameTaxunits.unit_name2, "
     "BuildNameTaxunits.unit_name3, BuildNameTaxunits.unit_name4;"},
    {"Get NoMatch3",
     "SELECT DISTINCTROW BuildNameAuthorQBTaxonomicunits.Line, BuildNameAuthorQBTaxonomicunits.Line2, "
     "BuildNameAuthorQBTaxonomicunits.unit_name1, BuildNameAuthorQBTaxonomicunits.unit_name2, "
     "BuildNameAuthorQBTaxonomicunits.unit_name3, BuildNameAuthorQBTaxonomicunits.unit_name4 "
     "FROM BuildNameAuthorQBTaxonomicunits "
     "LEFT JOIN BuildNameAuthorTaxunits ON BuildNameAuthorQBTaxonomicunits.Line = "
     "BuildNameAuthorTaxunits.Line "
     "WHERE ((BuildNameAuthorTaxunits.Line Is Null)) "
     "ORDER BY BuildNameAuthorQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorQBTaxonomicunits.unit_name2, BuildNameAuthorQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorQBTaxonomicunits.unit_name4;"},
    {"Get NoMatch4",
     "SELECT DISTINCTROW BuildNameAuthorTaxunits.Line, BuildNameAuthorTaxunits.Line2, "
     "BuildNameAuthorQBTaxonomicunits.Line, BuildNameAuthorTaxunits.unit_name1, "
     "BuildNameAuthorTaxunits.unit_name2, BuildNameAuthorTaxunits.unit_name3, "
     "BuildNameAuthorTaxunits.unit_name4 "
     "FROM BuildNameAuthorTaxunits LEFT JOIN BuildNameAuthorQBTaxonomicunits "
     "ON BuildNameAuthorTaxunits.Line = BuildNameAuthorQBTaxonomicunits.Line "
     "WHERE ((BuildNameAuthorQBTaxonomicunits.Line Is Null)) "
     "ORDER BY BuildNameAuthorTaxunits.unit_name1, BuildNameAuthorTaxunits.unit_name2, "
     "BuildNameAuthorTaxunits.unit_name4;"},
    {"Get NoMatch5",
     "SELECT DISTINCTROW BuildNameAuthorRankQBTaxonomicunits.Line, "
     "BuildNameAuthorRankQBTaxonomicunits.Line2, BuildNameAuthorRankQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name2, BuildNameAuthorRankQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name4 "
     "FROM BuildNameAuthorRankQBTaxonomicunits "
     "LEFT JOIN BuildNameAuthorRankTaxunits "
     "ON BuildNameAuthorRankQBTaxonomicunits.Line = BuildNameAuthorRankTaxunits.Line "
     "WHERE ((BuildNameAuthorRankTaxunits.Line Is Null)) "
     "ORDER BY BuildNameAuthorRankQBTaxonomicunits.unit_name1, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name2, BuildNameAuthorRankQBTaxonomicunits.unit_name3, "
     "BuildNameAuthorRankQBTaxonomicunits.unit_name4;"},
    {"Get NoMatch6",
     "SELECT DISTINCTROW BuildNameAuthorRankTaxunits.Line, BuildNameAuthorRankTaxunits.Line2, "
     "BuildNameAuthorRankQBTaxonomicunits.Line, BuildNameAuthorRankTaxunits.unit_name1, "
     "BuildNameAuthorRankTaxunits.unit_name2, BuildNameAuthorRankTaxunits.unit_name3, "
     "BuildNameAuthorRankTaxunits.unit_name4 "
     "FROM BuildNameAuthorRankTaxunits LEFT JOIN BuildNameAuthorRankQBTaxonomicunits "
     "ON BuildNameAuthorRankTaxunits.Line = BuildNameAuthorRankQBTaxonomicunits.Line "
     "WHERE ((BuildNameAuthorRankQBTaxonomicunits.Line Is Null)) "
     "ORDER BY BuildNameAuthorRankTaxunits.unit_name1, BuildNameAuthorRankTaxunits.unit_name2, "
     "BuildNameAuthorRankTaxunits.unit_name4;"},
    {"Get Other Source ID",
     "PARAMETERS src Text, type Text, ver Text, adate Text, comment Text; "
     "SELECT qb_source_id "
     "FROM qb_other_sources "
     "WHERE src = source and (type = source_type or source_type Is Null) and (ver = version "
     "or version Is Null) and (adate = acquisition_date or acquisition_date Is Null) "
     "and (comment = source_comment or source_comment Is Null);"},
    {"Get Other Sources",
     "PARAMETERS QBid Long; "
     "SELECT qb_other_sources.*, qb_reference_links.vernacular_name "
     "FROM qb_reference_links INNER JOIN qb_other_sources "
     "ON qb_reference_links.qb_documentation_id = qb_other_sources.qb_source_id "
     "WHERE ((qb_reference_links.qb_id=[QBid]) "
     R"(AND (qb_reference_links.qb_documentation_id_prefix="SRC"));)"},
    {"Get VOther Sources",
     "PARAMETERS QBid Long; "
     "SELECT qb_other_sources.*, qb_vern_ref_links.vernacular_name, qb_vern_ref_links.qb_vern_id "
     "FROM qb_vern_ref_links INNER JOIN qb_other_sources "
     "ON qb_vern_ref_links.qb_documentation_id = qb_other_sources.qb_source_id "
     "WHERE ((qb_vern_ref_links.qb_id=[QBid]) "
     R"(AND (qb_vern_ref_links.qb_documentation_id_prefix="SRC"));)"},
};
// clang-format on

}  // namespace

std::span<const NamedQuery> GetQueriesKToO() {
    return kGetKToO;
}

}  // namespace quillon::store
