#include "import/tagged_import.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/attempt.h"
#include "core/file_identity.h"
#include "core/running_flag.h"
#include "core/wait_cursor.h"
#include "import/kingdom_check.h"
#include "import/spooled_source.h"
#include "import/tagged_reading.h"
#include "store/lifecycle/working_copy.h"

namespace quillon::importing {

TaggedImport::TaggedImport(ApplicationState& state, store::Engine& engine, Prompter& prompter,
                           EventPump& events, Gauge gauge)
    : Failed([&prompter](const Failure& failure) { prompter.Message(failure.sentence); }),
      state_(state),
      engine_(engine),
      prompter_(prompter),
      turns_(state, events),
      gauge_(std::move(gauge)) {}

ImportResult TaggedImport::Run(const std::string& path, const std::string& workDirectory) {
    const RunningFlag running(state_);
    const WaitCursor waiting(prompter_);
    ImportResult result;
    try {
        RunWithLog(path, workDirectory, result);
    } catch (const ImportCanceled&) {
        result.canceled = true;
    } catch (const ReadError& error) {
        prompter_.WarningMessage(error.what());
    } catch (const std::exception& failure) {
        // A statement interrupted by a Cancel has not failed.
        result.canceled = turns_.Canceled();
        if (!result.canceled) ReportFailure(prompter_, failure);
    }
    if (result.completed) state_.gDataSetIsNew = false;
    return result;
}

void TaggedImport::RunWithLog(const std::string& path, const std::string& workDirectory,
                              ImportResult& result) {
    // Closing the file would drop the locks that this process holds on it.
    if (IsSameFile(path, state_.gDataSetPath))
        return prompter_.WarningMessage(path + " is the open DataSet, and cannot be imported.");
    ImportLog log(workDirectory, {path, state_.gDataSetPath});
    result.logPath = log.Path();
    if (!log.Failure().empty()) return prompter_.WarningMessage(log.Failure());
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return prompter_.WarningMessage("File " + path + " not found!");
    result.found = true;
    ImportFile(path, workDirectory, log, result);
}

void TaggedImport::ImportFile(const std::string& path, const std::string& workDirectory, ImportLog& log,
                              ImportResult& result) {
    Stage("Reading the file");
    const auto source = OpenSource(path, workDirectory, turns_);
    const std::string refusal = KingdomRefusal(*source, *state_.gDatabase, turns_);
    if (!refusal.empty()) {
        result.found = false;
        return prompter_.WarningMessage(refusal);
    }
    const FindingSink finding = [&](const Finding& found) {
        result.findings = true;
        log.Write(found);
    };
    Stage("Copying the DataSet");
    store::WorkingCopy copy(engine_, *state_.gDatabase, [this] { return turns_.Next(); });
    Stage("Reading the file");
    ReadingOutcome outcome =
        ReadTagged({state_, engine_, copy.Db(), turns_, {finding, Failed}, gauge_, Stage}, *source);
    if (!log.Close()) return prompter_.WarningMessage(log.Failure());
    Stage("Checking the DataSet");
    copy.Replace(state_.gDatabase);
    result.completed = true;
    result.errors = outcome.errors;
    result.notes = std::move(outcome.notes);
}

bool TaggedImport::ReadTaggedFile(ByteSource& source, const FindingSink& sink) {
    try {
        return ReadTagged({state_, engine_, *state_.gDatabase, turns_, {sink, Failed}, gauge_, Stage}, source)
            .errors;
    } catch (const ImportCanceled&) {
        return true;
    }
}

}  // namespace quillon::importing
