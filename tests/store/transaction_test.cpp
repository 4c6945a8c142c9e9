// One level of transaction over every open DataSet, and the jobs that gather units into durable commits.
#include <gtest/gtest.h>

#include "store/lifecycle/create.h"
#include "store/map_function.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

class Transactions : public StoreTest {
protected:
    Transactions() {
        const std::string path = f.dir.File("other.mdb");
        MakeDataSetFile(f.engine, path, "Animalia", "4.0.6");
        other = f.engine.OpenDatabase(path);
    }
    Engine& engine() { return f.engine; }
    static void Add(Database& database, int id) {
        database.Execute("INSERT INTO journal (qb_id) VALUES (" + std::to_string(id) + ")");
    }
    static std::string Journal(Database& database) {
        return testkit::DumpRows(*database.CreateSnapshot("SELECT qb_id FROM journal"));
    }
    // What the file holds for someone who opens it as it is now.
    std::string InTheFile(Database& database) {
        const std::string copy = f.dir.File("copy.mdb");
        testkit::WriteFile(copy, testkit::ReadFile(database.Name()));
        const std::string journal = database.Name() + "-journal";
        testkit::WriteFile(copy + "-journal", testkit::ReadFile(journal));
        Engine reader;
        return Journal(*reader.OpenDatabase(copy));
    }

    DatabaseHandle other;
};

TEST_F(Transactions, WithoutOneEachStatementIsStoredAtOnce) {
    Add(db(), 1);
    EXPECT_EQ(InTheFile(db()), "1\n");
}

TEST_F(Transactions, ARollbackUndoesAllOfAllOpenDataSets) {
    Add(db(), 1);
    Add(*other, 1);
    engine().BeginTrans();
    EXPECT_TRUE(engine().InTransaction());
    Add(db(), 2);
    Add(*other, 3);
    Execute("DELETE * FROM journal WHERE qb_id = 1");
    Execute("UPDATE qb_taxonomic_units SET usage = 'invalid'");
    EXPECT_EQ(Journal(db()), "2\n");
    EXPECT_EQ(InTheFile(db()), "1\n");
    engine().Rollback();
    EXPECT_FALSE(engine().InTransaction());
    EXPECT_EQ(Journal(db()), "1\n");
    EXPECT_EQ(Journal(*other), "1\n");
    EXPECT_EQ(Dump("SELECT usage FROM qb_taxonomic_units"), "valid\n");
}

TEST_F(Transactions, ACommitStoresAllOfAllOpenDataSets) {
    engine().BeginTrans();
    Add(db(), 2);
    Add(*other, 3);
    engine().CommitTrans();
    EXPECT_EQ(InTheFile(db()), "2\n");
    EXPECT_EQ(InTheFile(*other), "3\n");
}

TEST_F(Transactions, EveryHandleOfAFileTakesPart) {
    const DatabaseHandle second = engine().OpenDatabase(f.dir.File("test.mdb"));
    engine().BeginTrans();
    Add(db(), 1);
    Add(*second, 2);
    engine().Rollback();
    EXPECT_EQ(Journal(db()), "");
    EXPECT_EQ(Journal(*second), "");
}

TEST_F(Transactions, DoNotNestAndDoNotEndWithoutABeginning) {
    EXPECT_EQ(FailureOf([&] { engine().CommitTrans(); }),
              (Failure{3034, "There is no transaction to commit."}));
    EXPECT_EQ(FailureOf([&] { engine().Rollback(); }),
              (Failure{3034, "There is no transaction to roll back."}));
    engine().BeginTrans();
    Add(db(), 1);
    EXPECT_EQ(FailureOf([&] { engine().BeginTrans(); }), (Failure{3034, "A transaction is open already."}));
    engine().Rollback();
    EXPECT_EQ(Journal(db()), "");
    EXPECT_EQ(NumberOf([&] { engine().Rollback(); }), 3034);
}

TEST_F(Transactions, AFailedStatementLeavesTheOthersOfItsTransaction) {
    engine().BeginTrans();
    Add(db(), 1);
    EXPECT_EQ(NumberOf([&] { Add(db(), 1); }), 3022);
    Add(db(), 2);
    engine().CommitTrans();
    EXPECT_EQ(Journal(db()), "1\n2\n");
}

TEST_F(Transactions, RecordsetWritesTakePart) {
    engine().BeginTrans();
    const auto rows = db().CreateDynaset("qb_taxonomic_units");
    rows->Edit();
    rows->Set("usage", "invalid");
    rows->Update();
    rows->AddNew();
    rows->Update();
    engine().Rollback();
    EXPECT_EQ(Dump("SELECT qb_id, usage FROM qb_taxonomic_units"), "1\tvalid\n");
}

TEST_F(Transactions, AnOpenResultKeepsItsRowsThroughARollback) {
    for (int i = 1; i <= 3; ++i) Add(db(), i);
    engine().BeginTrans();
    Execute("DELETE * FROM journal WHERE qb_id = 2");
    const auto rows = db().CreateSnapshot("SELECT qb_id FROM journal");
    engine().Rollback();
    EXPECT_EQ(testkit::DumpRows(*rows), "1\n3\n");
    rows->Requery();
    EXPECT_EQ(testkit::DumpRows(*rows), "1\n2\n3\n");
}

TEST_F(Transactions, TablesAndQueriesAreUndoneToo) {
    engine().BeginTrans();
    AddWords();
    AddWord("a");
    db().CreateQueryDef("mine", "SELECT word FROM words");
    db().DeleteQueryDef("Get Data");
    db().OpenQueryDef("Get All Taxons").SetSQL("SELECT 1");
    Execute("ALTER TABLE qb_comments ADD COLUMN extra LONG");
    db().DeleteTable("db_delta");
    engine().Rollback();
    EXPECT_EQ(db().FindTableDef("words"), nullptr);
    EXPECT_EQ(NumberOf([&] { db().OpenQueryDef("mine"); }), 3265);
    EXPECT_EQ(db().OpenQueryDef("Get Data").IsSelect(), true);
    EXPECT_EQ(db().OpenQueryDef("Get All Taxons").SQL(), "SELECT * FROM qb_taxonomic_units;");
    EXPECT_EQ(db().FindTableDef("qb_comments")->Field("extra"), nullptr);
    EXPECT_EQ(Dump("SELECT count(*) FROM db_delta"), "0\n");
    EXPECT_EQ(db().QueryDefs().size(), 146U);
    EXPECT_EQ(db().TableDefs().size(), 25U);
    AddWords();
    AddWord("b");
    EXPECT_EQ(Dump("SELECT id, word FROM words"), "1\tb\n");
}

TEST_F(Transactions, ClosingRollsBackWhatIsNotCommitted) {
    engine().BeginTrans();
    Add(*other, 1);
    Add(db(), 1);
    other->Close();
    engine().CommitTrans();
    EXPECT_EQ(Journal(*engine().OpenDatabase(f.dir.File("other.mdb"))), "");
    EXPECT_EQ(Journal(db()), "1\n");
}

TEST_F(Transactions, OfAJobKeepTheirUnitsApart) {
    Job job(engine());
    Add(db(), 1);
    engine().BeginTrans();
    Add(db(), 2);
    Add(*other, 2);
    engine().Rollback();
    engine().BeginTrans();
    Add(db(), 3);
    Add(*other, 3);
    engine().CommitTrans();
    EXPECT_EQ(Journal(db()), "1\n3\n");
    EXPECT_EQ(Journal(*other), "3\n");
    EXPECT_TRUE(engine().IsJobRunning());
    job.End();
    EXPECT_FALSE(engine().IsJobRunning());
    EXPECT_EQ(InTheFile(db()), "1\n3\n");
    EXPECT_EQ(InTheFile(*other), "3\n");
}

TEST_F(Transactions, OfAJobThatEndsBeforeThemAreDecidedByTheirOwnEnd) {
    engine().BeginJob();
    Add(db(), 1);
    engine().BeginTrans();
    Add(db(), 2);
    engine().EndJob();
    EXPECT_EQ(InTheFile(db()), "");
    engine().Rollback();
    EXPECT_EQ(InTheFile(db()), "1\n");

    engine().BeginJob();
    engine().BeginTrans();
    Add(db(), 3);
    engine().EndJob();
    engine().CommitTrans();
    EXPECT_EQ(InTheFile(db()), "1\n3\n");
}

TEST_F(Transactions, OfAJobUndoTablesToo) {
    const Job job(engine());
    AddWords();
    engine().BeginTrans();
    db().DeleteTable("words");
    engine().Rollback();
    AddWord("a");
    EXPECT_EQ(Dump("SELECT id FROM words"), "1\n");
}

TEST_F(Transactions, AJobThatGoesOutOfScopeIsDurable) {
    {
        const Job job(engine());
        for (int i = 1; i <= 500; ++i) Add(db(), i);
    }
    EXPECT_EQ(InTheFile(db()), Journal(db()));
    EXPECT_EQ(Dump("SELECT count(*), max(qb_id) FROM journal"), "500\t500\n");
}

TEST_F(Transactions, ANativeStatementIsAUnitAndUsesTheMap) {
    for (int i = 1; i <= 3; ++i) Add(db(), i);
    const auto before = db().CreateSnapshot("SELECT qb_id FROM journal");
    RegisterMapFunction(db(), "moved", [](std::int64_t id) -> std::optional<std::int64_t> {
        if (id == 2) return std::nullopt;
        return id + 100;
    });
    EXPECT_EQ(ExecuteNative(db(), "UPDATE journal SET qb_id = moved(qb_id) WHERE moved(qb_id) IS NOT NULL"),
              2);
    EXPECT_EQ(Journal(db()), "2\n101\n103\n");
    EXPECT_EQ(testkit::DumpRows(*before), "1\n2\n3\n");
    engine().BeginTrans();
    ExecuteNative(db(), "DELETE FROM journal");
    engine().Rollback();
    EXPECT_EQ(Journal(db()), "2\n101\n103\n");
}

}  // namespace
}  // namespace quillon::store
