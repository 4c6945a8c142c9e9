// Copies an open DataSet page by page through SQLite. The file is not opened again, because closing another
// descriptor would drop the locks that this process holds on it.
#pragma once

#include <functional>
#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

// Fills the empty file `to`, without making it durable. `goOn` is called every few milliseconds. Throws
// StoreError, also when `goOn` returns false.
void CopyPages(const Connection& from, const std::string& to, const std::function<bool()>& goOn);

}  // namespace quillon::store
