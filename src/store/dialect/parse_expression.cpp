#include "store/dialect/parse_expression.h"

#include <array>
#include <charconv>

namespace quillon::store::dialect {

namespace {

ExpressionPtr Make(ExpressionKind kind, std::size_t place) {
    auto expression = std::make_unique<Expression>();
    expression->kind = kind;
    expression->place = place;
    return expression;
}

void Add(TokenStream& tokens, Expression& parent, ExpressionPtr argument) {
    tokens.Nest(parent.depth, argument->depth);
    parent.arguments.push_back(std::move(argument));
}

void AddSelect(TokenStream& tokens, Expression& parent) {
    parent.select = ParseSelect(tokens);
    tokens.Nest(parent.depth, parent.select->depth);
}

ExpressionPtr MakeBinary(TokenStream& tokens, std::string name, ExpressionPtr left, ExpressionPtr right) {
    ExpressionPtr expression = Make(ExpressionKind::Binary, left->place);
    expression->name = std::move(name);
    Add(tokens, *expression, std::move(left));
    Add(tokens, *expression, std::move(right));
    return expression;
}

using Level = ExpressionPtr (*)(TokenStream&);

// Parses `next`, or a chain of them joined by an operator, which `take` accepts.
template <typename Take>
ExpressionPtr ParseChain(TokenStream& tokens, std::string_view name, Level next, const Take& take) {
    ExpressionPtr first = next(tokens);
    if (!take()) return first;
    ExpressionPtr chain = Make(ExpressionKind::Chain, first->place);
    chain->name = name;
    Add(tokens, *chain, std::move(first));
    do {
        Add(tokens, *chain, next(tokens));
    } while (take());
    return chain;
}

ExpressionPtr ParseComparison(TokenStream& tokens);

ExpressionPtr ParseLiteralNumber(TokenStream& tokens) {
    const Token token = tokens.Take();
    ExpressionPtr literal = Make(ExpressionKind::Literal, token.place);
    std::int64_t whole = 0;
    const char* end = token.text.data() + token.text.size();
    const auto [stop, error] = std::from_chars(token.text.data(), end, whole);
    if (error == std::errc() && stop == end) {
        literal->value = whole;
        return literal;
    }
    double real = 0;
    const auto [realStop, realError] = std::from_chars(token.text.data(), end, real);
    if (realError != std::errc() || realStop != end) tokens.Fail("Bad number before");
    literal->value = real;
    return literal;
}

ExpressionPtr ParseLiteral(TokenStream& tokens, Value value) {
    ExpressionPtr literal = Make(ExpressionKind::Literal, tokens.Take().place);
    literal->value = std::move(value);
    return literal;
}

void ParseArguments(TokenStream& tokens, Expression& call) {
    tokens.ExpectSymbol("(");
    if (tokens.TakeSymbol(")")) return;
    do {
        const bool missing = tokens.IsSymbol(",") || tokens.IsSymbol(")");
        if (missing) {
            Add(tokens, call, Make(ExpressionKind::Missing, tokens.Peek().place));
        } else if (tokens.IsSymbol("*")) {
            Add(tokens, call, Make(ExpressionKind::Star, tokens.Take().place));
        } else {
            Add(tokens, call, ParseExpression(tokens));
        }
    } while (tokens.TakeSymbol(","));
    tokens.ExpectSymbol(")");
}

ExpressionPtr ParseName(TokenStream& tokens) {
    ExpressionPtr column = Make(ExpressionKind::Column, tokens.Peek().place);
    column->bracketed = tokens.Peek().kind == TokenKind::BracketedName;
    column->name = tokens.ExpectName();
    if (!column->bracketed && tokens.IsSymbol("(")) {
        column->kind = ExpressionKind::Call;
        ParseArguments(tokens, *column);
        return column;
    }
    if (tokens.TakeSymbol(".") || tokens.TakeSymbol("!")) {
        column->qualifier = std::move(column->name);
        column->name = tokens.ExpectName();
    }
    return column;
}

ExpressionPtr ParseParenthesized(TokenStream& tokens) {
    const std::size_t place = tokens.Peek().place;
    tokens.ExpectSymbol("(");
    if (tokens.IsWord("select")) {
        ExpressionPtr sub = Make(ExpressionKind::Subselect, place);
        AddSelect(tokens, *sub);
        tokens.ExpectSymbol(")");
        return sub;
    }
    ExpressionPtr inner = ParseExpression(tokens);
    tokens.ExpectSymbol(")");
    return inner;
}

ExpressionPtr ParsePrimary(TokenStream& tokens) {
    const Token& token = tokens.Peek();
    if (tokens.IsSymbol("(")) return ParseParenthesized(tokens);
    if (token.kind == TokenKind::Text) return ParseLiteral(tokens, Value(token.text));
    if (token.kind == TokenKind::Number) return ParseLiteralNumber(tokens);
    if (tokens.IsWord("null")) return ParseLiteral(tokens, Value());
    if (tokens.IsWord("true") || tokens.IsWord("yes")) return ParseLiteral(tokens, Value(true));
    if (tokens.IsWord("false") || tokens.IsWord("no")) return ParseLiteral(tokens, Value(false));
    if (tokens.IsName()) return ParseName(tokens);
    tokens.Fail("Expected a value in");
}

ExpressionPtr ParseSigned(TokenStream& tokens) {
    if (!tokens.IsSymbol("-") && !tokens.IsSymbol("+")) return ParsePrimary(tokens);
    const TokenStream::Depth depth(tokens);
    const Token sign = tokens.Take();
    if (sign.text == "+") return ParseSigned(tokens);
    ExpressionPtr negate = Make(ExpressionKind::Negate, sign.place);
    Add(tokens, *negate, ParseSigned(tokens));
    return negate;
}

// Left-associative operators of one level.
template <std::size_t N>
ExpressionPtr ParseLevel(TokenStream& tokens, const std::array<std::string_view, N>& symbols, Level next) {
    ExpressionPtr left = next(tokens);
    for (bool more = true; more;) {
        more = false;
        for (const std::string_view symbol : symbols) {
            if (!tokens.TakeSymbol(symbol)) continue;
            left = MakeBinary(tokens, std::string(symbol), std::move(left), next(tokens));
            more = true;
            break;
        }
    }
    return left;
}

ExpressionPtr ParseProduct(TokenStream& tokens) {
    return ParseLevel<2>(tokens, {"*", "/"}, ParseSigned);
}
ExpressionPtr ParseSum(TokenStream& tokens) {
    return ParseLevel<2>(tokens, {"+", "-"}, ParseProduct);
}
ExpressionPtr ParseConcatenation(TokenStream& tokens) {
    return ParseChain(tokens, "&", ParseSum, [&] { return tokens.TakeSymbol("&"); });
}

ExpressionPtr ParseIn(TokenStream& tokens, ExpressionPtr left) {
    ExpressionPtr in = Make(ExpressionKind::In, left->place);
    Add(tokens, *in, std::move(left));
    tokens.ExpectSymbol("(");
    if (tokens.IsWord("select")) {
        AddSelect(tokens, *in);
    } else {
        do {
            Add(tokens, *in, ParseExpression(tokens));
        } while (tokens.TakeSymbol(","));
    }
    tokens.ExpectSymbol(")");
    return in;
}

ExpressionPtr ParsePredicate(TokenStream& tokens, ExpressionPtr left, bool negated) {
    ExpressionPtr predicate;
    if (tokens.TakeWord("in")) {
        predicate = ParseIn(tokens, std::move(left));
    } else if (tokens.TakeWord("like")) {
        predicate = Make(ExpressionKind::Like, left->place);
        Add(tokens, *predicate, std::move(left));
        Add(tokens, *predicate, ParseConcatenation(tokens));
    } else {
        tokens.ExpectWord("between");
        predicate = Make(ExpressionKind::Between, left->place);
        Add(tokens, *predicate, std::move(left));
        Add(tokens, *predicate, ParseConcatenation(tokens));
        tokens.ExpectWord("and");
        Add(tokens, *predicate, ParseConcatenation(tokens));
    }
    predicate->negated = negated;
    return predicate;
}

bool StandsOnPredicate(const TokenStream& tokens, std::size_t ahead) {
    return tokens.IsWord("in", ahead) || tokens.IsWord("like", ahead) || tokens.IsWord("between", ahead);
}

ExpressionPtr ParseComparison(TokenStream& tokens) {
    constexpr std::array<std::string_view, 6> symbols = {"<>", "<=", ">=", "=", "<", ">"};
    ExpressionPtr left = ParseConcatenation(tokens);
    for (;;) {
        if (tokens.TakeWord("is")) {
            ExpressionPtr test = Make(ExpressionKind::IsNull, left->place);
            test->negated = tokens.TakeWord("not");
            tokens.ExpectWord("null");
            Add(tokens, *test, std::move(left));
            left = std::move(test);
        } else if (StandsOnPredicate(tokens, 0)) {
            left = ParsePredicate(tokens, std::move(left), false);
        } else if (tokens.IsWord("not") && StandsOnPredicate(tokens, 1)) {
            tokens.Take();
            left = ParsePredicate(tokens, std::move(left), true);
        } else {
            bool found = false;
            for (const std::string_view symbol : symbols) {
                if (!tokens.TakeSymbol(symbol)) continue;
                left = MakeBinary(tokens, std::string(symbol), std::move(left), ParseConcatenation(tokens));
                found = true;
                break;
            }
            if (!found) return left;
        }
    }
}

ExpressionPtr ParseNot(TokenStream& tokens) {
    if (!tokens.IsWord("not")) return ParseComparison(tokens);
    const TokenStream::Depth depth(tokens);
    ExpressionPtr negation = Make(ExpressionKind::Not, tokens.Take().place);
    Add(tokens, *negation, ParseNot(tokens));
    return negation;
}

ExpressionPtr ParseAnd(TokenStream& tokens) {
    return ParseChain(tokens, "and", ParseNot, [&] { return tokens.TakeWord("and"); });
}

}  // namespace

ExpressionPtr ParseExpression(TokenStream& tokens) {
    const TokenStream::Depth depth(tokens);
    return ParseChain(tokens, "or", ParseAnd, [&] { return tokens.TakeWord("or"); });
}

}  // namespace quillon::store::dialect
