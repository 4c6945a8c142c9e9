#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "core/text.h"

namespace quillon {
namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

int CompareKeys(const std::string& left, const std::string& right) {
    return CompareBinary(left, right);
}

// Each text stands strictly before the next, by comparison and by key.
void ExpectAscending(const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = 0; j < texts.size(); ++j) {
            const int expected = (i > j) - (i < j);
            EXPECT_EQ(Sign(CompareText(texts[i], texts[j])), expected) << texts[i] << " and " << texts[j];
            EXPECT_EQ(CompareKeys(SortKey(texts[i]), SortKey(texts[j])), expected)
                << texts[i] << " and " << texts[j];
        }
    }
}

void ExpectSame(const std::string& left, const std::string& right) {
    EXPECT_EQ(CompareText(left, right), 0) << left << " and " << right;
    EXPECT_EQ(SortKey(left), SortKey(right)) << left << " and " << right;
}

TEST(Collation, CaseNeverCounts) {
    ExpectSame("Abies alba", "ABIES ALBA");
    ExpectSame("M\xC3\xBCller", "M\xC3\x9CLLER");
    ExpectSame("\xCE\xA3\xCE\xAF\xCF\x82", "\xCF\x83\xCE\x8A\xCE\xA3");  // Greek, both forms of sigma
    ExpectSame("\xD0\x96\xD1\x8F", "\xD0\xB6\xD0\xAF");                  // Cyrillic
    ExpectSame("\xC3\x86", "\xC3\xA6");
    EXPECT_TRUE(EqualText("valid", "Valid"));
    EXPECT_FALSE(EqualText("valid", "invalid"));
}

TEST(Collation, TrailingBlanksDoNotCount) {
    ExpectSame("Abies", "Abies   ");
    ExpectSame("", "   ");
    ExpectSame("Abi\xC3\xA9", "Abi\xC3\xA9 ");
    ExpectAscending({"", " a", "a", "a b", "a\xC2\xA0", "ab"});
}

TEST(Collation, PunctuationSortsBeforeDigitsBeforeLetters) {
    ExpectAscending({"a b", "a-b", "a~b", "a\u2013b", "a0b", "a9b", "aab", "azb", "a\u03B1b", "a\u0430b",
                     "a\u4E2Db", "a\377b"});
}

TEST(Collation, EveryAsciiCharacterButTheLettersHasItsOwnPlace) {
    std::vector<std::string> keys;
    for (char c = 0; c < 'a'; ++c) keys.push_back(SortKey(std::string(1, c) + "."));
    for (int c = '{'; c < 0x80; ++c) keys.push_back(SortKey(std::string(1, static_cast<char>(c)) + "."));
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
}

TEST(Collation, ControlCharactersSortBeforeTheBlankAndNulFirst) {
    ExpectAscending({"a", std::string("a\0", 2), "a\x01", "a\tb", "a\x1F", "a\x7F", "a\xC2\x81", "a b"});
}

TEST(Collation, AccentsCountOnlyWhenAllBaseLettersAreEqual) {
    ExpectAscending({"Resume", "Resum\xC3\xA9", "R\xC3\xA9sume", "R\xC3\xA9sum\xC3\xA9", "Resumes"});
    ExpectAscending({"Muller", "M\xC3\xBCller", "Mullera"});
    ExpectAscending({"o", "\xC3\xB2", "\xC3\xB3", "\xC3\xB4", "\xC3\xB5", "\xC3\xB6", "p"});
}

TEST(Collation, StrokesAndOtherFormsAreMarksOnTheirLetter) {
    ExpectAscending({"do", "d\xC3\xB8", "\xC4\x91o", "\xC3\xB0o", "dp"});  // do, dø, đo, ðo
    ExpectAscending({"Lodz", "L\u00F3dz", "\xC5\x81odz", "m"});
    ExpectAscending({"f", "\xC6\x92", "g"});
    ExpectSame("\xC6\x91", "\xC6\x92");
}

TEST(Collation, LigaturesSortAfterTheirTwoLetters) {
    ExpectAscending({"ad", "ae", "\xC3\xA6", "aea", "\u00E6a", "af"});
    ExpectAscending({"strasse", "stra\u00DFe", "strassf"});
    ExpectAscending({"oe", "\xC5\x93", "of"});
    ExpectAscending({"ij", "\xC4\xB3", "ik"});
    ExpectAscending({"th", "\xC3\xBE", "ti"});
}

TEST(Collation, ACombiningMarkEqualsThePrecomposedLetter) {
    ExpectSame("e\xCC\x81", "\xC3\xA9");              // é
    ExpectSame("U\xCC\x88\xCC\x84", "\xC7\x96");      // ǖ
    ExpectSame("\xC3\xA6\xCC\x81", "\xC7\xBD");       // ǽ
    ExpectSame("\xC3\xB8\xCC\x81", "\xC7\xBE");       // ǿ
    ExpectSame("A\xCC\xA3\xCC\x82", "\xE1\xBA\xAD");  // ậ
    ExpectSame("\xCF\x89\xCC\x81", "\xCE\x8F");       // ώ
    ExpectAscending({"", "\xCC\x81", "e", "e\xCC\x81", "ea", "e\u0301a"});
}

TEST(Collation, RaisedDigitsAndLettersFollowTheirPlainForms) {
    ExpectAscending({"1", "\xC2\xB9", "2", "\xC2\xB2", "3", "\xC2\xB3", "4", "a", "\xC2\xAA", "b"});
}

TEST(Collation, InvalidBytesSortAfterAllLettersByTheirValue) {
    ExpectAscending({"z", "\xF4\x8F\xBF\xBF", "\x80", "\xC3", "\xFF"});
    EXPECT_FALSE(EqualText("\xE9", "\xC3\xA9"));
}

TEST(Collation, LongCommonBeginningsDoNotHideADifference) {
    ExpectAscending({"Astragalus alpinus", "Astragalus alpinus a", "Astragalus alpinus b"});
    ExpectAscending({"Astragalus m\xC3\xBClleri", "Astragalus m\xC3\xBClleri x", "Astragalus mullerj"});
    ExpectSame("Astragalus m\xC3\xBClleri", "ASTRAGALUS MU\xCC\x88LLERI");
}

std::vector<std::string> NastyTexts(std::size_t count) {
    const std::vector<std::string> alphabet = {"a",
                                               "A",
                                               "b",
                                               "e",
                                               "s",
                                               "0",
                                               "9",
                                               " ",
                                               " ",
                                               "-",
                                               "'",
                                               "\t",
                                               "\x7F",
                                               "\xC3\xA9",
                                               "\xC3\x89",
                                               "\xC3",
                                               "\x80",
                                               "\xFF",
                                               "\xCC\x81",
                                               "\xCC\x80",
                                               "ae",
                                               "\xC3\xA6",
                                               "\xC7\xBD",
                                               "\xC3\x9F",
                                               "ss",
                                               "\xC2\xA0",
                                               "\xE2\x80\x93",
                                               "\xCE\xB1",
                                               "\xCE\x86",
                                               "\xD0\x96",
                                               "\xE4\xB8\xAD",
                                               "\xF0\x9F\x8C\xBF",
                                               std::string(1, '\0')};
    std::mt19937 random(20040525);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text = random() % 4 == 0 ? "Abies alba" : "";
        for (auto left = random() % 5; left > 0; --left) text += alphabet[random() % alphabet.size()];
        texts.push_back(text);
    }
    return texts;
}

TEST(Collation, KeysAgreeWithComparisonsOfAnyTwoTexts) {
    const std::vector<std::string> texts = NastyTexts(600);
    std::array<int, 3> seen{};
    for (const std::string& left : texts) {
        for (const std::string& right : texts) {
            const int order = Sign(CompareText(left, right));
            const int place = order + 1;
            ++seen[static_cast<std::size_t>(place)];
            ASSERT_EQ(order, CompareKeys(SortKey(left), SortKey(right))) << left << " and " << right;
            ASSERT_EQ(order, -Sign(CompareText(right, left))) << left << " and " << right;
        }
    }
    EXPECT_GT(seen[1], 600);  // equal pairs other than each text with itself occur
}

TEST(Collation, OrderIsTransitive) {
    const std::vector<std::string> texts = NastyTexts(120);
    for (const std::string& a : texts) {
        for (const std::string& b : texts) {
            if (CompareText(a, b) > 0) continue;
            for (const std::string& c : texts) {
                if (CompareText(b, c) <= 0) {
                    ASSERT_LE(CompareText(a, c), 0) << a << ", " << b << ", " << c;
                }
            }
        }
    }
}

}  // namespace
}  // namespace quillon
