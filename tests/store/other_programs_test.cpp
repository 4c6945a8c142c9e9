// DataSets that another program has opened with SQLite's write-ahead log, and left so.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "stock_client.h"
#include "store_fixture.h"
#include "testkit/limits.h"

namespace quillon::store {
namespace {

namespace fs = std::filesystem;

class LeftByAnotherProgram : public ::testing::Test {
protected:
    LeftByAnotherProgram() {
        f.Make();
        f.lifecycle.CloseDataSet();
    }
    void LeaveInWriteAheadMode() {
        EXPECT_EQ(StockClient(path).Rows("PRAGMA journal_mode = WAL"), "wal\n");
        EXPECT_EQ(Versions(path), "\2\2");
    }
    // `copy` and its log, as after the end of a program that was killed.
    void LeaveLog(const std::string& sql) {
        StockClient client(path);
        EXPECT_EQ(client.Rows("PRAGMA journal_mode = WAL"), "wal\n");
        EXPECT_EQ(client.Rows(sql), "");
        for (const std::string ending : {"", "-wal"})
            testkit::WriteFile(copy + ending, testkit::ReadFile(path + ending));
    }
    // Those for writing and for reading that the header states: 1 without the log, 2 with it.
    static std::string Versions(const std::string& file) { return testkit::ReadFile(file).substr(18, 2); }
    static Failure Open(const std::string& file) {
        Engine engine;
        return FailureOf([&] { engine.OpenDatabase(file)->Close(); });
    }
    std::vector<std::string> FilesInFolder() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(f.dir.path()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    testkit::DataSetFixture f;
    const std::string path = f.dir.File("test.mdb"), copy = f.dir.File("copy.mdb");
};

TEST_F(LeftByAnotherProgram, ADataSetIsWithoutTheLogAfterOneOpening) {
    LeaveInWriteAheadMode();
    EXPECT_EQ(Open(path), Failure());
    EXPECT_EQ(Versions(path), "\1\1");
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"test.mdb"});
}

TEST_F(LeftByAnotherProgram, ADataSetIsRefusedPlainlyWhereItCannotBeWritten) {
    LeaveInWriteAheadMode();
    const std::string before = testkit::ReadFile(path);
    {
        const testkit::ReadOnlyFolder folder(f.dir.path());
        EXPECT_EQ(Open(path), (Failure{3027,
                                       "Another program has left a DataSet so that it cannot be opened where "
                                       "it cannot be written: '" +
                                           fs::canonical(path).string() + "'."}));
    }
    EXPECT_EQ(testkit::ReadFile(path), before);
    EXPECT_EQ(Open(path), Failure());
    const testkit::ReadOnlyFolder folder(f.dir.path());
    EXPECT_EQ(Open(path), Failure());
}

TEST_F(LeftByAnotherProgram, WhatIsOnlyInTheLogIsKept) {
    LeaveLog("INSERT INTO journal (qb_id) VALUES (7)");
    {
        Engine engine;
        EXPECT_EQ(testkit::DumpRows(*engine.OpenDatabase(copy)->CreateSnapshot("SELECT qb_id FROM journal")),
                  "7\n");
    }
    EXPECT_EQ(Versions(copy), "\1\1");
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string>{"copy.mdb", "test.mdb"}));
    EXPECT_EQ(StockClient(copy).Rows("SELECT qb_id FROM journal"), "7\n");
}

// Two indexes that stand for each other are seen by the full check alone.
TEST_F(LeftByAnotherProgram, ALogThatIsLeftMeansAFullCheck) {
    const std::string swapped =
        "CREATE TABLE pairs (a INTEGER, b INTEGER); CREATE INDEX pairs_a ON pairs (a);"
        "CREATE INDEX pairs_b ON pairs (b); INSERT INTO pairs VALUES (1, 2); PRAGMA writable_schema = ON;"
        "CREATE TEMP TABLE roots AS SELECT name, rootpage FROM sqlite_master WHERE name LIKE 'pairs_%';"
        "UPDATE sqlite_master SET rootpage = (SELECT rootpage FROM roots WHERE roots.name LIKE 'pairs_%' AND "
        "roots.name <> sqlite_master.name) WHERE name IN ('pairs_a', 'pairs_b')";
    LeaveLog(swapped);
    EXPECT_EQ(Open(path), Failure()) << "ended well, so it is looked over quickly";
    EXPECT_EQ(Open(copy), (Failure{3049, "The DataSet is damaged and cannot be read."}));
}

// The log of a DataSet that has been moved away stands where another one comes to be.
TEST_F(LeftByAnotherProgram, ALogIsNotPlayedIntoANewDataSet) {
    LeaveLog("INSERT INTO journal (qb_id) VALUES (7)");
    fs::remove(copy);
    testkit::WriteFile(copy + "-shm", "old");
    f.state.gKingdomName = "Animalia";
    f.lifecycle.MakeDataSet(copy);
    EXPECT_EQ(f.Dump("SELECT qb_id FROM journal"), "");
    f.lifecycle.CloseDataSet();
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string>{"copy.mdb", "test.mdb"}));
}

TEST_F(LeftByAnotherProgram, ALogIsNotPlayedIntoACopy) {
    LeaveLog("INSERT INTO journal (qb_id) VALUES (7)");
    fs::remove(copy);
    testkit::WriteFile(copy + "-shm", "old");
    f.Make("Animalia", "other.mdb");
    f.prompter.filesToSave = {copy};
    f.prompter.yesNo = {true};  // what the old file left is overwritten with consent only
    f.lifecycle.SaveDataSetAs();
    f.lifecycle.CloseDataSet();
    EXPECT_EQ(FilesInFolder(), (std::vector<std::string>{"copy.mdb", "other.mdb", "test.mdb"}));
    EXPECT_EQ(testkit::ReadFile(copy), testkit::ReadFile(f.dir.File("other.mdb")));
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>());
}

}  // namespace
}  // namespace quillon::store
