// The authority's rules on one taxon, one procedure for each rule. ValidateTaxa calls CheckTaxon for each row
// of the kingdom; taxon_links.h has the rules on its links and documents.
#pragma once

#include <string>

#include "core/turns.h"
#include "validation/rows.h"
#include "validation/run_facts.h"
#include "validation/taxon_look_ups.h"
#include "validation/validation_log.h"

namespace quillon::validation {

// A taxon to check, and what its rules need.
struct TaxonCheck {
    const TaxonRow& row;  // with a rank
    const RunFacts& run;
    TaxonLookUps& lookUps;
    ValidationLog& log;
    Turns& turns;

    int Rank() const { return static_cast<int>(row.rank_id.AsLong()); }
    void Report(Rule rule, std::string message) const { log.LogTaxonError(rule, row, std::move(message)); }
};

// All rules, in their order.
void CheckTaxon(const TaxonCheck& check);

void CheckIndicators(const TaxonCheck& check);
void CheckName(const TaxonCheck& check);
void CheckSubgenusName(const TaxonCheck& check);
void CheckUsage(const TaxonCheck& check);
void CheckReason(const TaxonCheck& check);
void CheckCredibility(const TaxonCheck& check);
void CheckCompleteness(const TaxonCheck& check);
void CheckCurrency(const TaxonCheck& check);
void CheckParent(const TaxonCheck& check);
void CheckAuthority(const TaxonCheck& check);
// The year of the taxon's author.
void CheckAuthorDate(const TaxonCheck& check);

}  // namespace quillon::validation
