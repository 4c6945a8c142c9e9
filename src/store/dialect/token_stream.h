// The tokens for the parser, with a look-ahead of one. Words are compared ignoring case.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/lexer.h"
#include "store/schema/names.h"

namespace quillon::store::dialect {

class TokenStream {
public:
    explicit TokenStream(std::string_view sql) : sql_(sql), tokens_(Tokenize(sql)) {}

    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    bool AtEnd() const { return Peek().kind == TokenKind::End; }

    bool IsWord(std::string_view word, std::size_t ahead = 0) const;
    bool IsSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool TakeWord(std::string_view word);
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    // A name, bracketed or not, but not a keyword.
    std::string ExpectName();
    bool IsName() const;

    [[noreturn]] void Fail(std::string_view what) const { FailAt(sql_, Peek().place, what); }
    // Updates the `depth` of a node for a child of height `below`. Throws when the tree gets too deep for
    // recursion.
    void Nest(std::size_t& depth, std::size_t below) const;
    // Limits the recursion of the parser.
    class Depth {
    public:
        explicit Depth(TokenStream& stream);
        ~Depth() { --stream_.depth_; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        TokenStream& stream_;
    };

private:
    std::string_view sql_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

}  // namespace quillon::store::dialect
