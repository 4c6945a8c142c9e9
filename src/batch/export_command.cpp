// The command export: turns its arguments into an order, asks before it overwrites, runs the job, and
// reports the outcome.
#include <fmt/format.h>

#include <cstdio>

#include "batch/batch_job.h"
#include "core/file_identity.h"
#include "core/system_clock.h"
#include "export/export_job.h"
#include "selection/record_filter.h"

namespace quillon::batch {

namespace {

using exporting::ExportKind;
using exporting::ExportOrder;
using exporting::ExportOutcome;
using exporting::ExportResult;
using exporting::ListType;

ExportOrder OrderOf(const ExportArguments& arguments) {
    ExportOrder order;
    if (arguments.online) order.kind = ExportKind::Online;
    if (arguments.list != ListType::None) order.kind = ExportKind::List;
    order.listType = arguments.list;
    order.encoding = arguments.encoding;
    return order;
}

// Reports the values that CP1252 cannot hold, and their number.
void RefuseForeign(exporting::ExportJob& job, Prompter& prompter) {
    job.onForeign = [](const exporting::OddValue& value) {
        std::fprintf(stderr, "%s\n", exporting::Describe(value).c_str());
    };
    job.allowUtf8 = [&prompter](const exporting::OddValues& foreign) {
        prompter.Message(
            fmt::format(
                "CP1252, the code page of the file, cannot hold {} listed above.  Nothing was written; "
                "--encoding utf-8 writes the file as UTF-8 with a byte order mark.",
                foreign.count == 1 ? "the value" : fmt::format("the {} values", foreign.count)),
            "");
        return false;
    };
}

ExitStatus ReportEnd(BatchJob& batchJob, const ExportOrder& order, const ExportResult& result) {
    if (result.outcome == ExportOutcome::Canceled) batchJob.prompter.Message(exporting::kExportCanceled, "");
    if (result.outcome != ExportOutcome::Done) return ExitStatus::Failed;
    batchJob.prompter.Message(exporting::EndText(batchJob.state, order.kind), "");
    exporting::ReportBreaking(batchJob.prompter, result.breaking);
    const bool findings = order.kind == ExportKind::Online && batchJob.state.gErrorsOccurred;
    return findings ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace

ExitStatus RunExport(const CommonOptions& options, const std::string& path,
                     const ExportArguments& arguments) {
    BatchJob batchJob(options);
    batchJob.Open(path);
    ApplicationState& state = batchJob.state;
    state.gExportPath = path;
    state.gExportFile = arguments.file;
    if (const auto wrong =
            selection::ReadFilterText(*state.gDatabase, arguments.filter, state.gRecordFilter)) {
        batchJob.prompter.Message(*wrong, "");
        return ExitStatus::Failed;
    }
    if (FileExists(arguments.file) &&
        !batchJob.prompter.AskYesNo(arguments.file + " Exists.  Overwrite?", ""))
        return ExitStatus::Failed;
    ProgressLine progress(options.progress);
    const SystemClock clock;
    exporting::ExportJob job(state, batchJob.engine,
                             {batchJob.prompter, batchJob.pump, clock,
                              [&](double percent) { progress.Show(percent); }, options.workDir});
    RefuseForeign(job, batchJob.prompter);
    const ExportOrder order = OrderOf(arguments);
    const ExportResult result = job.Run(order);
    batchJob.lifecycle.CloseDataSet();
    return ReportEnd(batchJob, order, result);
}

}  // namespace quillon::batch
