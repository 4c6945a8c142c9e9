#include "store/dialect/token_stream.h"

#include <algorithm>
#include <array>

namespace quillon::store::dialect {

namespace {

constexpr int kDeepest = 200;
constexpr std::size_t kDeepestTree = 600;

constexpr std::array<std::string_view, 29> kKeyWords = {
    "select", "from",   "where", "group",  "order",  "by",     "having",  "union",    "inner",      "left",
    "right",  "join",   "on",    "as",     "and",    "or",     "not",     "is",       "in",         "like",
    "into",   "values", "set",   "insert", "update", "delete", "between", "distinct", "distinctrow"};

}  // namespace

const Token& TokenStream::Peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

Token TokenStream::Take() {
    Token token = Peek();
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool TokenStream::IsWord(std::string_view word, std::size_t ahead) const {
    return Peek(ahead).kind == TokenKind::Name && SameWord(Peek(ahead).text, word);
}

bool TokenStream::IsSymbol(std::string_view symbol, std::size_t ahead) const {
    return Peek(ahead).kind == TokenKind::Symbol && Peek(ahead).text == symbol;
}

bool TokenStream::TakeWord(std::string_view word) {
    if (!IsWord(word)) return false;
    Take();
    return true;
}

bool TokenStream::TakeSymbol(std::string_view symbol) {
    if (!IsSymbol(symbol)) return false;
    Take();
    return true;
}

void TokenStream::ExpectWord(std::string_view word) {
    if (!TakeWord(word)) Fail(std::string("Expected ").append(word).append(" in"));
}

void TokenStream::ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) Fail(std::string("Expected ").append(symbol).append(" in"));
}

bool TokenStream::IsName() const {
    const Token& token = Peek();
    if (token.kind == TokenKind::BracketedName) return true;
    if (IsWord("left") && IsSymbol("(", 1)) return true;  // the function
    return token.kind == TokenKind::Name &&
           std::none_of(kKeyWords.begin(), kKeyWords.end(),
                        [&](std::string_view word) { return SameWord(word, token.text); });
}

std::string TokenStream::ExpectName() {
    if (!IsName()) Fail("Expected a name in");
    return Take().text;
}

void TokenStream::Nest(std::size_t& depth, std::size_t below) const {
    depth = std::max(depth, below + 1);
    if (depth > kDeepestTree) Fail("Nested too deeply in");
}

TokenStream::Depth::Depth(TokenStream& stream) : stream_(stream) {
    if (++stream_.depth_ > kDeepest) {
        --stream_.depth_;
        stream_.Fail("Nested too deeply in");
    }
}

}  // namespace quillon::store::dialect
