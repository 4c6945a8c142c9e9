#include "export/tagged_export_form.h"

#include <utility>

#include "export/export_paths.h"
#include "validation/log_file.h"

namespace quillon::exporting {

namespace {

constexpr std::string_view kSaveTitle = "Save Exported DataSet As";
constexpr std::string_view kSaveFilter =
    "QLN Export Files (*.EXP)|*.exp|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files (*.*)|*.*";
constexpr std::string_view kTimeLog = "time.log";

std::string TimeOfDay(const Clock& clock) {
    constexpr std::size_t lengthOfDate = 11;  // "yyyy-mm-dd "
    return clock.Now().substr(lengthOfDate);
}

}  // namespace

FrmDExport::FrmDExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                       const Clock& clock, std::string workDirectory)
    : state_(state), engine_(engine), outside_{prompter, events, clock, {}, std::move(workDirectory)} {
    outside_.gauge = [this](double done) { Gauge1.SetValue(static_cast<int>(done)); };
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    state_.gExportPath = state_.gDataSetPath;
    state_.gExportFile.clear();
    form.SetTitle("Export DataSet to File");
    lblDataSet.SetCaption(kDataSetLine + state_.gExportPath);
    lblFile.SetCaption(kFileLine);
    cmdOK.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

bool FrmDExport::AskFile() {
    const auto path = outside_.prompter.FileToSave(kSaveTitle, kSaveFilter, true);
    if (!path || path->empty()) {
        form.Close();
        return false;
    }
    state_.gExportFile = WithExtension(*path, ".EXP");
    lblFile.SetCaption(kFileLine + state_.gExportFile);
    return true;
}

void FrmDExport::Continue() {
    if (state_.gBatchRunning) return;
    state_.gBatchRunning = true;
    RunWithTimes();
    state_.gBatchRunning = false;
    form.Close();
}

void FrmDExport::RunWithTimes() {
    validation::LineFile times(validation::PathIn(outside_.workDirectory, kTimeLog));
    times.Print("Begin Export: " + TimeOfDay(outside_.clock));
    const ExportResult result = ExportJob(state_, engine_, outside_).Run({ExportKind::DataSet});
    times.Print("End Export: " + TimeOfDay(outside_.clock));
    if (!times.Close()) outside_.prompter.Message("File " + times.Path() + " cannot be written!");
    if (result.outcome == ExportOutcome::Failed) return;
    outside_.prompter.Message(result.outcome == ExportOutcome::Done ? kExportComplete : kExportCanceled);
    if (result.outcome == ExportOutcome::Done) TellBreaking(outside_.prompter, result.breaking);
}

void FrmDExport::Cancel() {
    if (state_.gBatchRunning)
        state_.gBatchCancel = true;
    else
        form.Close();
}

}  // namespace quillon::exporting
