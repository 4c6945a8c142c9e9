// Reading the rows of a result. Writing them is in result_set_write.cpp, finding them by key in
// result_set_seek.cpp.
#include "store/engine/result_set.h"

#include <fmt/format.h>

#include <utility>

namespace quillon::store {

ResultSet::ResultSet(std::shared_ptr<Handle> handle, std::shared_ptr<Compiled> compiled,
                     std::vector<Value> values, RecordsetType type)
    : handle_(std::move(handle)),
      connection_(handle_->connection),
      compiled_(std::move(compiled)),
      values_(std::move(values)),
      type_(type) {
    connection_->Results().Add(this);
    try {
        Open();
    } catch (...) {
        Close();
        throw;
    }
}

ResultSet::~ResultSet() {
    Close();
}

void ResultSet::Open() {
    Connection& connection = handle_->Require();
    lease_ = connection.Borrow(compiled_);
    Statements::Bind(*compiled_, lease_.Statement(), values_);
    ReadNext();
}

void ResultSet::Close() noexcept {
    live_ = false;
    complete_ = true;
    lease_.GiveBack();
    connection_->Results().Remove(this);
}

void ResultSet::Requery() {
    live_ = false;
    lease_.GiveBack();
    rows_.clear();
    dropped_ = 0;
    complete_ = false;
    broken_ = false;
    inOrder_ = true;
    deleted_ = 0;
    Open();
}

void ResultSet::Break() noexcept {
    broken_ = broken_ || !complete_;
    live_ = false;
    lease_.GiveBack();
}

void ResultSet::ReadNext() {
    live_ = false;
    try {
        live_ = StepNative(lease_.Statement());
    } catch (...) {
        Break();
        throw;
    }
    if (live_) return;
    complete_ = true;
    lease_.GiveBack();
}

void ResultSet::KeepLive() {
    Row row;
    for (std::size_t i = 0; i < WidthWithKey(); ++i) row.values.Append(Live(i));
    rows_.push_back(std::move(row));
    live_ = false;
}

void ResultSet::Freeze() {
    while (live_) {
        KeepLive();
        ReadNext();
    }
}

bool ResultSet::Has(std::size_t row) {
    const bool forward = type_ == RecordsetType::ForwardOnly;
    while (row >= dropped_ + rows_.size() + (live_ ? 1 : 0)) {
        if (broken_) throw StoreError(ErrorNumber::DiskError, "The rest of the records could not be read.");
        if (!live_) return false;
        if (forward) {
            dropped_ += rows_.size() + 1;
            rows_.clear();
        } else {
            KeepLive();
        }
        ReadNext();
    }
    return true;
}

std::size_t ResultSet::Count() {
    while (Has(dropped_ + rows_.size() + (live_ ? 1 : 0))) {
    }
    return dropped_ + rows_.size() + (live_ ? 1 : 0);
}

std::size_t ResultSet::WidthWithKey() const {
    return compiled_->translation.columns.size() + compiled_->translation.keyColumns;
}

Value ResultSet::Live(std::size_t column) const {
    Value value = ValueIn(lease_.Statement(), static_cast<int>(column));
    const auto& columns = compiled_->translation.columns;
    const bool boolean =
        column < columns.size() && columns[column].type == dialect::ValueType::Boolean && value.IsInteger();
    if (boolean) return value.AsLong() != 0;
    return value;
}

Value ResultSet::At(std::size_t row, std::size_t column) {
    if (!Has(row) || row < dropped_) throw StoreError(ErrorNumber::NoCurrentRecord, "No current record.");
    const std::size_t kept = row - dropped_;
    Value value = kept < rows_.size() ? rows_[kept].values.At(column) : Live(column);
    // Callers keep ids in 32 bits: a larger one would become that of another row.
    const bool number = value.IsInteger() || value.IsReal();
    if (number && column < Columns().size() && !Columns()[column].field.empty())
        RequireFieldRange(value.AsLong());
    return value;
}

bool ResultSet::IsDeleted(std::size_t row) const {
    return row >= dropped_ && row - dropped_ < rows_.size() && rows_[row - dropped_].deleted;
}

std::size_t ResultSet::DeletedBefore(std::size_t rows) const {
    if (deleted_ == 0) return 0;
    std::size_t count = 0;
    for (std::size_t row = 0; row < rows; ++row) count += IsDeleted(row) ? 1 : 0;
    return count;
}

std::size_t ResultSet::ColumnPlace(std::string_view name) const {
    const auto& columns = Columns();
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (SameWord(columns[i].name, name)) return i;
    throw StoreError(ErrorNumber::ItemNotFound, fmt::format("There is no field '{}' in the result.", name));
}

}  // namespace quillon::store
