#include "validation/dates.h"

#include <fmt/format.h>

#include "core/text.h"
#include "core/value.h"

namespace quillon::validation {

namespace {

constexpr std::size_t kDateLength = 10;
constexpr std::size_t kYearLength = 4;

// `count` characters from the 1-based position `first`.
std::string_view Characters(std::string_view text, std::size_t first, std::size_t count) {
    const std::size_t skipped = LeftCharacters(text, first - 1).size();
    return LeftCharacters(text.substr(skipped), count);
}

bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// 0 for an invalid month.
int DaysOf(int month, int year) {
    switch (month) {
        case 1:
        case 3:
        case 5:
        case 7:
        case 8:
        case 10:
        case 12:
            return 31;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        case 2:
            return IsLeapYear(year) ? 29 : 28;
        default:
            return 0;
    }
}

std::string_view DayText(std::string_view date) {
    return Characters(date, 1, 2);
}
std::string_view MonthText(std::string_view date) {
    return Characters(date, 4, 2);
}

int FieldOf(std::string_view text) {
    return ShortNumber(text).value_or(0);
}

// True for four digits, as in nearly every year.
bool IsPlainYear(std::string_view text) {
    return text.size() == 4 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string FormFault(std::string_view what) {
    return fmt::format("> is not in the correct (dd/mm/yyyy) format ({})", what);
}

std::optional<std::string> DayFault(std::string_view date, int year) {
    const int days = DaysOf(FieldOf(MonthText(date)), year);
    if (days == 0) return "> does not contain a valid month (01-12), format is dd/mm/yyyy";
    const auto day = ShortNumber(DayText(date));
    if (day && *day >= 0 && *day <= days) return std::nullopt;
    return fmt::format("> does not contain a valid day (01-{}), format is dd/mm/yyyy", days);
}

}  // namespace

int YearFromAuthor(std::string_view author) {
    const std::size_t digit = author.find_first_of("0123456789");
    if (digit == std::string_view::npos) return kNoYear;
    const std::string_view year = LeftCharacters(author.substr(digit), kYearLength);
    if (CharacterCount(year) != kYearLength) return kYearIsNoNumber;
    return ShortNumber(year).value_or(kYearIsNoNumber);
}

std::optional<int> ShortNumber(std::string_view text) {
    if (IsPlainYear(text))
        return (text[0] - '0') * 1000 + (text[1] - '0') * 100 + (text[2] - '0') * 10 + text[3] - '0';
    if (!IsNumericText(text)) return std::nullopt;
    const std::string_view trimmed = Trim(text);
    std::int64_t number = Value(trimmed).AsLong();
    if (trimmed.back() == '-') number = -number;
    if (number < -32768 || number > 32767) return std::nullopt;
    return static_cast<int>(number);
}

std::optional<std::string> DateFault(std::string_view date, const YearRange& years) {
    if (CharacterCount(date) != kDateLength) return FormFault("Too many characters");
    if (!IsNumericText(DayText(date))) return FormFault("day incorrect");
    if (!IsNumericText(MonthText(date))) return FormFault("month incorrect");
    if (YearText(date).empty()) return FormFault("year incorrect");
    const auto year = ShortNumber(YearText(date));
    if (!year || *year < years.earliest || *year > years.latest)
        return fmt::format("> does not contain a valid year ({}-{}), format is dd/mm/yyyy", years.earliest,
                           years.latest);
    return DayFault(date, *year);
}

DateOrder OrderOfDates(std::string_view listed, std::string_view actual) {
    const int listedYear = FieldOf(YearText(listed)), actualYear = FieldOf(YearText(actual));
    if (listedYear != actualYear)
        return listedYear > actualYear ? DateOrder::OutOfOrder : DateOrder::ActualYearLater;
    const int listedMonth = FieldOf(MonthText(listed)), actualMonth = FieldOf(MonthText(actual));
    if (listedMonth != actualMonth)
        return listedMonth > actualMonth ? DateOrder::OutOfOrder : DateOrder::InOrder;
    return FieldOf(DayText(listed)) > FieldOf(DayText(actual)) ? DateOrder::OutOfOrder : DateOrder::InOrder;
}

std::string_view YearText(std::string_view date) {
    if (CharacterCount(date) != kDateLength) return {};
    const std::string_view year = Characters(date, 7, 4);
    return IsNumericText(year) ? year : std::string_view();
}

}  // namespace quillon::validation
