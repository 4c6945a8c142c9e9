// Reads the rows of a select or a table forward once, for scans of whole tables: values are read in place,
// without copies. Use a Recordset to search, to go back or to write.
//
// The DataSet must not be written while a stream is open, because it does not keep its rows as a recordset
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

// The rows of a table that a stream reads.
struct TableRows {
    // Key: by the primary key in plain byte order, the order in the file. Collated: by the primary key, with
    // texts under the program's collation, like a select of the dialect. Any: in the fastest order.
    enum class Order { Key, Collated, Any } order = Order::Key;
    // Only rows with one of these numbers in the column; all rows while the column is empty. Each number is
    // looked up, so this is for few of them, although their number is not limited.
    std::string_view column = {};
    std::vector<std::int32_t> among = {};
};

class RowStream {
public:
    // A select in the dialect, without parameters. Starts before the first row. Throws StoreError, like
    // Next().
    RowStream(Database& database, std::string_view select);
    // Columns of a table, in this order; duplicates are allowed.
    RowStream(Database& database, std::string_view table, const std::vector<std::string_view>& columns,
              const TableRows& rows = {});
    ~RowStream();
    RowStream(const RowStream&) = delete;
    RowStream& operator=(const RowStream&) = delete;

    // Moves to the next row; false after the last one.
    bool Next();

    // Columns count from 0. A stored number beyond 32 bits throws CorruptFile. For Null a number is 0 and a
    // text ""; a Boolean is 0 or 1. A text is valid until Next().
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
