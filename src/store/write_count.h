// Counts the writes to a DataSet since it was opened. A cache of DataSet content is valid while the count has
// not changed.
#pragma once

#include <cstdint>

#include "store/engine.h"

namespace quillon::store {

// Increases with every row that this process writes, through any handle, until the DataSet is closed. Throws
// ObjectClosed afterwards.
std::int64_t WriteCount(const Database& database);

}  // namespace quillon::store
