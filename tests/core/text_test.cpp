#include "core/text.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

TEST(Text, CountsCharactersAndNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0u);
    EXPECT_EQ(CharacterCount("M\xC3\xBCll."), 5u);
    EXPECT_EQ(CharacterCount("\xE2\x80\x93\xF0\x9F\x8C\xBF"), 2u);
}

TEST(Text, CountsEachInvalidByteAsOneCharacter) {
    EXPECT_EQ(CharacterCount("a\xFC"
                             "b"),
              3u);
    EXPECT_EQ(CharacterCount("\xE2\x80"), 2u);          // cut short
    EXPECT_EQ(CharacterCount("\xC0\xAF"), 2u);          // an overlong form
    EXPECT_EQ(CharacterCount("\xED\xA0\x80"), 3u);      // a surrogate
    EXPECT_EQ(CharacterCount("\xF4\x90\x80\x80"), 4u);  // above the last code point
}

TEST(Text, LeftCharactersNeverCutsACharacter) {
    EXPECT_EQ(LeftCharacters("M\xC3\xBCller", 2), "M\xC3\xBC");
    EXPECT_EQ(LeftCharacters("M\xC3\xBCller", 0), "");
    EXPECT_EQ(LeftCharacters("ab", 15), "ab");
}

TEST(Text, ChangesTheCaseOfLatinGreekAndCyrillic) {
    EXPECT_EQ(UpperCase("abies \xC3\xA9\xC3\xBF\xC5\xA1"), "ABIES \xC3\x89\xC5\xB8\xC5\xA0");  // é ÿ š
    EXPECT_EQ(LowerCase("ABIES \xC3\x89\xC5\xB8\xC5\xA0"), "abies \xC3\xA9\xC3\xBF\xC5\xA1");
    EXPECT_EQ(UpperCase("\xCE\xB1\xCF\x8E\xCF\x82"), "\xCE\x91\xCE\x8F\xCE\xA3");  // α ώ ς
    EXPECT_EQ(LowerCase("\xCE\x91\xCE\x8F\xCE\xA3"), "\xCE\xB1\xCF\x8E\xCF\x83");
    EXPECT_EQ(UpperCase("\xD0\xB6\xD1\x8F\xD1\x91"), "\xD0\x96\xD0\xAF\xD0\x81");  // ж я ё
    EXPECT_EQ(LowerCase("\xD0\x96\xD0\xAF\xD0\x81"), "\xD0\xB6\xD1\x8F\xD1\x91");
}

TEST(Text, KeepsTheCaseOfLettersWithoutAPartner) {
    EXPECT_EQ(UpperCase("\xC3\x9F\xC3\xB7\xC2\xB5\xC6\x92"), "\xC3\x9F\xC3\xB7\xC2\xB5\xC6\x92");  // ß ÷ µ ƒ
    EXPECT_EQ(LowerCase("\xC3\x97[1]"), "\xC3\x97[1]");                                            // ×
    EXPECT_EQ(UpperCase("a\xFF"
                        "b"),
              "A\xFF"
              "B");
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t "), "\ta\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(TrimEnd("  a  "), "  a");
}

TEST(Text, ReplaceTextDoesNotSearchWhatItInserted) {
    EXPECT_EQ(ReplaceText("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceText("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceText("abc", "x", "y"), "abc");
    EXPECT_EQ(ReplaceText("abc", "", "y"), "abc");
    EXPECT_EQ(ReplaceText("", "a", "b"), "");
}

TEST(Text, QuoteSQLDoublesQuotesAndSplicesBars) {
    EXPECT_EQ(QuoteSQL("d'Urv."), "d''Urv.");
    EXPECT_EQ(QuoteSQL("a|b"), "a' & chr(124) & 'b");
    EXPECT_EQ(QuoteSQL("'|'"), "''' & chr(124) & '''");
    EXPECT_EQ(QuoteSQL("plain"), "plain");
}

TEST(Text, QuoteDoubleQuotesDoublesThem) {
    EXPECT_EQ(QuoteDoubleQuotes("a \"b\" 'c'"), "a \"\"b\"\" 'c'");
}

TEST(Text, HexStringWritesTheCodePageBytes) {
    EXPECT_EQ(HexString("Az "), "417A20");
    EXPECT_EQ(HexString("\xC3\xB1\xE2\x82\xAC"), "F180");  // ñ and the euro sign
    EXPECT_EQ(HexString("\xCE\xB1"), "3F");                // alpha has no place there
    EXPECT_EQ(HexString("\xC2\x81\n"), "810A");
    EXPECT_EQ(HexString(""), "");
}

TEST(Text, NumericTextsHaveDigitsASignAPointAndBlanksAround) {
    for (const char* text : {"12", "-3", " 1.5 ", "+7", "- 3", "1776", "17  ", "12-", "5.", ".5", "1e3"}) {
        EXPECT_TRUE(IsNumericText(text)) << text;
    }
    for (const char* text :
         {"", " ", ".", "-", "17th", "a12", "1 2", "1.2.3", "--1", "-1-", "inf", "nan", "0x1F"}) {
        EXPECT_FALSE(IsNumericText(text)) << text;
    }
}

TEST(Text, CompareBinaryRespectsCaseAndBlanks) {
    EXPECT_EQ(CompareBinary("L.", "L."), 0);
    EXPECT_EQ(CompareBinary("L.", "l."), -1);
    EXPECT_EQ(CompareBinary("l.", "L."), 1);
    EXPECT_EQ(CompareBinary("L.", "L. "), -1);
    EXPECT_EQ(CompareBinary("\xC3\xA9", "z"), 1);
}

}  // namespace
}  // namespace quillon
