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

ExpressionPtr MakeBinary(std::string name, ExpressionPtr left, ExpressionPtr right) {
    ExpressionPtr expression = Make(ExpressionKind::Binary, left->place);
    expression->name = std::move(name);
    expression->arguments.push_back(std::move(left));
    expression->arguments.push_back(std::move(right));
    return expression;
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
            call.arguments.push_back(Make(ExpressionKind::Missing, tokens.Peek().place));
        } else if (tokens.IsSymbol("*")) {
            call.arguments.push_back(Make(ExpressionKind::Star, tokens.Take().place));
        } else {
            call.arguments.push_back(ParseExpression(tokens));
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
        sub->select = ParseSelect(tokens);
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
    negate->arguments.push_back(ParseSigned(tokens));
    return negate;
}

using Level = ExpressionPtr (*)(TokenStream&);

template <std::size_t N>
ExpressionPtr ParseChain(TokenStream& tokens, const std::array<std::string_view, N>& symbols, Level next) {
    ExpressionPtr left = next(tokens);
    for (bool more = true; more;) {
        more = false;
        for (const std::string_view symbol : symbols) {
            if (!tokens.TakeSymbol(symbol)) continue;
            left = MakeBinary(std::string(symbol), std::move(left), next(tokens));
            more = true;
            break;
        }
    }
    return left;
}

ExpressionPtr ParseProduct(TokenStream& tokens) {
    return ParseChain<2>(tokens, {"*", "/"}, ParseSigned);
}
ExpressionPtr ParseSum(TokenStream& tokens) {
    return ParseChain<2>(tokens, {"+", "-"}, ParseProduct);
}
ExpressionPtr ParseConcatenation(TokenStream& tokens) {
    return ParseChain<1>(tokens, {"&"}, ParseSum);
}

ExpressionPtr ParseIn(TokenStream& tokens, ExpressionPtr left) {
    ExpressionPtr in = Make(ExpressionKind::In, left->place);
    in->arguments.push_back(std::move(left));
    tokens.ExpectSymbol("(");
    if (tokens.IsWord("select")) {
        in->select = ParseSelect(tokens);
    } else {
        do {
            in->arguments.push_back(ParseExpression(tokens));
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
        predicate->arguments.push_back(std::move(left));
        predicate->arguments.push_back(ParseConcatenation(tokens));
    } else {
        tokens.ExpectWord("between");
        predicate = Make(ExpressionKind::Between, left->place);
        predicate->arguments.push_back(std::move(left));
        predicate->arguments.push_back(ParseConcatenation(tokens));
        tokens.ExpectWord("and");
        predicate->arguments.push_back(ParseConcatenation(tokens));
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
            test->arguments.push_back(std::move(left));
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
                left = MakeBinary(std::string(symbol), std::move(left), ParseConcatenation(tokens));
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
    negation->arguments.push_back(ParseNot(tokens));
    return negation;
}

ExpressionPtr ParseAnd(TokenStream& tokens) {
    ExpressionPtr left = ParseNot(tokens);
    while (tokens.TakeWord("and")) left = MakeBinary("and", std::move(left), ParseNot(tokens));
    return left;
}

}  // namespace

ExpressionPtr ParseExpression(TokenStream& tokens) {
    const TokenStream::Depth depth(tokens);
    ExpressionPtr left = ParseAnd(tokens);
    while (tokens.TakeWord("or")) left = MakeBinary("or", std::move(left), ParseAnd(tokens));
    return left;
}

}  // namespace quillon::store::dialect
