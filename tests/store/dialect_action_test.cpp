// The statements that change rows and tables.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

class DialectAction : public StoreTest {
protected:
    DialectAction() { AddWords(); }
    std::string Words() { return Dump("SELECT id, word, note, size, flag FROM words ORDER BY id"); }
    Failure Act(const std::string& sql) {
        return FailureOf([&] { db().Execute(sql); });
    }
};

TEST_F(DialectAction, InsertTakesValuesOrASelectWithoutATable) {
    EXPECT_EQ(Execute("INSERT INTO words (word, size, flag) VALUES ('a', 1, True)"), 1);
    EXPECT_EQ(Execute("INSERT INTO words ( word, size, flag ) SELECT 'b', 2, 'No';"), 1);
    EXPECT_EQ(db().CreateQueryDef(
                      "", "PARAMETERS word Text, flag Text; INSERT INTO words (word, flag) SELECT word, flag")
                  .Set("word", "c")
                  .Set("flag", "-1")
                  .Execute(),
              1);
    EXPECT_EQ(Words(), "1\ta\t\\N\t1\tTrue\n2\tb\t\\N\t2\tFalse\n3\tc\t\\N\t\\N\tTrue\n");
}

TEST_F(DialectAction, InsertCopiesRowsAndGivesEachItsNumber) {
    AddWord("a", "x", 1);
    AddWord("b", "y", 2);
    EXPECT_EQ(
        Execute("INSERT INTO words (word, size) SELECT word & '2', size + 10 FROM words WHERE size > 1"), 1);
    EXPECT_EQ(Execute("INSERT INTO words (word, note) SELECT note, word FROM words WHERE id < 3"), 2);
    EXPECT_EQ(Dump("SELECT id, word, note, size FROM words ORDER BY id"),
              "1\ta\tx\t1\n2\tb\ty\t2\n3\tb2\t\\N\t12\n4\tx\ta\t\\N\n5\ty\tb\t\\N\n");
}

TEST_F(DialectAction, InsertCopiesWholeTables) {
    Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn) VALUES (1, 2, 3)");
    TableDef copy = *db().FindTableDef("qb_synonym_links");
    copy.name = "links";
    db().AppendTable(copy);
    EXPECT_EQ(Execute("INSERT INTO links SELECT * FROM qb_synonym_links"), 1);
    EXPECT_EQ(Dump("SELECT * FROM links"), "1\t2\t3\t\\N\n");
}

TEST_F(DialectAction, AnInsertThatFailsOnItsSecondRowStoresNone) {
    AddWord("a", {}, 1);
    AddWord("bbbbbbbbbbbbbbbbbbb", {}, 2);  // 19 characters
    EXPECT_EQ(Act("INSERT INTO words (word) SELECT word & 'xx' FROM words ORDER BY id").number, 3163);
    EXPECT_EQ(Dump("SELECT count(*) FROM words"), "2\n");
}

TEST_F(DialectAction, UpdateChangesWhatMeetsItsCondition) {
    AddWord("a", "x", 1);
    AddWord("b", "y", 2);
    EXPECT_EQ(
        Execute("UPDATE words SET note = Null, size = size + 1, words.[word] = word & id WHERE word = 'B'"),
        1);
    EXPECT_EQ(Execute("UPDATE words SET flag = 'Yes' WHERE id = 1"), 1);
    EXPECT_EQ(Execute("UPDATE words SET word = 'z' WHERE id = 99"), 0);
    EXPECT_EQ(Words(), "1\ta\tx\t1\tTrue\n2\tb2\t\\N\t3\tFalse\n");
}

TEST_F(DialectAction, UpdateOverAJoinChangesOneTable) {
    AddWord("Africa", "x", 1);
    AddWord("Asia", "y", 2);
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value, tsn) VALUES (1, 'AFRICA', 10)");
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value, tsn) VALUES (1, 'Europe', 11)");
    const std::string join =
        "words INNER JOIN qb_geographic_division ON words.word = qb_geographic_division.geographic_value ";
    EXPECT_EQ(Execute("UPDATE " + join + "SET words.size = qb_geographic_division.tsn"), 1);
    EXPECT_EQ(Dump("SELECT word, size FROM words ORDER BY id"), "Africa\t10\nAsia\t2\n");
    EXPECT_EQ(Execute("UPDATE " + join + "SET qb_geographic_division.tsn = Null WHERE words.id = 1"), 1);
    EXPECT_EQ(Dump("SELECT geographic_value, tsn FROM qb_geographic_division"), "AFRICA\t\\N\nEurope\t11\n");
    EXPECT_EQ(Act("UPDATE " + join + "SET words.size = 1, qb_geographic_division.tsn = 2").number, 3075);
}

TEST_F(DialectAction, DeleteTakesAnAsteriskOrNone) {
    for (const char* word : {"a", "b", "c", "d"}) AddWord(word);
    EXPECT_EQ(Execute("DELETE * FROM words WHERE word = 'A';"), 1);
    EXPECT_EQ(Execute("DELETE words.* FROM words WHERE (word = 'b');"), 1);
    EXPECT_EQ(Execute("DELETE FROM words WHERE words.word = 'c'"), 1);
    EXPECT_EQ(Dump("SELECT word FROM words"), "d\n");
    EXPECT_EQ(Execute("DELETE * FROM words"), 1);
}

TEST_F(DialectAction, AColumnIsAddedAndDropped) {
    AddWord("a");
    Execute("ALTER TABLE words ADD COLUMN extra TEXT(3)");
    Execute("ALTER TABLE words ADD COLUMN seen LOGICAL NULL");
    Execute("ALTER TABLE words ADD COLUMN place BYTE");
    Execute("UPDATE words SET extra = 'xyz', seen = Yes, place = 255");
    EXPECT_EQ(Dump("SELECT extra, seen, place FROM words"), "xyz\tTrue\t255\n");
    EXPECT_EQ(Act("UPDATE words SET extra = 'wxyz'").number, 3163);
    EXPECT_EQ(Act("UPDATE words SET place = 256").number, 3349);
    Execute("ALTER TABLE words DROP COLUMN extra");
    EXPECT_EQ(Act("UPDATE words SET extra = 'x'").number, 3075);
    EXPECT_EQ(db().FindTableDef("words")->Field("extra"), nullptr);
    Reopen();
    ASSERT_NE(db().FindTableDef("words")->Field("place"), nullptr);
    EXPECT_EQ(db().FindTableDef("words")->Field("place")->type, FieldType::Byte);
    EXPECT_EQ(Dump("SELECT word, seen, place FROM words"), "a\tTrue\t255\n");
}

TEST_F(DialectAction, AColumnThatCannotBeAddedOrDroppedLeavesTheTable) {
    EXPECT_EQ(Act("ALTER TABLE words ADD COLUMN word TEXT(3)").number, 3075);
    EXPECT_EQ(Act("ALTER TABLE words ADD COLUMN blob OLEOBJECT"),
              (Failure{3075, "There is no field type 'OLEOBJECT'."}));
    EXPECT_EQ(Act("ALTER TABLE words ADD COLUMN long TEXT(256)").number, 3075);
    EXPECT_EQ(Act("ALTER TABLE words DROP COLUMN nothing"),
              (Failure{3265, "The table has no field 'nothing'."}));
    EXPECT_EQ(Act("ALTER TABLE words DROP COLUMN size").number, 3075);  // an index holds it
    EXPECT_EQ(Act("ALTER TABLE wordz DROP COLUMN size").number, 3078);
    EXPECT_EQ(db().FindTableDef("words")->fields.size(), 5U);
}

TEST_F(DialectAction, AKeyIsMadeWithPrimaryAndDroppedAgain) {
    Execute("INSERT INTO db_tombstone (table_name, pk1) VALUES ('a', '1')");
    Execute("INSERT INTO db_tombstone (table_name, pk1) VALUES ('A ', '1')");
    EXPECT_EQ(Act("CREATE INDEX PrimaryKey ON db_tombstone (table_name, pk1) WITH PRIMARY").number, 3022);
    EXPECT_EQ(db().FindTableDef("db_tombstone")->PrimaryKey(), nullptr);
    Execute("DELETE * FROM db_tombstone WHERE StrComp(table_name, 'a', 0) = 0");
    Execute("CREATE INDEX PrimaryKey ON db_tombstone (table_name, pk1) WITH PRIMARY");
    EXPECT_EQ(db().FindTableDef("db_tombstone")->PrimaryKey()->FieldList(), "+table_name;+pk1");
    EXPECT_EQ(Act("INSERT INTO db_tombstone (table_name, pk1) VALUES ('a', '1')").number, 3022);
    Reopen();
    EXPECT_EQ(Act("INSERT INTO db_tombstone (table_name, pk1) VALUES ('a', '1')").number, 3022);
    Execute("DROP INDEX PrimaryKey ON db_tombstone");
    Execute("INSERT INTO db_tombstone (table_name, pk1) VALUES ('a', '1')");
    EXPECT_EQ(Dump("SELECT table_name, pk1 FROM db_tombstone ORDER BY table_name"), "A \t1\na\t1\n");
}

TEST_F(DialectAction, AnIndexIsMadeAndDropped) {
    Execute("CREATE INDEX by_word ON words (word, note)");
    EXPECT_EQ(db().FindTableDef("words")->Index("by_word")->FieldList(), "+word;+note");
    EXPECT_EQ(Act("CREATE INDEX BY_WORD ON words (word)"),
              (Failure{3010, "The index 'BY_WORD' already exists."}));
    Execute("DROP INDEX by_word ON words");
    EXPECT_EQ(db().FindTableDef("words")->Index("by_word"), nullptr);
    EXPECT_EQ(Act("DROP INDEX by_word ON words"), (Failure{3015, "The table has no index 'by_word'."}));
    EXPECT_EQ(Act("CREATE INDEX x ON words (nothing)"), (Failure{3265, "The table has no field 'nothing'."}));
    EXPECT_EQ(Act("CREATE INDEX x ON words (nothing) WITH PRIMARY").number, 3265);
}

TEST_F(DialectAction, ATableIsAppendedWholeOrNotAtAll) {
    TableDef odd = *db().FindTableDef("words");
    EXPECT_EQ(FailureOf([&] { db().AppendTable(odd); }),
              (Failure{3010, "The table 'words' already exists."}));
    odd.name = "others";
    odd.indexes.push_back({"bad", {"nothing"}, false});
    EXPECT_EQ(NumberOf([&] { db().AppendTable(odd); }), 3265);
    EXPECT_EQ(db().FindTableDef("others"), nullptr);
    odd.indexes.pop_back();
    db().AppendTable(odd);
    EXPECT_EQ(db().FindTableDef("OTHERS")->name, "others");
}

TEST_F(DialectAction, NamedQueriesAreStoredReplacedAndRemoved) {
    const std::size_t before = db().QueryDefs().size();
    db().CreateQueryDef("mine", "SELECT 1 AS one");
    EXPECT_EQ(FailureOf([&] { db().CreateQueryDef("MINE", "SELECT 2"); }),
              (Failure{3012, "The query 'MINE' already exists."}));
    EXPECT_EQ(Rows("Mine"), "1\n");
    db().OpenQueryDef("mine").SetSQL("SELECT 'two' AS two");
    EXPECT_EQ(Rows("mine"), "two\n");
    Reopen();
    EXPECT_EQ(db().QueryDefs().back(), (std::pair<std::string, std::string>{"mine", "SELECT 'two' AS two"}));
    EXPECT_EQ(NumberOf([&] { db().OpenQueryDef("mine").SetSQL("SELEC 1"); }), 3075);
    EXPECT_EQ(Rows("mine"), "two\n");
    db().DeleteQueryDef("Mine");
    EXPECT_EQ(db().QueryDefs().size(), before);
    EXPECT_EQ(FailureOf([&] { db().OpenQueryDef("mine"); }),
              (Failure{3265, "There is no query 'mine' in the DataSet."}));
    EXPECT_EQ(NumberOf([&] { db().DeleteQueryDef("mine"); }), 3265);
}

}  // namespace
}  // namespace quillon::store
