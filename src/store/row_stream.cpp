#include "store/row_stream.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

namespace {

bool IsText(const PhysicalTable& table, const std::string& column) {
    const FieldDef* field = table.def.Field(column);
    return field != nullptr && HasText(field->type);
}

std::string OrderBy(const PhysicalTable& table, TableRows::Order order) {
    std::string list;
    for (const std::string& key : table.KeyColumns()) {
        list += (list.empty() ? " ORDER BY " : ", ") + (key == "rowid" ? key : QuoteName(key));
        if (order == TableRows::Order::Collated && IsText(table, key)) list += " COLLATE QLN";
    }
    return list;
}

// The index of a key under the collation leaves Null out. A select has to say that it does, too, and is then
// read along the index instead of being sorted first.
std::string Condition(const PhysicalTable& table, const TableRows& rows) {
    std::string condition;
    if (!rows.column.empty())
        condition = fmt::format(" WHERE {} IN (SELECT value FROM json_each(?1))", QuoteName(rows.column));
    const std::string first = table.KeyColumns().front();
    if (rows.order != TableRows::Order::Collated || !IsText(table, first)) return condition;
    return condition + (condition.empty() ? " WHERE " : " AND ") + QuoteName(first) + " IS NOT NULL";
}

std::string TableSelect(const PhysicalTable& table, const std::vector<std::string_view>& columns,
                        const TableRows& rows) {
    std::string list;
    for (const std::string_view column : columns) {
        if (table.def.Field(column) == nullptr)
            throw StoreError(ErrorNumber::ItemNotFound,
                             fmt::format("There is no field '{}' in the table.", column));
        list += (list.empty() ? "" : ", ") + QuoteName(column);
    }
    const std::string order = rows.order == TableRows::Order::Any ? "" : OrderBy(table, rows.order);
    return fmt::format("SELECT {} FROM {}{}{}", list, QuoteName(table.def.name), Condition(table, rows),
                       order);
}

}  // namespace

RowStream::RowStream(Database& database, std::string_view select)
    : connection_(database.Shared()), compiled_(connection_->Compile(select)) {
    if (compiled_->translation.kind != dialect::StatementKind::Select)
        throw StoreError(ErrorNumber::NotInThisKind, "An action query gives no rows; execute it instead.");
    statement_ = connection_->Lease(*compiled_);
    try {
        connection_->Bind(*compiled_, statement_, std::vector<Value>(compiled_->parameterNames.size()));
    } catch (...) {
        connection_->GiveBack(*compiled_, statement_);
        throw;
    }
}

RowStream::RowStream(Database& database, std::string_view table, const std::vector<std::string_view>& columns,
                     const TableRows& rows)
    : connection_(database.Shared()) {
    const std::string sql = TableSelect(connection_->RequireTable(table), columns, rows);
    statement_ = PrepareNative(connection_->Native(), sql);
    if (rows.column.empty()) return;
    const std::string numbers = fmt::format("[{}]", fmt::join(rows.among, ","));
    const int code =
        sqlite3_bind_text64(statement_, 1, numbers.data(), numbers.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    if (code == SQLITE_OK) return;
    sqlite3_finalize(statement_);
    ThrowNative(connection_->Native(), code);
}

RowStream::~RowStream() {
    if (compiled_ == nullptr) {
        sqlite3_finalize(statement_);
    } else {
        connection_->GiveBack(*compiled_, statement_);
    }
}

bool RowStream::Next() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) ThrowNative(connection_->Native(), code);
    return false;
}

bool RowStream::IsNull(std::size_t column) const {
    return sqlite3_column_type(statement_, static_cast<int>(column)) == SQLITE_NULL;
}

std::int64_t RowStream::Long(std::size_t column) const {
    return sqlite3_column_int64(statement_, static_cast<int>(column));
}

std::string_view RowStream::Text(std::size_t column) const {
    const auto place = static_cast<int>(column);
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, place));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, place))};
}

}  // namespace quillon::store
