// The functions of the dialect and the aggregates.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "store/dialect/emitter.h"
#include "store/dialect/token_stream.h"

namespace quillon::store::dialect {

namespace {

struct Function {
    std::string_view name;    // in the dialect
    std::string_view native;  // in SQLite
    std::size_t least, most;  // arguments
    ValueType type;
};

constexpr std::array<Function, 12> kFunctions = {{
    {"Trim", "trim", 1, 1, ValueType::Text},
    {"LTrim", "ltrim", 1, 1, ValueType::Text},
    {"RTrim", "rtrim", 1, 1, ValueType::Text},
    {"UCase", "qln_upper", 1, 1, ValueType::Text},
    {"LCase", "qln_lower", 1, 1, ValueType::Text},
    {"Chr", "qln_chr", 1, 1, ValueType::Text},
    {"StrComp", "qln_strcomp", 2, 3, ValueType::Number},
    {"Len", "length", 1, 1, ValueType::Number},
    {"Mid", "substr", 2, 3, ValueType::Text},
    {"InStr", "qln_instr", 2, 2, ValueType::Number},
    {"CStr", "qln_text", 1, 1, ValueType::Text},
    {"Abs", "abs", 1, 1, ValueType::Number},
}};

constexpr std::array<std::string_view, 5> kAggregates = {"count", "min", "max", "sum", "avg"};

bool IsAggregateName(std::string_view name) {
    return std::any_of(kAggregates.begin(), kAggregates.end(),
                       [&](std::string_view a) { return SameWord(a, name); });
}

bool HoldsAggregate(const Expression& expression) {
    if (expression.kind == ExpressionKind::Call && IsAggregateName(expression.name)) return true;
    return std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [](const ExpressionPtr& argument) { return HoldsAggregate(*argument); });
}

}  // namespace

bool IsAggregate(const Select& select) {
    return !select.groupBy.empty() ||
           std::any_of(select.items.begin(), select.items.end(), [](const SelectItem& item) {
               return item.expression != nullptr && HoldsAggregate(*item.expression);
           });
}

std::string Emitter::EmitArguments(const Expression& expression, const Scope* scope) {
    std::string list;
    for (const ExpressionPtr& argument : expression.arguments)
        list += (list.empty() ? "" : ", ") + EmitExpression(*argument, scope).sql;
    return list;
}

Emitted Emitter::EmitIIf(const Expression& expression, const Scope* scope) {
    if (expression.arguments.size() < 2 || expression.arguments.size() > 3)
        Fail(expression.place, "Wrong number of arguments in");
    const Emitted condition = EmitExpression(*expression.arguments[0], scope);
    const Emitted yes = EmitExpression(*expression.arguments[1], scope);
    Emitted no{"NULL", ValueType::Any};
    if (expression.arguments.size() == 3) no = EmitExpression(*expression.arguments[2], scope);
    const bool missing = no.sql == "NULL" || yes.sql == "NULL";
    const ValueType type =
        yes.type == no.type || missing ? (yes.sql == "NULL" ? no.type : yes.type) : ValueType::Any;
    return {fmt::format("(CASE WHEN {} THEN {} ELSE {} END)", condition.sql, yes.sql, no.sql), type};
}

Emitted Emitter::EmitAggregate(const Expression& expression, const Scope* scope, std::string_view function) {
    if (expression.arguments.size() != 1) Fail(expression.place, "Wrong number of arguments in");
    const Emitted argument = EmitExpression(*expression.arguments[0], scope);
    if (function == "count" || function == "sum" || function == "avg")
        return {fmt::format("{}({})", function, argument.sql), ValueType::Number};
    return {fmt::format("{}({})", function, Collate(argument)), argument.type};
}

Emitted Emitter::EmitCall(const Expression& expression, const Scope* scope) {
    if (SameWord(expression.name, "IIf")) return EmitIIf(expression, scope);
    for (const std::string_view aggregate : kAggregates)
        if (SameWord(aggregate, expression.name)) return EmitAggregate(expression, scope, aggregate);
    const std::size_t count = expression.arguments.size();
    if (SameWord(expression.name, "IsNull") && count == 1)
        return {fmt::format("({} IS NULL)", EmitExpression(*expression.arguments[0], scope).sql),
                ValueType::Boolean};
    if (SameWord(expression.name, "Left") && count == 2) {
        const Emitted text = EmitExpression(*expression.arguments[0], scope);
        return {
            fmt::format("substr({}, 1, {})", text.sql, EmitExpression(*expression.arguments[1], scope).sql),
            ValueType::Text};
    }
    for (const Function& function : kFunctions) {
        if (!SameWord(function.name, expression.name)) continue;
        if (count < function.least || count > function.most)
            Fail(expression.place, "Wrong number of arguments in");
        return {fmt::format("{}({})", function.native, EmitArguments(expression, scope)), function.type};
    }
    Fail(expression.place, "The dialect has no such function:");
}

}  // namespace quillon::store::dialect
