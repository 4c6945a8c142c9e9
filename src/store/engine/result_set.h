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
    // Reads all rows that are left.
    void Freeze();
    // Lets go of the rows that are left: whoever walks on to them gets an error.
    void Break() noexcept;

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
    // Store a changed, a new, or no more row. `values` has one value for each column; for a change only
    // `changed` ones count. On an error the row is as it was.
    void UpdateRow(std::size_t row, const std::vector<Value>& values, const std::vector<bool>& changed);
    // Puts the next AutoNumber into its column, if the result has it.
    void StageAutoNumber(std::vector<Value>& values);
    void InsertRow(const std::vector<Value>& values);
    void DeleteRow(std::size_t row);

    // Table-type: another order, and the place of a row by its key in that order; -1 for none.
    void UseIndex(std::string_view indexName);
    std::ptrdiff_t SeekRow(std::string_view comparison, const std::vector<Value>& key);

private:
    struct Row {
        PackedRow values;
        bool deleted = false;
    };
    // The columns of a row that is being written, and their values.
    struct Written {
        std::vector<const FieldDef*> fields;  // by column; nullptr for a computed one
        std::vector<Value> after;             // by column, then the key
        std::vector<std::size_t> given;       // columns that are written
        std::int64_t hidden = 0;              // an AutoNumber that the result does not show
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
    std::shared_ptr<Connection> connection_;  // outlives the handle, so that the statement can be given back
    std::shared_ptr<Compiled> compiled_;
    std::vector<Value> values_;
    RecordsetType type_;
    Lease lease_;
    std::vector<Row> rows_;
    std::size_t dropped_ = 0;  // rows that a ForwardOnly result no longer keeps
    bool live_ = false;        // the row at dropped_ + rows_.size() is in the statement
    bool complete_ = false;
    bool broken_ = false;  // rows are missing because they could not be read
    bool inOrder_ = true;  // no row was changed or added since they were read
    std::size_t deleted_ = 0;
    std::string indexName_ = "PrimaryKey";
};

}  // namespace quillon::store
