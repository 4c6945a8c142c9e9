// The years and dates that the rules look into: the year of an author, dates of the form dd/mm/yyyy and their
// order. A number in them is any text that the platform takes for one, with blanks, a sign or a decimal
// point.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::validation {

inline constexpr int kYearIsNoNumber = -1;
inline constexpr int kNoYear = -2;

// The years that a date or a rating may have, both included.
struct YearRange {
    int earliest = 1758;
    int latest = 9999;
};

// The number of four characters that begins with the first digit; kYearIsNoNumber when they are none, kNoYear
// when there is no digit.
int YearFromAuthor(std::string_view author);

// The number of a text as a 16-bit integer; nothing when it is no number or does not fit.
std::optional<int> ShortNumber(std::string_view text);

// What is wrong with a date: the end of the message, behind the date. Nothing for a good one. A day of 00 is
// good.
std::optional<std::string> DateFault(std::string_view date, const YearRange& years);

enum class DateOrder {
    InOrder,
    OutOfOrder,
    ActualYearLater,  // no fault, but an export for the online system leaves such a publication out
};
// The order of two good dates, year first.
DateOrder OrderOfDates(std::string_view listed, std::string_view actual);

// Characters 7 to 10 of a text of ten characters when they are a number; empty otherwise.
std::string_view YearText(std::string_view date);

}  // namespace quillon::validation
