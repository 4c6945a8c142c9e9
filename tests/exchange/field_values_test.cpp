// Numbers, indicators and dates as a tagged file has them.
#include <gtest/gtest.h>

#include "exchange/field_values.h"

namespace quillon::exchange {
namespace {

TEST(ReadNumber, TakesWholeNumbersOf32Bits) {
    EXPECT_EQ(ReadNumber("0"), 0);
    EXPECT_EQ(ReadNumber("3000014"), 3000014);
    EXPECT_EQ(ReadNumber("-7"), -7);
    EXPECT_EQ(ReadNumber("+7"), 7);
    EXPECT_EQ(ReadNumber("007"), 7);
    EXPECT_EQ(ReadNumber("2147483647"), 2147483647);
    EXPECT_EQ(ReadNumber("-2147483648"), -2147483647 - 1);
}

TEST(ReadNumber, RoundsAFraction) {
    EXPECT_EQ(ReadNumber("1.6"), 2);
    EXPECT_EQ(ReadNumber("2.5"), 2);
    EXPECT_EQ(ReadNumber("1e3"), 1000);
}

TEST(ReadNumber, TakesAnythingElseForNone) {
    for (const std::string_view text :
         {"", "abc", "12abc", "1 2", "-", "+", "+-5", "nan", "inf", "2147483648", "-2147483649", "1e300",
          "99999999999999999999", "\u0661"})
        EXPECT_EQ(ReadNumber(text), 0) << text;
}

TEST(ReadNumberField, IsExactForWhatIsStoredAsItIsWritten) {
    for (const std::string_view text : {"", "  ", "0", "7", "+7", "-7", "007", "2147483647", "7.0", "1e3"})
        EXPECT_TRUE(ReadNumberField(text).exact) << text;
    for (const std::string_view text : {"1.5", "5x", "x", "1 2", "2147483648", "-2147483649", "1e300", "nan"})
        EXPECT_FALSE(ReadNumberField(text).exact) << text;
    EXPECT_EQ(ReadNumberField("1.5").value, 2);
}

TEST(ReadIndicator, IsTrueForYesAndYInAnyCase) {
    for (const std::string_view text : {"Yes", "YES", "yes", "Y", "y"})
        EXPECT_TRUE(ReadIndicator(text)) << text;
    for (const std::string_view text : {"", "No", "True", "1", "-1", "Ye", "Yess", "Y e"})
        EXPECT_FALSE(ReadIndicator(text)) << text;
}

TEST(ReadDate, PutsTheDayFirst) {
    EXPECT_EQ(ReadDate("12/31/1999", FieldForm::Date), "31/12/1999");
    EXPECT_EQ(ReadDate("1999-12-31 23:59:58", FieldForm::Stamp), "31121999235958");
}

TEST(ReadDate, TestsNothingButTheLength) {
    EXPECT_EQ(ReadDate("abcdefghij", FieldForm::Date), "defabcghij");
    EXPECT_EQ(ReadDate("\u00e9b/d\u00e9/ghij", FieldForm::Date), "d\u00e9/\u00e9b/ghij");
    for (const std::string_view text : {"1/1/1999", "12/31/19999", "1999-12-31 23:59:58"})
        EXPECT_EQ(ReadDate(text, FieldForm::Date), std::nullopt) << text;
    for (const std::string_view text : {"1999-12-31", "1999-12-31 23:59:589"})
        EXPECT_EQ(ReadDate(text, FieldForm::Stamp), std::nullopt) << text;
}

}  // namespace
}  // namespace quillon::exchange
