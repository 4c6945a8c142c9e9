#include "store/row_stream.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

namespace {

std::string TableSelect(const PhysicalTable& table, const std::vector<std::string_view>& columns,
                        const TableRows& rows) {
    std::string list, order;
    for (const std::string_view column : columns) {
        if (table.def.Field(column) == nullptr)
            throw StoreError(ErrorNumber::ItemNotFound,
                             fmt::format("There is no field '{}' in the table.", column));
        list += (list.empty() ? "" : ", ") + QuoteName(column);
    }
    std::string sql = fmt::format("SELECT {} FROM {}", list, QuoteName(table.def.name));
    if (!rows.column.empty())
        sql += fmt::format(" WHERE {} IN (SELECT value FROM json_each(?1))", QuoteName(rows.column));
    if (rows.order == TableRows::Order::Any) return sql;
    for (const std::string& key : table.KeyColumns())
        order += (order.empty() ? " ORDER BY " : ", ") + (key == "rowid" ? key : QuoteName(key));
    return sql + order;
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
    sqlite3_bind_text64(statement_, 1, numbers.data(), numbers.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
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
