#include "import/tagged_import.h"

#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

#include "import/cross_references.h"
#include "import/import_run.h"
#include "import/placeholders.h"
#include "import/record_handlers.h"
#include "store/bulk.h"

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

// How far the reading is. A fiftieth more than the file counts as the whole, so that the gauge stays below
// 100 while the closing pass runs.
class Progress {
public:
    Progress(std::int64_t fileSize, const TaggedImport::Gauge& gauge)
        : whole_(static_cast<double>(fileSize) + std::nearbyint(static_cast<double>(fileSize) / 50)),
          gauge_(gauge) {}
    void Show(std::int64_t bytesRead) const {
        if (whole_ > 0) gauge_(static_cast<double>(bytesRead) / whole_ * 100);
    }

private:
    double whole_;
    const TaggedImport::Gauge& gauge_;
};

}  // namespace

TaggedImport::TaggedImport(ApplicationState& state, store::Engine& engine, Prompter& prompter,
                           EventPump& events, Gauge gauge)
    : state_(state), engine_(engine), prompter_(prompter), events_(events), gauge_(std::move(gauge)) {}

ImportResult TaggedImport::Run(const std::string& path, const std::string& workDirectory) {
    const RunningFlag running(state_);
    ImportResult result;
    prompter_.WaitCursor(true);
    ImportLog log(workDirectory);
    result.logPath = log.Path();
    std::error_code error;
    if (!log.Open()) {
        prompter_.Message("File " + log.Path() + " cannot be written!");
    } else if (!std::filesystem::exists(path, error)) {
        prompter_.Message("File " + path + " not found!");
    } else {
        result.found = true;
        result.completed = ReadFile(path, [&](const Finding& finding) {
            result.errors = true;
            log.Write(finding);
        });
        result.canceled = state_.gBatchCancel;
        if (!log.Close()) prompter_.Message("File " + log.Path() + " cannot be written!");
        if (result.completed) state_.gDataSetIsNew = false;
    }
    prompter_.WaitCursor(false);
    return result;
}

bool TaggedImport::ReadFile(const std::string& path, const FindingSink& sink) {
    try {
        FileSource source(path);
        ReadTaggedFile(source, sink);
        return true;
    } catch (const ReadError& error) {
        prompter_.Message(error.what());
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
    return false;
}

// Then the indexes can wait to the end: nothing else is looked up by them.
bool TaggedImport::HoldsOnlySeedRows() {
    const auto taxa = state_.gDatabase->OpenRecordset("SELECT qb_id FROM qb_taxonomic_units;",
                                                      store::RecordsetType::ForwardOnly);
    if (taxa->Eof()) return true;
    taxa->MoveNext();
    return taxa->Eof();
}

bool TaggedImport::ReadTaggedFile(ByteSource& source, const FindingSink& sink) {
    LineReader reader(source);
    const Progress progress(source.Size(), gauge_);
    store::BulkLoad load(engine_, *state_.gDatabase, HoldsOnlySeedRows());
    ImportRun run(state_, engine_, load, prompter_, sink);
    for (auto kind = reader.Next(); kind != LineReader::Kind::End; kind = reader.Next()) {
        if (kind == LineReader::Kind::Line && reader.Text().empty()) break;
        progress.Show(reader.BytesRead());
        if (kind == LineReader::Kind::TooLong)
            run.Report(std::string(kLineTooLong), reader.Text());
        else
            HandleLine(run, reader.Text());
        events_.Yield();
        if (state_.gBatchCancel) break;
    }
    StorePlaceholders(run);
    CrossReferences references(run, load, events_);
    references.FillVernacularNames();
    gauge_(98);
    references.ResolveCrossReferences();
    load.Finish();
    gauge_(100);
    return run.ImportError();
}

}  // namespace quillon::importing
