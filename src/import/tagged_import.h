// Imports a tagged file into the open DataSet, including its log. The import form and quillon-batch call it;
// it asks no questions.
//
// Findings and records that cannot be stored do not end an import. The import works on a copy of the DataSet,
// which replaces it at the end: if the import stops before, the DataSet is unchanged.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/gauge.h"
#include "core/outside.h"
#include "import/byte_source.h"
#include "import/import_failures.h"
#include "import/import_log.h"
#include "import/import_turns.h"
#include "store/engine.h"

namespace quillon::importing {

inline constexpr std::string_view kImportCanceled = "Import Canceled!";
inline constexpr std::string_view kImportComplete = "Import Complete -- No Errors!";

struct ImportResult {
    bool found = false;      // the file exists and may be imported; otherwise nothing was done
    bool completed = false;  // the file was read to its end
    bool errors = false;     // findings in the log, failures, or lines that were not read
    bool findings = false;   // the log is not empty
    bool canceled = false;
    std::string logPath;
    std::vector<std::string> notes;  // for the user: one sentence each
};

class TaggedImport {
public:
    TaggedImport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                 Gauge gauge);

    // Receives each record that could not be stored; by default shows a message box for each.
    FailureSink Failed;
    // Receives the name of each stage of the closing pass.
    std::function<void(std::string_view)> Stage = [](std::string_view) {};

    // Writes "import.err" into `workDirectory`, or the current directory when it is empty. Reports failures
    // that end it; sets gBatchRunning meanwhile, and gBatchCancel ends the import at its next turn.
    ImportResult Run(const std::string& path, const std::string& workDirectory);

    // Only the reading and the closing pass, directly into the open DataSet, with findings passed to `sink`;
    // returns whether there were errors. After a Cancel the DataSet keeps what was stored so far. Throws
    // ReadError, and StoreError when nothing more can be stored.
    bool ReadTaggedFile(ByteSource& source, const FindingSink& sink);

private:
    void RunWithLog(const std::string& path, const std::string& workDirectory, ImportResult& result);
    void ImportFile(const std::string& path, const std::string& workDirectory, ImportLog& log,
                    ImportResult& result);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    Turns turns_;
    Gauge gauge_;
};

}  // namespace quillon::importing
