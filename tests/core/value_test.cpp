#include "core/value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quillon {
namespace {

TEST(Value, NullReadsAsNothing) {
    EXPECT_EQ(Value().AsText(), "");
    EXPECT_EQ(Value().AsLong(), 0);
    EXPECT_FALSE(Value().AsBoolean());
}

TEST(Value, TextOrNullAndIdOrNullTurnNoneIntoNull) {
    EXPECT_TRUE(Value::TextOrNull("").IsNull());
    EXPECT_EQ(Value::TextOrNull(" "), Value(" "));
    EXPECT_TRUE(Value::IdOrNull(0).IsNull());
    EXPECT_EQ(Value::IdOrNull(-7), Value(-7));
}

TEST(Value, EqualityIsOfKindAndContent) {
    EXPECT_EQ(Value(), Value(nullptr));
    EXPECT_NE(Value(), Value(""));
    EXPECT_NE(Value(1), Value("1"));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(1), Value(true));
    EXPECT_NE(Value("a"), Value("A"));
}

TEST(Value, WritesWholeNumbersAndBooleans) {
    EXPECT_EQ(Value(-42).AsText(), "-42");
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).AsText(), "-9223372036854775808");
    EXPECT_EQ(Value(true).AsText(), "True");
    EXPECT_EQ(Value(false).AsText(), "False");
}

TEST(Value, WritesTheShortestRealThatReadsBackTheSame) {
    EXPECT_EQ(Value(0.1).AsText(), "0.1");
    EXPECT_EQ(Value(-2.5).AsText(), "-2.5");
    EXPECT_EQ(Value(3.0).AsText(), "3");
    EXPECT_EQ(Value(100000.0).AsText(), "100000");
    EXPECT_EQ(Value(0.0).AsText(), "0");
    EXPECT_EQ(Value(1e20).AsText(), "1e+20");
    EXPECT_EQ(Value(0.1 + 0.2).AsText(), "0.30000000000000004");
}

TEST(Value, ReadsTheLeadingNumberOfAText) {
    EXPECT_EQ(Value("202423").AsLong(), 202423);
    EXPECT_EQ(Value("  -15 rows").AsLong(), -15);
    EXPECT_EQ(Value("12th").AsLong(), 12);
    EXPECT_EQ(Value("th12").AsLong(), 0);
    EXPECT_EQ(Value("").AsLong(), 0);
    EXPECT_EQ(Value("-").AsLong(), 0);
    EXPECT_EQ(Value("9223372036854775807").AsLong(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(Value("99999999999999999999").AsLong(), std::numeric_limits<std::int64_t>::max());
}

TEST(Value, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(Value(2.5).AsLong(), 2);
    EXPECT_EQ(Value(3.5).AsLong(), 4);
    EXPECT_EQ(Value(-2.6).AsLong(), -3);
    EXPECT_EQ(Value("1.5").AsLong(), 2);
    EXPECT_EQ(Value(-1e300).AsLong(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Value(std::numeric_limits<double>::quiet_NaN()).AsLong(), 0);
}

TEST(Value, TrueIsMinusOneAsANumber) {
    EXPECT_EQ(Value(true).AsLong(), -1);
    EXPECT_EQ(Value(false).AsLong(), 0);
}

TEST(Value, OnlyTrueYesOnAndNumbersOtherThanZeroAreTrue) {
    for (const char* text : {"True", "true", "Yes", "YES", "Y", "y", "1", "-1", " 2 ", "0.4"}) {
        EXPECT_TRUE(Value(text).AsBoolean()) << text;
    }
    for (const char* text : {"False", "No", "N", "", "0", "0.0", "Yep", "1a"}) {
        EXPECT_FALSE(Value(text).AsBoolean()) << text;
    }
    EXPECT_TRUE(Value(-1).AsBoolean());
    EXPECT_TRUE(Value(0.5).AsBoolean());
    EXPECT_FALSE(Value(0).AsBoolean());
    EXPECT_FALSE(Value(0.0).AsBoolean());
}

}  // namespace
}  // namespace quillon
