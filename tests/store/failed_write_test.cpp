// What the store does when the disk refuses a write: the error is reported, nothing of the unit stays, and
// what the file held before is there when it is opened again.
#include <sqlite3.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "store/bulk.h"
#include "store/engine/connection.h"
#include "store/lifecycle/create.h"
#include "store_fixture.h"
#include "testkit/limits.h"

namespace quillon::store {

namespace {

// While it lives no file of this process can grow over `bytes`.
class NoLargerFiles {
public:
    explicit NoLargerFiles(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~NoLargerFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    NoLargerFiles(const NoLargerFiles&) = delete;
    NoLargerFiles& operator=(const NoLargerFiles&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

constexpr int kDiskError = 3043;

}  // namespace

class FailedWriteTest : public StoreTest {
protected:
    FailedWriteTest() {
        AddWords();
        AddWord("before");
    }
    std::string Path() const { return f.dir.File("test.mdb"); }
    // SQLite writes to the file before the commit only when its memory is full.
    void LeaveLittleMemory() { Native("PRAGMA cache_size = 10; PRAGMA cache_spill = 10"); }
    void Native(const char* sql) {
        ASSERT_EQ(sqlite3_exec(db().Shared()->Native(), sql, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    int AddComments(int count) {
        return NumberOf([&] {
            for (int i = 0; i < count; ++i) {
                const auto comments = db().OpenTable("qb_comments");
                comments->AddNew();
                comments->Set("comment_detail", std::string(3000, 'x'));
                comments->Update();
            }
        });
    }
    std::string Comments() { return Dump("SELECT count(*) FROM qb_comments;"); }
};

TEST_F(FailedWriteTest, ACommitThatTheDiskRefusesStoresNothing) {
    {
        const NoLargerFiles limit(std::filesystem::file_size(Path()));
        f.engine.BeginTrans();
        EXPECT_EQ(AddComments(100), 0);
        EXPECT_EQ(NumberOf([&] { f.engine.CommitTrans(); }), kDiskError);
    }
    EXPECT_EQ(Comments(), "0\n");
    AddWord("after");
    Reopen();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
    EXPECT_EQ(Comments(), "0\n");
}

TEST_F(FailedWriteTest, AfterAFailureWithinAUnitNothingMoreOfItIsStored) {
    LeaveLittleMemory();
    {
        const NoLargerFiles limit(std::filesystem::file_size(Path()));
        f.engine.BeginTrans();
        AddWord("within");
        EXPECT_EQ(AddComments(400), kDiskError);
    }
    EXPECT_EQ(NumberOf([&] { AddWord("later"); }), kDiskError);
    EXPECT_EQ(NumberOf([&] { f.engine.CommitTrans(); }), kDiskError);
    AddWord("after");
    Reopen();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
    EXPECT_EQ(Comments(), "0\n");
}

TEST_F(FailedWriteTest, AUnitThatTheDiskHasUndoneCanBeRolledBack) {
    LeaveLittleMemory();
    {
        const NoLargerFiles limit(std::filesystem::file_size(Path()));
        f.engine.BeginTrans();
        EXPECT_EQ(AddComments(400), kDiskError);
    }
    EXPECT_EQ(NumberOf([&] { f.engine.Rollback(); }), 0);
    f.engine.BeginTrans();
    AddWord("after");
    f.engine.CommitTrans();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
}

TEST_F(FailedWriteTest, AnImportThatCannotBeginLeavesNoJobBehind) {
    {
        const NoLargerFiles limit(0);
        LeaveLittleMemory();
        EXPECT_EQ(NumberOf([&] { const BulkLoad load(f.engine, db(), true); }), kDiskError);
    }
    EXPECT_FALSE(f.engine.IsJobRunning());
    AddWord("after");
    Reopen();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
}

TEST_F(FailedWriteTest, ADeferredIndexThatExistsAlreadyDoesNoHarm) {
    Native(
        "INSERT INTO qln_waiting_indexes (name) VALUES ('qb_taxonomic_units~parent'), "
        "('qb_comments.PrimaryKey')");
    Reopen();
    int waiting = -1;
    sqlite3_exec(
        db().Shared()->Native(), "SELECT count(*) FROM qln_waiting_indexes",
        [](void* count, int, char** texts, char**) {
            *static_cast<int*>(count) = std::stoi(texts[0]);
            return 0;
        },
        &waiting, nullptr);
    EXPECT_EQ(waiting, 0);
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE parent_qb_id = 1;"), "1\n");
}

// One failure ends the job: the writes after it fail at once, and so does the end of the job.
TEST_F(FailedWriteTest, AJobWhoseCommitFailsWritesNoMore) {
    LeaveLittleMemory();
    std::vector<int> failures;
    {
        const NoLargerFiles limit(std::filesystem::file_size(Path()));
        f.engine.BeginJob();
        EXPECT_EQ(AddComments(400), kDiskError);
    }
    for (int i = 0; i < 3; ++i) failures.push_back(NumberOf([&] { AddWord("later"); }));
    EXPECT_EQ(failures, std::vector<int>(3, kDiskError));
    EXPECT_EQ(NumberOf([&] { f.engine.EndJob(); }), kDiskError);
    AddWord("after");
    Reopen();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
    EXPECT_EQ(Comments(), "0\n");
}

TEST_F(FailedWriteTest, AJobWhoseJournalCannotBeMadeFailsAtItsFirstWrite) {
    Reopen();
    Failure first, second;
    {
        const testkit::ReadOnlyFolder locked(f.dir.path());
        f.engine.BeginJob();
        first = FailureOf([&] { AddWord("within"); });
    }
    second = FailureOf([&] { AddWord("later"); });
    EXPECT_EQ(
        first,
        (Failure{3027, "Can't update. The journal of the DataSet cannot be made: its folder is read-only."}));
    EXPECT_EQ(second, first);
    EXPECT_EQ(FailureOf([&] { f.engine.EndJob(); }), first);
    AddWord("after");
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nafter\n");
}

TEST_F(FailedWriteTest, AnErrorOfOneRowDoesNotEndTheJob) {
    f.engine.BeginJob();
    const Failure row = FailureOf([&] { AddWord("longer than the field of this table can hold"); });
    EXPECT_EQ(row.number, 3163);
    AddWord("next");
    f.engine.EndJob();
    EXPECT_EQ(Dump("SELECT word FROM words ORDER BY id;"), "before\nnext\n");
}

// The folder stands in for a disk on which the new file cannot grow.
TEST_F(FailedWriteTest, ANewDataSetThatCannotBeMadeLeavesNoFile) {
    db().Close();
    {
        const NoLargerFiles limit(64 * 1024);
        EXPECT_EQ(NumberOf([&] { MakeDataSetFile(f.engine, f.dir.File("new.mdb"), "Animalia", "4.0.6"); }),
                  kDiskError);
    }
    EXPECT_FALSE(std::filesystem::exists(f.dir.File("new.mdb")));
    EXPECT_FALSE(std::filesystem::exists(f.dir.File("new.mdb-journal")));
}

}  // namespace quillon::store
