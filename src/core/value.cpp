#include "core/value.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/number_text.h"
#include "core/text.h"

namespace quillon {

namespace {

// The shortest digits that read back as the same number, with an exponent only for very large and very small
// numbers.
std::string RealText(double value) {
    std::array<char, 64> buffer;
    char* const end = buffer.data() + buffer.size();
    const double size = std::fabs(value);
    const bool plain = size == 0 || (size >= 1e-4 && size < 1e15);
    const auto written = plain ? std::to_chars(buffer.data(), end, value, std::chars_format::fixed)
                               : std::to_chars(buffer.data(), end, value);
    return std::string(buffer.data(), written.ptr);
}

// Whole numbers are read as integers, because a double would lose digits of long ones.
std::int64_t LongOfText(std::string_view text) {
    const auto number = ReadLeadingNumber(text);
    if (!number) return 0;
    const std::string_view digits = Trim(text.substr(0, number->length));
    std::int64_t whole = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), whole);
    if (error == std::errc() && end == digits.data() + digits.size()) return whole;
    return RoundToLong(number->value);
}

bool BooleanOfText(std::string_view text) {
    if (EqualText(text, "True") || EqualText(text, "Yes") || EqualText(text, "Y")) return true;
    return IsNumericText(text) && ReadLeadingNumber(text)->value != 0;
}

}  // namespace

std::string Value::AsText() const {
    if (IsText()) return Text();
    if (IsReal()) return RealText(Real());
    if (const auto* number = std::get_if<std::int64_t>(&content_)) return std::to_string(*number);
    if (const auto* truth = std::get_if<bool>(&content_)) return *truth ? "True" : "False";
    return {};
}

std::int64_t Value::AsLong() const {
    if (const auto* number = std::get_if<std::int64_t>(&content_)) return *number;
    if (const auto* truth = std::get_if<bool>(&content_)) return *truth ? -1 : 0;
    if (IsReal()) return RoundToLong(Real());
    return IsText() ? LongOfText(Text()) : 0;
}

bool Value::AsBoolean() const {
    if (const auto* truth = std::get_if<bool>(&content_)) return *truth;
    if (const auto* number = std::get_if<std::int64_t>(&content_)) return *number != 0;
    if (IsReal()) return Real() != 0;
    return IsText() && BooleanOfText(Text());
}

}  // namespace quillon
