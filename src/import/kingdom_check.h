// Refuses a file of another kingdom. Called once before an import stores anything.
#pragma once

#include <string>

#include "import/byte_source.h"
#include "import/import_turns.h"
#include "store/engine.h"

namespace quillon::importing {

// The message that refuses the file; "" when its kingdom is the DataSet's, or when either is unknown. The
// kingdom of a file is that of its first [TU] line that has a kingdom_id. Reads up to that line and goes back
// to the beginning. Throws ReadError, StoreError and ImportCanceled.
std::string KingdomRefusal(ByteSource& source, store::Database& database, Turns& turns);

}  // namespace quillon::importing
