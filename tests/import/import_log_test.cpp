#include "import/import_log.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::importing {
namespace {

TEST(ImportLog, WritesASentenceAndFiveBlanksAndTheLine) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("import.err"), "of the run before");
    ImportLog log(dir.path(), {});
    ASSERT_EQ(log.Failure(), "");
    EXPECT_EQ(log.Path(), dir.File("import.err"));
    log.Write({"A sentence.", "[TU]\u00e9"});
    log.Write({"A closing sentence.", ""});
    log.Write({"With a NUL.", std::string("a\0b", 3)});
    EXPECT_TRUE(log.Close());
    EXPECT_EQ(testkit::ReadFile(dir.File("import.err")),
              "A sentence.\r\n     [TU]\u00e9\r\nA closing sentence.\r\nWith a NUL.\r\n     a" +
                  std::string(1, '\0') + "b\r\n");
}

TEST(ImportLog, CannotBeMadeInAFolderThatIsNotThere) {
    const testkit::TempDir dir;
    const ImportLog log(dir.File("no such folder"), {});
    EXPECT_EQ(log.Failure(), log.Path() + " cannot be written: No such file or directory.");
}

TEST(ImportLog, IsNeverMadeOverAPipeOrADevice) {
    const testkit::TempDir dir;
    const std::string path = dir.File("import.err");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(ImportLog(dir.path(), {}).Failure(), path + " is not an ordinary file.");
    std::filesystem::remove(path);
    std::filesystem::create_symlink("/dev/full", path);
    EXPECT_EQ(ImportLog(dir.path(), {}).Failure(), path + " is not an ordinary file.");
}

TEST(ImportLog, IsNeverMadeOverAFileThatTheImportUses) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("in.qln"), "[RV]|\r\n");
    std::filesystem::create_hard_link(dir.File("in.qln"), dir.File("import.err"));
    const ImportLog log(dir.path(), {"none", dir.File("in.qln")});
    EXPECT_EQ(log.Failure(), dir.File("import.err") + " is in use by this job.");
    EXPECT_EQ(testkit::ReadFile(dir.File("in.qln")), "[RV]|\r\n");
}

TEST(ImportLog, WithoutAFolderIsInTheCurrentOne) {
    EXPECT_EQ(PathIn("", "import.err"), "import.err");
}

}  // namespace
}  // namespace quillon::importing
