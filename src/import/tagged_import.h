// The import of a tagged file into the open DataSet, from the opening of the log to the closing pass. The
// import form and quillon-batch call it; it asks nothing.
//
// A finding never ends an import, and neither does a record that cannot be stored. What was stored before an
// import stopped stays stored.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "import/byte_source.h"
#include "import/import_log.h"
#include "import/line_reader.h"
#include "store/engine.h"

namespace quillon::importing {

inline constexpr std::string_view kImportCanceled = "Import Canceled!";
inline constexpr std::string_view kImportComplete = "Import Complete -- No Errors!";
inline constexpr std::string_view kLineTooLong = "Line too long in the following data line of import file!";

struct ImportResult {
    bool found = false;      // the file exists; nothing was done without it
    bool completed = false;  // the file was read through, to its end or to the Cancel
    bool errors = false;     // there are findings in the log
    bool canceled = false;
    std::string logPath;
};

class TaggedImport {
public:
    // Takes the per cent done, 0 to 100.
    using Gauge = std::function<void(double)>;

    TaggedImport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                 Gauge gauge);

    // Writes "import.err" into `workDirectory`, the current one when empty. Tells what keeps it from reading
    // on; gBatchRunning is set meanwhile, and gBatchCancel ends the reading after the line at hand.
    ImportResult Run(const std::string& path, const std::string& workDirectory);

    // The reading and the closing pass, with the findings going to `sink`; gives whether there were any.
    // Throws ReadError, and StoreError when nothing more can be stored.
    bool ReadTaggedFile(ByteSource& source, const FindingSink& sink);

private:
    bool HoldsOnlySeedRows();
    bool ReadFile(const std::string& path, const FindingSink& sink);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    EventPump& events_;
    Gauge gauge_;
};

}  // namespace quillon::importing
