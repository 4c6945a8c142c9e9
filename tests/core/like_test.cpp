#include <gtest/gtest.h>

#include <string>

#include "core/text.h"

namespace quillon {
namespace {

TEST(LikeText, WithoutWildcardsTheWholeTextMustMatch) {
    EXPECT_TRUE(LikeText("Abies", "abies"));
    EXPECT_FALSE(LikeText("Abies", "abie"));
    EXPECT_FALSE(LikeText("Abies", "bies"));
    EXPECT_TRUE(LikeText("", ""));
    EXPECT_FALSE(LikeText("a", ""));
}

TEST(LikeText, AsteriskIsAnyRun) {
    EXPECT_TRUE(LikeText("Abies alba", "Ab*"));
    EXPECT_TRUE(LikeText("Ab", "Ab*"));
    EXPECT_TRUE(LikeText("Abies alba", "*b*lb*"));
    EXPECT_TRUE(LikeText("", "*"));
    EXPECT_TRUE(LikeText("aXbXc", "*X?"));
    EXPECT_FALSE(LikeText("aXbX", "*X?"));
    EXPECT_TRUE(LikeText("MSysObjects", "MSys*"));
}

TEST(LikeText, ManyAsterisksDoNotTakeForever) {
    const std::string text(2000, 'a');
    EXPECT_FALSE(LikeText(text, "*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(LikeText, QuestionMarkIsOneCharacter) {
    EXPECT_TRUE(LikeText("M\xC3\xBCll", "M?ll"));
    EXPECT_FALSE(LikeText("Mll", "M?ll"));
    EXPECT_FALSE(LikeText("Muell", "M?ll"));
    EXPECT_TRUE(LikeText("M\xFCll", "M?ll"));  // an invalid byte is one character
}

TEST(LikeText, NumberSignIsOneDigit) {
    EXPECT_TRUE(LikeText("1758", "####"));
    EXPECT_FALSE(LikeText("175", "####"));
    EXPECT_FALSE(LikeText("175a", "####"));
    EXPECT_FALSE(LikeText("175\xC2\xB2", "####"));
}

TEST(LikeText, SetsListCharactersAndRanges) {
    EXPECT_TRUE(LikeText("Rosa", "[a-z]osa"));
    EXPECT_TRUE(LikeText("rosa", "[N-S]osa"));
    EXPECT_FALSE(LikeText("1osa", "[a-z]osa"));
    EXPECT_TRUE(LikeText("1osa", "[!a-z]osa"));
    EXPECT_FALSE(LikeText("Rosa", "[!a-z]osa"));
    EXPECT_TRUE(LikeText("Rosa", "[xyzr]osa"));
    EXPECT_TRUE(LikeText("\xC3\xA9", "[a-z]"));
    EXPECT_TRUE(LikeText("-", "[a-]"));
    EXPECT_TRUE(LikeText("-", "[-a]"));
    EXPECT_FALSE(LikeText("b", "[a-]"));
    EXPECT_FALSE(LikeText("", "[!a]"));
}

TEST(LikeText, WildcardsInASetAreOrdinaryCharacters) {
    EXPECT_TRUE(LikeText("a*b", "a[*]b"));
    EXPECT_FALSE(LikeText("axb", "a[*]b"));
    EXPECT_TRUE(LikeText("a[b", "a[[]b"));
    EXPECT_TRUE(LikeText("a]b", "a]b"));
    EXPECT_TRUE(LikeText("a!b", "a[!]b"));
    EXPECT_TRUE(LikeText("ab", "a[]b"));
}

TEST(LikeText, AnOpenBracketMatchesNothing) {
    EXPECT_FALSE(LikeText("a", "[a"));
    EXPECT_FALSE(LikeText("[a", "[a"));
    EXPECT_FALSE(LikeText("ab", "[a]*["));
}

TEST(LikeText, AccentsAndTrailingBlanksCountAndCaseDoesNot) {
    EXPECT_FALSE(LikeText("Muller", "M\xC3\xBCller"));
    EXPECT_TRUE(LikeText("M\xC3\xBCLLER", "m\xC3\x9Cller"));
    EXPECT_FALSE(LikeText("Abies ", "Abies"));
    EXPECT_TRUE(LikeText("Abies ", "Abies "));
}

}  // namespace
}  // namespace quillon
