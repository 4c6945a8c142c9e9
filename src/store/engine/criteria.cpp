#include "store/engine/criteria.h"

#include <fmt/format.h>

#include "core/text.h"
#include "store/error.h"
#include "store/schema/names.h"

namespace quillon::store {

using dialect::Expression;
using dialect::ExpressionKind;

namespace {

double NumberOf(const Value& value) {
    return value.IsReal() ? value.Real() : static_cast<double>(value.AsLong());
}

int Rank(const Value& value) {
    return value.IsNull() ? 0 : (value.IsText() ? 2 : 1);
}

Value Compare(const std::string& op, const Value& left, const Value& right) {
    if (left.IsNull() || right.IsNull()) return {};
    // A number and a numeric text are compared as numbers.
    const bool mixed = left.IsText() != right.IsText();
    const Value& text = left.IsText() ? left : right;
    int order = 0;
    if (mixed && IsNumericText(text.Text())) {
        const double a = left.IsText() ? static_cast<double>(Value(left).AsLong()) : NumberOf(left);
        const double b = right.IsText() ? static_cast<double>(Value(right).AsLong()) : NumberOf(right);
        order = a < b ? -1 : (a > b ? 1 : 0);
    } else {
        order = CompareValues(left, right);
    }
    if (op == "=") return order == 0;
    if (op == "<>") return order != 0;
    if (op == "<") return order < 0;
    if (op == ">") return order > 0;
    return op == "<=" ? order <= 0 : order >= 0;
}

// Every argument is evaluated, so that an invalid one is always an error.
Value EvaluateChain(const Expression& expression, const ColumnReader& column) {
    const bool decides = expression.name == "or";
    std::string text;
    bool decided = false, unknown = false;
    for (const dialect::ExpressionPtr& argument : expression.arguments) {
        const Value value = Evaluate(*argument, column);
        if (expression.name == "&") {
            text += value.AsText();
        } else if (value.IsNull()) {
            unknown = true;
        } else {
            decided = decided || value.AsBoolean() == decides;
        }
    }
    if (expression.name == "&") return text;
    if (decided) return decides;
    return unknown ? Value() : Value(!decides);
}

Value EvaluateBinary(const Expression& expression, const ColumnReader& column) {
    const Value left = Evaluate(*expression.arguments[0], column);
    const Value right = Evaluate(*expression.arguments[1], column);
    const std::string& op = expression.name;
    if (op == "+" || op == "-" || op == "*" || op == "/") {
        if (left.IsNull() || right.IsNull()) return {};
        if (op == "+" && (left.IsText() || right.IsText())) return left.AsText() + right.AsText();
        const double a = NumberOf(left), b = NumberOf(right);
        if (op == "/") return b == 0 ? Value() : Value(a / b);
        return op == "+" ? a + b : (op == "-" ? a - b : a * b);
    }
    return Compare(op, left, right);
}

Value EvaluateIn(const Expression& expression, const ColumnReader& column) {
    const Value value = Evaluate(*expression.arguments[0], column);
    if (expression.select != nullptr)
        throw StoreError(ErrorNumber::SyntaxError, "A search cannot hold a select of its own.");
    if (value.IsNull()) return {};
    for (std::size_t i = 1; i < expression.arguments.size(); ++i)
        if (Compare("=", value, Evaluate(*expression.arguments[i], column)).AsBoolean())
            return !expression.negated;
    return expression.negated;
}

Value EvaluateCall(const Expression& expression, const ColumnReader& column) {
    const auto argument = [&](std::size_t i) { return Evaluate(*expression.arguments[i], column); };
    const std::size_t count = expression.arguments.size();
    if (SameWord(expression.name, "IsNull") && count == 1) return argument(0).IsNull();
    if (SameWord(expression.name, "Trim") && count == 1)
        return argument(0).IsNull() ? Value() : Value(Trim(argument(0).AsText()));
    if (SameWord(expression.name, "UCase") && count == 1)
        return argument(0).IsNull() ? Value() : Value(UpperCase(argument(0).AsText()));
    if (SameWord(expression.name, "StrComp") && count >= 2) {
        if (argument(0).IsNull() || argument(1).IsNull()) return {};
        const bool binary = count == 3 && argument(2).AsLong() == 0;
        return binary ? CompareBinary(argument(0).AsText(), argument(1).AsText())
                      : CompareText(argument(0).AsText(), argument(1).AsText());
    }
    throw StoreError(ErrorNumber::SyntaxError,
                     fmt::format("A search has no function '{}'.", expression.name));
}

}  // namespace

int CompareValues(const Value& left, const Value& right) {
    if (Rank(left) != Rank(right)) return Rank(left) < Rank(right) ? -1 : 1;
    if (left.IsNull()) return 0;
    if (left.IsText()) return CompareText(left.Text(), right.Text());
    const double a = NumberOf(left), b = NumberOf(right);
    return a < b ? -1 : (a > b ? 1 : 0);
}

Value Evaluate(const Expression& expression, const ColumnReader& column) {
    const auto argument = [&](std::size_t i) { return Evaluate(*expression.arguments[i], column); };
    switch (expression.kind) {
        case ExpressionKind::Literal:
            return expression.value;
        case ExpressionKind::Column:
            return column(expression.name);
        case ExpressionKind::Not: {
            const Value value = argument(0);
            return value.IsNull() ? value : Value(!value.AsBoolean());
        }
        case ExpressionKind::Negate:
            return argument(0).IsNull() ? Value() : Value(-NumberOf(argument(0)));
        case ExpressionKind::Binary:
            return EvaluateBinary(expression, column);
        case ExpressionKind::Chain:
            return EvaluateChain(expression, column);
        case ExpressionKind::IsNull:
            return argument(0).IsNull() != expression.negated;
        case ExpressionKind::Like: {
            const Value value = argument(0), pattern = argument(1);
            if (value.IsNull() || pattern.IsNull()) return {};
            return LikeText(value.AsText(), pattern.AsText()) != expression.negated;
        }
        case ExpressionKind::Between: {
            const Value value = argument(0);
            const bool inside = Compare(">=", value, argument(1)).AsBoolean() &&
                                Compare("<=", value, argument(2)).AsBoolean();
            return inside != expression.negated;
        }
        case ExpressionKind::In:
            return EvaluateIn(expression, column);
        case ExpressionKind::Call:
            return EvaluateCall(expression, column);
        default:
            throw StoreError(ErrorNumber::SyntaxError, "A search cannot hold this expression.");
    }
}

}  // namespace quillon::store
