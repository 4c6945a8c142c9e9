#include "store/row_stream.h"

#include <fmt/format.h>

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

// The index of a key under the collation has no Null. With the same condition a select can use the index
// instead of sorting.
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

RowStream::RowStream(Database& database, std::string_view select) : connection_(database.Shared()) {
    const std::shared_ptr<Compiled> compiled = connection_->Compile(select);
    if (compiled->translation.kind != dialect::StatementKind::Select)
        throw StoreError(ErrorNumber::NotInThisKind, "An action query gives no rows; execute it instead.");
    lease_ = std::make_unique<Lease>(connection_->Borrow(compiled));
    statement_ = lease_->Statement();
    Statements::Bind(*compiled, statement_, std::vector<Value>(compiled->parameterNames.size()));
}

RowStream::RowStream(Database& database, std::string_view table, const std::vector<std::string_view>& columns,
                     const TableRows& rows)
    : connection_(database.Shared()) {
    const std::string sql = TableSelect(connection_->RequireTable(table), columns, rows);
    table_ = std::make_unique<NativeStatement>(connection_->Native(), sql);
    statement_ = table_->Handle();
    if (!rows.column.empty())
        table_->Bind(1, std::string_view(fmt::format("[{}]", fmt::join(rows.among, ","))));
}

RowStream::~RowStream() = default;

bool RowStream::Next() {
    return StepNative(statement_);
}

bool RowStream::IsNull(std::size_t column) const {
    return IsNullIn(statement_, static_cast<int>(column));
}

std::int64_t RowStream::Long(std::size_t column) const {
    return FieldLongIn(statement_, static_cast<int>(column));
}

std::string_view RowStream::Text(std::size_t column) const {
    return TextIn(statement_, static_cast<int>(column));
}

}  // namespace quillon::store
