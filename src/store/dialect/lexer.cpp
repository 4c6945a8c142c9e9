#include "store/dialect/lexer.h"

#include <fmt/format.h>

#include "core/text.h"
#include "store/error.h"

namespace quillon::store::dialect {

namespace {

// Limits the memory for a statement. A list of 200,000 ids fits.
constexpr std::size_t kMostTokens = 500'000;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool StartsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

class Scanner {
public:
    explicit Scanner(std::string_view sql) : sql_(sql) {}

    Token Next() {
        while (at_ < sql_.size() && IsBlank(sql_[at_])) ++at_;
        const std::size_t place = at_;
        if (at_ == sql_.size()) return {TokenKind::End, "", place};
        const char c = sql_[at_];
        if (c == '[') return {TokenKind::BracketedName, Bracketed(), place};
        if (c == '\'' || c == '"') return {TokenKind::Text, Quoted(c), place};
        if (IsDigit(c) || (c == '.' && at_ + 1 < sql_.size() && IsDigit(sql_[at_ + 1])))
            return {TokenKind::Number, Number(), place};
        if (StartsName(c)) return {TokenKind::Name, Name(), place};
        return {TokenKind::Symbol, Symbol(), place};
    }

private:
    std::string Bracketed() { return Enclosed(']', "Missing ] in"); }
    std::string Quoted(char quote) { return Enclosed(quote, "Missing closing quote in"); }

    // The text up to the closing character; a doubled one is part of the text.
    std::string Enclosed(char close, std::string_view missing) {
        const std::size_t open = at_++;
        std::string text;
        for (;; ++at_) {
            if (at_ == sql_.size()) FailAt(sql_, open, missing);
            if (sql_[at_] == close && sql_.substr(at_ + 1, 1) != std::string_view(&close, 1)) break;
            if (sql_[at_] == close) ++at_;
            text += sql_[at_];
        }
        ++at_;
        return text;
    }

    std::string Number() {
        const std::size_t start = at_;
        while (at_ < sql_.size() && (IsDigit(sql_[at_]) || sql_[at_] == '.')) ++at_;
        return std::string(sql_.substr(start, at_ - start));
    }

    std::string Name() {
        const std::size_t start = at_;
        while (at_ < sql_.size() && (StartsName(sql_[at_]) || IsDigit(sql_[at_]))) ++at_;
        return std::string(sql_.substr(start, at_ - start));
    }

    std::string Symbol() {
        const std::string_view two = sql_.substr(at_, 2);
        const std::size_t length = two == "<>" || two == "<=" || two == ">=" ? 2 : 1;
        std::string symbol(sql_.substr(at_, length));
        at_ += length;
        return symbol;
    }

    std::string_view sql_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view sql) {
    Scanner scanner(sql);
    std::vector<Token> tokens;
    do {
        tokens.push_back(scanner.Next());
        if (tokens.size() > kMostTokens) FailAt(sql, tokens.back().place, "Too many words in");
    } while (tokens.back().kind != TokenKind::End);
    return tokens;
}

std::string BracketName(std::string_view name) {
    std::string bracketed = "[";
    for (const char c : name) bracketed.append(c == ']' ? 2 : 1, c);
    return bracketed += ']';
}

void FailAt(std::string_view sql, std::size_t place, std::string_view what) {
    constexpr std::size_t shown = 40;
    const std::string_view rest = LeftCharacters(sql.substr(std::min(place, sql.size())), shown);
    throw StoreError(ErrorNumber::SyntaxError, rest.empty()
                                                   ? fmt::format("{} the statement, at its end.", what)
                                                   : fmt::format("{} the statement, at '{}'.", what, rest));
}

}  // namespace quillon::store::dialect
