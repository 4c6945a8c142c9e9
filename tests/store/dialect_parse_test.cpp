// What the dialect refuses, and how it says so: every message shows the place in the statement.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

class DialectParse : public StoreTest {
protected:
    DialectParse() { AddWords(); }
    Failure Select(const std::string& sql) {
        return FailureOf([&] { db().CreateSnapshot(sql); });
    }
    Failure Act(const std::string& sql) {
        return FailureOf([&] { db().Execute(sql); });
    }
};

TEST_F(DialectParse, ErrorsNameThePlace) {
    EXPECT_EQ(Select("SELECT word FROM words WHERE"),
              (Failure{3075, "Expected a value in the statement, at its end."}));
    EXPECT_EQ(Select("SELECT word FROM words WHERE = 3"),
              (Failure{3075, "Expected a value in the statement, at '= 3'."}));
    EXPECT_EQ(Select("SELECT FROM words"),
              (Failure{3075, "Expected a value in the statement, at 'FROM words'."}));
    EXPECT_EQ(Select("SELECT word FROM WHERE id = 1"),
              (Failure{3075, "Expected a name in the statement, at 'WHERE id = 1'."}));
    EXPECT_EQ(Select("SELECT (word FROM words"),
              (Failure{3075, "Expected ) in the statement, at 'FROM words'."}));
    EXPECT_EQ(Select("SELECT word FROM words ORDER word"),
              (Failure{3075, "Expected by in the statement, at 'word'."}));
    EXPECT_EQ(Act("INSERT words (word) VALUES ('a')"),
              (Failure{3075, "Expected into in the statement, at 'words (word) VALUES ('a')'."}));
    EXPECT_EQ(Act("UPDATE words word = 'a'"), (Failure{3075, "Expected set in the statement, at '= 'a''."}));
}

TEST_F(DialectParse, AQuoteOrBracketLeftOpenIsShownFromWhereItOpens) {
    EXPECT_EQ(Select("SELECT word FROM words WHERE word = 'abc"),
              (Failure{3075, "Missing closing quote in the statement, at ''abc'."}));
    EXPECT_EQ(Select("SELECT word FROM words WHERE word = \"it's"),
              (Failure{3075, "Missing closing quote in the statement, at '\"it's'."}));
    EXPECT_EQ(Select("SELECT [word FROM words"),
              (Failure{3075, "Missing ] in the statement, at '[word FROM words'."}));
}

TEST_F(DialectParse, TheShownPartOfALongStatementIsCutByCharacters) {
    EXPECT_EQ(
        Select("SELECT word FROM words WHERE ) ééééééééééééééééééééééééééééééééééééééééééééé"),
        (Failure{3075, "Expected a value in the statement, at ') éééééééééééééééééééééééééééééééééééééé'."}));
}

TEST_F(DialectParse, OneStatementIsOneStatement) {
    EXPECT_EQ(Act("DELETE * FROM words; DELETE * FROM qb_taxonomic_units"),
              (Failure{3075, "Unexpected words in the statement, at 'DELETE * FROM qb_taxonomic_units'."}));
    EXPECT_EQ(Select("SELECT word FROM words WHERE id = 1 2"),
              (Failure{3075, "Unexpected words in the statement, at '2'."}));
    EXPECT_EQ(Dump("SELECT count(*) FROM qb_taxonomic_units"), "1\n");
}

TEST_F(DialectParse, WhatTheDialectLacksIsAClearError) {
    EXPECT_EQ(Act("DROP TABLE words"), (Failure{3075, "Expected index in the statement, at 'TABLE words'."}));
    EXPECT_EQ(
        Act("PRAGMA journal_mode = WAL"),
        (Failure{3075, "The dialect has no such statement: the statement, at 'PRAGMA journal_mode = WAL'."}));
    EXPECT_EQ(Act("ATTACH 'x' AS y"),
              (Failure{3075, "The dialect has no such statement: the statement, at 'ATTACH 'x' AS y'."}));
    EXPECT_EQ(Act(""), (Failure{3075, "The dialect has no such statement: the statement, at its end."}));
    EXPECT_EQ(Select("SELECT load_extension('x') FROM words"),
              (Failure{3075,
                       "The dialect has no such function: the statement, at "
                       "'load_extension('x') FROM words'."}));
    EXPECT_EQ(Select("SELECT TOP 1 word FROM words").number, 3075);
    EXPECT_EQ(
        Select("PARAMETERS x Double; SELECT word FROM words"),
        (Failure{3075,
                 "A parameter is Text or Long in the statement, at 'Double; SELECT word FROM words'."}));
}

TEST_F(DialectParse, UnknownNamesAreReportedByName) {
    EXPECT_EQ(
        Select("SELECT word FROM wordz"),
        (Failure{3078, "There is no table or query 'wordz' in the DataSet (place 18 of the statement)."}));
    EXPECT_EQ(
        Select("SELECT wort FROM words"),
        (Failure{3061,
                 "Too few parameters: 'wort' is no field of the statement's tables and no parameter."}));
    EXPECT_EQ(
        Select("SELECT w.word FROM words"),
        (Failure{3061,
                 "Too few parameters: 'w.word' is no field of the statement's tables and no parameter."}));
    EXPECT_EQ(Select("SELECT w.* FROM words"), (Failure{3078, "There is no table 'w' in the statement."}));
    EXPECT_EQ(Select("SELECT a.word, id FROM words AS a, words AS b"),
              (Failure{3075, "The field 'id' could refer to more than one table of the statement."}));
    EXPECT_EQ(Select("SELECT word FROM words, words").number, 3075);
    EXPECT_EQ(Act("INSERT INTO words (wort) VALUES ('a')").number, 3075);
    EXPECT_EQ(Act("INSERT INTO words (word, note) VALUES ('a')").number, 3075);
    EXPECT_EQ(Act("UPDATE words SET wort = 'a'").number, 3075);
}

TEST_F(DialectParse, TheStoresOwnTablesAreNotSeen) {
    EXPECT_EQ(Select("SELECT * FROM qln_queries").number, 3078);
    EXPECT_EQ(Select("SELECT * FROM sqlite_master").number, 3078);
    EXPECT_EQ(Act("DELETE * FROM qln_queries").number, 3078);
}

TEST_F(DialectParse, SelectsAreOpenedAndActionsExecuted) {
    EXPECT_EQ(Act("SELECT word FROM words").number, 3065);
    EXPECT_EQ(NumberOf([&] { db().CreateQueryDef("", "DELETE * FROM words").CreateSnapshot(); }), 3251);
    EXPECT_EQ(NumberOf([&] { db().CreateSnapshot("Delete Taxon"); }), 3251);
}

std::string Repeat(std::string_view part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
}

TEST_F(DialectParse, DeepNestingIsRefused) {
    for (const int depth : {300, 1500, 200000}) {
        const std::string open = Repeat("(", depth), close = Repeat(")", depth);
        EXPECT_EQ(Select("SELECT " + open + "1" + close + " FROM words").number, 3075) << depth;
        EXPECT_EQ(Select("SELECT word FROM words WHERE " + Repeat("NOT ", depth) + "flag").number, 3075)
            << depth;
        EXPECT_EQ(Select("SELECT " + Repeat("- ", depth) + "1 FROM words").number, 3075) << depth;
        EXPECT_EQ(Select("SELECT " + Repeat("Trim(", depth) + "word" + close + " FROM words").number, 3075)
            << depth;
        EXPECT_EQ(Select("SELECT word FROM " + open + "words" + close).number, 3075) << depth;
        EXPECT_EQ(Select("SELECT " + Repeat("(SELECT ", depth) + "1" + close + " FROM words").number, 3075)
            << depth;
    }
}

TEST_F(DialectParse, NestingThatAPersonWritesIsNot) {
    AddWord("a");
    EXPECT_EQ(Dump("SELECT " + Repeat("(", 60) + "word" + Repeat(")", 60) + " FROM words"), "a\n");
    EXPECT_EQ(Dump("SELECT word" + Repeat(" & 'b'", 60) + " FROM words"), "a" + Repeat("b", 60) + "\n");
}

// But for &, And and Or: see long_statement_test.cpp.
TEST_F(DialectParse, ChainsWithoutEndAreRefused) {
    for (const int links : {1200, 2500, 200000}) {
        EXPECT_EQ(Select("SELECT id" + Repeat(" + 1", links) + " FROM words").number, 3075) << links;
        EXPECT_EQ(Select("SELECT id FROM words WHERE flag" + Repeat(" is null", links)).number, 3075)
            << links;
        EXPECT_EQ(Select("SELECT id FROM words" + Repeat(" UNION SELECT id FROM words", links)).number, 3075)
            << links;
        std::string joins = "SELECT w.id FROM words AS w";
        for (int i = 0; i < links; ++i)
            joins +=
                " INNER JOIN words AS w" + std::to_string(i) + " ON w.id = w" + std::to_string(i) + ".id";
        EXPECT_EQ(Select(joins).number, 3075) << links;
    }
}

TEST_F(DialectParse, QueriesThatSelectFromEachOtherAreRefused) {
    db().CreateQueryDef("one", "SELECT id FROM words");
    db().CreateQueryDef("two", "SELECT id FROM one");
    db().OpenQueryDef("one").SetSQL("SELECT id FROM words");
    EXPECT_EQ(NumberOf([&] { db().OpenQueryDef("one").SetSQL("SELECT id FROM two"); }), 3075);
    EXPECT_EQ(Select("SELECT id FROM two").number, 3075);
    EXPECT_EQ(NumberOf([&] { db().CreateQueryDef("self", "SELECT id FROM self"); }), 3075);
}

// Each doubles the one before it: twenty of them would be a million selects.
TEST_F(DialectParse, QueriesThatMultiplyWithoutEndAreRefused) {
    db().CreateQueryDef("q0", "SELECT id FROM words");
    int number = 0;
    for (int i = 1; i < 19 && number == 0; ++i) {
        const std::string before = "q" + std::to_string(i - 1);
        const std::string sql =
            "SELECT a.id FROM " + before + " AS a INNER JOIN " + before + " AS b ON a.id = b.id";
        number = NumberOf([&] { db().CreateQueryDef("q" + std::to_string(i), sql); });
    }
    EXPECT_EQ(number, 3075);
}

}  // namespace
}  // namespace quillon::store
