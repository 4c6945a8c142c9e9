#include "store/engine/result_set.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstring>

#include "store/coerce.h"
#include "store/dialect/token_stream.h"
#include "store/engine/criteria.h"

namespace quillon::store {

namespace {

constexpr const char* kGone = "The record has been deleted.";

constexpr char kNull = 0, kFalse = 1, kTrue = 2, kInteger = 3, kReal = 4, kText = 5;

template <typename T>
void AppendRaw(std::string& packed, const T& raw) {
    packed.append(reinterpret_cast<const char*>(&raw), sizeof raw);
}

template <typename T>
T ReadRaw(const char*& at) {
    T raw;
    std::memcpy(&raw, at, sizeof raw);
    at += sizeof raw;
    return raw;
}

void Append(std::string& packed, const Value& value) {
    if (value.IsNull()) {
        packed += kNull;
    } else if (value.IsBoolean()) {
        packed += value.AsBoolean() ? kTrue : kFalse;
    } else if (value.IsInteger()) {
        packed += kInteger;
        AppendRaw(packed, value.AsLong());
    } else if (value.IsReal()) {
        packed += kReal;
        AppendRaw(packed, value.Real());
    } else {
        packed += kText;
        AppendRaw(packed, static_cast<std::uint32_t>(value.Text().size()));
        packed += value.Text();
    }
}

Value Take(const char*& at) {
    switch (*at++) {
        case kFalse:
            return false;
        case kTrue:
            return true;
        case kInteger:
            return ReadRaw<std::int64_t>(at);
        case kReal:
            return ReadRaw<double>(at);
        case kText: {
            const auto size = ReadRaw<std::uint32_t>(at);
            at += size;
            return std::string_view(at - size, size);
        }
        default:
            return {};
    }
}

void Skip(const char*& at) {
    const char tag = *at++;
    if (tag == kInteger || tag == kReal) {
        at += sizeof(std::int64_t);
    } else if (tag == kText) {
        const auto size = ReadRaw<std::uint32_t>(at);
        at += size;
    }
}

}  // namespace

ResultSet::ResultSet(std::shared_ptr<Handle> handle, std::shared_ptr<Compiled> compiled,
                     std::vector<Value> values, RecordsetType type)
    : handle_(std::move(handle)),
      connection_(handle_->connection),
      compiled_(std::move(compiled)),
      values_(std::move(values)),
      type_(type) {
    Open();
    connection_->Register(this);
}

ResultSet::~ResultSet() {
    Close();
}

void ResultSet::Open() {
    Connection& connection = handle_->Require();
    statement_ = connection.Lease(*compiled_);
    try {
        connection.Bind(*compiled_, statement_, values_);
        ReadNext();
    } catch (...) {
        Release();
        throw;
    }
}

void ResultSet::Release() {
    live_ = false;
    if (statement_ == nullptr) return;
    connection_->GiveBack(*compiled_, statement_);
    statement_ = nullptr;
}

void ResultSet::Close() {
    Release();
    complete_ = true;
    connection_->Unregister(this);
}

void ResultSet::Requery() {
    Release();
    rows_.clear();
    dropped_ = 0;
    complete_ = false;
    inOrder_ = true;
    deleted_ = 0;
    Open();
}

bool ResultSet::ReadNext() {
    const int code = sqlite3_step(statement_);
    live_ = code == SQLITE_ROW;
    if (live_) return true;
    complete_ = true;
    if (code != SQLITE_DONE) ThrowNative(connection_->Native(), code);
    Release();
    return false;
}

void ResultSet::KeepLive() {
    Row row;
    for (std::size_t i = 0; i < WidthWithKey(); ++i) Append(row.packed, Live(i));
    rows_.push_back(std::move(row));
    live_ = false;
}

void ResultSet::Freeze() {
    if (complete_) return;
    while (live_) {
        KeepLive();
        ReadNext();
    }
}

bool ResultSet::Has(std::size_t row) {
    const bool forward = type_ == RecordsetType::ForwardOnly;
    while (row >= dropped_ + rows_.size() + (live_ ? 1 : 0)) {
        if (complete_) return false;
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
    const int place = static_cast<int>(column);
    const auto& columns = compiled_->translation.columns;
    switch (sqlite3_column_type(statement_, place)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER: {
            const std::int64_t number = sqlite3_column_int64(statement_, place);
            if (column < columns.size() && columns[column].type == dialect::ValueType::Boolean)
                return number != 0;
            return number;
        }
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement_, place);
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, place));
            return std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, place)));
        }
    }
}

Value ResultSet::Packed(const Row& row, std::size_t column) const {
    const char* at = row.packed.data();
    for (std::size_t i = 0; i < column; ++i) Skip(at);
    return Take(at);
}

Value ResultSet::At(std::size_t row, std::size_t column) {
    if (!Has(row) || row < dropped_) throw StoreError(ErrorNumber::NoCurrentRecord, "No current record.");
    const std::size_t kept = row - dropped_;
    return kept < rows_.size() ? Packed(rows_[kept], column) : Live(column);
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
        if (dialect::SameWord(columns[i].name, name)) return i;
    throw StoreError(ErrorNumber::ItemNotFound, fmt::format("There is no field '{}' in the result.", name));
}

// Writing.

bool ResultSet::IsUpdatable() const {
    const bool kind = type_ == RecordsetType::Dynaset || type_ == RecordsetType::Table;
    return kind && !compiled_->translation.updatableTable.empty();
}

const PhysicalTable& ResultSet::BaseTable() const {
    if (!IsUpdatable()) throw StoreError(ErrorNumber::ReadOnly, "Can't update. The result is read-only.");
    return handle_->Require().RequireTable(compiled_->translation.updatableTable);
}

std::vector<const FieldDef*> ResultSet::FieldsOfColumns() const {
    std::vector<const FieldDef*> fields;
    for (const dialect::OutputColumn& column : Columns())
        fields.push_back(BaseTable().def.Field(column.field));
    return fields;
}

std::string ResultSet::KeyCondition() const {
    std::string condition;
    for (const std::string& key : BaseTable().KeyColumns())
        condition +=
            (condition.empty() ? " WHERE " : " AND ") + (key == "rowid" ? key : QuoteName(key)) + " = ?";
    return condition;
}

void ResultSet::BindKey(NativeStatement& statement, int first, std::size_t row) {
    const std::size_t width = Columns().size();
    for (std::size_t i = 0; i < compiled_->translation.keyColumns; ++i)
        statement.BindValue(first + static_cast<int>(i), At(row, width + i));
}

// What the schema says is asked for after this: where a failed write has undone a change of it, it is read
// again.
Connection& ResultSet::BeginWrite() {
    BaseTable();  // refuses a result that cannot be written
    Connection& connection = handle_->Require();
    connection.BeforeWrite();
    return connection;
}

void ResultSet::UpdateRow(std::size_t row, const std::vector<Value>& values,
                          const std::vector<bool>& changed) {
    Connection& connection = BeginWrite();
    const std::vector<const FieldDef*> fields = FieldsOfColumns();
    std::vector<Value> after;
    for (std::size_t i = 0; i < WidthWithKey(); ++i) after.push_back(At(row, i));
    std::string assignments;
    std::vector<std::size_t> assigned;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!changed[i]) continue;
        if (fields[i] == nullptr) throw StoreError(ErrorNumber::ReadOnly, "Can't update a computed column.");
        after[i] = Coerce(*fields[i], values[i]);
        if (after[i].IsNull() && fields[i]->required) throw RequiredError(*fields[i], false);
        assignments += (assignments.empty() ? "" : ", ") + QuoteName(fields[i]->name) + " = ?";
        assigned.push_back(i);
    }
    if (assigned.empty()) return;
    const std::string sql =
        fmt::format("UPDATE {} SET {}{}", QuoteName(BaseTable().def.name), assignments, KeyCondition());
    NativeStatement update(connection.Native(), sql);
    int place = 1;
    for (const std::size_t i : assigned) {
        update.BindValue(place++, after[i]);
        if (fields[i]->autoIncrement) connection.NoteAutoNumber(BaseTable().def.name, after[i].AsLong());
    }
    BindKey(update, place, row);
    update.Step();
    if (sqlite3_changes(connection.Native()) == 0) throw StoreError(ErrorNumber::RecordDeleted, kGone);
    inOrder_ = false;
    // The key behind the columns follows a change of the key itself.
    const std::vector<std::string> keys = BaseTable().KeyColumns();
    for (std::size_t k = 0; k < keys.size(); ++k)
        for (const std::size_t i : assigned)
            if (dialect::SameWord(fields[i]->name, keys[k])) after[Columns().size() + k] = after[i];
    Row& kept = rows_[row - dropped_];
    kept.packed.clear();
    for (const Value& value : after) Append(kept.packed, value);
    connection.AfterWrite();
}

void ResultSet::StageAutoNumber(std::vector<Value>& values) {
    const PhysicalTable& table = BaseTable();
    for (std::size_t i = 0; i < Columns().size(); ++i)
        if (dialect::SameWord(Columns()[i].field, table.autoField))
            values[i] = handle_->Require().NextAutoNumber(table.def.name);
}

std::size_t ResultSet::InsertRow(const std::vector<Value>& values) {
    Connection& connection = BeginWrite();
    const PhysicalTable& table = BaseTable();
    const std::vector<const FieldDef*> fields = FieldsOfColumns();
    std::vector<Value> after(WidthWithKey());
    std::string names, places;
    std::vector<std::size_t> given;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i] == nullptr || values[i].IsNull()) continue;
        after[i] = Coerce(*fields[i], values[i]);
        names += (names.empty() ? "" : ", ") + QuoteName(fields[i]->name);
        places += places.empty() ? "?" : ", ?";
        given.push_back(i);
    }
    // A number that the result does not show, or that was taken out again, is given all the same.
    std::int64_t hidden = 0;
    if (!table.autoField.empty() && std::none_of(given.begin(), given.end(), [&](std::size_t i) {
            return dialect::SameWord(fields[i]->name, table.autoField);
        })) {
        hidden = connection.NextAutoNumber(table.def.name);
        names += (names.empty() ? "" : ", ") + QuoteName(table.autoField);
        places += places.empty() ? "?" : ", ?";
    }
    for (const FieldDef& field : table.def.fields) {
        if (hidden != 0 && field.autoIncrement) continue;
        const auto has = [&](std::size_t i) { return dialect::SameWord(fields[i]->name, field.name); };
        const bool inKey = table.key == KeyKind::Clustered &&
                           std::count(table.def.PrimaryKey()->fields.begin(),
                                      table.def.PrimaryKey()->fields.end(), field.name) > 0;
        if ((field.required || inKey) && std::none_of(given.begin(), given.end(), has))
            throw RequiredError(field, inKey);
    }
    const std::string sql =
        names.empty()
            ? fmt::format("INSERT INTO {} DEFAULT VALUES", QuoteName(table.def.name))
            : fmt::format("INSERT INTO {} ({}) VALUES ({})", QuoteName(table.def.name), names, places);
    NativeStatement insert(connection.Native(), sql);
    int place = 1;
    for (const std::size_t i : given) {
        insert.BindValue(place++, after[i]);
        if (dialect::SameWord(fields[i]->name, table.autoField))
            connection.NoteAutoNumber(table.def.name, after[i].AsLong());
    }
    if (hidden != 0) insert.Bind(place, hidden);
    insert.Step();
    const std::vector<std::string> keys = table.KeyColumns();
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (table.key != KeyKind::Clustered)
            after[Columns().size() + k] = std::int64_t{sqlite3_last_insert_rowid(connection.Native())};
        for (const std::size_t i : given)
            if (dialect::SameWord(fields[i]->name, keys[k])) after[Columns().size() + k] = after[i];
        if (hidden != 0 && keys[k] == table.autoField) after[Columns().size() + k] = hidden;
    }
    if (hidden != 0)
        for (std::size_t i = 0; i < fields.size(); ++i)
            if (fields[i] != nullptr && fields[i]->autoIncrement) after[i] = hidden;
    Row row;
    for (const Value& value : after) Append(row.packed, value);
    rows_.push_back(std::move(row));
    inOrder_ = false;
    connection.AfterWrite();
    return dropped_ + rows_.size() - 1;
}

void ResultSet::DeleteRow(std::size_t row) {
    Connection& connection = BeginWrite();
    const std::string sql = fmt::format("DELETE FROM {}{}", QuoteName(BaseTable().def.name), KeyCondition());
    connection.KeepAutoNumber(BaseTable().def.name);
    NativeStatement remove(connection.Native(), sql);
    BindKey(remove, 1, row);
    remove.Step();
    if (sqlite3_changes(connection.Native()) == 0) throw StoreError(ErrorNumber::RecordDeleted, kGone);
    rows_[row - dropped_].deleted = true;
    ++deleted_;
    connection.AfterWrite();
}

// Tables.

void ResultSet::UseIndex(std::string_view indexName) {
    if (type_ != RecordsetType::Table)
        throw StoreError(ErrorNumber::NotInThisKind, "Operation is not supported for this type of object.");
    const IndexDef* index = BaseTable().def.Index(indexName);
    if (index == nullptr)
        throw StoreError(ErrorNumber::IndexMissing,
                         fmt::format("'{}' is no index of this table.", indexName));
    indexName_ = index->name;
    std::string order;
    for (const std::string& field : index->fields)
        order += fmt::format("{}[{}]", order.empty() ? "" : ", ", field);
    const std::string sql = fmt::format("SELECT * FROM [{}] ORDER BY {};", BaseTable().def.name, order);
    Release();
    compiled_ = handle_->Require().Compile(sql);
    Requery();
}

// The rows that are left, in the order of the columns: a row written since the others were read stands behind
// them.
std::vector<std::size_t> ResultSet::RowsInOrder(const std::vector<std::size_t>& columns) {
    std::vector<std::size_t> order;
    for (std::size_t row = 0; Has(row); ++row)
        if (!IsDeleted(row)) order.push_back(row);
    if (inOrder_) return order;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        for (const std::size_t column : columns) {
            const int difference = CompareValues(At(left, column), At(right, column));
            if (difference != 0) return difference < 0;
        }
        return false;
    });
    return order;
}

std::ptrdiff_t ResultSet::SeekRow(std::string_view comparison, const std::vector<Value>& key) {
    const IndexDef* index = type_ == RecordsetType::Table ? BaseTable().def.Index(indexName_) : nullptr;
    if (index == nullptr || key.empty() || key.size() > index->fields.size())
        throw StoreError(ErrorNumber::NotInThisKind,
                         "Seek needs a table with an index, and a key that fits it.");
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < key.size(); ++i) columns.push_back(ColumnPlace(index->fields[i]));
    std::size_t count = Count();
    const bool asRead = inOrder_ && deleted_ == 0;
    const std::vector<std::size_t> order = asRead ? std::vector<std::size_t>() : RowsInOrder(columns);
    if (!asRead) count = order.size();
    const auto rowAt = [&](std::size_t place) { return asRead ? place : order[place]; };
    const auto compare = [&](std::size_t place) {
        for (std::size_t i = 0; i < key.size(); ++i) {
            const int difference = CompareValues(At(rowAt(place), columns[i]), key[i]);
            if (difference != 0) return difference;
        }
        return 0;
    };
    // In the order of the index two binary searches bound the rows that are equal.
    const auto first = [&](int least) {
        std::size_t low = 0, high = count;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            compare(middle) < least ? low = middle + 1 : high = middle;
        }
        return low;
    };
    const std::size_t from = first(0), to = first(1);
    const auto found = [&](bool hit, std::size_t place) {
        return hit ? static_cast<std::ptrdiff_t>(rowAt(place)) : std::ptrdiff_t{-1};
    };
    if (comparison == "=") return found(from < to, from);
    if (comparison == ">=") return found(from < count, from);
    if (comparison == ">") return found(to < count, to);
    if (comparison == "<=") return found(to > 0, to - 1);
    if (comparison == "<") return found(from > 0, from - 1);
    throw StoreError(ErrorNumber::SyntaxError, fmt::format("'{}' is no comparison of Seek.", comparison));
}

}  // namespace quillon::store
