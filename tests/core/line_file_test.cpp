#include "core/line_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon {
namespace {

TEST(LineFile, ReplacesTheFileWithLinesClosedByCrLf) {
    const testkit::TempDir dir;
    const std::string path = PathIn(dir.path(), "a.log");
    testkit::WriteFile(path, "what was there before, and longer than what comes");
    LineFile file(path);
    ASSERT_TRUE(file.Open());
    file.Print("one");
    file.Print("two\nthree");
    EXPECT_EQ(file.Lines(), 3U);
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(testkit::ReadFile(path), "one\r\ntwo\nthree\r\n");
}

TEST(LineFile, KeepsAFileThatTheJobReadsWhateverItsName) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("names.qln"), "years of work");
    std::filesystem::create_symlink(dir.File("names.qln"), dir.File("import.err"));
    std::filesystem::create_hard_link(dir.File("names.qln"), dir.File("hard.err"));
    for (const std::string name : {"names.qln", "import.err", "hard.err"}) {
        LineFile file(dir.File(name), {dir.File("names.qln"), ""});
        EXPECT_FALSE(file.Open());
        file.Print("a finding");
        EXPECT_FALSE(file.Close());
        EXPECT_EQ(file.Failure(), dir.File(name) + " is in use by this job.");
    }
    EXPECT_EQ(testkit::ReadFile(dir.File("names.qln")), "years of work");
}

TEST(LineFile, RefusesAPipeWithoutWaitingForItsReader) {
    const testkit::TempDir dir;
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    LineFile file(dir.File("pipe"));
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.Failure(), dir.File("pipe") + " is not an ordinary file.");
}

TEST(LineFile, NamesTheFolderThatIsMissing) {
    const testkit::TempDir dir;
    LineFile file(dir.File("none/a.log"));
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(file.Failure(), dir.File("none/a.log") + " cannot be written: No such file or directory.");
}

TEST(LineFile, ReportsADiskThatFillsUp) {
    const testkit::TempDir dir;
    LineFile file(dir.File("a.log"));
    bool written = true;
    {
        const testkit::FilesStopAt limit(1000);
        for (int i = 0; i < 100; ++i) file.Print("twenty-two characters!");
        written = file.Close();
    }
    EXPECT_FALSE(written);
    EXPECT_EQ(file.Failure(), dir.File("a.log") + " cannot be written: File too large.");
}

}  // namespace
}  // namespace quillon
