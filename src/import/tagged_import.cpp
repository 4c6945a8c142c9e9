#include "import/tagged_import.h"

#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include "import/kingdom_check.h"
#include "import/spooled_source.h"
#include "import/tagged_reading.h"

namespace quillon::importing {

namespace {

class RunningFlag {
public:
    explicit RunningFlag(ApplicationState& state) : state_(state) { state_.gBatchRunning = true; }
    ~RunningFlag() { state_.gBatchRunning = false; }
    RunningFlag(const RunningFlag&) = delete;
    RunningFlag& operator=(const RunningFlag&) = delete;

private:
    ApplicationState& state_;
};

class Waiting {
public:
    explicit Waiting(Prompter& prompter) : prompter_(prompter) { prompter_.WaitCursor(true); }
    ~Waiting() { prompter_.WaitCursor(false); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    Prompter& prompter_;
};

}  // namespace

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
    const Waiting waiting(prompter_);
    ImportResult result;
    try {
        RunWithLog(path, workDirectory, result);
    } catch (const ImportCanceled&) {
        result.canceled = true;
    } catch (const ReadError& error) {
        prompter_.Message(error.what());
    } catch (const store::StoreError& error) {
        result.canceled = state_.gBatchCancel;
        if (!result.canceled) prompter_.Message("Failed " + error.Description());
    } catch (const std::bad_alloc&) {
        prompter_.Message("Not enough memory.");
    }
    if (result.completed) state_.gDataSetIsNew = false;
    return result;
}

void TaggedImport::RunWithLog(const std::string& path, const std::string& workDirectory,
                              ImportResult& result) {
    ImportLog log(workDirectory);
    result.logPath = log.Path();
    const std::string refusal = log.Open({path, state_.gDataSetPath});
    if (!refusal.empty()) return prompter_.Message(refusal);
    std::error_code error;
    if (!std::filesystem::exists(path, error)) return prompter_.Message("File " + path + " not found!");
    result.found = true;
    ImportFile(path, workDirectory, log, result);
}

void TaggedImport::ImportFile(const std::string& path, const std::string& workDirectory, ImportLog& log,
                              ImportResult& result) {
    const auto source = OpenSource(path, workDirectory, turns_);
    const std::string refusal = KingdomRefusal(*source, *state_.gDatabase, turns_);
    if (!refusal.empty()) {
        result.found = false;
        return prompter_.Message(refusal);
    }
    const FindingSink finding = [&](const Finding& found) {
        result.findings = true;
        log.Write(found);
    };
    ReadingOutcome outcome =
        ReadTagged({state_, engine_, *state_.gDatabase, turns_, {finding, Failed}, gauge_, Stage}, *source);
    if (!log.Close()) return prompter_.Message("File " + log.Path() + " cannot be written!");
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
