#include "core/utf8.h"

#include <array>

namespace quillon {

namespace {

std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

bool IsShortestForm(char32_t code, std::size_t length) {
    constexpr std::array<char32_t, 5> lowest = {0, 0, 0x80, 0x800, 0x10000};
    return code >= lowest[length];
}

bool IsScalarValue(char32_t code) {
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

char ContinuationByte(char32_t code, unsigned shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

}  // namespace

Character DecodeCharacter(std::string_view text, std::size_t position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    if (lead < 0x80) return {lead, 1};
    const Character invalid{kInvalidByteBase + lead, 1};
    const std::size_t length = SequenceLength(lead);
    if (length == 0 || text.size() - position < length) return invalid;
    char32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0) != 0x80) return invalid;
        code = (code << 6) | (byte & 0x3Fu);
    }
    if (!IsShortestForm(code, length) || !IsScalarValue(code)) return invalid;
    return {code, length};
}

void AppendUtf8(char32_t code, std::string& out) {
    if (code >= kInvalidByteBase) {
        out.push_back(static_cast<char>(code - kInvalidByteBase));
    } else if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(ContinuationByte(code, 0));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(ContinuationByte(code, 6));
        out.push_back(ContinuationByte(code, 0));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(ContinuationByte(code, 12));
        out.push_back(ContinuationByte(code, 6));
        out.push_back(ContinuationByte(code, 0));
    }
}

}  // namespace quillon
