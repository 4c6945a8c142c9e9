#include "batch/session.h"
#include "core/system_clock.h"
#include "selection/record_filter.h"
#include "validation/validate_data_set.h"

namespace quillon::batch {

ExitStatus RunValidate(const CommonOptions& options, const std::string& path, const std::string& filter,
                       bool writeTable) {
    Session session(options);
    session.Open(path);
    if (const auto message =
            selection::ReadFilterText(*session.state.gDatabase, filter, session.state.gRecordFilter)) {
        session.prompter.Message(*message, "");
        return ExitStatus::Failed;
    }
    ProgressLine progress(options.progress);
    const SystemClock clock;
    const auto reportEnd = [&] {
        session.prompter.Message(session.state.gErrorsOccurred ? "Validation Complete -- Errors Occurred."
                                                               : validation::kCompleteNoErrors,
                                 "");
    };
    const validation::ValidationResult result = validation::ValidateDataSet(
        session.state, session.engine,
        {session.prompter, session.pump, clock, [&](double percent) { progress.Show(percent); },
         options.workDir, reportEnd, nullptr, writeTable});
    session.lifecycle.CloseDataSet();
    if (!result.ran || result.canceled || result.logFailed) return ExitStatus::Failed;
    return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace quillon::batch
