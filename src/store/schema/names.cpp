#include "store/schema/names.h"

#include <algorithm>

namespace quillon::store {

namespace {

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

std::string Quoted(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text) quoted.append(c == quote ? 2 : 1, c);
    return quoted += quote;
}

}  // namespace

bool SameWord(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string QuoteName(std::string_view name) {
    return Quoted(name, '"');
}

std::string QuoteLiteral(std::string_view text) {
    return Quoted(text, '\'');
}

std::size_t NameHash::operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ULL;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
    return hash;
}

}  // namespace quillon::store
