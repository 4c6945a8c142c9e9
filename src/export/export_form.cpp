#include "export/export_form.h"

#include <utility>

#include "core/file_identity.h"
#include "core/text.h"
#include "export/form_parts.h"
#include "selection/filter_choices.h"
#include "selection/record_filter.h"
#include "validation/log_file.h"

namespace quillon::exporting {

namespace {

constexpr std::string_view kSelectTitle = "Select DataSet to Export";
constexpr std::string_view kSelectFilter = "Access DataSet Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
constexpr std::string_view kSaveTitle = "Save Exported DataSet As";
constexpr std::string_view kSaveFilter =
    "QLN File (*.QLN)|*.qln|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files (*.*)|*.*";
constexpr std::string_view kCompleteTitle = "Export Complete";

}  // namespace

FrmNExport::FrmNExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                       const Clock& clock, std::string workDirectory, validation::FindingMarks& marks)
    : state_(state), engine_(engine), outside_{prompter, events, clock, {}, std::move(workDirectory),
                                               {},       &marks} {
    outside_.gauge = [this](double done) { Gauge1.SetValue(static_cast<int>(done)); };
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    form.SetTitle("Export DataSet");
    state_.gExportPath = state_.gDataSetPath;
    state_.gExportFile = OfferedFile();
    ShowPaths();
    OptDataSet.SetValue(true);
    optName.SetValue(true);
    FillFilter();
    EnableChoices();
    for (OptionControl* option :
         {&OptDataSet, &OptOnline, &OptPartial, &optNoFilter, &optModified, &optColumn})
        option->OnEdit([this] { EnableChoices(); });
    cmdSelectDB.OnClick([this] { SelectDataSet(); });
    cmdExportFile.OnClick([this] { SelectFile(); });
    cmdOK.OnClick([this] { RunExport(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

void FrmNExport::FillFilter() {
    selection::FillFilterChoices(cboFields, cboOperators, cboValues);
    optNoFilter.SetValue(true);
}

void FrmNExport::EnableChoices() {
    fraPartial.SetEnabled(OptPartial.Value());
    for (OptionControl* option : {&optName, &optAuthority, &optRank}) option->SetEnabled(OptPartial.Value());
    for (ComboControl* combo : {&cboFields, &cboOperators, &cboValues}) combo->SetEnabled(optColumn.Value());
}

void FrmNExport::ShowPaths() {
    lblDataSet.SetCaption(std::string(kDataSetLine) + state_.gExportPath);
    lblFile.SetCaption(std::string(kFileLine) + state_.gExportFile);
}

std::string FrmNExport::OfferedFile() const {
    return WithQln(state_.gExportPath);
}

void FrmNExport::SelectDataSet() {
    const auto path = outside_.prompter.FileToOpen(kSelectTitle, kSelectFilter);
    if (!path) return;
    state_.gExportPath = *path;
    ShowPaths();
}

void FrmNExport::SelectFile() {
    const auto path = outside_.prompter.FileToSave(kSaveTitle, kSaveFilter, false, OfferedFile());
    if (!path) return;
    state_.gExportFile = WithExtension(*path, ".EXP");
    ShowPaths();
}

std::string FrmNExport::Filter() const {
    if (optModified.Value()) return std::string(selection::kJournalFilter);
    if (optColumn.Value())
        return selection::ColumnClause(Trim(cboFields.Text()), Trim(cboOperators.Text()), cboValues.Text());
    return std::string(selection::kNoFilter);
}

ExportOrder FrmNExport::Order() const {
    ExportOrder order;
    if (OptOnline.Value()) order.kind = ExportKind::Online;
    if (!OptPartial.Value()) return order;
    order.kind = ExportKind::List;
    order.listType = ChosenListType(optAuthority, optRank);
    return order;
}

void FrmNExport::RunExport() {
    if (state_.gBatchRunning) return;
    if (FileExists(state_.gExportFile) &&
        !outside_.prompter.AskBeforeLoss(state_.gExportFile + " Exists.  Overwrite?", ""))
        return SelectFile();
    state_.gBatchCancel = false;
    state_.gRecordFilter = Filter();
    Export();
    Gauge1.SetValue(0);
}

void FrmNExport::Export() {
    outside_.replacingLogs = ReplacingLog;
    ExportJob job(state_, engine_, outside_);
    const ExportOrder order = Order();
    const ExportResult result = job.Run(order);
    if (state_.gExportPath != state_.gDataSetPath)
        for (validation::FindingMark& mark : *outside_.marks) mark.id = 0;
    ReportEnd(order.kind, result);
}

void FrmNExport::ReportEnd(ExportKind kind, const ExportResult& result) {
    if (result.outcome == ExportOutcome::Failed) return;
    if (result.outcome != ExportOutcome::Done) return outside_.prompter.Message(kExportCanceled);
    Gauge1.SetValue(100);
    ReportTotal(kind);
    ReportBreaking(outside_.prompter, result.breaking);
}

// Offers the log even if its findings are those of an earlier validation, but not after a list.
void FrmNExport::ReportTotal(ExportKind kind) {
    const std::string total = EndText(state_, kind);
    if (kind == ExportKind::List || !state_.gErrorsOccurred ||
        !validation::HasFindings(outside_.workDirectory))
        return outside_.prompter.Message(total);
    if (outside_.prompter.AskYesNo(total + "  View error log?", kCompleteTitle))
        outside_.prompter.ShowModal("FrmVError");
}

void FrmNExport::Cancel() {
    if (state_.gBatchRunning)
        state_.gBatchCancel = true;
    else
        form.Close();
}

void ExportCommand(Prompter& prompter) {
    prompter.ShowModal("FrmNExport");
}

}  // namespace quillon::exporting
