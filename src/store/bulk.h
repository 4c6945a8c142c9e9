// Bulk writes for the import and the merge: prepared statements bound by column index, reserved AutoNumbers,
// and indexes built at the end.
//
// Types, sizes, required fields and keys are checked as for any write: an invalid row is not stored and
// Insert() throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine.h"

namespace quillon::store {

class NativeStatement;

// A long job that fills `database`. With `deferIndexes` the indexes that only speed up look-ups are dropped
// at the start and built by Finish(); without it, those of an earlier version of the program are built anew
// at the start. Keys are always checked. After a crash the next opening builds missing indexes.
class BulkLoad {
public:
    BulkLoad(Engine& engine, Database& database, bool deferIndexes);
    ~BulkLoad();
    BulkLoad(const BulkLoad&) = delete;
    BulkLoad& operator=(const BulkLoad&) = delete;
    // Reserves the next AutoNumber of a table, whether or not a row uses it. NumericOverflow when none is
    // left.
    std::int64_t ReserveAutoNumber(std::string_view table);
    // Builds the deferred indexes. Look-ups by other columns than keys are slow before this.
    void BuildIndexes();
    // BuildIndexes, and makes everything durable.
    void Finish();
    // Ends the job without building indexes; the next opening builds them. Data that cannot be made durable
    // is lost, as in a crash.
    void Abandon() noexcept;

private:
    Engine& engine_;
    std::shared_ptr<Connection> connection_;
    bool deferred_ = false;
    bool finished_ = false;
};

// Inserts rows into one table. Pass the columns once; then for each row one value per column, in that order,
// and call Insert(). Other columns are Null (an AutoNumber must be named: see ReserveAutoNumber).
class RowWriter {
public:
    RowWriter(Database& database, std::string_view table, const std::vector<std::string_view>& columns);
    ~RowWriter();
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;

    RowWriter& Text(std::string_view text);  // "" stores Null; the text must stay valid until Insert()
    RowWriter& Id(std::int64_t id);          // 0 stores Null
    RowWriter& Long(std::int64_t number);
    RowWriter& Boolean(bool value);
    RowWriter& BooleanOrNull(std::optional<bool> value) { return value ? Boolean(*value) : Null(); }
    RowWriter& Null();
    // Stores the row. After an error nothing is stored, and the writer is ready for the next row.
    void Insert();
    // Like Insert, but replaces a row with the same primary key. All columns of the key must be named.
    void InsertOrReplace();

private:
    void Run(std::unique_ptr<NativeStatement>& statement, bool replace);
    std::string ReplaceClause() const;
    void BindCells(NativeStatement& statement);
    void Explain();
    std::optional<std::int64_t> NewNumber() const;

    std::shared_ptr<Connection> connection_;
    std::string table_, intoTable_;
    std::vector<std::string> columns_;
    // Prepared at first use, because an import has a writer for every table, but most files use few.
    std::unique_ptr<NativeStatement> insert_, replace_;
    struct Cell {
        enum class Kind { Null, Integer, Text } kind = Kind::Null;
        std::int64_t number = 0;
        std::string_view text;
    };
    // Clears the row at the end of the scope, so that the writer is ready for the next one.
    struct CellsEnd {
        std::vector<Cell>& cells;
        ~CellsEnd() { cells.clear(); }
    };
    std::vector<Cell> cells_;
    std::ptrdiff_t autoColumn_ = -1;  // the index of the table's AutoNumber among the columns
    std::int64_t highest_ = 0;        // the highest AutoNumber that the table's counter includes
};

}  // namespace quillon::store
