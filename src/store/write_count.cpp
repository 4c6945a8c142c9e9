#include "store/write_count.h"

#include <sqlite3.h>

#include "store/engine/connection.h"

namespace quillon::store {

std::int64_t WriteCount(const Database& database) {
    return sqlite3_total_changes64(database.Shared()->Native());
}

}  // namespace quillon::store
