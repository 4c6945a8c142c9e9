// INSERT, UPDATE and DELETE in SQLite's syntax: values are converted to their fields, AutoNumbers come from
// qln_auto.
#include <fmt/format.h>

#include "store/dialect/emitter.h"
#include "store/dialect/token_stream.h"
#include "store/error.h"
#include "store/schema/coerce.h"

namespace quillon::store::dialect {

namespace {

std::string AutoNumberSql(const PhysicalTable& table, const std::string& value) {
    return fmt::format("qln_auto({}, {})", QuoteLiteral(table.def.name), value);
}

std::unique_ptr<Expression> ColumnOf(const Source& source, const OutputColumn& column) {
    auto expression = std::make_unique<Expression>();
    expression->kind = ExpressionKind::Column;
    expression->qualifier = source.alias;
    expression->name = column.name;
    return expression;
}

// The values of an insert, in order. A star is expanded to all columns, which `starred` owns.
std::vector<const Expression*> InsertedValues(const Statement& statement, const Scope& scope,
                                              std::vector<ExpressionPtr>& starred) {
    std::vector<const Expression*> given;
    for (const ExpressionPtr& value : statement.values) given.push_back(value.get());
    if (statement.select == nullptr) return given;
    for (const SelectItem& item : statement.select->items) {
        if (!item.star) {
            given.push_back(item.expression.get());
            continue;
        }
        for (const Source& source : scope.sources)
            for (const OutputColumn& column : source.columns) {
                starred.push_back(ColumnOf(source, column));
                given.push_back(starred.back().get());
            }
    }
    return given;
}

}  // namespace

const FieldDef& Emitter::RequireField(const PhysicalTable& table, std::string_view name,
                                      std::size_t place) const {
    const FieldDef* field = table.def.Field(name);
    if (field == nullptr) Fail(place, fmt::format("The table has no field '{}':", name));
    return *field;
}

std::string Emitter::EmitAssigned(const Expression& expression, const FieldDef& field, const Scope* scope) {
    if (expression.kind == ExpressionKind::Literal) {
        Slot slot;
        slot.constant = expression.value;
        slot.field = field;
        return fmt::format("?{}", AddSlot(std::move(slot)));
    }
    const bool name = expression.kind == ExpressionKind::Column && expression.qualifier.empty();
    if (name && FindColumn(scope, "", expression.name).column == nullptr &&
        ParameterPlace(expression.name) >= 0) {
        Slot slot;
        slot.parameter = ParameterPlace(expression.name);
        slot.field = field;
        return fmt::format("?{}", AddSlot(std::move(slot)));
    }
    const Emitted value = EmitExpression(expression, scope);
    const bool convert = field.type == FieldType::Boolean && value.type != ValueType::Boolean;
    return convert ? fmt::format("qln_boolean({})", value.sql) : value.sql;
}

void Emitter::RequirePlain(const Statement& statement) const {
    const Select* select = statement.select.get();
    const bool plain = select == nullptr || (!select->unionWith && !select->distinct &&
                                             !select->distinctRow && !IsAggregate(*select));
    if (!plain) Fail(statement.place, "Only a plain select can be inserted into");
}

std::string Emitter::EmitInsertedRows(const Statement& statement, Scope& scope) {
    if (statement.select == nullptr) return "";
    std::string sql;
    for (const auto& ref : statement.select->from)
        sql += (sql.empty() ? " FROM " : ", ") + EmitTableRef(*ref, scope);
    if (statement.select->where != nullptr)
        sql += " WHERE " + EmitExpression(*statement.select->where, &scope).sql;
    return sql;
}

void Emitter::EmitInsert(const Statement& statement) {
    const PhysicalTable& table = RequireTable(statement.table, statement.place);
    RequirePlain(statement);
    Scope scope;
    if (statement.select != nullptr)
        for (const auto& ref : statement.select->from) DeclareSources(*ref, scope);
    std::vector<ExpressionPtr> starred;
    const std::vector<const Expression*> given = InsertedValues(statement, scope, starred);
    std::vector<std::string> columns = statement.columns;
    if (columns.empty())
        for (const FieldDef& field : table.def.fields) columns.push_back(field.name);
    if (given.size() != columns.size()) Fail(statement.place, "The number of values and of fields differ:");

    std::string names, values;
    bool numbered = table.autoField.empty();
    const auto add = [&](const std::string& name, const std::string& value) {
        const bool number = SameWord(name, table.autoField);
        names += (names.empty() ? "" : ", ") + QuoteName(name);
        values += (values.empty() ? "" : ", ") + (number ? AutoNumberSql(table, value) : value);
        numbered = numbered || number;
    };
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const FieldDef& field = RequireField(table, columns[i], statement.place);
        add(field.name, EmitAssigned(*given[i], field, &scope));
    }
    if (!numbered) add(table.autoField, "NULL");
    out_.table = table.def.name;
    out_.sql = fmt::format("INSERT INTO {} ({}) SELECT {}", QuoteName(table.def.name), names, values);
    out_.sql += EmitInsertedRows(statement, scope);
}

void Emitter::CollectJoined(const TableRef& ref, std::vector<const TableRef*>& tables,
                            std::vector<const Expression*>& conditions) const {
    if (!ref.isJoin) {
        tables.push_back(&ref);
        return;
    }
    if (ref.join != JoinKind::Inner) Fail(ref.place, "An update goes over inner joins only:");
    CollectJoined(*ref.left, tables, conditions);
    CollectJoined(*ref.right, tables, conditions);
    conditions.push_back(ref.on.get());
}

void Emitter::EmitUpdate(const Statement& statement) {
    Scope scope;
    DeclareSources(*statement.target, scope);
    std::vector<const TableRef*> tables;
    std::vector<const Expression*> conditions;
    CollectJoined(*statement.target, tables, conditions);

    const Source* target = nullptr;
    std::string assignments;
    for (const auto& [column, value] : statement.assignments) {
        const FoundColumn found = FindColumn(&scope, column->qualifier, column->name);
        if (found.source == nullptr || found.source->table == nullptr)
            Fail(column->place, "No field of the updated table:");
        if (target != nullptr && target != found.source) Fail(column->place, "An update changes one table:");
        target = found.source;
        const FieldDef& field = RequireField(*target->table, column->name, column->place);
        const std::string assigned = EmitAssigned(*value, field, &scope);
        assignments += fmt::format("{}{} = {}", assignments.empty() ? "" : ", ", QuoteName(field.name),
                                   field.autoIncrement ? AutoNumberSql(*target->table, assigned) : assigned);
    }
    std::string others, where;
    for (const TableRef* ref : tables)
        if (!SameWord(ref->Alias(), target->alias))
            others += (others.empty() ? " FROM " : ", ") + EmitSource(*ref, scope);
    const auto addCondition = [&](const Expression& condition) {
        where += (where.empty() ? " WHERE " : " AND ") + EmitExpression(condition, &scope).sql;
    };
    for (const Expression* condition : conditions) addCondition(*condition);
    if (statement.where != nullptr) addCondition(*statement.where);
    out_.table = target->table->def.name;
    out_.sql = fmt::format("UPDATE {} AS {} SET {}{}{}", QuoteName(target->table->def.name),
                           QuoteName(target->alias), assignments, others, where);
}

void Emitter::EmitDelete(const Statement& statement) {
    const PhysicalTable& table = RequireTable(statement.table, statement.place);
    TableRef ref;
    ref.table = table.def.name;
    Scope scope;
    DeclareSources(ref, scope);
    out_.table = table.def.name;
    out_.sql = fmt::format("DELETE FROM {} AS {}", QuoteName(table.def.name), QuoteName(table.def.name));
    if (statement.where != nullptr) out_.sql += " WHERE " + EmitExpression(*statement.where, &scope).sql;
}

void Emitter::EmitStatement(const Statement& statement) {
    out_.kind = statement.kind;
    out_.parameters = statement.parameters;
    if (statement.kind == StatementKind::Select) {
        SelectText select = EmitSelect(*statement.select, nullptr, Use::Top);
        out_.sql = std::move(select.sql);
        out_.columns = std::move(select.columns);
    } else if (statement.kind == StatementKind::Insert) {
        EmitInsert(statement);
    } else if (statement.kind == StatementKind::Update) {
        EmitUpdate(statement);
    } else {
        EmitDelete(statement);
    }
}

Translation Translate(const Statement& statement, std::string_view text, const Schema& schema) {
    Translation translation;
    Emitter(text, schema, translation).EmitStatement(statement);
    return translation;
}

}  // namespace quillon::store::dialect
