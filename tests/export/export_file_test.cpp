#include "export/export_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "store/error.h"
#include "testkit/testkit.h"

namespace quillon::exporting {
namespace {

namespace fs = std::filesystem;

class ExportFiles : public ::testing::Test {
protected:
    std::ptrdiff_t FilesInFolder() const {
        return std::distance(fs::directory_iterator(dir.path()), fs::directory_iterator());
    }
    testkit::TempDir dir;
    std::string path = dir.File("out");
};

TEST_F(ExportFiles, TargetChangesOnlyWhenPublished) {
    testkit::WriteFile(path, "old");
    ExportFile file(path, Encoding::Cp1252);
    file.Buffer() += std::string(3 << 20, 'x');
    file.LineDone();
    file.Buffer() += "end";
    EXPECT_EQ(testkit::ReadFile(path), "old");
    file.Publish();
    EXPECT_EQ(testkit::ReadFile(path), std::string(3 << 20, 'x') + "end");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(ExportFiles, WhatIsNotPublishedLeavesNothing) {
    {
        ExportFile file(path, Encoding::Cp1252);
        file.Buffer() += std::string(3 << 20, 'x');
        file.LineDone();
    }
    EXPECT_EQ(FilesInFolder(), 0);
}

TEST_F(ExportFiles, SwitchedFileLeavesNothingElse) {
    {
        ExportFile file(path, Encoding::Cp1252);
        file.Buffer() += "\xE9";
        file.SwitchToUtf8();
        file.Buffer() += "Ж";
        file.Publish();
        EXPECT_EQ(testkit::ReadFile(path), "\xEF\xBB\xBFéЖ");
    }
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(ExportFiles, SymbolicLinkStaysALink) {
    testkit::WriteFile(path, "old");
    const std::string link = dir.File("link");
    fs::create_symlink(path, link);
    ExportFile file(link, Encoding::Cp1252);
    file.Buffer() += "new";
    file.Publish();
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(testkit::ReadFile(path), "new");
}

TEST_F(ExportFiles, PermissionsOfTheTargetStay) {
    testkit::WriteFile(path, "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    ExportFile file(path, Encoding::Cp1252);
    file.SwitchToUtf8();
    file.Publish();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ExportFiles, WhatAKilledRunLeftIsRemoved) {
    for (const char* left : {"", "[TU]1|half", "\xEF\xBB\xBF[TU]1|", "name|author\r\n"}) {
        testkit::WriteFile(path + "~new-abcdefghij", left);
        ExportFile file(path, Encoding::Cp1252);
        file.Publish();
        EXPECT_EQ(FilesInFolder(), 1) << left;
    }
}

TEST_F(ExportFiles, WhatIsNotLeftByAKilledRunStays) {
    testkit::WriteFile(path + "~new-abcdefghij", "a letter");
    testkit::WriteFile(path + "~new-ABCDEFGHIJ", "[TU]1|");
    testkit::WriteFile(path + "~new", "[TU]1|");
    testkit::WriteFile(dir.File("other~new-abcdefghij"), "[TU]1|");
    fs::create_symlink(path + "~new", path + "~new-abcdefghik");
    fs::create_directory(path + "~new-abcdefghil");
    ExportFile(path, Encoding::Cp1252).Publish();
    EXPECT_EQ(FilesInFolder(), 7);
}

TEST_F(ExportFiles, TwoRunsOnOneTargetEachWriteAWholeFile) {
    ExportFile first(path, Encoding::Cp1252);
    ExportFile second(path, Encoding::Cp1252);
    EXPECT_EQ(FilesInFolder(), 2);
    first.Buffer() += "first";
    second.Buffer() += "second";
    second.SwitchToUtf8();
    first.Publish();
    EXPECT_EQ(testkit::ReadFile(path), "first");
    second.Publish();
    EXPECT_EQ(testkit::ReadFile(path), "\xEF\xBB\xBFsecond");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(ExportFiles, DanglingLinkGetsItsFile) {
    const std::string link = dir.File("link");
    fs::create_symlink(path, link);
    ExportFile file(link, Encoding::Cp1252);
    file.Buffer() += "new";
    file.Publish();
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(testkit::ReadFile(path), "new");
}

TEST_F(ExportFiles, LongestNamesAreWritten) {
    const std::string longest = dir.File(std::string(255, 'n'));
    ExportFile file(longest, Encoding::Cp1252);
    file.Buffer() += "new";
    file.Publish();
    EXPECT_EQ(testkit::ReadFile(longest), "new");
}

TEST_F(ExportFiles, UnwantedUtf8LeavesWhatWasWritten) {
    ExportFile file(path, Encoding::Cp1252);
    file.Buffer() += "one";
    EXPECT_FALSE(file.SwitchToUtf8([] { return false; }));
    file.Buffer() += " two";
    file.Publish();
    EXPECT_EQ(testkit::ReadFile(path), "one two");
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(ExportFiles, FolderDeviceAndMissingFolderAreRefused) {
    EXPECT_THROW(ExportFile(dir.path(), Encoding::Cp1252), store::StoreError);
    EXPECT_THROW(ExportFile("/dev/null", Encoding::Cp1252), store::StoreError);
    EXPECT_THROW(ExportFile(dir.File("none/out"), Encoding::Cp1252), store::StoreError);
    EXPECT_THROW(ExportFile("", Encoding::Cp1252), store::StoreError);
    struct stat info {};
    ASSERT_EQ(stat("/dev/null", &info), 0);
    EXPECT_TRUE(S_ISCHR(info.st_mode));
}

// The limit on file sizes stands in for the disk; it is set in a child, as it cannot be taken back for sure.
int WriteBeyondTheLimit(const std::string& path) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{2 << 20, 2 << 20};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
        ExportFile file(path, Encoding::Cp1252);
        for (int i = 0; i < 5; ++i) {
            file.Buffer() += std::string((1 << 20) - 300000, 'x');
            file.LineDone();
        }
        file.Publish();
    } catch (const store::StoreError& error) {
        return error.Is(store::ErrorNumber::DiskFull) ? 7 : 8;
    }
    return 9;
}

TEST_F(ExportFiles, FullDiskIsReportedAndLeavesTheOldFile) {
    testkit::WriteFile(path, "old");
    const pid_t child = fork();
    if (child == 0) _exit(WriteBeyondTheLimit(path));
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
    EXPECT_EQ(testkit::ReadFile(path), "old");
    EXPECT_EQ(FilesInFolder(), 1);
}

}  // namespace
}  // namespace quillon::exporting
