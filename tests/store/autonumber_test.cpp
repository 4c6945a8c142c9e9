// Numbers that the engine gives: from 1 on, each once, whatever becomes of the row.
#include <gtest/gtest.h>

#include "store/bulk.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

class AutoNumbers : public StoreTest {
protected:
    std::int64_t AddVernacular(const Value& given = {}) {
        const auto rows = db().OpenTable("qb_vernaculars");
        rows->AddNew();
        if (!given.IsNull()) rows->Set("qb_vern_id", given);
        const std::int64_t number = rows->Get("qb_vern_id").AsLong();
        rows->Update();
        return number;
    }
    std::string Vernaculars() { return Dump("SELECT qb_vern_id FROM qb_vernaculars"); }
};

TEST_F(AutoNumbers, CountFromOne) {
    EXPECT_EQ(AddVernacular(), 1);
    EXPECT_EQ(AddVernacular(), 2);
    Run("Insert Vern Dummy", {{"name", "x"}});
    EXPECT_EQ(Dump("SELECT qb_vern_id, vernacular_name FROM qb_vernaculars"), "1\t\\N\n2\t\\N\n3\tx\n");
}

// The number is a key of its own here, and the program gives it, or leaves it to the engine.
TEST_F(AutoNumbers, OfAVernacularAreGivenByHandOrByTheEngine) {
    const auto insert = [&](const Value& number) {
        Run("Insert Vernacular",
            {{"qbid", 1}, {"vername", "bear"}, {"approved", "No"}, {"qbvernid", number}});
    };
    insert(Value());
    insert(7);
    insert(Value());
    insert(3);
    insert(Value());
    EXPECT_EQ(Vernaculars(), "1\n3\n7\n8\n9\n");
    EXPECT_EQ(NumberOf([&] { insert(7); }), 3022);
}

// Only half of the key: the same number stands under several change tracks, and 1 to 6 are given by hand.
TEST_F(AutoNumbers, OfAChangeOperationAreGivenByHand) {
    const auto rows = db().OpenTable("qb_change_operations");
    for (const int track : {1, 2}) {
        for (const int operation : {3, 6}) {
            rows->AddNew();
            EXPECT_FALSE(rows->Get("chg_op_id").IsNull());
            rows->Set("qb_change_track_id", track);
            rows->Set("chg_op_id", operation);
            rows->Update();
        }
    }
    Execute("INSERT INTO qb_change_operations (qb_change_track_id, chg_op_id) VALUES (3, 1)");
    RowWriter(db(), "qb_change_operations", {"qb_change_track_id", "chg_op_id"}).Id(3).Id(2).Insert();
    EXPECT_EQ(Dump("SELECT qb_change_track_id, chg_op_id FROM qb_change_operations"),
              "1\t3\n1\t6\n2\t3\n2\t6\n3\t1\n3\t2\n");
    rows->AddNew();
    rows->Set("qb_change_track_id", 1);
    rows->Set("chg_op_id", 6);
    EXPECT_EQ(NumberOf([&] { rows->Update(); }), 3022);
}

TEST_F(AutoNumbers, OfAChangeOperationComeFromTheEngineWhereNoneIsGiven) {
    Execute("INSERT INTO qb_change_operations (qb_change_track_id, chg_op_id) VALUES (1, 6)");
    Execute("INSERT INTO qb_change_operations (qb_change_track_id) VALUES (1)");
    Execute("INSERT INTO qb_change_operations (qb_change_track_id) VALUES (2)");
    EXPECT_EQ(Dump("SELECT qb_change_track_id, chg_op_id FROM qb_change_operations"), "1\t6\n1\t7\n2\t8\n");
}

TEST_F(AutoNumbers, OfAHalfKeyGoOnAcrossTheOtherHalf) {
    Run("Insert Exp Dummy", {{"exp", "a"}});
    Run("Insert Exp Dummy", {{"exp", "b"}});
    Execute("INSERT INTO qb_experts (expert_id_prefix, expert) VALUES ('XXX', 'c')");
    EXPECT_EQ(Dump("SELECT expert_id_prefix, qb_expert_id FROM qb_experts"), "EXP\t1\nEXP\t2\nXXX\t3\n");
}

TEST_F(AutoNumbers, ADeletedTopNumberIsNotGivenAgain) {
    AddVernacular();
    AddVernacular();
    Execute("DELETE * FROM qb_vernaculars WHERE qb_vern_id = 2");
    EXPECT_EQ(AddVernacular(), 3);
    const auto rows = db().CreateDynaset("SELECT * FROM qb_vernaculars WHERE qb_vern_id = 3");
    rows->Delete();
    EXPECT_EQ(AddVernacular(), 4);
    Run("Delete Vernacular", {{"qbvernid", 4}});
    EXPECT_EQ(AddVernacular(), 5);
    EXPECT_EQ(Vernaculars(), "1\n5\n");
}

TEST_F(AutoNumbers, ADeletedTopNumberIsNotGivenAgainAfterReopening) {
    AddVernacular();
    AddVernacular();
    Run("Insert Exp Dummy", {{"exp", "a"}});
    Reopen();
    // Nothing was counted in this session before the deletion.
    Execute("DELETE * FROM qb_vernaculars");
    Execute("DELETE * FROM qb_experts");
    Reopen();
    EXPECT_EQ(AddVernacular(), 3);
    Run("Insert Exp Dummy", {{"exp", "b"}});
    EXPECT_EQ(Dump("SELECT qb_expert_id FROM qb_experts"), "2\n");
    Reopen();
    EXPECT_EQ(AddVernacular(), 4);
}

TEST_F(AutoNumbers, ANumberShownAndNotStoredIsUsedUp) {
    const auto rows = db().OpenTable("qb_vernaculars");
    rows->AddNew();
    EXPECT_EQ(rows->Get("qb_vern_id"), Value(1));
    rows->CancelUpdate();
    rows->AddNew();
    EXPECT_EQ(rows->Get("qb_vern_id"), Value(2));
    rows->Update();
    EXPECT_EQ(Vernaculars(), "2\n");
}

TEST_F(AutoNumbers, AreNotGivenAgainAfterARollback) {
    AddVernacular();
    f.engine.BeginTrans();
    EXPECT_EQ(AddVernacular(), 2);
    f.engine.Rollback();
    EXPECT_EQ(AddVernacular(), 3);
    EXPECT_EQ(Vernaculars(), "1\n3\n");
}

TEST_F(AutoNumbers, OfRowsWhoseDeletionWasRolledBackAndRepeatedAreNotGivenAgain) {
    AddVernacular();
    AddVernacular();
    f.engine.BeginTrans();
    Execute("DELETE * FROM qb_vernaculars WHERE qb_vern_id = 2");
    f.engine.Rollback();
    EXPECT_EQ(Vernaculars(), "1\n2\n");
    Execute("DELETE * FROM qb_vernaculars WHERE qb_vern_id = 2");
    Reopen();
    EXPECT_EQ(AddVernacular(), 3);
}

TEST_F(AutoNumbers, AreGivenThroughAResultThatDoesNotShowThem) {
    const auto rows = db().CreateDynaset("SELECT vernacular_name FROM qb_vernaculars");
    for (const char* name : {"a", "b"}) {
        rows->AddNew();
        rows->Set("vernacular_name", name);
        rows->Update();
    }
    rows->MoveLast();
    rows->Edit();
    rows->Set("vernacular_name", "changed");
    rows->Update();
    EXPECT_EQ(AddVernacular(), 3);
    const auto experts = db().CreateDynaset("SELECT expert_id_prefix, expert FROM qb_experts");
    experts->AddNew();
    experts->Set("expert_id_prefix", "EXP");
    experts->Update();
    EXPECT_EQ(Dump("SELECT expert_id_prefix, qb_expert_id FROM qb_experts"), "EXP\t1\n");
    EXPECT_EQ(Dump("SELECT qb_vern_id, vernacular_name FROM qb_vernaculars"), "1\ta\n2\tchanged\n3\t\\N\n");
}

TEST_F(AutoNumbers, SetBackToNullAreGivenByTheEngine) {
    const auto rows = db().OpenTable("qb_vernaculars");
    rows->AddNew();
    rows->Set("qb_vern_id", Value());
    rows->Update();
    rows->MoveLast();
    EXPECT_EQ(rows->Get("qb_vern_id"), Value(2));
    EXPECT_EQ(AddVernacular(), 3);
}

TEST_F(AutoNumbers, AreReservedAheadAndFollowThoseOfTheBulkWriter) {
    BulkLoad load(f.engine, db(), true);
    EXPECT_EQ(load.ReserveAutoNumber("qb_vernaculars"), 1);
    RowWriter writer(db(), "qb_vernaculars", {"vernacular_name", "qb_vern_id"});
    writer.Text("a").Id(1).Insert();
    writer.Text("b").Id(50).Insert();
    writer.Text("c").Id(20).Insert();
    EXPECT_EQ(load.ReserveAutoNumber("qb_vernaculars"), 51);
    load.Finish();
    EXPECT_EQ(AddVernacular(), 52);
    Reopen();
    EXPECT_EQ(AddVernacular(), 53);
}

TEST_F(AutoNumbers, ThatARowIsChangedToAreNotGivenAgain) {
    for (int i = 1; i <= 3; ++i) AddVernacular();
    Execute("UPDATE qb_vernaculars SET qb_vern_id = 5 WHERE qb_vern_id = 3");
    EXPECT_EQ(AddVernacular(), 6);
    const auto rows = db().CreateDynaset("SELECT * FROM qb_vernaculars WHERE qb_vern_id = 6");
    rows->Edit();
    rows->Set("qb_vern_id", 8);
    rows->Update();
    EXPECT_EQ(AddVernacular(), 9);
    EXPECT_EQ(Vernaculars(), "1\n2\n5\n8\n9\n");
}

TEST_F(AutoNumbers, SurviveAChangeOfTheirTable) {
    AddVernacular();
    const auto rows = db().OpenTable("qb_vernaculars");
    rows->AddNew();  // 2 is shown and not yet stored
    Execute("ALTER TABLE qb_comments ADD COLUMN extra LONG");
    EXPECT_EQ(AddVernacular(), 3);
    rows->Update();
    EXPECT_EQ(Vernaculars(), "1\n2\n3\n");
}

TEST_F(AutoNumbers, OfANewTableCountFromOneAgain) {
    AddWords();
    AddWord("a");
    AddWord("b");
    Reopen();
    db().DeleteTable("words");
    AddWords();
    AddWord("c");
    EXPECT_EQ(Dump("SELECT id FROM words"), "1\n");
}

TEST_F(AutoNumbers, OfACopiedRowAreNew) {
    AddVernacular();
    Execute("INSERT INTO qb_vernaculars (vernacular_name) SELECT 'copy' FROM qb_vernaculars");
    Execute("INSERT INTO qb_vernaculars (vernacular_name) SELECT 'copy' FROM qb_vernaculars");
    EXPECT_EQ(Vernaculars(), "1\n2\n3\n4\n");
}

}  // namespace
}  // namespace quillon::store
