// Copies an open DataSet page by page through SQLite. The file is never opened a second time: closing another
// descriptor would drop the locks that this process has on it.
#pragma once

#include <functional>
#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

// Fills the empty file `to`, without making it durable. Throws StoreError, also when `goOn`, which is called
// every few milliseconds, returns false.
void CopyPages(const Connection& from, const std::string& to, const std::function<bool()>& goOn);

}  // namespace quillon::store
