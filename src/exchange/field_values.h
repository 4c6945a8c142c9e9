// Converts the fields of a tagged file, in both directions: numbers, indicators and dates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "exchange/tagged_format.h"

namespace quillon::exchange {

// A whole number, or a number with a fraction rounded to the nearest; 0 for the empty text, for text that is
// not a number, and for a number that does not fit 32 bits.
std::int32_t ReadNumber(std::string_view text);
// The same, and whether the value is what the text says: false for text that ReadNumber rounds or reads as 0
// although it is neither empty nor blank.
struct NumberField {
    std::int32_t value = 0;
    bool exact = true;
};
NumberField ReadNumberField(std::string_view text);

// "Yes" and "Y" in any case.
bool ReadIndicator(std::string_view text);
inline std::string_view WrittenIndicator(bool value) {
    return value ? "Yes" : "No";
}

// The stored form of a date; empty when the text does not have the length of a written date. Tests only the
// length. `form` is Date or Stamp.
std::optional<std::string> ReadDate(std::string_view written, FieldForm form);
// The written form of a stored date; empty when it does not have the length of a stored date.
std::string WrittenDate(std::string_view stored, FieldForm form);
// "mm/dd/yyyy", "yyyy-mm-dd hh:mm:ss": for a message about a date that cannot be read.
std::string_view PatternOf(FieldForm form);

}  // namespace quillon::exchange
