// The eight checks of a validation, one a table, in the order in which ValidateDataSet runs them. Each walks
// the rows that the filter lets through, and changes none. The rules on a single row stand beside them, to be
// called with any row.
#pragma once

#include <functional>

#include "core/application_state.h"
#include "core/outside.h"
#include "selection/selected_rows.h"
#include "store/engine.h"
#include "validation/rows.h"
#include "validation/run_facts.h"
#include "validation/validation_log.h"

namespace quillon::validation {

// Takes the per cent done, 0 to 100.
using Gauge = std::function<void(double)>;

// What all checks of a run share.
struct ValidationRun {
    ApplicationState& state;
    store::Database& database;
    const RunFacts& facts;
    ValidationLog& log;
    EventPump& events;
    const Gauge& gauge;
    const selection::SelectedTaxa& taxa;  // with their documents

    // Lets events through; false when the user wants no more.
    bool GoOn() const;
    // Counts a row and moves the gauge.
    void CountRow() const;
};

// Ends with the first taxon of the kingdom that has no rank.
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

// Calls `check` with each row of a table under the filter, until it gives false or the user cancels.
template <typename Row, typename Check>
void ForEachRow(const ValidationRun& run, std::string_view table, const Check& check) {
    selection::SelectedRows rows(run.database, table, ColumnList<Row>(), run.taxa);
    const StreamReader<Row> reader(run.database, table, rows.Row());
    Row row;
    while (rows.Next() && run.GoOn()) {
        for (int visit = 0, visits = rows.Visits(); visit < visits; ++visit) {
            if (visit > 0 && !run.GoOn()) return;
            run.CountRow();
            run.log.BeginRecord();
            reader.Read(row);
            if (!check(row)) return;
        }
    }
}

}  // namespace quillon::validation
