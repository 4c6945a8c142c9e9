// AutoNumbers end at 2,147,483,647: the next one is an error in every way that gives one, and a file that
// holds a larger one is refused.
#include <cstdint>

#include "stock_client.h"
#include "store/bulk.h"
#include "store_fixture.h"

namespace quillon::store {

namespace {

constexpr int kOverflow = 3349;
constexpr int kDamaged = 3049;
constexpr std::int64_t kLast = 2147483647;

}  // namespace

class AutoNumberLimit : public StoreTest {
protected:
    AutoNumberLimit() { AddWords(); }
    std::string Words() { return Dump("SELECT id, word FROM words ORDER BY id;"); }
    // Changes the file as another program would, and opens it again.
    Failure OpenAfter(const std::string& sql) {
        db().Close();
        EXPECT_EQ(StockClient(f.dir.File("test.mdb")).Rows(sql), "");
        return FailureOf([&] { Reopen(); });
    }
};

TEST_F(AutoNumberLimit, GivesTheLastNumberAndNoMore) {
    Execute("INSERT INTO words (id, word) VALUES (2147483646, 'given');");
    AddWord("last");
    const std::string full = "2147483646\tgiven\n2147483647\tlast\n";
    EXPECT_EQ(FailureOf([&] { AddWord("recordset"); }),
              (Failure{kOverflow, "The table 'words' has no AutoNumber left: 2147483647 was the last."}));
    EXPECT_EQ(FailureOf([&] { Execute("INSERT INTO words (word) VALUES ('statement');"); }),
              (Failure{kOverflow, "The table 'words' has no AutoNumber left: 2147483647 was the last."}));
    EXPECT_EQ(NumberOf([&] { Execute("INSERT INTO words (word) SELECT word FROM words;"); }), kOverflow);
    BulkLoad load(f.engine, db(), false);
    EXPECT_EQ(NumberOf([&] { load.ReserveAutoNumber("words"); }), kOverflow);
    load.Finish();
    EXPECT_EQ(Words(), full);
    Reopen();
    EXPECT_EQ(NumberOf([&] { AddWord("later"); }), kOverflow);
    EXPECT_EQ(Words(), full);
}

TEST_F(AutoNumberLimit, StopsAResultThatDoesNotShowTheNumber) {
    Execute("INSERT INTO words (id, word) VALUES (2147483647, 'last');");
    const auto rows = db().CreateDynaset("SELECT word FROM words;");
    EXPECT_EQ(NumberOf([&] {
                  rows->AddNew();
                  rows->Set("word", "hidden");
                  rows->Update();
              }),
              kOverflow);
    EXPECT_EQ(Words(), "2147483647\tlast\n");
}

TEST_F(AutoNumberLimit, RefusesALargerNumberGivenByHand) {
    AddWord("first");
    EXPECT_EQ(NumberOf([&] { Execute("INSERT INTO words (id, word) VALUES (2147483648, 'x');"); }),
              kOverflow);
    EXPECT_EQ(NumberOf([&] { Execute("INSERT INTO words (id) SELECT id + 2147483647 FROM words;"); }),
              kOverflow);
    EXPECT_EQ(NumberOf([&] { Execute("UPDATE words SET id = id + 2147483647;"); }), kOverflow);
    const auto words = db().OpenTable("words");
    words->AddNew();
    words->Set("id", kLast + 1);
    EXPECT_EQ(NumberOf([&] { words->Update(); }), kOverflow);
    RowWriter writer(db(), "words", {"id", "word"});
    EXPECT_EQ(NumberOf([&] { writer.Id(kLast + 1).Text("x").Insert(); }), kOverflow);
    EXPECT_EQ(NumberOf([&] { writer.Id(INT64_MAX).Text("x").Insert(); }), kOverflow);
    EXPECT_EQ(NumberOf([&] { writer.Id(INT64_MIN).Text("x").InsertOrReplace(); }), kOverflow);
    EXPECT_EQ(Words(), "1\tfirst\n");
    AddWord("second");  // 2 went to the row that was not stored
    EXPECT_EQ(Words(), "1\tfirst\n3\tsecond\n");
}

TEST_F(AutoNumberLimit, RefusesAFileWithANumberOutOfRange) {
    const std::string damaged = "The DataSet is damaged: ";
    EXPECT_EQ(OpenAfter("INSERT INTO words (id, word) VALUES (9223372036854775807, 'x')"),
              (Failure{kDamaged, damaged + "9223372036854775807 is out of range for the field 'id' of the "
                                           "table 'words'."}));
    EXPECT_EQ(OpenAfter("UPDATE words SET id = -2147483649").number, kDamaged);
    EXPECT_EQ(OpenAfter("UPDATE words SET id = 2147483647").number, 0);
}

TEST_F(AutoNumberLimit, RefusesAFileWithACounterOutOfRange) {
    AddWord("first");
    for (const char* next : {"0", "-1", "2147483649", "9223372036854775807", "'many'"}) {
        EXPECT_EQ(
            OpenAfter(std::string("INSERT OR REPLACE INTO qln_autonumber VALUES ('words', ") + next + ")")
                .number,
            kDamaged)
            << next;
        f.state.gDatabase = f.engine.CreateDatabase(f.dir.File(std::string("spare") + next + ".mdb"));
    }
    EXPECT_EQ(OpenAfter("INSERT OR REPLACE INTO qln_autonumber VALUES ('words', 2147483648)").number, 0);
    EXPECT_EQ(NumberOf([&] { AddWord("none left"); }), kOverflow);
}

}  // namespace quillon::store
