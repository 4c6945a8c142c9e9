#include "core/text.h"

#include "core/codepage.h"
#include "core/letter_case.h"
#include "core/number_text.h"
#include "core/utf8.h"

namespace quillon {

namespace {

using CaseMapping = char32_t (*)(char32_t);

std::string MapCharacters(std::string_view text, CaseMapping mapping) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const Character character = DecodeCharacter(text, position);
        AppendUtf8(character.IsValid() ? mapping(character.code) : character.code, result);
        position += character.length;
    }
    return result;
}

unsigned char Cp1252Code(std::string_view character) {
    const auto bytes = Utf8ToCp1252(character);
    return static_cast<unsigned char>(bytes ? bytes->front() : '?');
}

}  // namespace

int CompareBinary(std::string_view left, std::string_view right) {
    const int order = left.compare(right);
    return (order > 0) - (order < 0);
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count) {
        position += DecodeCharacter(text, position).length;
    }
    return count;
}

std::string_view LeftCharacters(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    for (; count > 0 && position < text.size(); --count) position += DecodeCharacter(text, position).length;
    return text.substr(0, position);
}

std::string UpperCase(std::string_view text) {
    return MapCharacters(text, UpperCaseOf);
}

std::string LowerCase(std::string_view text) {
    return MapCharacters(text, LowerCaseOf);
}

std::string_view TrimEnd(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : TrimEnd(text.substr(first));
}

std::string ReplaceText(std::string_view text, std::string_view find, std::string_view with) {
    if (find.empty()) return std::string(text);
    std::string result;
    std::size_t position = 0;
    for (std::size_t found = text.find(find); found != std::string_view::npos;
         found = text.find(find, position)) {
        result.append(text, position, found - position).append(with);
        position = found + find.size();
    }
    return result.append(text, position);
}

std::string QuoteSQL(std::string_view text) {
    return ReplaceText(ReplaceText(text, "'", "''"), "|", "' & chr(124) & '");
}

std::string QuoteDoubleQuotes(std::string_view text) {
    return ReplaceText(text, "\"", "\"\"");
}

std::string HexString(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = DecodeCharacter(text, position).length;
        const unsigned char code = Cp1252Code(text.substr(position, length));
        result.push_back(digits[code >> 4]);
        result.push_back(digits[code & 15]);
        position += length;
    }
    return result;
}

bool IsNumericText(std::string_view text) {
    const auto number = ReadLeadingNumber(text);
    if (!number) return false;
    std::string_view rest = Trim(text.substr(number->length));
    // A sign may follow the number instead of preceding it.
    const bool signedBefore =
        text.substr(0, number->length).find_first_of("+-") < text.find_first_of(".0123456789");
    if (!signedBefore && (rest == "-" || rest == "+")) return true;
    return rest.empty();
}

}  // namespace quillon
