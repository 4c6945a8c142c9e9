#include "exchange/field_values.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "core/text.h"

namespace quillon::exchange {

namespace {

// `count` characters from the 1-based position `first`, and the mark that follows them.
struct Piece {
    std::size_t first, count;
    std::string_view mark = {};
};

struct DateForm {
    std::size_t storedLength, writtenLength;
    std::span<const Piece> toFile, fromFile;
    std::string_view pattern;
};

constexpr Piece kDay[] = {{4, 3}, {1, 3}, {7, 4}};  // swaps day and month, so it serves both ways
constexpr Piece kStampToFile[] = {{5, 4, "-"}, {3, 2, "-"}, {1, 2, " "}, {9, 2, ":"}, {11, 2, ":"}, {13, 2}};
constexpr Piece kStampFromFile[] = {{9, 2}, {6, 2}, {1, 4}, {12, 2}, {15, 2}, {18, 2}};

constexpr DateForm kDateForm{10, 10, kDay, kDay, "mm/dd/yyyy"};
constexpr DateForm kStampForm{14, 19, kStampToFile, kStampFromFile, "yyyy-mm-dd hh:mm:ss"};

const DateForm& FormOf(FieldForm form) {
    return form == FieldForm::Stamp ? kStampForm : kDateForm;
}

std::string Assemble(std::string_view text, std::span<const Piece> pieces) {
    std::string out;
    for (const Piece& piece : pieces) {
        const std::string_view rest = text.substr(LeftCharacters(text, piece.first - 1).size());
        out += LeftCharacters(rest, piece.count);
        out += piece.mark;
    }
    return out;
}

}  // namespace

std::int32_t ReadNumber(std::string_view text) {
    return ReadNumberField(text).value;
}

NumberField ReadNumberField(std::string_view text) {
    if (text.find_first_not_of(' ') == std::string_view::npos) return {};
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    std::int32_t number = 0;
    const auto whole = std::from_chars(text.data(), end, number);
    if (whole.ec == std::errc() && whole.ptr == end) return {number, true};
    double real = 0;
    const auto read = std::from_chars(text.data(), end, real);
    if (read.ec != std::errc() || read.ptr != end) return {0, false};
    const double rounded = std::nearbyint(real);
    // NaN is in no range.
    const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                      rounded <= std::numeric_limits<std::int32_t>::max();
    if (!fits) return {0, false};
    return {static_cast<std::int32_t>(rounded), rounded == real};
}

bool ReadIndicator(std::string_view text) {
    if (text.empty() || text.size() > 3) return false;
    const std::string upper = UpperCase(text);
    return upper == "YES" || upper == "Y";
}

std::optional<std::string> ReadDate(std::string_view written, FieldForm form) {
    const DateForm& date = FormOf(form);
    if (CharacterCount(written) != date.writtenLength) return std::nullopt;
    return Assemble(written, date.fromFile);
}

std::string WrittenDate(std::string_view stored, FieldForm form) {
    const DateForm& date = FormOf(form);
    if (CharacterCount(stored) != date.storedLength) return {};
    return Assemble(stored, date.toFile);
}

std::string_view PatternOf(FieldForm form) {
    return FormOf(form).pattern;
}

}  // namespace quillon::exchange
