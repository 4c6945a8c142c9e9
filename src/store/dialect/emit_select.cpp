// Selects and unions: the columns, the keys after them, DISTINCTROW, and the default order.
#include <fmt/format.h>

#include <algorithm>

#include "store/dialect/emitter.h"
#include "store/dialect/token_stream.h"
#include "store/error.h"

namespace quillon::store::dialect {

namespace {

constexpr int kFirstUnnamed = 1000;  // the engine names a column without a name EXPR1000, EXPR1001 ...

bool IsOneTable(const Select& select, const Scope& scope) {
    return scope.sources.size() == 1 && scope.sources[0].table != nullptr && !select.distinct &&
           !select.unionWith && !IsAggregate(select);
}

void CollectSources(const Expression& expression, const Scope& scope, std::vector<const Source*>& used) {
    if (expression.kind == ExpressionKind::Column) {
        const FoundColumn found = FindColumn(&scope, expression.qualifier, expression.name);
        if (found.source != nullptr) used.push_back(found.source);
    }
    for (const ExpressionPtr& argument : expression.arguments) CollectSources(*argument, scope, used);
}

std::vector<const Source*> ContributingSources(const Select& select, const Scope& scope) {
    std::vector<const Source*> used;
    for (const SelectItem& item : select.items) {
        if (item.expression != nullptr) {
            CollectSources(*item.expression, scope, used);
        } else {
            for (const Source& source : scope.sources)
                if (item.qualifier.empty() || SameWord(source.alias, item.qualifier)) used.push_back(&source);
        }
    }
    std::sort(used.begin(), used.end());
    used.erase(std::unique(used.begin(), used.end()), used.end());
    return used;
}

std::string Qualified(const Source& source, std::string_view column) {
    return QuoteName(source.alias) + "." + QuoteName(column);
}

// Prefixes duplicate column names with the names of their tables.
void Qualify(std::vector<OutputColumn>& columns, const std::vector<std::string>& sources) {
    const std::vector<OutputColumn> before = columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        for (std::size_t j = 0; j < columns.size(); ++j)
            if (i != j && !sources[i].empty() && SameWord(before[i].name, before[j].name))
                columns[i].name = sources[i] + "." + before[i].name;
}

}  // namespace

void Emitter::AddStar(const SelectItem& item, const Scope& scope, bool collated, SelectText& result,
                      std::string& list) {
    bool any = false;
    for (const Source& source : scope.sources) {
        if (!item.qualifier.empty() && !SameWord(source.alias, item.qualifier)) continue;
        any = true;
        for (const OutputColumn& column : source.columns) {
            const Emitted emitted{Qualified(source, column.name), column.type};
            list += fmt::format("{}{} AS {}", list.empty() ? "" : ", ",
                                collated ? Collate(emitted) : emitted.sql, QuoteName(column.name));
            result.columns.push_back(column);
        }
    }
    if (!any)
        throw StoreError(ErrorNumber::UnknownTable,
                         fmt::format("There is no table '{}' in the statement.", item.qualifier));
}

void Emitter::AddItem(const SelectItem& item, const Scope& scope, bool collated, SelectText& result,
                      std::string& list) {
    const Emitted emitted = EmitExpression(*item.expression, &scope);
    const bool column = item.expression->kind == ExpressionKind::Column;
    OutputColumn output{item.alias, emitted.type, ""};
    if (output.name.empty())
        output.name = column ? item.expression->name
                             : fmt::format("EXPR{}", kFirstUnnamed + static_cast<int>(result.columns.size()));
    const FoundColumn found =
        column ? FindColumn(&scope, item.expression->qualifier, item.expression->name) : FoundColumn{};
    if (found.column != nullptr) output.field = found.column->field;
    list += fmt::format("{}{} AS {}", list.empty() ? "" : ", ", collated ? Collate(emitted) : emitted.sql,
                        QuoteName(output.name));
    result.columns.push_back(std::move(output));
}

std::string Emitter::RowIdentity(const Select& select, const Scope& scope) {
    if (!select.distinctRow || !select.groupBy.empty()) return "";
    const std::vector<const Source*> used = ContributingSources(select, scope);
    if (used.empty() || used.size() == scope.sources.size()) return "";
    std::string list;
    for (const Source* source : used) {
        const auto add = [&](const Emitted& column) { list += (list.empty() ? "" : ", ") + Collate(column); };
        if (source->table != nullptr) {
            for (const std::string& key : source->table->KeyColumns())
                add({Qualified(*source, key), ValueType::Number});
        } else {
            for (const OutputColumn& column : source->columns)
                add({Qualified(*source, column.name), column.type});
        }
    }
    return list;
}

void Emitter::AddRowKey(const Select& select, const Scope& scope, std::string& list) {
    if (!IsOneTable(select, scope)) return;
    const Source& source = scope.sources[0];
    for (const std::string& key : source.table->KeyColumns()) {
        list += ", " + (key == "rowid" ? QuoteName(source.alias) + ".rowid" : Qualified(source, key));
        ++out_.keyColumns;
    }
    out_.updatableTable = source.table->def.name;
}

Emitter::SelectText Emitter::EmitCore(const Select& select, const Scope* outer, Scope& scope, bool collated,
                                      bool withKey) {
    SelectText result;
    scope.outer = outer;
    for (const auto& ref : select.from) DeclareSources(*ref, scope);
    std::string list;
    for (const SelectItem& item : select.items)
        item.star ? AddStar(item, scope, collated, result, list)
                  : AddItem(item, scope, collated, result, list);
    std::vector<std::string> sources;
    for (const SelectItem& item : select.items) {
        const bool plain =
            !item.star && item.alias.empty() && item.expression->kind == ExpressionKind::Column;
        if (item.star)
            sources.resize(result.columns.size());
        else
            sources.push_back(plain ? item.expression->qualifier : "");
    }
    sources.resize(result.columns.size());
    Qualify(result.columns, sources);
    for (const OutputColumn& column : result.columns) scope.aliases.push_back(column.name);

    result.sql = list;
    if (withKey) AddRowKey(select, scope, result.sql);
    std::string from;
    for (const auto& ref : select.from) from += (from.empty() ? " FROM " : ", ") + EmitTableRef(*ref, scope);
    result.sql += from;
    if (select.where != nullptr) result.sql += " WHERE " + EmitExpression(*select.where, &scope).sql;
    std::string groups = RowIdentity(select, scope);
    for (const ExpressionPtr& group : select.groupBy)
        groups += (groups.empty() ? "" : ", ") + Collate(EmitExpression(*group, &scope));
    if (!groups.empty()) result.sql += " GROUP BY " + groups;
    if (select.having != nullptr) result.sql += " HAVING " + EmitExpression(*select.having, &scope).sql;
    return result;
}

// Without ORDER BY, a select from one table is ordered by its key, a DISTINCT by its columns.
std::string Emitter::EmitOrderBy(const Select& select, const Scope& scope, const SelectText& text) {
    std::string list;
    const auto add = [&](const std::string& item) { list += (list.empty() ? " ORDER BY " : ", ") + item; };
    for (const OrderItem& item : select.orderBy)
        add(Collate(EmitExpression(*item.expression, &scope)) + (item.descending ? " DESC" : ""));
    if (!list.empty()) return list;
    if (select.distinct) {
        for (std::size_t i = 0; i < text.columns.size(); ++i)
            add(Collate({fmt::format("{}", i + 1), text.columns[i].type}));
    } else if (IsOneTable(select, scope)) {
        const Source& source = scope.sources[0];
        for (const std::string& key : source.table->KeyColumns()) {
            const FieldDef* field = source.table->def.Field(key);
            if (field != nullptr) add(Collate({Qualified(source, key), TypeOf(field->type)}));
        }
    }
    return list;
}

std::string Emitter::EmitUnionOrderBy(const Select& select, const SelectText& text) {
    std::string list;
    for (const OrderItem& item : select.orderBy) {
        const auto found = std::find_if(
            text.columns.begin(), text.columns.end(),
            [&](const OutputColumn& column) { return SameWord(column.name, item.expression->name); });
        if (found == text.columns.end())
            Fail(item.expression->place, "A union is ordered by its own columns only in");
        list += fmt::format("{}{}{}", list.empty() ? " ORDER BY " : ", ",
                            Collate({fmt::format("{}", found - text.columns.begin() + 1), found->type}),
                            item.descending ? " DESC" : "");
    }
    return list;
}

Emitter::SelectText Emitter::EmitSelect(const Select& select, const Scope* outer, Use use) {
    const auto outerQueries = storedQueries_.size();
    Scope scope;
    const bool isUnion = select.unionWith != nullptr;
    SelectText result = EmitCore(select, outer, scope, select.distinct || isUnion, use == Use::Top);
    std::string order = isUnion ? "" : (use == Use::Top ? EmitOrderBy(select, scope, result) : "");
    result.sql = (select.distinct ? "SELECT DISTINCT " : "SELECT ") + result.sql;
    for (const Select* part = &select; part->unionWith != nullptr; part = part->unionWith.get()) {
        Scope partScope;
        const SelectText next = EmitCore(*part->unionWith, outer, partScope, true, false);
        if (next.columns.size() != result.columns.size())
            throw StoreError(ErrorNumber::SyntaxError,
                             "The selects of a union differ in their number of columns.");
        result.sql += (part->unionAll ? " UNION ALL SELECT " : " UNION SELECT ") +
                      std::string(part->unionWith->distinct ? "DISTINCT " : "") + next.sql;
    }
    if (isUnion && use == Use::Top) order = EmitUnionOrderBy(select, result);
    result.sql += order;
    storedQueries_.resize(outerQueries);
    return result;
}

}  // namespace quillon::store::dialect
