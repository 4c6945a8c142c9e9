// Placeholders: rows for records that a file refers to but does not contain, or that could not be stored.
#pragma once

#include "import/import_run.h"
#include "import/import_turns.h"

namespace quillon::importing {

// Writes a row for each new id without one, marked "Dummy#" and the key. Called once, before the closing
// pass, which deletes some of them.
void StorePlaceholders(ImportRun& run, Turns& turns);

// The number of placeholders left in the DataSet after the closing pass.
std::int64_t CountPlaceholders(ImportRun& run, Turns& turns);

}  // namespace quillon::importing
