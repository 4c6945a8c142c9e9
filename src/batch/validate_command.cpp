// The command validate: runs the validation under the given filter; findings go to the log and, on request,
// to a table.
#include "batch/batch_job.h"
#include "core/system_clock.h"
#include "selection/record_filter.h"
#include "validation/validate_data_set.h"

namespace quillon::batch {

ExitStatus RunValidate(const CommonOptions& options, const std::string& path, const std::string& filter,
                       bool writeTable) {
    BatchJob batchJob(options);
    batchJob.Open(path);
    if (const auto message =
            selection::ReadFilterText(*batchJob.state.gDatabase, filter, batchJob.state.gRecordFilter)) {
        batchJob.prompter.Message(*message, "");
        return ExitStatus::Failed;
    }
    ProgressLine progress(options.progress);
    const SystemClock clock;
    const auto reportEnd = [&] {
        batchJob.prompter.Message(batchJob.state.gErrorsOccurred ? "Validation Complete -- Errors Occurred."
                                                                 : validation::kCompleteNoErrors,
                                  "");
    };
    const validation::ValidationResult result = validation::ValidateDataSet(
        batchJob.state, batchJob.engine,
        {batchJob.prompter, batchJob.pump, clock, [&](double percent) { progress.Show(percent); },
         options.workDir, reportEnd, nullptr, writeTable});
    batchJob.lifecycle.CloseDataSet();
    if (!result.ran || result.canceled || result.logFailed) return ExitStatus::Failed;
    return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace quillon::batch
