// The import of a tagged file into the open DataSet, from the opening of the log to its end. The import form
// and quillon-batch call it; it asks nothing.
//
// A finding never ends an import, and neither does a record that cannot be stored. An import works on a copy
// of the DataSet, which takes its place at the end: what stops it before leaves the DataSet as it was.
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
    bool found = false;      // the file exists and may be imported; nothing was done without it
    bool completed = false;  // the file was read through to its end
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

    // Takes each record that could not be stored; a message box each by default.
    FailureSink Failed;
    // Takes the name of each stage of the closing pass.
    std::function<void(std::string_view)> Stage = [](std::string_view) {};

    // Writes "import.err" into `workDirectory`, the current one when empty. Reports what keeps it from
    // reading on; gBatchRunning is set meanwhile, and gBatchCancel ends the import at its next turn.
    ImportResult Run(const std::string& path, const std::string& workDirectory);

    // The reading and the closing pass alone, straight into the open DataSet, with the findings going to
    // `sink`; returns whether there were errors. A Cancel ends it with what was stored by then. Throws
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
