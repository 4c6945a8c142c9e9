// The rows of one opened select, read from SQLite as they are visited and kept packed; shared by a recordset
// and its clones. The row last read stays in the SQLite statement until the next one is needed, so that a
// look-up of one row copies nothing. Before anything is written to the DataSet, Freeze() reads the rest, and
// the rows stay as they were.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/connection.h"
#include "store/recordset.h"

namespace quillon::store {

class ResultSet {
public:
    ResultSet(std::shared_ptr<Handle> handle, std::shared_ptr<Compiled> compiled, std::vector<Value> values,
              RecordsetType type);
    ~ResultSet();
    ResultSet(const ResultSet&) = delete;
    ResultSet& operator=(const ResultSet&) = delete;

    RecordsetType Type() const { return type_; }
    void RequireOpen() const { handle_->Require(); }
    bool IsOf(const Handle& handle) const { return handle_.get() == &handle; }
    void Close();
    void Requery();
    // Reads all rows that are left.
    void Freeze();

    // True when there is a row at that place; reads up to it.
    bool Has(std::size_t row);
    std::size_t Count();  // of all rows
    bool IsDeleted(std::size_t row) const;
    // How many of the first `rows` rows are deleted.
    std::size_t DeletedBefore(std::size_t rows) const;
    Value At(std::size_t row, std::size_t column);
    const std::vector<dialect::OutputColumn>& Columns() const { return compiled_->translation.columns; }
    // Without regard to case; 3265 for no such column.
    std::size_t ColumnPlace(std::string_view name) const;

    bool IsUpdatable() const;
    const PhysicalTable& BaseTable() const;
    // Store a changed, a new, or no more row. `values` has one value a column; for a change only `changed`
    // ones count.
    void UpdateRow(std::size_t row, const std::vector<Value>& values, const std::vector<bool>& changed);
    // Puts the next AutoNumber into its column, if the result has it.
    void StageAutoNumber(std::vector<Value>& values);
    std::size_t InsertRow(const std::vector<Value>& values);
    void DeleteRow(std::size_t row);

    // Table-type: another order, and the place of a row by its key in that order.
    void UseIndex(std::string_view indexName);
    std::ptrdiff_t SeekRow(std::string_view comparison, const std::vector<Value>& key);

private:
    struct Row {
        std::string packed;
        bool deleted = false;
    };
    void Open();
    void Release();
    bool ReadNext();
    void KeepLive();
    Value Live(std::size_t column) const;
    std::size_t WidthWithKey() const;
    Value Packed(const Row& row, std::size_t column) const;
    Connection& BeginWrite();
    std::string KeyCondition() const;
    void BindKey(NativeStatement& statement, int first, std::size_t row);
    std::vector<const FieldDef*> FieldsOfColumns() const;
    std::vector<std::size_t> RowsInOrder(const std::vector<std::size_t>& columns);

    std::shared_ptr<Handle> handle_;
    std::shared_ptr<Connection> connection_;  // outlives the handle's own hold, to give the statement back
    std::shared_ptr<Compiled> compiled_;
    std::vector<Value> values_;
    RecordsetType type_;
    sqlite3_stmt* statement_ = nullptr;
    std::vector<Row> rows_;
    std::size_t dropped_ = 0;  // rows that a ForwardOnly result has let go
    bool live_ = false;        // the row at dropped_ + rows_.size() is in the statement
    bool complete_ = false;
    bool inOrder_ = true;  // no row was changed or added since they were read
    std::size_t deleted_ = 0;
    std::string indexName_ = "PrimaryKey";
};

}  // namespace quillon::store
