#include "validation/dates.h"

#include <gtest/gtest.h>

namespace quillon::validation {

namespace {

constexpr YearRange kYears{1758, 2024};

std::string Fault(std::string_view date) {
    return DateFault(date, kYears).value_or("good");
}

TEST(YearFromAuthor, TakesTheFourCharactersFromTheFirstDigit) {
    EXPECT_EQ(YearFromAuthor("Smith 1776"), 1776);
    EXPECT_EQ(YearFromAuthor("(Smith, 1776)"), 1776);
    EXPECT_EQ(YearFromAuthor("1801 Müller, 1822"), 1801);
    EXPECT_EQ(YearFromAuthor("Smith 17765"), 1776);
}

TEST(YearFromAuthor, IsNotANumberWhenTheFourCharactersAreNot) {
    EXPECT_EQ(YearFromAuthor("Smith 17th c."), kYearIsNoNumber);
    EXPECT_EQ(YearFromAuthor("Smith 18"), kYearIsNoNumber);
    EXPECT_EQ(YearFromAuthor("Smith 176?"), kYearIsNoNumber);
    EXPECT_EQ(YearFromAuthor("Smith 1.2)"), kYearIsNoNumber);
}

TEST(YearFromAuthor, TakesADecimalOrABlankForPartOfTheNumber) {
    EXPECT_EQ(YearFromAuthor("Smith 1.2 "), 1);
    EXPECT_EQ(YearFromAuthor("Smith 1.25"), 1);
    EXPECT_EQ(YearFromAuthor("Smith 176 "), 176);
}

TEST(YearFromAuthor, HasNoneWithoutADigit) {
    EXPECT_EQ(YearFromAuthor("Smith"), kNoYear);
    EXPECT_EQ(YearFromAuthor("L."), kNoYear);
    EXPECT_EQ(YearFromAuthor(""), kNoYear);
}

TEST(ShortNumber, TakesWhatThePlatformTakesForANumber) {
    EXPECT_EQ(ShortNumber("1999"), 1999);
    EXPECT_EQ(ShortNumber(" 7 "), 7);
    EXPECT_EQ(ShortNumber("-5"), -5);
    EXPECT_EQ(ShortNumber("5-"), -5);
    EXPECT_EQ(ShortNumber("1999.5"), 2000);
    EXPECT_EQ(ShortNumber("x"), std::nullopt);
    EXPECT_EQ(ShortNumber(""), std::nullopt);
    EXPECT_EQ(ShortNumber("32767"), 32767);
    EXPECT_EQ(ShortNumber("32768"), std::nullopt);
}

TEST(DateFault, GoodDates) {
    for (const char* date :
         {"01/02/2000", "31/12/1758", "29/02/2000", "29/02/1904", "01-02-2000", "01x02x2000"})
        EXPECT_EQ(Fault(date), "good") << date;
}

TEST(DateFault, DayZeroIsValid) {
    EXPECT_EQ(Fault("00/02/2000"), "good");
}

TEST(DateFault, FormIsTestedFirst) {
    EXPECT_EQ(Fault("1/2/2000"), "> is not in the correct (dd/mm/yyyy) format (Too many characters)");
    EXPECT_EQ(Fault("001/02/2000"), "> is not in the correct (dd/mm/yyyy) format (Too many characters)");
    EXPECT_EQ(Fault("xx/yy/zzzz"), "> is not in the correct (dd/mm/yyyy) format (day incorrect)");
    EXPECT_EQ(Fault("01/yy/zzzz"), "> is not in the correct (dd/mm/yyyy) format (month incorrect)");
    EXPECT_EQ(Fault("01/02/zzzz"), "> is not in the correct (dd/mm/yyyy) format (year incorrect)");
}

TEST(DateFault, LengthIsInCharacters) {
    EXPECT_EQ(Fault("01–02–2000"), "good");
    EXPECT_EQ(Fault("é1/02/2000"), "> is not in the correct (dd/mm/yyyy) format (day incorrect)");
}

TEST(DateFault, YearIsInTheRange) {
    const std::string fault = "> does not contain a valid year (1758-2024), format is dd/mm/yyyy";
    EXPECT_EQ(Fault("01/02/1757"), fault);
    EXPECT_EQ(Fault("01/02/2025"), fault);
    EXPECT_EQ(Fault("99/99/1757"), fault);
    EXPECT_EQ(Fault("01/02/9e99"), fault);
    EXPECT_EQ(Fault("31/12/2024"), "good");
}

TEST(DateFault, DayIsInTheMonth) {
    for (const char* month : {"01", "03", "05", "07", "08", "10", "12"}) {
        EXPECT_EQ(Fault(std::string("31/") + month + "/2000"), "good");
        EXPECT_EQ(Fault(std::string("32/") + month + "/2000"),
                  "> does not contain a valid day (01-31), format is dd/mm/yyyy");
    }
    for (const char* month : {"04", "06", "09", "11"}) {
        EXPECT_EQ(Fault(std::string("30/") + month + "/2000"), "good");
        EXPECT_EQ(Fault(std::string("31/") + month + "/2000"),
                  "> does not contain a valid day (01-30), format is dd/mm/yyyy");
    }
    EXPECT_EQ(Fault("-1/01/2000"), "> does not contain a valid day (01-31), format is dd/mm/yyyy");
}

TEST(DateFault, FebruaryFollowsTheLeapYear) {
    EXPECT_EQ(Fault("30/02/2000"), "> does not contain a valid day (01-29), format is dd/mm/yyyy");
    EXPECT_EQ(Fault("29/02/1900"), "> does not contain a valid day (01-28), format is dd/mm/yyyy");
    EXPECT_EQ(Fault("29/02/2023"), "> does not contain a valid day (01-28), format is dd/mm/yyyy");
    EXPECT_EQ(Fault("28/02/2023"), "good");
}

TEST(DateFault, MonthIsOneOfTwelve) {
    const std::string fault = "> does not contain a valid month (01-12), format is dd/mm/yyyy";
    EXPECT_EQ(Fault("01/00/2000"), fault);
    EXPECT_EQ(Fault("01/13/2000"), fault);
    EXPECT_EQ(Fault("99/13/2000"), fault);
}

TEST(OrderOfDates, ComparesYearMonthAndDay) {
    EXPECT_EQ(OrderOfDates("01/02/2000", "01/02/2000"), DateOrder::InOrder);
    EXPECT_EQ(OrderOfDates("01/02/2000", "02/02/2000"), DateOrder::InOrder);
    EXPECT_EQ(OrderOfDates("31/01/2000", "01/02/2000"), DateOrder::InOrder);
    EXPECT_EQ(OrderOfDates("02/02/2000", "01/02/2000"), DateOrder::OutOfOrder);
    EXPECT_EQ(OrderOfDates("01/03/2000", "31/02/2000"), DateOrder::OutOfOrder);
    EXPECT_EQ(OrderOfDates("01/01/2001", "31/12/2000"), DateOrder::OutOfOrder);
}

TEST(OrderOfDates, ReportsALaterActualYear) {
    EXPECT_EQ(OrderOfDates("31/12/2000", "01/01/2001"), DateOrder::ActualYearLater);
}

TEST(YearText, IsEmptyForADateOfAnotherForm) {
    EXPECT_EQ(YearText("01/02/1900"), "1900");
    EXPECT_EQ(YearText("1900"), "");
    EXPECT_EQ(YearText("01/02/19xx"), "");
    EXPECT_EQ(YearText(""), "");
}

}  // namespace

}  // namespace quillon::validation
