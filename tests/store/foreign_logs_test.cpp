// Files of other programs beside a DataSet that have the names of SQLite's journal and log.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "store/lifecycle/create.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

namespace fs = std::filesystem;

class ForeignLogs : public ::testing::Test {
protected:
    ForeignLogs() {
        f.Make();
        f.lifecycle.CloseDataSet();
    }
    Failure Open() {
        return FailureOf([&] { f.engine.OpenDatabase(path)->Close(); });
    }
    Failure InTheWay(const std::string& ending) const {
        return {3051,
                "The file '" + fs::canonical(path).string() + ending + "' of another program is in the way."};
    }

    testkit::DataSetFixture f;
    const std::string path = f.dir.File("test.mdb");
};

TEST_F(ForeignLogs, RefuseTheDataSetAndStay) {
    const std::string before = testkit::ReadFile(path);
    for (const std::string ending : {"-journal", "-wal"}) {
        for (const std::string content :
             {"mine\n", "m", "\xd9\xd5\x05\xf9", "a longer text of another program"}) {
            testkit::WriteFile(path + ending, content);
            EXPECT_EQ(Open(), InTheWay(ending)) << content;
            EXPECT_EQ(testkit::ReadFile(path + ending), content);
            EXPECT_EQ(testkit::ReadFile(path), before);
        }
        fs::remove(path + ending);
    }
    EXPECT_EQ(Open(), Failure());
}

TEST_F(ForeignLogs, AreNotRemovedByANewDataSetOrACopy) {
    const std::string before = testkit::ReadFile(path);
    const std::string journal = path + "-journal";
    testkit::WriteFile(journal, "mine");
    f.Make("Animalia", "other.mdb");
    f.lifecycle.CloseDataSet();
    EXPECT_EQ(FailureOf([&] { MakeDataSetFile(f.engine, path, "Fungi", "4.0.6"); }), InTheWay("-journal"));
    EXPECT_EQ(FailureOf([&] { CopyDataSetFile(f.dir.File("other.mdb"), path); }), InTheWay("-journal"));
    EXPECT_EQ(testkit::ReadFile(journal), "mine");
    EXPECT_EQ(testkit::ReadFile(path), before);
}

TEST_F(ForeignLogs, AreNotReadWhenTheyAreNoFiles) {
    ASSERT_EQ(mkfifo((path + "-journal").c_str(), 0600), 0);
    EXPECT_EQ(Open(), InTheWay("-journal"));
    EXPECT_TRUE(fs::is_fifo(path + "-journal"));
}

TEST_F(ForeignLogs, AreNoneWhenSqliteCanHaveLeftThem) {
    for (const std::string& content : {std::string(), std::string(3, '\0'), std::string(600, '\0')}) {
        testkit::WriteFile(path + "-journal", content);
        EXPECT_EQ(Open(), Failure());
        EXPECT_FALSE(fs::exists(path + "-journal"));
    }
    testkit::WriteFile(path + "-wal", "");
    EXPECT_EQ(Open(), Failure());
}

TEST_F(ForeignLogs, WithAnotherEndingAreLeft) {
    testkit::WriteFile(path + "-shm", "mine");
    EXPECT_EQ(Open(), Failure());
    EXPECT_EQ(testkit::ReadFile(path + "-shm"), "mine");
}

}  // namespace
}  // namespace quillon::store
