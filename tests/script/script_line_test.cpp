#include "script/script_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quillon::script {
namespace {

// "number action|rest" a line.
std::string Read(const std::string& script) {
    std::istringstream input(script);
    ScriptReader reader(input);
    std::string lines;
    while (const auto line = reader.Next())
        lines += std::to_string(line->number) + " " + line->action + "|" + line->rest + "\n";
    return lines;
}

TEST(ScriptLine, SkipsCommentsAndEmptyLinesButCountsThem) {
    EXPECT_EQ(Read("# a comment\n\nclick cmdOK\n   \n  # another\n\tcurrent\n"),
              "3 click|cmdOK\n6 current|\n");
}

TEST(ScriptLine, KeepsTheRestAsItIsWritten) {
    EXPECT_EQ(Read("set txtName2  two  blanks \nset txtName2 a\tb"),
              "1 set|txtName2  two  blanks \n2 set|txtName2 a\tb\n");
}

TEST(ScriptLine, TakesTheLineEndsAndTheMarkOfOtherSystems) {
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "select 5\r\ncurrent\r\n"),
              "1 select|5\n2 current|\n");
}

TEST(ScriptLine, SplitsWordsAtBlanksAndTabs) {
    EXPECT_EQ(SplitFirstWord("txtName2  x"), (std::pair<std::string, std::string>("txtName2", " x")));
    EXPECT_EQ(SplitFirstWord("txtName2"), (std::pair<std::string, std::string>("txtName2", "")));
    EXPECT_EQ(SplitFirstWord("  "), (std::pair<std::string, std::string>("", "")));
    EXPECT_EQ(WordsOf(" grid \t 3 "), (std::vector<std::string>{"grid", "3"}));
    EXPECT_EQ(WordsOf(""), std::vector<std::string>{});
}

TEST(ScriptLine, EscapesAndUnescapes) {
    EXPECT_EQ(Unescaped(R"(a\nb\tc\\n\r)"), "a\nb\tc\\n\r");
    EXPECT_EQ(Unescaped(R"(C:\x and \)"), R"(C:\x and \)");
    const std::string all = "a\nb\tc\\d\re";
    EXPECT_EQ(Escaped(all), R"(a\nb\tc\\d\re)");
    EXPECT_EQ(Unescaped(Escaped(all)), all);
}

TEST(ScriptLine, TakesWholeNumbersOnly) {
    EXPECT_EQ(NumberOf("12"), 12);
    for (const char* word : {"", "x", "1x", "-1", "99999999999"}) EXPECT_THROW(NumberOf(word), CannotPlay);
    EXPECT_THROW(NumberOf("0", 1), CannotPlay);
}

}  // namespace
}  // namespace quillon::script
