// Cuts a statement of the dialect into tokens. It handles only spelling: names in brackets, texts in either
// quote, numbers, operators. The parser gives words their meaning.
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

// Always ends with an End token. Throws SyntaxError with the place of an unclosed quote or bracket.
std::vector<Token> Tokenize(std::string_view sql);

// A name for use in a statement: in brackets, with closing brackets doubled.
std::string BracketName(std::string_view name);

// Throws the syntax error of all parts of the dialect: `what`, with the statement from `place` on.
[[noreturn]] void FailAt(std::string_view sql, std::size_t place, std::string_view what);

}  // namespace quillon::store::dialect
