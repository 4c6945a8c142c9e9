// The rows that stand for what a file named without giving it, or gave in a way that could not be stored.
#pragma once

#include "import/import_run.h"

namespace quillon::importing {

// Writes a row for each new id that has none, marked "Dummy#" and the key. Called once, before the closing
// pass deletes some of them and leaves the others.
void StorePlaceholders(ImportRun& run);

}  // namespace quillon::importing
