// The check of the taxa: applies the rules to the rows of the kingdom, in order.

#include "validation/table_checks.h"
#include "validation/taxon_rules.h"

namespace quillon::validation {

void ValidationRun::CountRow() const {
    ++state.gRecordsDone;
    const bool beyond = state.gRecordsDone > state.gRecordsTotal;
    gauge(beyond ? 100.0 : 100.0 * state.gRecordsDone / state.gRecordsTotal);
}

void ValidateTaxa(const ValidationRun& run) {
    TaxonLookUps lookUps(run.database, run.taxa, run.turns);
    ForEachRow<TaxonRow>(run, "qb_taxonomic_units", [&](const TaxonRow& row) {
        if (!row.rank_id.IsNull() && row.rank_id.AsLong() == kKingdomRankId) return true;
        run.log.SetTaxon(IdOf(row.qb_id));
        if (row.kingdom_id.IsNull() || row.kingdom_id.AsLong() != run.facts.kingdomId) return true;
        if (row.rank_id.IsNull()) {
            run.log.LogTaxonError(Rule::RankMissing, row, "     a rank is required");
            return false;
        }
        if (!lookUps.MoveTo(row.qb_id.AsLong())) return false;
        CheckTaxon({row, run.facts, lookUps, run.log, run.turns});
        return true;
    });
}

}  // namespace quillon::validation
