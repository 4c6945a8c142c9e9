// How much has been written to a DataSet since it was opened. Whoever caches what is expensive to read
// compares the count: while it has not changed, the cache is valid.
#pragma once

#include <cstdint>

#include "store/engine.h"

namespace quillon::store {

// Grows with every row that this process writes to the file, through whatever handle; never falls while the
// DataSet is open. Throws ObjectClosed afterwards.
std::int64_t WriteCount(const Database& database);

}  // namespace quillon::store
