// The parser's view of the tokens: one ahead, words compared without regard to case.
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
    // A name, bracketed or not, that is no key word.
    std::string ExpectName();
    bool IsName() const;

    [[noreturn]] void Fail(std::string_view what) const { FailAt(sql_, Peek().place, what); }
    // `depth` of a node that gets a part with `below` levels. Whoever walks the tree recurses as deep as it
    // is, so a tree that is too deep is an error.
    void Nest(std::size_t& depth, std::size_t below) const;
    // Guards the recursion of the parser against statements nested without end.
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
