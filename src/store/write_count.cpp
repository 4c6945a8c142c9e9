#include "store/write_count.h"

#include "store/engine/connection.h"

namespace quillon::store {

std::int64_t WriteCount(const Database& database) {
    return database.Shared()->WriteCount();
}

}  // namespace quillon::store
