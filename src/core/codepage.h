// CP1252, the code page of exchange files, to and from the UTF-8 of memory.
//
// The five bytes that the code page leaves open (81, 8D, 8F, 90, 9D) become the control characters of the
// same number (U+0081 ...), as the platform's own conversion does, and go back to the same bytes, so nothing
// is lost on a round trip.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

// Appends the UTF-8 of `bytes` to `out`. Never fails: every byte has a character.
void AppendCp1252AsUtf8(std::string_view bytes, std::string& out);
std::string Cp1252ToUtf8(std::string_view bytes);
// Nothing when a character of `text` has no place in CP1252, or when `text` is not UTF-8.
std::optional<std::string> Utf8ToCp1252(std::string_view text);
// Well-formed UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsValidUtf8(std::string_view text);
// `text` itself when well-formed; otherwise with each byte that belongs to no character read as CP1252.
std::string RepairUtf8(std::string_view text);

}  // namespace quillon
