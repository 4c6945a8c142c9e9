#include "exchange/field_cutter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillon::exchange {
namespace {

std::vector<std::string> FieldsOf(std::string_view line, std::size_t begin,
                                  std::string_view delimiter = "|") {
    FieldCutter cutter(line, begin, delimiter);
    std::vector<std::string> fields;
    while (cutter.NextField()) fields.emplace_back(cutter.Field());
    return fields;
}

using Fields = std::vector<std::string>;

TEST(TagOfLine, HasFourCharactersWhenTheFourthClosesIt) {
    EXPECT_EQ(TagOfLine("[TU]1|"), "[TU]");
    EXPECT_EQ(TagOfLine("[CM-]1|"), "[CM-]");
    EXPECT_EQ(TagOfLine("[TU 1|"), "[TU 1");
    EXPECT_EQ(TagOfLine("abc]def"), "abc]");
    EXPECT_EQ(TagOfLine("[TU]"), "[TU]");
    EXPECT_EQ(TagOfLine("[T"), "[T");
    EXPECT_EQ(TagOfLine(""), "");
}

TEST(TagOfLine, CountsCharactersAndNotBytes) {
    EXPECT_EQ(TagOfLine("\u00e9\u00e9\u00e9]x"), "\u00e9\u00e9\u00e9]");
    EXPECT_EQ(TagOfLine("\u00e9\u00e9\u00e9\u00e9\u00e9x"), "\u00e9\u00e9\u00e9\u00e9\u00e9");
}

TEST(FieldCutter, GivesTheFieldsThatADelimiterCloses) {
    EXPECT_EQ(FieldsOf("[GD]1|Africa|3|", 4), (Fields{"1", "Africa", "3"}));
    EXPECT_EQ(FieldsOf("[GD]1|Africa|3", 4), (Fields{"1", "Africa"}));
    EXPECT_EQ(FieldsOf("[GD]|||", 4), (Fields{"", "", ""}));
    EXPECT_EQ(FieldsOf("[GD]", 4), Fields{});
}

TEST(FieldCutter, TrimsBlanksAndOnlyBlanks) {
    EXPECT_EQ(FieldsOf("  a b  |\tc |   |", 0), (Fields{"a b", "\tc", ""}));
}

TEST(FieldCutter, TakesADelimiterOfSeveralCharactersWhole) {
    EXPECT_EQ(FieldsOf("a<>b|c<><>", 0, "<>"), (Fields{"a", "b|c", ""}));
}

TEST(FieldCutter, LooksForADelimiterFromTheSecondCharacterOn) {
    EXPECT_TRUE(FieldCutter("[GD]1|", 4).HasLaterDelimiter());
    EXPECT_TRUE(FieldCutter("[GD]||", 4).HasLaterDelimiter());
    EXPECT_FALSE(FieldCutter("[GD]|", 4).HasLaterDelimiter());
    EXPECT_FALSE(FieldCutter("[GD]|abc", 4).HasLaterDelimiter());
    EXPECT_FALSE(FieldCutter("[GD]", 4).HasLaterDelimiter());
}

TEST(FieldCutter, KnowsWhatIsLeft) {
    FieldCutter cutter("a|b|c", 0);
    ASSERT_TRUE(cutter.NextField());
    EXPECT_FALSE(cutter.AtEnd());
    EXPECT_TRUE(cutter.HasNext());
    ASSERT_TRUE(cutter.NextField());
    EXPECT_FALSE(cutter.AtEnd());
    EXPECT_FALSE(cutter.HasNext());
    FieldCutter closed("a|", 0);
    ASSERT_TRUE(closed.NextField());
    EXPECT_TRUE(closed.AtEnd());
}

}  // namespace
}  // namespace quillon::exchange
