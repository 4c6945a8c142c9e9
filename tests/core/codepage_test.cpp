#include "core/codepage.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(CodePage, ReadsTheBytesOfTheMiddleRows) {
    EXPECT_EQ(Cp1252ToUtf8("L. \x80 \x96 \x92 \x8A\x9F"),
              "L. \xE2\x82\xAC \xE2\x80\x93 \xE2\x80\x99 \xC5\xA0\xC5\xB8");
    EXPECT_EQ(Cp1252ToUtf8("M\xFCller \xA0\xFF"), "M\xC3\xBCller \xC2\xA0\xC3\xBF");
}

TEST(CodePage, AppendsToWhatIsThere) {
    std::string text = "a";
    AppendCp1252AsUtf8("\xE9", text);
    EXPECT_EQ(text, "a\xC3\xA9");
}

TEST(CodePage, EveryByteComesBackFromARoundTrip) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
    const std::string text = Cp1252ToUtf8(bytes);
    EXPECT_TRUE(IsValidUtf8(text));
    EXPECT_EQ(Utf8ToCp1252(text), bytes);
}

TEST(CodePage, OpenBytesAreTheControlCharactersOfTheirNumber) {
    EXPECT_EQ(Cp1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(CodePage, RefusesWhatHasNoPlace) {
    EXPECT_EQ(Utf8ToCp1252("a\xCE\xB1"), std::nullopt);  // Greek alpha
    EXPECT_EQ(Utf8ToCp1252("\xC2\x80"), std::nullopt);   // byte 80 is the euro sign, not this control
    EXPECT_EQ(Utf8ToCp1252("a\xFC"
                           "b"),
              std::nullopt);  // not UTF-8
    EXPECT_EQ(Utf8ToCp1252("abc"), "abc");
}

TEST(CodePage, KnowsWellFormedUtf8) {
    for (const char* text : {"", "plain", "\xC3\xBC", "\xE2\x82\xAC", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsValidUtf8(text)) << text;
    }
    for (const char* text : {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                             "\xF4\x90\x80\x80", "\xF0\x80\x80\x80", "\xFE", "long enough \xE2\x82"}) {
        EXPECT_FALSE(IsValidUtf8(text)) << text;
    }
}

TEST(CodePage, RepairReadsOnlyStrayBytesAsTheCodePage) {
    EXPECT_EQ(RepairUtf8("M\xC3\xBCller"), "M\xC3\xBCller");
    EXPECT_EQ(RepairUtf8("M\xFCller \xC3\xBC"), "M\xC3\xBCller \xC3\xBC");
    EXPECT_EQ(RepairUtf8("a\xE2\x82"), "a\xC3\xA2\xE2\x80\x9A");  // a cut euro sign: E2 and 82
}

}  // namespace
}  // namespace quillon
