// The years and dates that the rules check: the year of an author, dates of the form dd/mm/yyyy and their
// order. Their numbers may have blanks, a sign or a decimal point.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::validation {

inline constexpr int kYearIsNoNumber = -1;
inline constexpr int kNoYear = -2;

// The range of years for dates and ratings, inclusive.
struct YearRange {
    int earliest = 1758;
    int latest = 9999;
};

// The number in the four characters from the first digit on; kYearIsNoNumber when they are not a number,
// kNoYear when there is no digit.
int YearFromAuthor(std::string_view author);

// The number of a text as a 16-bit integer; empty when it is not a number or does not fit.
std::optional<int> ShortNumber(std::string_view text);

// The fault of a date, as the part of the message after the date; empty for a valid date. A day of 00 is
// valid.
std::optional<std::string> DateFault(std::string_view date, const YearRange& years);

enum class DateOrder {
    InOrder,
    OutOfOrder,
    ActualYearLater,  // no fault, but an export for the online system omits such a publication
};
// The order of two valid dates, by year first.
DateOrder OrderOfDates(std::string_view listed, std::string_view actual);

// Characters 7 to 10 of a text of ten characters if they are a number; otherwise empty.
std::string_view YearText(std::string_view date);

}  // namespace quillon::validation
