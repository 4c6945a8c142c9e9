#include "import/import_log.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::importing {
namespace {

TEST(ImportLog, WritesASentenceAndFiveBlanksAndTheLine) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("import.err"), "of the run before");
    ImportLog log(dir.path());
    ASSERT_TRUE(log.Open());
    EXPECT_EQ(log.Path(), dir.File("import.err"));
    log.Write({"A sentence.", "[TU]\u00e9"});
    log.Write({"A closing sentence.", ""});
    log.Write({"With a NUL.", std::string("a\0b", 3)});
    EXPECT_TRUE(log.Close());
    EXPECT_EQ(testkit::ReadFile(dir.File("import.err")),
              "A sentence.\r\n     [TU]\u00e9\r\nA closing sentence.\r\nWith a NUL.\r\n     a" +
                  std::string(1, '\0') + "b\r\n");
}

TEST(ImportLog, TellsThatItCannotBeMade) {
    const testkit::TempDir dir;
    const ImportLog log(dir.File("no such folder"));
    EXPECT_FALSE(log.Open());
}

TEST(ImportLog, TellsThatTheDiskIsFull) {
    const testkit::TempDir dir;
    std::filesystem::create_symlink("/dev/full", dir.File("import.err"));
    ImportLog log(dir.path());
    ASSERT_TRUE(log.Open());
    log.Write({"A sentence.", ""});
    EXPECT_FALSE(log.Close());
}

TEST(ImportLog, WithoutAFolderIsInTheCurrentOne) {
    EXPECT_EQ(PathIn("", "import.err"), "import.err");
}

}  // namespace
}  // namespace quillon::importing
