// Converts between CP1252, the code page of exchange files, and the UTF-8 used in memory.
//
// The five undefined bytes (81, 8D, 8F, 90, 9D) become the control characters of the same number (U+0081 ...)
// and convert back to the same bytes, so a round trip loses nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Appends the UTF-8 of `bytes` to `out`. Never fails.
void AppendCp1252AsUtf8(std::string_view bytes, std::string& out);
std::string Cp1252ToUtf8(std::string_view bytes);
// Empty when CP1252 lacks a character of `text`, or when `text` is not UTF-8.
std::optional<std::string> Utf8ToCp1252(std::string_view text);
// Well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsValidUtf8(std::string_view text);
// `text` if well-formed; otherwise with each byte that belongs to no character read as CP1252.
std::string RepairUtf8(std::string_view text);

}  // namespace quillon
