// The named queries of a DataSet: their texts in the dialect, in the order of creation, cached in memory.
// Does not check or compile texts.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/schema/names.h"

struct sqlite3;

namespace quillon::store {

class StoredQueries {
public:
    // Reads them from the file; keeps the old ones after an error.
    void Load(sqlite3* db);

    // nullptr when there is no such query.
    const std::string* Text(std::string_view name) const;
    const std::vector<std::pair<std::string, std::string>>& All() const { return queries_; }

    // Change the file. In memory Add takes effect immediately, the others after Load().
    void Add(sqlite3* db, std::string_view name, std::string_view sql);
    static void Replace(sqlite3* db, std::string_view name, std::string_view sql);
    static void Drop(sqlite3* db, std::string_view name);

private:
    std::vector<std::pair<std::string, std::string>> queries_;
    NameMap<std::size_t> byName_;
};

}  // namespace quillon::store
