// Cuts a statement of the dialect into tokens. It knows spelling only: names in brackets, texts in either
// quote, numbers, operators; what a word means is the parser's business.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::store::dialect {

enum class TokenKind { Name, BracketedName, Text, Number, Symbol, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;       // without brackets or quotes; doubled quotes and closing brackets made single
    std::size_t place = 0;  // byte offset in the statement, for error messages
};

// Always ends with an End token. A quote or bracket that is never closed is a SyntaxError naming the place.
std::vector<Token> Tokenize(std::string_view sql);

// A name as a statement holds it: in brackets, a closing bracket within it doubled.
std::string BracketName(std::string_view name);

// The error of every part of the dialect: says what is wrong and shows the statement from `place` on.
[[noreturn]] void FailAt(std::string_view sql, std::size_t place, std::string_view what);

}  // namespace quillon::store::dialect
