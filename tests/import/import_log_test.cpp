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
    ImportLog log(dir.path());
    ASSERT_EQ(log.Open({}), "");
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
    ImportLog log(dir.File("no such folder"));
    EXPECT_EQ(log.Open({}), "File " + log.Path() + " cannot be written!");
}

TEST(ImportLog, IsNeverMadeOverAPipeOrADevice) {
    const testkit::TempDir dir;
    ASSERT_EQ(mkfifo(dir.File("import.err").c_str(), 0600), 0);
    ImportLog log(dir.path());
    EXPECT_EQ(log.Open({}), "File " + log.Path() + " cannot be written!");
    std::filesystem::remove(log.Path());
    std::filesystem::create_symlink("/dev/full", log.Path());
    EXPECT_EQ(log.Open({}), "File " + log.Path() + " cannot be written!");
}

TEST(ImportLog, IsNeverMadeOverAFileThatTheImportUses) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("in.qln"), "[RV]|\r\n");
    std::filesystem::create_hard_link(dir.File("in.qln"), dir.File("import.err"));
    ImportLog log(dir.path());
    EXPECT_EQ(log.Open({"none", dir.File("in.qln")}),
              "The log of the import would overwrite " + dir.File("in.qln") + "!");
    EXPECT_EQ(testkit::ReadFile(dir.File("in.qln")), "[RV]|\r\n");
}

TEST(ImportLog, WithoutAFolderIsInTheCurrentOne) {
    EXPECT_EQ(PathIn("", "import.err"), "import.err");
}

}  // namespace
}  // namespace quillon::importing
