// Numbers at the beginning of a text, in plain decimal form: digits with an optional sign, decimal point and
// exponent, without thousands separators or hex. Used by Value and IsNumericText.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillon {

struct LeadingNumber {
    double value = 0;
    std::size_t length = 0;  // bytes from the start of the text, leading blanks and sign included
};

// The number at the beginning of the text, after blanks and a sign, which blanks may follow. Empty when there
// is no digit or the number is outside the range of a double.
std::optional<LeadingNumber> ReadLeadingNumber(std::string_view text);

// Rounds to a whole number, halves to even. Clamps to the range; 0 for NaN.
std::int64_t RoundToLong(double value);

}  // namespace quillon
