// How much has been written to a DataSet since it was opened, for those who keep something that is dear to
// read: it is still good as long as the count stands where it stood.
#pragma once

#include <cstdint>

#include "store/engine.h"

namespace quillon::store {

// Grows with every row that this process writes to the file, through whatever handle; never falls while the
// DataSet is open. Throws ObjectClosed afterwards.
std::int64_t WriteCount(const Database& database);

}  // namespace quillon::store
