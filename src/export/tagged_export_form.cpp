#include "export/tagged_export_form.h"

#include <utility>

#include "core/line_file.h"
#include "export/form_parts.h"

namespace quillon::exporting {

namespace {

constexpr std::string_view kTimeLog = "time.log";

std::string TimeOfDay(const Clock& clock) {
    constexpr std::size_t lengthOfDate = 11;  // "yyyy-mm-dd "
    return clock.Now().substr(lengthOfDate);
}

}  // namespace

constexpr PlainExportForm::Words FrmDExport::kWords{
    "FrmDExport",
    "Export DataSet to File",
    kDataSetLine,
    "Save Exported DataSet As",
    "QLN Export Files (*.EXP)|*.exp|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files (*.*)|*.*",
    ".EXP",
};

FrmDExport::FrmDExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                       const Clock& clock, std::string workDirectory)
    : PlainExportForm(state, engine, prompter, events, clock, kWords, std::move(workDirectory)) {}

ExportResult FrmDExport::Write() {
    LineFile times(PathIn(outside_.workDirectory, kTimeLog),
                   {state_.gDataSetPath, state_.gExportPath, state_.gExportFile});
    if (!times.Open()) return ReportLog(times);
    times.Print("Begin Export: " + TimeOfDay(outside_.clock));
    const ExportResult result = ExportJob(state_, engine_, outside_).Run({ExportKind::DataSet});
    times.Print("End Export: " + TimeOfDay(outside_.clock));
    return times.Close() ? result : ReportLog(times);
}

ExportResult FrmDExport::ReportLog(const LineFile& log) {
    outside_.prompter.WarningMessage("File " + log.Path() + " cannot be written!");
    return {};
}

}  // namespace quillon::exporting
