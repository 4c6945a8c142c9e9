// Reads one tagged file into a DataSet: line by line to its handler, then the closing pass. TaggedImport
// calls it with the copy of the DataSet; it opens no file and shows nothing.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/gauge.h"
#include "import/byte_source.h"
#include "import/import_failures.h"
#include "import/import_turns.h"
#include "store/engine.h"

namespace quillon::importing {

// The objects that a reading uses and reports to.
struct ReadingTools {
    ApplicationState& state;
    store::Engine& engine;
    store::Database& database;
    Turns& turns;
    ImportSinks sinks;
    Gauge gauge;
    std::function<void(std::string_view)> stage;  // the current stage of the closing pass
};

struct ReadingOutcome {
    bool errors = false;  // findings, failures, or lines that were not read
    // Other reports to the user, one sentence each: odd lines, remaining placeholders, lines after the end.
    std::vector<std::string> notes;
};

// Throws ReadError, ImportCanceled, and StoreError when nothing more can be stored; the DataSet then holds
// what was stored before.
ReadingOutcome ReadTagged(const ReadingTools& tools, ByteSource& source);

}  // namespace quillon::importing
