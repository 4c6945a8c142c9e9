// The tables, stored queries and joins of a select.
#include <fmt/format.h>

#include <algorithm>

#include "store/dialect/emitter.h"
#include "store/dialect/parser.h"
#include "store/dialect/token_stream.h"
#include "store/error.h"

namespace quillon::store::dialect {

namespace {

constexpr int kDeepestQuery = 20;  // nesting of stored queries
constexpr int kMostQueries = 100;  // in one statement: each may use another twice, and so on

Source TableSource(const TableRef& ref, const PhysicalTable& table) {
    Source source{ref.Alias(), {}, &table};
    for (const FieldDef& field : table.def.fields)
        source.columns.push_back({field.name, TypeOf(field.type), field.name});
    return source;
}

}  // namespace

const PhysicalTable& Emitter::RequireTable(std::string_view name, std::size_t place) const {
    const PhysicalTable* table = schema_.Table(name);
    if (table == nullptr)
        throw StoreError(
            ErrorNumber::UnknownTable,
            fmt::format("There is no table or query '{}' in the DataSet (place {} of the statement).", name,
                        place + 1));
    return *table;
}

Source Emitter::SourceOf(const TableRef& ref) {
    if (const PhysicalTable* table = schema_.Table(ref.table)) return TableSource(ref, *table);
    const std::string* query = schema_.Query(ref.table);
    if (query == nullptr) RequireTable(ref.table, ref.place);
    if (depth_ >= kDeepestQuery || ++expanded_ > kMostQueries)
        Fail(ref.place, "Queries select from each other without end in");
    const Statement statement = ParseStatement(*query);
    if (statement.kind != StatementKind::Select)
        Fail(ref.place, "Only a select query can be selected from in");
    for (const Declaration& declaration : statement.parameters)
        if (ParameterPlace(declaration.name) < 0) out_.parameters.push_back(declaration);
    ++depth_;
    const std::string_view outerText = text_;
    text_ = *query;
    SelectText select = EmitSelect(*statement.select, nullptr, Use::Nested);
    text_ = outerText;
    --depth_;
    Source source{ref.Alias(), select.columns, nullptr};
    for (OutputColumn& column : source.columns) column.field.clear();
    storedQueries_.emplace_back(ref.Alias(), std::move(select));
    return source;
}

void Emitter::DeclareSources(const TableRef& ref, Scope& scope) {
    if (ref.isJoin) {
        DeclareSources(*ref.left, scope);
        DeclareSources(*ref.right, scope);
        return;
    }
    if (FindSource(scope, ref.Alias()) != nullptr)
        Fail(ref.place, "The same table twice without another name in");
    scope.sources.push_back(SourceOf(ref));
}

std::string Emitter::EmitSource(const TableRef& ref, Scope& scope) {
    const Source* source = FindSource(scope, ref.Alias());
    if (source->table != nullptr)
        return QuoteName(source->table->def.name) + " AS " + QuoteName(source->alias);
    const auto found = std::find_if(storedQueries_.rbegin(), storedQueries_.rend(),
                                    [&](const auto& query) { return SameWord(query.first, ref.Alias()); });
    if (found != storedQueries_.rend())
        return fmt::format("({}) AS {}", found->second.sql, QuoteName(source->alias));
    Fail(ref.place, "Cannot translate");
}

// Joins are left-associative in SQLite: a right join is reversed, and an inner join with a joined group is
// moved after the group, so that parentheses, which prevent the use of indexes, are rarely needed.
std::string Emitter::EmitTableRef(const TableRef& ref, Scope& scope) {
    if (!ref.isJoin) return EmitSource(ref, scope);
    const bool turned = ref.join == JoinKind::Right ||
                        (ref.join == JoinKind::Inner && ref.right->isJoin && !ref.left->isJoin);
    const TableRef& first = turned ? *ref.right : *ref.left;
    const TableRef& second = turned ? *ref.left : *ref.right;
    std::string sql = EmitTableRef(first, scope);
    sql += ref.join == JoinKind::Inner ? " INNER JOIN " : " LEFT JOIN ";
    sql += second.isJoin ? "(" + EmitTableRef(second, scope) + ")" : EmitTableRef(second, scope);
    return sql + " ON " + EmitExpression(*ref.on, &scope).sql;
}

}  // namespace quillon::store::dialect
