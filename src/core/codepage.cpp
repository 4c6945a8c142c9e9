#include "core/codepage.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/utf8.h"

namespace quillon {

namespace {

// The bytes 80 to 9F; every other byte equals its code point.
constexpr std::array<char16_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

char32_t CodePointOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80u] : char32_t{byte};
}

std::optional<char> ByteOf(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
    const auto place = std::find(kMiddle.begin(), kMiddle.end(), code);
    if (place == kMiddle.end()) return std::nullopt;
    return static_cast<char>(0x80 + std::distance(kMiddle.begin(), place));
}

std::size_t AsciiRun(std::string_view bytes, std::size_t position) {
    std::size_t end = position;
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 0x80) ++end;
    return end - position;
}

}  // namespace

void AppendCp1252AsUtf8(std::string_view bytes, std::string& out) {
    for (std::size_t position = 0; position < bytes.size();) {
        const std::size_t run = AsciiRun(bytes, position);
        out.append(bytes, position, run);
        position += run;
        if (position < bytes.size())
            AppendUtf8(CodePointOf(static_cast<unsigned char>(bytes[position++])), out);
    }
}

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    AppendCp1252AsUtf8(bytes, result);
    return result;
}

std::optional<std::string> Utf8ToCp1252(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t run = AsciiRun(text, position);
        result.append(text, position, run);
        position += run;
        if (position == text.size()) break;
        const Character character = DecodeCharacter(text, position);
        const std::optional<char> byte = ByteOf(character.code);
        if (!byte) return std::nullopt;
        result.push_back(*byte);
        position += character.length;
    }
    return result;
}

bool IsValidUtf8(std::string_view text) {
    for (std::size_t position = AsciiRun(text, 0); position < text.size();) {
        const Character character = DecodeCharacter(text, position);
        if (!character.IsValid()) return false;
        position += character.length;
        position += AsciiRun(text, position);
    }
    return true;
}

std::string RepairUtf8(std::string_view text) {
    if (IsValidUtf8(text)) return std::string(text);
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const Character character = DecodeCharacter(text, position);
        const std::string_view bytes = text.substr(position, character.length);
        if (character.IsValid()) {
            result.append(bytes);
        } else {
            AppendCp1252AsUtf8(bytes, result);
        }
        position += character.length;
    }
    return result;
}

}  // namespace quillon
