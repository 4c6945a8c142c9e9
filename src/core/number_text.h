// Numbers at the beginning of a text, in the plain decimal form that the program's fields hold: digits with
// an optional sign, decimal point and exponent. Used by Value and by the test for a numeric text; no
// thousands marks, no hex.
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

// The number that the text begins with, after blanks and a sign, which blanks may part from the digits.
// Nothing when there is no digit or the number is outside the range of a double.
std::optional<LeadingNumber> ReadLeadingNumber(std::string_view text);

// Rounded to a whole number, halves to the even neighbour; at the ends of the range beyond it, 0 for no
// number.
std::int64_t RoundToLong(double value);

}  // namespace quillon
