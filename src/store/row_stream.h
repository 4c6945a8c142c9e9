// The rows of one select or one table, read forward once, for walks over whole tables: values are read in
// place, without copies. Exports use it; whoever needs to find, to go back or to write uses a
// Recordset.
//
// Nothing may be written to the DataSet while a stream is open: it does not keep its rows, as a recordset
// does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "store/engine.h"

struct sqlite3_stmt;

namespace quillon::store {

class Lease;
class NativeStatement;

// Which rows of a table a stream reads.
struct TableRows {
    // Key: by the primary key in plain byte order, the order in the file. Collated: by the primary
    // key, its texts under the program's collation, as a select of the dialect gives them. Any: as it is read
    // fastest.
    enum class Order { Key, Collated, Any } order = Order::Key;
    // Only rows with one of these numbers in the column; all rows while the column is empty. Each number is
    // looked up, so this is for few of them; their count has no limit.
    std::string_view column = {};
    std::vector<std::int32_t> among = {};
};

class RowStream {
public:
    // A select in the dialect, without parameters. It is before the first row after opening. Throws
    // StoreError, as Next() does.
    RowStream(Database& database, std::string_view select);
    // Columns of a table, in this order; one may be named twice.
    RowStream(Database& database, std::string_view table, const std::vector<std::string_view>& columns,
              const TableRows& rows = {});
    ~RowStream();
    RowStream(const RowStream&) = delete;
    RowStream& operator=(const RowStream&) = delete;

    // Goes on to the next row; false past the last one.
    bool Next();

    // Columns count from 0. A number is 0 and a text "" for Null; a Boolean is 0 or 1. A text lives until
    // Next().
    bool IsNull(std::size_t column) const;
    std::int64_t Long(std::size_t column) const;
    std::string_view Text(std::size_t column) const;

private:
    std::shared_ptr<Connection> connection_;
    std::unique_ptr<Lease> lease_;            // of a select
    std::unique_ptr<NativeStatement> table_;  // of a table
    sqlite3_stmt* statement_ = nullptr;       // of either
};

}  // namespace quillon::store
