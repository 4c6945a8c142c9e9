// The rows of one opened select, read from SQLite as they are visited and kept packed; shared by a recordset
// and its clones. The last row read stays in the SQLite statement until the next one is needed, so that a
// look-up of one row copies nothing. Before any write to the DataSet, Freeze() reads the rest, so that the
// rows do not change.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/connection.h"
#include "store/engine/packed_row.h"
#include "store/recordset_type.h"

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
    void Close() noexcept;
    void Requery();
    // Reads all remaining rows.
    void Freeze();
    // Drops the remaining rows; moving to them is an error afterwards.
    void Break() noexcept;

    // True when there is a row with that index; reads up to it.
    bool Has(std::size_t row);
    std::size_t Count();  // of all rows
    bool IsDeleted(std::size_t row) const;
    // The number of deleted rows among the first `rows`.
    std::size_t DeletedBefore(std::size_t rows) const;
    Value At(std::size_t row, std::size_t column);
    const std::vector<dialect::OutputColumn>& Columns() const { return compiled_->translation.columns; }
    // Ignores case; 3265 for an unknown column.
    std::size_t ColumnPlace(std::string_view name) const;

    bool IsUpdatable() const;
    const PhysicalTable& BaseTable() const;
    // Change, add or delete a row. `values` has one value for each column; a change stores only those in
    // `changed`. After an error the row is unchanged.
    void UpdateRow(std::size_t row, const std::vector<Value>& values, const std::vector<bool>& changed);
    // Sets the AutoNumber column, if the result has it, to the next number.
    void StageAutoNumber(std::vector<Value>& values);
    void InsertRow(const std::vector<Value>& values);
    void DeleteRow(std::size_t row);

    // For tables: sets the order, and finds a row by its key in that order; -1 for none.
    void UseIndex(std::string_view indexName);
    std::ptrdiff_t SeekRow(std::string_view comparison, const std::vector<Value>& key);

private:
    struct Row {
        PackedRow values;
        bool deleted = false;
    };
    // A row that is being written.
    struct Written {
        std::vector<const FieldDef*> fields;  // by column; nullptr for a computed one
        std::vector<Value> after;             // by column, then the key
        std::vector<std::size_t> given;       // indexes of the written columns
        std::int64_t hidden = 0;              // an AutoNumber without a column in the result
    };
    void Open();
    void ReadNext();
    void KeepLive();
    Value Live(std::size_t column) const;
    std::size_t WidthWithKey() const;
    std::string KeyCondition() const;
    void BindKey(NativeStatement& statement, int first, std::size_t row);
    std::vector<const FieldDef*> FieldsOfColumns() const;
    std::size_t AfterKey(Written& row) const;
    Written ChangedRow(std::size_t row, const std::vector<Value>& values, const std::vector<bool>& changed);
    Written NewRow(Connection& connection, const std::vector<Value>& values) const;
    void RequireAllFields(const Written& row) const;
    std::vector<std::size_t> RowsInOrder(const std::vector<std::size_t>& columns);
    int CompareKey(std::size_t row, const std::vector<std::size_t>& columns, const std::vector<Value>& key);

    std::shared_ptr<Handle> handle_;
    std::shared_ptr<Connection> connection_;  // outlives the handle, so that the statement can be returned
    std::shared_ptr<Compiled> compiled_;
    std::vector<Value> values_;
    RecordsetType type_;
    Lease lease_;
    std::vector<Row> rows_;
    std::size_t dropped_ = 0;  // number of rows dropped by a ForwardOnly result
    bool live_ = false;        // the row at dropped_ + rows_.size() is in the statement
    bool complete_ = false;
    bool broken_ = false;  // some rows could not be read
    bool inOrder_ = true;  // no row was changed or added since they were read
    std::size_t deleted_ = 0;
    std::string indexName_ = "PrimaryKey";
};

}  // namespace quillon::store
