// The rows that stand for records that a file named without giving them, or gave in a form that could not be
// stored.
#pragma once

#include "import/import_run.h"
#include "import/import_turns.h"

namespace quillon::importing {

// Writes a row for each new id that has none, marked "Dummy#" and the key. Called once, before the closing
// pass deletes some of them and leaves the others.
void StorePlaceholders(ImportRun& run, Turns& turns);

// How many of them are in the DataSet still; after the closing pass.
std::int64_t CountPlaceholders(ImportRun& run, Turns& turns);

}  // namespace quillon::importing
