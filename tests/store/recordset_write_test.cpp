// What a recordset writes, over every kind of key: a counted one, a clustered one, and none; and Seek in
// tables.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

class RecordsetWrite : public StoreTest {};

TEST_F(RecordsetWrite, AddNewShowsItsNumberBeforeUpdate) {
    AddWords();
    AddWord("a");
    const auto rows = db().CreateDynaset("words");
    rows->AddNew();
    EXPECT_EQ(rows->Get("id"), Value(2));
    EXPECT_TRUE(rows->Get("word").IsNull());
    rows->Set("Word", "b");
    EXPECT_EQ(rows->Get("word"), Value("b"));
    rows->Update();
    // The current row is the one from before, and the new one stands behind the others.
    EXPECT_EQ(rows->Get("word"), Value("a"));
    rows->MoveLast();
    EXPECT_EQ(rows->Get("id"), Value(2));
    EXPECT_EQ(rows->Get("word"), Value("b"));
    EXPECT_EQ(rows->RecordCount(), 2U);
    EXPECT_EQ(Dump("SELECT id, word FROM words"), "1\ta\n2\tb\n");
}

TEST_F(RecordsetWrite, AnEmptyResultHasARowAfterAddNew) {
    AddWords();
    const auto rows = db().CreateDynaset("words");
    EXPECT_EQ(rows->RecordCount(), 0U);
    rows->AddNew();
    rows->Update();
    EXPECT_EQ(rows->RecordCount(), 1U);
    rows->MoveFirst();
    EXPECT_EQ(rows->Get("id"), Value(1));
}

TEST_F(RecordsetWrite, ADynasetSeesItsOwnUpdatesAtOnce) {
    AddWords();
    AddWord("a", "n", 1);
    AddWord("b", "m", 2);
    const auto rows = db().CreateDynaset("SELECT * FROM words ORDER BY id");
    rows->Edit();
    rows->Set("word", "z");
    rows->Set("note", Value());
    EXPECT_EQ(Dump("SELECT word FROM words WHERE id = 1"), "a\n");
    rows->Update();
    EXPECT_EQ(rows->Get("word"), Value("z"));
    EXPECT_TRUE(rows->Get("note").IsNull());
    rows->MoveNext();
    rows->MovePrevious();
    EXPECT_EQ(rows->Get("word"), Value("z"));
    EXPECT_EQ(Dump("SELECT word, note, size FROM words WHERE id = 1"), "z\t\\N\t1\n");
}

TEST_F(RecordsetWrite, DeleteTakesTheRowOutOfTheResult) {
    AddWords();
    for (const char* word : {"a", "b", "c"}) AddWord(word);
    const auto rows = db().CreateDynaset("SELECT * FROM words ORDER BY id");
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(NumberOf([&] { rows->Get("word"); }), 3021);
    EXPECT_EQ(NumberOf([&] { rows->Delete(); }), 3021);
    rows->MoveNext();
    EXPECT_EQ(rows->Get("word"), Value("c"));
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    rows->MovePrevious();
    EXPECT_EQ(rows->Get("word"), Value("a"));
    rows->MoveLast();
    EXPECT_EQ(rows->RecordCount(), 2U);
    rows->FindFirst("word = 'b'");
    EXPECT_TRUE(rows->NoMatch());
    EXPECT_EQ(Dump("SELECT word FROM words"), "a\nc\n");
}

TEST_F(RecordsetWrite, DeletingEveryRowLeavesAnEmptyResult) {
    AddWords();
    AddWord("a");
    AddWord("b");
    const auto rows = db().CreateDynaset("words");
    for (; !rows->Eof(); rows->MoveNext()) rows->Delete();
    rows->MoveLast();
    EXPECT_EQ(rows->RecordCount(), 0U);
    EXPECT_EQ(Dump("SELECT count(*) FROM words"), "0\n");
}

TEST_F(RecordsetWrite, ADeletedRowIsNeitherChangedNorDeleted) {
    AddWords();
    AddWord("a");
    const auto rows = db().CreateDynaset("words");
    Execute("DELETE * FROM words");
    rows->Edit();
    rows->Set("word", "b");
    EXPECT_EQ(FailureOf([&] { rows->Update(); }), (Failure{3167, "The record has been deleted."}));
    EXPECT_EQ(NumberOf([&] { rows->Delete(); }), 3167);
}

TEST_F(RecordsetWrite, MovingOrCancellingDropsWhatIsPending) {
    AddWords();
    AddWord("a");
    AddWord("b");
    const auto rows = db().CreateDynaset("words");
    rows->Edit();
    rows->Set("word", "x");
    rows->MoveNext();
    EXPECT_EQ(FailureOf([&] { rows->Update(); }), (Failure{3020, "Update comes after AddNew or Edit."}));
    rows->AddNew();
    rows->Set("word", "y");
    rows->CancelUpdate();
    EXPECT_EQ(NumberOf([&] { rows->Set("word", "z"); }), 3020);
    EXPECT_EQ(rows->Get("word"), Value("b"));
    EXPECT_EQ(Dump("SELECT word FROM words"), "a\nb\n");
}

TEST_F(RecordsetWrite, WhatComesFromMoreThanOneTableIsReadOnly) {
    for (const char* sql :
         {"SELECT DISTINCT unit_name1 FROM qb_taxonomic_units", "SELECT count(*) FROM qb_taxonomic_units",
          "SELECT qb_id FROM qb_taxonomic_units UNION SELECT qb_id FROM journal", "Get Data",
          "SELECT t.qb_id FROM qb_taxonomic_units AS t, kingdoms AS k"}) {
        const auto rows = db().CreateDynaset(sql);
        EXPECT_EQ(FailureOf([&] { rows->Edit(); }), (Failure{3027, "Can't update. The result is read-only."}))
            << sql;
        EXPECT_EQ(NumberOf([&] { rows->AddNew(); }), 3027) << sql;
        EXPECT_EQ(NumberOf([&] { rows->Delete(); }), 3027) << sql;
    }
    EXPECT_EQ(NumberOf([&] { db().CreateSnapshot("qb_taxonomic_units")->Edit(); }), 3027);
}

TEST_F(RecordsetWrite, ACalculatedColumnIsNotWritten) {
    const auto rows =
        db().CreateDynaset("SELECT qb_id, usage, unit_name1 & '!' AS shout FROM qb_taxonomic_units");
    rows->Edit();
    rows->Set("usage", "invalid");
    rows->Update();
    EXPECT_EQ(Dump("SELECT usage FROM qb_taxonomic_units"), "invalid\n");
    rows->Edit();
    rows->Set("shout", "no");
    EXPECT_EQ(NumberOf([&] { rows->Update(); }), 3027);
}

TEST_F(RecordsetWrite, RowsOfAClusteredKeyAreWrittenAndTheKeyItselfChanged) {
    const auto rows = db().CreateDynaset("qb_geographic_division");
    for (const char* value : {"Africa", "Asia", "Europe"}) {
        rows->AddNew();
        rows->Set("qb_id", 1);
        rows->Set("geographic_value", value);
        rows->Update();
    }
    rows->MoveFirst();
    rows->Edit();
    rows->Set("geographic_value", "Oceania");
    rows->Update();
    rows->Edit();
    rows->Set("tsn", 7);
    rows->Update();
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "1\tEurope\t\\N\n1\tOceania\t7\n");
}

TEST_F(RecordsetWrite, TheCaseAloneOfAKeyMayChange) {
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (1, 'AFRICA')");
    const auto rows = db().CreateDynaset("qb_geographic_division");
    rows->Edit();
    rows->Set("geographic_value", "Africa ");
    rows->Update();
    EXPECT_EQ(Dump("SELECT * FROM qb_geographic_division"), "1\tAfrica \t\\N\n");
}

TEST_F(RecordsetWrite, RowsOfATableWithoutAKeyAreDistinguished) {
    const auto rows = db().CreateDynaset("db_tombstone");
    for (int i = 0; i < 3; ++i) {
        rows->AddNew();
        rows->Set("table_name", "t");
        rows->Set("pk1", "1");
        rows->Update();
    }
    rows->MoveFirst();
    rows->MoveNext();
    rows->Edit();
    rows->Set("pk2", "second");
    rows->Update();
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(Dump("SELECT table_name, pk1, pk2 FROM db_tombstone"), "t\t1\t\\N\nt\t1\tsecond\n");
}

TEST_F(RecordsetWrite, AFailedUpdateLeavesTheRowAndTheResultAsTheyWere) {
    AddWords();
    AddWord("a");
    const auto rows = db().CreateDynaset("words");
    rows->Edit();
    rows->Set("note", "toolong");
    EXPECT_EQ(NumberOf([&] { rows->Update(); }), 3163);
    EXPECT_TRUE(rows->Get("note").IsNull());
    rows->AddNew();
    rows->Set("id", 1);
    EXPECT_EQ(NumberOf([&] { rows->Update(); }), 3022);
    rows->MoveLast();
    EXPECT_EQ(rows->RecordCount(), 1U);
    EXPECT_EQ(Dump("SELECT id, word, note FROM words"), "1\ta\t\\N\n");
}

// kingdoms 1, 3, 5 after the seeding of 5.
class TableSeek : public StoreTest {
protected:
    TableSeek() {
        Execute("INSERT INTO kingdoms (kingdom_id, kingdom_name) VALUES (1, 'Monera')");
        Execute("INSERT INTO kingdoms (kingdom_id, kingdom_name) VALUES (3, 'Plantae')");
    }
    static std::string Sought(Recordset& table, const char* comparison, const std::vector<Value>& key,
                              const char* column) {
        table.Seek(comparison, key);
        return table.NoMatch() ? "none" : table.Get(column).AsText();
    }
};

TEST_F(TableSeek, FindsByEveryComparison) {
    const auto table = db().OpenTable("kingdoms");
    const auto seek = [&](const char* comparison, int key) {
        return Sought(*table, comparison, {key}, "kingdom_id");
    };
    EXPECT_EQ(seek("=", 3), "3");
    EXPECT_EQ(seek("=", 2), "none");
    EXPECT_EQ(seek(">=", 3), "3");
    EXPECT_EQ(seek(">=", 4), "5");
    EXPECT_EQ(seek(">=", 6), "none");
    EXPECT_EQ(seek(">", 3), "5");
    EXPECT_EQ(seek(">", 5), "none");
    EXPECT_EQ(seek("<=", 3), "3");
    EXPECT_EQ(seek("<=", 2), "1");
    EXPECT_EQ(seek("<=", 0), "none");
    EXPECT_EQ(seek("<", 3), "1");
    EXPECT_EQ(seek("<", 1), "none");
    EXPECT_EQ(NumberOf([&] { seek("<>", 1); }), 3075);
    EXPECT_EQ(NumberOf([&] { table->Seek("=", {1, 2}); }), 3251);
}

TEST_F(TableSeek, ThePositionStaysWithoutAMatch) {
    const auto table = db().OpenTable("kingdoms");
    table->Seek("=", {3});
    table->Seek("=", {99});
    EXPECT_TRUE(table->NoMatch());
    EXPECT_EQ(table->Get("kingdom_id"), Value(3));
}

TEST_F(TableSeek, UsesTheChosenIndex) {
    AddWords();
    AddWord("a", {}, 20);
    AddWord("b", {}, 10);
    AddWord("c", {}, 20);
    AddWord("d");
    const auto table = db().OpenTable("words");
    table->SetIndex("SIZE");
    std::string order;
    for (; !table->Eof(); table->MoveNext()) order += table->Get("word").AsText();
    EXPECT_EQ(order.substr(0, 2), "db");  // Null first
    EXPECT_EQ(Sought(*table, "=", {20}, "word"), "a");
    EXPECT_EQ(Sought(*table, "<", {20}, "word"), "b");
    EXPECT_EQ(Sought(*table, "=", {15}, "word"), "none");
    EXPECT_EQ(FailureOf([&] { table->SetIndex("nothing"); }),
              (Failure{3015, "'nothing' is no index of this table."}));
    EXPECT_EQ(NumberOf([&] { db().CreateDynaset("words")->SetIndex("size"); }), 3251);
    EXPECT_EQ(NumberOf([&] { db().CreateDynaset("words")->Seek("=", {1}); }), 3251);
    EXPECT_EQ(NumberOf([&] { db().OpenTable("db_delta")->Seek("=", {1}); }), 3251);
}

TEST_F(TableSeek, ComparesTextsByTheCollationAndTakesAPartOfAKey) {
    for (const char* value : {"Africa", "Asia", "Éthiopie", "Europe"})
        db().CreateQueryDef("",
                            "PARAMETERS v Text; INSERT INTO qb_geographic_division (qb_id, geographic_value) "
                            "VALUES (1, v)")
            .Set("v", value)
            .Execute();
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (2, 'Asia')");
    const auto table = db().OpenTable("qb_geographic_division");
    EXPECT_EQ(Sought(*table, "=", {1, "asia  "}, "geographic_value"), "Asia");
    EXPECT_EQ(Sought(*table, "=", {1, "Ethiopie"}, "geographic_value"), "none");
    EXPECT_EQ(Sought(*table, "=", {1, "éTHIOPIE"}, "geographic_value"), "Éthiopie");
    EXPECT_EQ(Sought(*table, ">", {1, "asia"}, "geographic_value"), "Éthiopie");
    EXPECT_EQ(Sought(*table, "=", {2}, "geographic_value"), "Asia");
    EXPECT_EQ(Sought(*table, ">", {1}, "qb_id"), "2");
}

TEST_F(TableSeek, FindsWhatWasWrittenThroughTheTableItself) {
    const auto table = db().OpenTable("kingdoms");
    table->AddNew();
    table->Set("kingdom_id", 2);
    table->Set("kingdom_name", "Protozoa");
    table->Update();
    EXPECT_EQ(Sought(*table, "=", {2}, "kingdom_name"), "Protozoa");
    EXPECT_EQ(Sought(*table, "=", {5}, "kingdom_name"), "Animalia");
    EXPECT_EQ(Sought(*table, "<", {3}, "kingdom_name"), "Protozoa");
    EXPECT_EQ(Sought(*table, ">", {5}, "kingdom_id"), "none");
    table->Seek("=", {3});
    table->Edit();
    table->Set("kingdom_id", 9);
    table->Update();
    EXPECT_EQ(Sought(*table, "=", {9}, "kingdom_name"), "Plantae");
    EXPECT_EQ(Sought(*table, "=", {3}, "kingdom_name"), "none");
    table->Seek("=", {1});
    table->Delete();
    EXPECT_EQ(Sought(*table, "=", {1}, "kingdom_name"), "none");
    EXPECT_EQ(Sought(*table, ">=", {0}, "kingdom_name"), "Protozoa");
}

TEST_F(TableSeek, PassesOverADeletedRowToItsEqual) {
    AddWords();
    AddWord("a", {}, 20);
    AddWord("b", {}, 20);
    const auto table = db().OpenTable("words");
    table->SetIndex("size");
    table->Seek("=", {20});
    table->Delete();
    EXPECT_EQ(Sought(*table, "=", {20}, "word"), "b");
    EXPECT_EQ(Sought(*table, "<=", {20}, "word"), "b");
}

}  // namespace
}  // namespace quillon::store
