// The look-ups that the lookup bench times: each a named query with its key, and the bare SQLite statement
// that reads the same columns. Data only.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "core/value.h"

namespace quillon::bench {

struct LookupCase {
    std::string_view query;      // the named query
    std::string_view parameter;  // its one parameter
    std::string_view bareSql;    // with one place for the key
    std::string_view keySql;     // gives keys to look up, one column, in the order of their use
};

const std::vector<LookupCase>& LookupCases();

}  // namespace quillon::bench
