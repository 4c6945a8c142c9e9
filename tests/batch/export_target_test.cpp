// What quillon-batch leaves under the name of an export that cannot be finished.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "batch_fixture.h"

namespace quillon::batch {
namespace {

constexpr const char* kSample = QUILLON_SOURCE_DIR "/samples/cetacea.qln";

class ExportTarget : public ::testing::Test {
protected:
    void SetUp() override {
        batch.Run("new t.mdb --kingdom Animalia");
        ASSERT_EQ(batch.Run(std::string("import t.mdb ") + kSample).status, 0);
        std::filesystem::remove(batch.dir.File("import.err"));
        testkit::WriteFile(batch.dir.File("out.qln"), "old");
    }

    Batch batch;
};

TEST_F(ExportTarget, LimitOnFileSizesIsReportedAndLeavesTheOldFile) {
    const std::string command = "cd " + batch.dir.path() +
                                " && ulimit -f 8 && " QUILLON_BATCH
                                " export t.mdb out.qln --yes >out.txt 2>err.txt </dev/null";
    const int code = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(code));
    EXPECT_EQ(WEXITSTATUS(code), 3);
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("err.txt")),
              "question: out.qln Exists.  Overwrite? [Yes]\nmessage: Failed Writing '" +
                  std::filesystem::canonical(batch.dir.File("out.qln")).string() +
                  "' failed: File too large.\n");
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("out.qln")), "old");
    for (const auto& entry : std::filesystem::directory_iterator(batch.dir.path()))
        EXPECT_EQ(entry.path().string().find("~new-"), std::string::npos) << entry.path();
}

TEST_F(ExportTarget, AnotherNameOfTheDataSetIsRefused) {
    std::filesystem::create_hard_link(batch.dir.File("t.mdb"), batch.dir.File("hard.qln"));
    const std::string before = testkit::ReadFile(batch.dir.File("t.mdb"));
    const Ended ended = batch.Run("export t.mdb hard.qln --yes");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err,
              "question: hard.qln Exists.  Overwrite? [Yes]\n"
              "message: 'hard.qln' is an open DataSet, and cannot be overwritten.\n");
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("t.mdb")), before);
}

TEST_F(ExportTarget, NothingIsAskedWhereNothingExists) {
    std::filesystem::create_symlink("there.txt", batch.dir.File("names.txt"));
    const Ended ended = batch.Run("export t.mdb names.txt --list name");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err, "message: 259 names were written to names.txt.\n");
    EXPECT_TRUE(std::filesystem::is_symlink(batch.dir.File("names.txt")));
    EXPECT_TRUE(std::filesystem::exists(batch.dir.File("there.txt")));
}

TEST_F(ExportTarget, ListEndsWithTheCountOfNames) {
    const Ended ended = batch.Run("export t.mdb names.txt --list name");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err, "message: 259 names were written to names.txt.\n");
}

}  // namespace
}  // namespace quillon::batch
