// Reads UTF-8 one character at a time, for the text procedures of this folder.
//
// A byte that belongs to no well-formed character is a character of its own, so that reading a text always
// ends and loses nothing. Only AppendUtf8 allocates.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

// The code of an invalid byte is this plus the byte; it is above all code points.
inline constexpr char32_t kInvalidByteBase = 0x110000;

struct Character {
    char32_t code = 0;
    std::size_t length = 0;  // bytes taken, 1 for an invalid byte

    bool IsValid() const { return code < kInvalidByteBase; }
};

// The character at `position`, which must be inside the text. Overlong forms, surrogates and codes above
// U+10FFFF are invalid bytes.
Character DecodeCharacter(std::string_view text, std::size_t position);

// Appends a code point, or the byte itself for the code of an invalid byte.
void AppendUtf8(char32_t code, std::string& out);

}  // namespace quillon
