// The eight checks of a validation, one for each table, in the order in which ValidateDataSet runs them. Each
// reads the rows that the filter selects and changes none. The rules on a single row can be called with any
// row.
#pragma once

#include "core/application_state.h"
#include "core/gauge.h"
#include "core/turns.h"
#include "selection/selected_rows.h"
#include "store/engine.h"
#include "validation/rows.h"
#include "validation/run_facts.h"
#include "validation/validation_log.h"

namespace quillon::validation {

// The shared state of the checks of a run.
struct ValidationRun {
    ApplicationState& state;
    store::Database& database;
    const RunFacts& facts;
    ValidationLog& log;
    Turns& turns;
    const Gauge& gauge;
    const selection::SelectedTaxa& taxa;  // including their documents

    // Counts a row and moves the gauge.
    void CountRow() const;
};

// Stops at the first taxon of the kingdom without a rank.
void ValidateTaxa(const ValidationRun& run);
void ValidateAuthors(const ValidationRun& run);
void ValidateReferenceLinks(const ValidationRun& run);
void ValidateExperts(const ValidationRun& run);
void ValidateOtherSources(const ValidationRun& run);
void ValidatePublications(const ValidationRun& run);
void ValidateVernaculars(const ValidationRun& run);
void ValidateJurisdictions(const ValidationRun& run);

void CheckAuthor(const AuthorRow& row, ValidationLog& log);
void CheckReferenceLink(const ReferenceLinkRow& row, ValidationLog& log);
void CheckExpert(const ExpertRow& row, ValidationLog& log);
void CheckOtherSource(const OtherSourceRow& row, const YearRange& years, ValidationLog& log);
void CheckPublication(const PublicationRow& row, const YearRange& years, ValidationLog& log);

// Calls `check` with each row of a table under the filter, until it returns false or the run is canceled.
template <typename Row, typename Check>
void ForEachRow(const ValidationRun& run, std::string_view table, const Check& check) {
    selection::SelectedRows rows(run.database, table, ColumnList<Row>(), run.taxa);
    const StreamReader<Row> reader(run.database, table, rows.Row());
    Row row;
    while (rows.Next() && run.turns.Next()) {
        for (int visit = 0, visits = rows.Visits(); visit < visits; ++visit) {
            if (visit > 0 && !run.turns.Next()) return;
            run.CountRow();
            run.log.BeginRecord();
            reader.Read(row);
            if (!check(row)) return;
        }
    }
}

}  // namespace quillon::validation
