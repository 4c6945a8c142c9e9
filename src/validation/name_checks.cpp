// The checks of the vernaculars and the jurisdictions.

#include <fmt/format.h>

#include "core/names.h"
#include "validation/keyed_walk.h"
#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

// The approved vernaculars that have a reference on this very name, for one kind of document.
constexpr std::string_view kReferencedVernaculars =
    "SELECT qb_vernaculars.qb_vern_id FROM (qb_vernaculars INNER JOIN qb_vern_ref_links ON "
    "qb_vernaculars.qb_id = qb_vern_ref_links.qb_id) INNER JOIN {0} ON "
    "qb_vern_ref_links.qb_documentation_id = {0}.{1} "
    "WHERE qb_vernaculars.approved_ind = True AND qb_vern_ref_links.qb_documentation_id_prefix = '{2}' "
    "AND StrComp(qb_vernaculars.vernacular_name, qb_vern_ref_links.vernacular_name, 0) = 0{3} "
    "ORDER BY qb_vernaculars.qb_vern_id;";
constexpr std::string_view kTaxaWithoutOrigin =
    "SELECT qb_jurisdiction.qb_id AS of_taxon, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, "
    "unit_name3, "
    "unit_ind4, unit_name4 FROM qb_jurisdiction INNER JOIN qb_taxonomic_units ON "
    "qb_jurisdiction.qb_id = qb_taxonomic_units.qb_id WHERE qb_jurisdiction.origin Is Null{} "
    "ORDER BY qb_jurisdiction.qb_id;";

class VernacularReferences {
public:
    VernacularReferences(store::Database& database, std::string_view filter)
        : publications_(database, Select("qb_publications", "qb_publication_id", "PUB", filter)),
          otherSources_(database, Select("qb_other_sources", "qb_source_id", "SRC", filter)),
          experts_(database, Select("qb_experts", "qb_expert_id", "EXP", filter)) {}

    // Vernaculars are asked for in ascending order.
    bool Has(std::int64_t qb_vern_id) {
        return publications_.MoveTo(qb_vern_id) || otherSources_.MoveTo(qb_vern_id) ||
               experts_.MoveTo(qb_vern_id);
    }

private:
    static std::string Select(std::string_view table, std::string_view id, std::string_view prefix,
                              std::string_view filter) {
        return fmt::format(fmt::runtime(kReferencedVernaculars), table, id, prefix,
                           AndAmongTaxa("qb_vernaculars.qb_id", "qb_id", filter));
    }
    KeyedWalk publications_, otherSources_, experts_;
};

std::string NameAt(const store::Recordset& row) {
    return BuildSciName(
        {row.At(1), row.At(2), row.At(3), row.At(4), row.At(5), row.At(6), row.At(7), row.At(8)});
}

}  // namespace

void ValidateVernaculars(const ValidationRun& run) {
    VernacularReferences references(run.database, run.lookUpFilter);
    ForEachRow<VernacularRow>(run, "qb_vernaculars", [&](const VernacularRow& row) {
        if (row.language.IsNull())
            run.log.LogDocumentError(Rule::LanguageMissing, row,
                                     "     a language is required for a vernacular");
        if (row.approved_ind.IsNull()) return true;
        run.log.SetTaxon(IdOf(row.qb_id));
        if (row.approved_ind.AsBoolean() && !references.Has(row.qb_vern_id.AsLong()))
            run.log.LogDocumentError(Rule::VernacularReferenceMissing, row,
                                     "     a reference is required for an approved vernacular");
        return true;
    });
}

void ValidateJurisdictions(const ValidationRun& run) {
    KeyedWalk taxa(run.database,
                   fmt::format(fmt::runtime(kTaxaWithoutOrigin),
                               AndAmongTaxa("qb_jurisdiction.qb_id", "qb_id", run.lookUpFilter)));
    ForEachRow<JurisdictionRow>(run, "qb_jurisdiction", [&](JurisdictionRow& row) {
        if (!row.origin.IsNull()) return true;
        run.log.SetTaxon(IdOf(row.qb_id));
        row.taxonName = taxa.MoveTo(row.qb_id.AsLong()) ? NameAt(taxa.Row()) : std::string();
        run.log.LogDocumentError(
            Rule::OriginMissing, row,
            fmt::format("     origin is required for jurisdiction '{}'", row.jurisdiction_value.AsText()));
        return true;
    });
}

}  // namespace quillon::validation
