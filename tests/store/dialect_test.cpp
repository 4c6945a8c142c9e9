// What the dialect's expressions and selects give, shown by running them.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

class Dialect : public StoreTest {
protected:
    Dialect() { AddWords(); }
    // The value of one expression.
    std::string Of(const std::string& expression) { return Dump("SELECT " + expression + ";"); }
    // The words that meet a condition, in the order of their ids.
    std::string Where(const std::string& condition) {
        return Dump("SELECT word FROM words WHERE " + condition + " ORDER BY id");
    }
};

TEST_F(Dialect, NamesMayStandInBrackets) {
    AddWord("a", "n");
    EXPECT_EQ(Dump("SELECT [word], [words].[note], words.[id] FROM [words] ORDER BY [id];"), "a\tn\t1\n");
    EXPECT_EQ(Dump("select WORD from WORDS as [my words] where [my words].ID = 1"), "a\n");
    db().CreateQueryDef("all of them", "SELECT word AS [the word] FROM words");
    EXPECT_EQ(Dump("SELECT [the word] FROM [all of them]"), "a\n");
}

TEST_F(Dialect, TextsStandInEitherQuoteWithDoubledQuotesInside) {
    EXPECT_EQ(Of(R"('it''s')"), "it's\n");
    EXPECT_EQ(Of(R"("it's")"), "it's\n");
    EXPECT_EQ(Of(R"("say ""so""")"), "say \"so\"\n");
    EXPECT_EQ(Of(R"('say "so"')"), "say \"so\"\n");
    EXPECT_EQ(Of(R"('' & "")"), "\n");
    EXPECT_EQ(Of("'[a] ; -- b'"), "[a] ; -- b\n");
}

TEST_F(Dialect, NullPropagatesThroughPlusAndComparisonButNotAmpersand) {
    EXPECT_EQ(Of("Null & Null"), "\n");
    EXPECT_EQ(Of("'a' & Null & 'b'"), "ab\n");
    EXPECT_EQ(Of("'a' + Null"), "\\N\n");
    EXPECT_EQ(Of("1 + Null"), "\\N\n");
    EXPECT_EQ(Of("'a' + 'b'"), "ab\n");
    EXPECT_EQ(Of("2 + 3"), "5\n");
    EXPECT_EQ(Of("Trim(Null)"), "\\N\n");
    AddWord("a", Value());
    EXPECT_EQ(Dump("SELECT word + note, word & note FROM words"), "\\N\ta\n");
    EXPECT_EQ(Where("note = Null"), "");
    EXPECT_EQ(Where("note <> 'x'"), "");
    EXPECT_EQ(Where("Not (note = 'x')"), "");
    EXPECT_EQ(Where("note Is Null"), "a\n");
    EXPECT_EQ(Where("IsNull(note)"), "a\n");
    EXPECT_EQ(Where("note Is Not Null"), "");
}

TEST_F(Dialect, TheEmptyThirdPartOfAnIIfIsNull) {
    EXPECT_EQ(Of("IIf(1 = 1, 'y',)"), "y\n");
    EXPECT_EQ(Of("IIf(1 = 2, 'y',)"), "\\N\n");
    EXPECT_EQ(Of("'a' & Trim(IIf(1 = 2, 'y' & ' ',)) & 'b'"), "ab\n");
    EXPECT_EQ(Of("IIf(Null = 1, 'y', 'n')"), "n\n");
    EXPECT_EQ(NumberOf([&] { Of("IIf(1 = 1)"); }), 3075);
    EXPECT_EQ(NumberOf([&] { Of("IIf(1 = 1, 2, 3, 4)"); }), 3075);
}

TEST_F(Dialect, TextComparisonIgnoresCaseUnlessStrCompHasModeZero) {
    for (const char* word : {"Canis", "canis", "CANIS", "Canis "}) AddWord(word);
    EXPECT_EQ(Where("word = 'cAnIs'"), "Canis\ncanis\nCANIS\nCanis \n");
    EXPECT_EQ(Where("StrComp(word, 'Canis', 0) = 0"), "Canis\n");
    EXPECT_EQ(Where("StrComp(word, 'Canis', 0) <> 0"), "canis\nCANIS\nCanis \n");
    EXPECT_EQ(Where("StrComp(word, 'canis', 1) = 0"), "Canis\ncanis\nCANIS\nCanis \n");
    EXPECT_EQ(Of("StrComp('a', 'B', 0)"), "1\n");  // by code, capitals come first
    EXPECT_EQ(Of("StrComp('a', 'B', 1)"), "-1\n");
    EXPECT_EQ(Of("StrComp(Null, 'B', 0)"), "\\N\n");
}

TEST_F(Dialect, LikeKnowsItsSigns) {
    for (const char* word : {"Aa1", "aab", "b*c", "cat", "cot", "éa"}) AddWord(word);
    EXPECT_EQ(Where("word Like 'a*'"), "Aa1\naab\n");
    EXPECT_EQ(Where("word Like '*a*'"), "Aa1\naab\ncat\néa\n");
    EXPECT_EQ(Where("word Like 'c?t'"), "cat\ncot\n");
    EXPECT_EQ(Where("word Like '??#'"), "Aa1\n");
    EXPECT_EQ(Where("word Like 'c[a-b]t'"), "cat\n");
    EXPECT_EQ(Where("word Like 'c[!a-b]t'"), "cot\n");
    EXPECT_EQ(Where("word Like 'b[*]c'"), "b*c\n");
    EXPECT_EQ(Where("word Like '?a'"), "éa\n");
    EXPECT_EQ(Where("word Like 'e*'"), "");
    EXPECT_EQ(Where("word Not Like '*a*'"), "b*c\ncot\n");
    EXPECT_EQ(Where("word Like '%a%'"), "");
    EXPECT_EQ(Where("word Like '[a'"), "");
    EXPECT_EQ(Where("word Like Null"), "");
}

TEST_F(Dialect, TrailingBlanksAreKeptButDoNotCountInComparison) {
    AddWord("ab  ");
    AddWord(" ab");
    EXPECT_EQ(Dump("SELECT word & '|', Len(word) FROM words ORDER BY id"), "ab  |\t4\n ab|\t3\n");
    EXPECT_EQ(Where("word = 'ab'"), "ab  \n");
    EXPECT_EQ(Where("'ab      ' = word"), "ab  \n");
    EXPECT_EQ(Where("word In ('AB')"), "ab  \n");
    EXPECT_EQ(Where("word Between 'ab' And 'ab'"), "ab  \n");
}

TEST_F(Dialect, AccentsAreDistinctAndOrderedAfterTheirLetters) {
    for (const char* word : {"eb", "éa", "ea", "Éa", "ez", "f", "1", "-a"}) AddWord(word);
    EXPECT_EQ(Where("word = 'ea'"), "ea\n");
    EXPECT_EQ(Where("word = 'éA'"), "éa\nÉa\n");
    EXPECT_EQ(Where("word > 'ea' and word < 'eb'"), "éa\nÉa\n");
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY word, id"), "-a\n1\nea\néa\nÉa\neb\nez\nf\n");
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY word DESC, id"), "f\nez\neb\néa\nÉa\nea\n1\n-a\n");
    EXPECT_EQ(Dump("SELECT min(word), max(word) FROM words WHERE word >= 'a'"), "ea\tf\n");
}

TEST_F(Dialect, NullsComeFirstInOrder) {
    AddWord("b");
    AddWord(Value(), "x");
    AddWord("a");
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY word"), "\\N\na\nb\n");
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY word DESC"), "b\na\n\\N\n");
}

TEST_F(Dialect, DistinctUnionAndGroupsFoldEqualTexts) {
    for (const char* word : {"Mus", "MUS", "mus  ", "müs", "Rattus"}) AddWord(word);
    EXPECT_EQ(Dump("SELECT count(*) FROM words"), "5\n");
    EXPECT_EQ(Dump("SELECT DISTINCT UCase(Trim(word)) FROM words"), "MUS\nMÜS\nRATTUS\n");
    const auto distinct = db().CreateSnapshot("SELECT DISTINCT word FROM words");
    distinct->MoveLast();
    EXPECT_EQ(distinct->RecordCount(), 3U);
    const auto both = db().CreateSnapshot("SELECT word FROM words UNION SELECT word FROM words");
    both->MoveLast();
    EXPECT_EQ(both->RecordCount(), 3U);
    EXPECT_EQ(Dump("SELECT count(*) FROM words GROUP BY word ORDER BY word"), "3\n1\n1\n");
    EXPECT_EQ(Dump("SELECT count(word) FROM words GROUP BY word HAVING count(*) > 1"), "3\n");
}

TEST_F(Dialect, UnionAllKeepsAllAndAUnionIsOrderedByItsColumns) {
    AddWord("b");
    AddWord("a");
    EXPECT_EQ(Dump("SELECT word FROM words UNION ALL SELECT word FROM words ORDER BY word"), "a\na\nb\nb\n");
    EXPECT_EQ(Dump("SELECT word, id FROM words UNION SELECT 'c', 9 ORDER BY id DESC"), "c\t9\na\t2\nb\t1\n");
    EXPECT_EQ(NumberOf([&] { Dump("SELECT word FROM words UNION SELECT word, id FROM words"); }), 3075);
    EXPECT_EQ(NumberOf([&] { Dump("SELECT word FROM words UNION SELECT word FROM words ORDER BY id"); }),
              3075);
}

TEST_F(Dialect, AnAggregateWithoutANameIsEXPR1000) {
    AddWord("a");
    const auto first = db().CreateSnapshot("SELECT max(word) FROM words");
    EXPECT_EQ(first->ColumnName(0), "EXPR1000");
    EXPECT_EQ(first->Get("EXPR1000"), Value("a"));
    const auto second = db().CreateSnapshot("SELECT id, word & note, min(1) AS least FROM words");
    EXPECT_EQ(second->ColumnName(0), "id");
    EXPECT_EQ(second->ColumnName(1), "EXPR1001");
    EXPECT_EQ(second->ColumnName(2), "least");
    EXPECT_EQ(Dump("SELECT max(word) FROM words WHERE id = 99"), "\\N\n");
    EXPECT_EQ(Dump("SELECT count(*), count(note) FROM words"), "1\t0\n");
}

TEST_F(Dialect, BooleansReadAndCompareAsTrueAndFalse) {
    AddWord("yes", {}, {}, true);
    AddWord("no");
    EXPECT_EQ(Dump("SELECT flag FROM words ORDER BY id"), "True\nFalse\n");
    for (const char* truth :
         {"flag", "flag = True", "flag = Yes", "flag = -1", "flag <> 0", "Not (flag = False)"})
        EXPECT_EQ(Where(truth), "yes\n") << truth;
    for (const char* lie : {"Not flag", "flag = False", "flag = No", "flag = 0"})
        EXPECT_EQ(Where(lie), "no\n") << lie;
    EXPECT_EQ(Dump("SELECT word & flag FROM words ORDER BY id"), "yes-1\nno0\n");
}

TEST_F(Dialect, FunctionsCountInCharacters) {
    EXPECT_EQ(Of("Len('éß')"), "2\n");
    EXPECT_EQ(Of("Left('éß12', 2)"), "éß\n");
    EXPECT_EQ(Of("Mid('éß12', 2, 2)"), "ß1\n");
    EXPECT_EQ(Of("Mid('éß12', 3)"), "12\n");
    EXPECT_EQ(Of("InStr('Émile', 'é')"), "1\n");
    EXPECT_EQ(Of("InStr('aéb', 'B')"), "3\n");
    EXPECT_EQ(Of("InStr('abc', 'z')"), "0\n");
    EXPECT_EQ(Of("UCase('éa') & LCase('ÉA')"), "ÉAéa\n");
    EXPECT_EQ(Of("Chr(233) & Chr(124)"), "é|\n");
    EXPECT_EQ(Of("'<' & Trim('  a b ') & '>' & '<' & LTrim(' a ') & '>' & '<' & RTrim(' a ') & '>'"),
              "<a b><a ><\x20"
              "a>\n");
    EXPECT_EQ(Of("CStr(12) & '!'"), "12!\n");
    EXPECT_EQ(Of("7 / 2"), "3.5\n");
    EXPECT_EQ(Of("2 + 3 * 4 - 1"), "13\n");
    EXPECT_EQ(Of("-(2 + 3)"), "-5\n");
}

TEST_F(Dialect, ConditionsBindNotBeforeAndBeforeOr) {
    for (int i = 1; i <= 4; ++i) AddWord(std::string(1, static_cast<char>('a' + i - 1)), {}, i);
    EXPECT_EQ(Where("size = 1 or size = 2 and word = 'z'"), "a\n");
    EXPECT_EQ(Where("(size = 1 or size = 2) and word = 'b'"), "b\n");
    EXPECT_EQ(Where("Not size = 1 and Not size = 2"), "c\nd\n");
    EXPECT_EQ(Where("size Between 2 And 3"), "b\nc\n");
    EXPECT_EQ(Where("size Not Between 2 And 3"), "a\nd\n");
    EXPECT_EQ(Where("size In (4, 1, 9)"), "a\nd\n");
    EXPECT_EQ(Where("size Not In (4, 1)"), "b\nc\n");
    EXPECT_EQ(Where("size >= 2 and size <= 3 and size <> 3 and size < 9 and size > 0"), "b\n");
}

}  // namespace
}  // namespace quillon::store
