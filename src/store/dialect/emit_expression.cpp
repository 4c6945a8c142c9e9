// Expressions in SQLite's syntax: collations, Null in concatenations, and the two forms of True.
#include <fmt/format.h>

#include <span>
#include <string>
#include <vector>

#include "store/dialect/emitter.h"
#include "store/dialect/token_stream.h"
#include "store/error.h"

namespace quillon::store::dialect {

namespace {

bool MayBeText(ValueType type) {
    return type == ValueType::Text || type == ValueType::Any;
}

bool IsZero(const Expression& expression) {
    return expression.kind == ExpressionKind::Literal && expression.value.IsInteger() &&
           expression.value.AsLong() == 0;
}

// SQLite's depth of a chain is its length, which is limited. Split in halves, a chain of n members has a
// depth of log n.
void AppendChain(std::span<const std::string> members, std::string_view op, std::string& sql) {
    constexpr std::size_t kLongest = 64;
    if (members.size() <= kLongest) {
        for (std::size_t i = 0; i < members.size(); ++i) {
            if (i > 0) sql.append(" ").append(op).append(" ");
            sql += members[i];
        }
        return;
    }
    const std::size_t half = members.size() / 2;
    sql += "(";
    AppendChain(members.first(half), op, sql);
    sql.append(") ").append(op).append(" (");
    AppendChain(members.subspan(half), op, sql);
    sql += ")";
}

std::string JoinChain(const std::vector<std::string>& members, std::string_view op) {
    std::string sql = "(";
    AppendChain(members, op, sql);
    return sql += ")";
}

// True is -1 in the dialect and 1 in the file.
Emitted AsStoredBoolean(const Expression& expression, Emitted emitted) {
    if (expression.kind == ExpressionKind::Literal && expression.value.IsInteger())
        return {expression.value.AsLong() != 0 ? "1" : "0", ValueType::Boolean};
    if (expression.kind == ExpressionKind::Negate) return {"1", ValueType::Boolean};
    return emitted;
}

}  // namespace

std::string Collate(const Emitted& emitted) {
    return MayBeText(emitted.type) ? emitted.sql + " COLLATE QLN" : emitted.sql;
}

int Emitter::AddSlot(Slot slot) {
    out_.slots.push_back(std::move(slot));
    return static_cast<int>(out_.slots.size());
}

int Emitter::ParameterPlace(std::string_view name) const {
    for (std::size_t i = 0; i < out_.parameters.size(); ++i)
        if (SameWord(out_.parameters[i].name, name)) return static_cast<int>(i);
    return -1;
}

Emitted Emitter::EmitLiteral(const Value& value) {
    if (value.IsNull()) return {"NULL", ValueType::Any};
    if (value.IsBoolean()) return {value.AsBoolean() ? "1" : "0", ValueType::Boolean};
    if (value.IsInteger()) return {fmt::format("{}", value.AsLong()), ValueType::Number};
    if (value.IsReal()) return {fmt::format("{}", value.Real()), ValueType::Number};
    if (value.Text().find('\0') == std::string::npos) return {QuoteLiteral(value.Text()), ValueType::Text};
    Slot slot;
    slot.constant = value;
    return {fmt::format("?{}", AddSlot(std::move(slot))), ValueType::Text};
}

Emitted Emitter::EmitColumn(const Expression& expression, const Scope* scope) {
    const FoundColumn found = FindColumn(scope, expression.qualifier, expression.name);
    if (found.column != nullptr)
        return {QuoteName(found.source->alias) + "." + QuoteName(found.column->name), found.column->type};
    if (expression.qualifier.empty()) {
        const int place = ParameterPlace(expression.name);
        if (place >= 0) {
            Slot slot;
            slot.parameter = place;
            const bool text = out_.parameters[static_cast<std::size_t>(place)].text;
            return {fmt::format("?{}", AddSlot(std::move(slot))), text ? ValueType::Text : ValueType::Number};
        }
        for (const Scope* s = scope; s != nullptr; s = s->outer)
            for (const std::string& alias : s->aliases)
                if (SameWord(alias, expression.name)) return {QuoteName(alias), ValueType::Any};
    }
    const std::string dotted = expression.qualifier.empty() ? "" : expression.qualifier + ".";
    throw StoreError(
        ErrorNumber::TooFewParameters,
        fmt::format("Too few parameters: '{}{}' is no field of the statement's tables and no parameter.",
                    dotted, expression.name));
}

Emitted Emitter::EmitConcatenation(const Expression& expression, const Scope* scope) {
    std::vector<std::string> members;
    for (const ExpressionPtr& argument : expression.arguments) {
        const Emitted part = EmitExpression(*argument, scope);
        const std::string text = part.type == ValueType::Boolean ? fmt::format("(-{})", part.sql) : part.sql;
        const bool literal = argument->kind == ExpressionKind::Literal && !argument->value.IsNull();
        members.push_back(literal ? text : fmt::format("coalesce({}, '')", text));
    }
    return {JoinChain(members, "||"), ValueType::Text};
}

Emitted Emitter::EmitChain(const Expression& expression, const Scope* scope) {
    if (expression.name == "&") return EmitConcatenation(expression, scope);
    std::vector<std::string> members;
    for (const ExpressionPtr& argument : expression.arguments)
        members.push_back(EmitExpression(*argument, scope).sql);
    return {JoinChain(members, expression.name), ValueType::Boolean};
}

bool Emitter::EmitExactComparison(const Expression& expression, const Scope* scope, Emitted& result) {
    const Expression& call = *expression.arguments[0];
    const bool exact = call.kind == ExpressionKind::Call && SameWord(call.name, "StrComp") &&
                       call.arguments.size() == 3 && IsZero(*call.arguments[2]) &&
                       IsZero(*expression.arguments[1]);
    if (!exact || expression.name != "=") return false;
    const Emitted left = EmitExpression(*call.arguments[0], scope);
    const Emitted right = EmitExpression(*call.arguments[1], scope);
    result = {fmt::format("({} = {} COLLATE BINARY)", left.sql, right.sql), ValueType::Boolean};
    return true;
}

Emitted Emitter::EmitComparison(const Expression& expression, const Scope* scope) {
    Emitted exact;
    if (EmitExactComparison(expression, scope, exact)) return exact;
    Emitted left = EmitExpression(*expression.arguments[0], scope);
    Emitted right = EmitExpression(*expression.arguments[1], scope);
    if (left.type == ValueType::Boolean) right = AsStoredBoolean(*expression.arguments[1], right);
    if (right.type == ValueType::Boolean) left = AsStoredBoolean(*expression.arguments[0], left);
    const bool text = MayBeText(left.type) && MayBeText(right.type);
    return {fmt::format("({} {} {}{})", left.sql, expression.name, right.sql, text ? " COLLATE QLN" : ""),
            ValueType::Boolean};
}

Emitted Emitter::EmitBinary(const Expression& expression, const Scope* scope) {
    const std::string& name = expression.name;
    if (name[0] == '<' || name[0] == '>' || name[0] == '=') return EmitComparison(expression, scope);
    const Emitted left = EmitExpression(*expression.arguments[0], scope);
    const Emitted right = EmitExpression(*expression.arguments[1], scope);
    const bool text = name == "+" && (left.type == ValueType::Text || right.type == ValueType::Text);
    if (text) return {fmt::format("({} || {})", left.sql, right.sql), ValueType::Text};
    if (name == "/") return {fmt::format("({} / CAST({} AS REAL))", left.sql, right.sql), ValueType::Number};
    return {fmt::format("({} {} {})", left.sql, name, right.sql), ValueType::Number};
}

Emitted Emitter::EmitLike(const Expression& expression, const Scope* scope) {
    const Emitted value = EmitExpression(*expression.arguments[0], scope);
    const Emitted pattern = EmitExpression(*expression.arguments[1], scope);
    return {fmt::format("({}qln_like({}, {}))", expression.negated ? "NOT " : "", value.sql, pattern.sql),
            ValueType::Boolean};
}

Emitted Emitter::EmitBetween(const Expression& expression, const Scope* scope) {
    const Emitted value = EmitExpression(*expression.arguments[0], scope);
    const Emitted low = EmitExpression(*expression.arguments[1], scope);
    const Emitted high = EmitExpression(*expression.arguments[2], scope);
    return {fmt::format("({} {}BETWEEN {} AND {})", Collate(value), expression.negated ? "NOT " : "", low.sql,
                        high.sql),
            ValueType::Boolean};
}

Emitted Emitter::EmitIn(const Expression& expression, const Scope* scope) {
    const Emitted value = EmitExpression(*expression.arguments[0], scope);
    std::string members;
    if (expression.select != nullptr) {
        members = EmitSelect(*expression.select, scope, Use::Nested).sql;
    } else {
        for (std::size_t i = 1; i < expression.arguments.size(); ++i)
            members += (i > 1 ? ", " : "") + EmitExpression(*expression.arguments[i], scope).sql;
    }
    return {fmt::format("({} {}IN ({}))", Collate(value), expression.negated ? "NOT " : "", members),
            ValueType::Boolean};
}

Emitted Emitter::EmitExpression(const Expression& expression, const Scope* scope) {
    switch (expression.kind) {
        case ExpressionKind::Literal:
            return EmitLiteral(expression.value);
        case ExpressionKind::Column:
            return EmitColumn(expression, scope);
        case ExpressionKind::Missing:
            return {"NULL", ValueType::Any};
        case ExpressionKind::Star:
            return {"*", ValueType::Any};
        case ExpressionKind::Not:
            return {fmt::format("(NOT {})", EmitExpression(*expression.arguments[0], scope).sql),
                    ValueType::Boolean};
        case ExpressionKind::Negate:
            return {fmt::format("(-{})", EmitExpression(*expression.arguments[0], scope).sql),
                    ValueType::Number};
        case ExpressionKind::Binary:
            return EmitBinary(expression, scope);
        case ExpressionKind::Chain:
            return EmitChain(expression, scope);
        case ExpressionKind::IsNull:
            return {fmt::format("({} IS {}NULL)", EmitExpression(*expression.arguments[0], scope).sql,
                                expression.negated ? "NOT " : ""),
                    ValueType::Boolean};
        case ExpressionKind::Like:
            return EmitLike(expression, scope);
        case ExpressionKind::Between:
            return EmitBetween(expression, scope);
        case ExpressionKind::In:
            return EmitIn(expression, scope);
        case ExpressionKind::Call:
            return EmitCall(expression, scope);
        case ExpressionKind::Subselect:
            return {fmt::format("({})", EmitSelect(*expression.select, scope, Use::Nested).sql),
                    ValueType::Any};
    }
    Fail(expression.place, "Cannot translate");
}

void Emitter::Fail(std::size_t place, std::string_view what) const {
    FailAt(text_, place, what);
}

}  // namespace quillon::store::dialect
