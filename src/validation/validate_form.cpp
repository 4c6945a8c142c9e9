#include "validation/validate_form.h"

#include <utility>

#include "core/attempt.h"
#include "core/text.h"
#include "core/wait_cursor.h"
#include "selection/filter_choices.h"
#include "selection/record_filter.h"

namespace quillon::validation {

frmValidate::frmValidate(ApplicationState& state, store::Engine& engine, Prompter& prompter,
                         EventPump& events, const Clock& clock, std::string workDirectory,
                         FindingMarks& marks)
    : state_(state), engine_(engine), outside_{prompter, events, clock, {}, std::move(workDirectory),
                                               {},       &marks} {
    outside_.gauge = [this](double done) { Gauge1.SetValue(static_cast<int>(done)); };
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    form.SetTitle("DataSetValidation");
    txtValidate.SetText(state_.gDataSetPath);
    txtValidate.SetLocked(true);
    selection::FillFilterChoices(cboFields, cboOperators, cboValues);
    optNoFilter.SetValue(true);
    EnableCondition();
    for (OptionControl* option : {&optNoFilter, &optModified, &optColumn})
        option->OnEdit([this] { EnableCondition(); });
    cmdContinue.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

void frmValidate::EnableCondition() {
    for (ComboControl* combo : {&cboFields, &cboOperators, &cboValues}) combo->SetEnabled(optColumn.Value());
}

std::string frmValidate::Filter() const {
    if (optModified.Value()) return std::string(selection::kJournalFilter);
    if (optColumn.Value())
        return selection::ColumnClause(Trim(cboFields.Text()), Trim(cboOperators.Text()), cboValues.Text());
    return std::string(selection::kNoFilter);
}

void frmValidate::Continue() {
    if (state_.gBatchRunning) return;
    const std::string filter = Filter();
    if (const auto message = selection::CheckRecordFilter(*state_.gDatabase, filter)) {
        outside_.prompter.Message(*message);
        return;
    }
    outside_.replacingLogs = ReplacingLog;
    state_.gBatchRunning = true;
    state_.gValidatingForExport = false;
    state_.gRecordsDone = 0;
    state_.gRecordFilter = filter;
    Validate();
    form.Close();
}

void frmValidate::Validate() {
    const WaitCursor wait(outside_.prompter);
    EmptyRejected();
    Attempt(outside_.prompter, [this] { ValidateDataSet(state_, engine_, outside_); });
    EmptyRejected();
}

void frmValidate::EmptyRejected() {
    state_.gRejectedTaxa.clear();
    state_.gRejectedDocs.clear();
}

void frmValidate::Cancel() {
    if (state_.gBatchRunning)
        state_.gBatchCancel = true;
    else
        form.Close();
}

}  // namespace quillon::validation
