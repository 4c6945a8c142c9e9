#include "core/file_replace.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    return names;
}

TEST(FileReplace, MakesAFileAndItsFolders) {
    const testkit::TempDir dir;
    const std::string path = dir.File("one/two/Qln.Ini");
    EXPECT_EQ(ReplaceFile(path, "new"), "");
    EXPECT_EQ(testkit::ReadFile(path), "new");
    EXPECT_EQ(NamesIn(dir.File("one/two")), std::vector<std::string>{"Qln.Ini"});
}

TEST(FileReplace, ReplacesTheWholeFileAndKeepsItsPermissions) {
    const testkit::TempDir dir;
    const std::string path = dir.File("Qln.Ini");
    testkit::WriteFile(path, "something longer");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(ReplaceFile(path, "short"), "");
    EXPECT_EQ(testkit::ReadFile(path), "short");
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST(FileReplace, RemovesOnlyTheLeftoversThatBeginLikeTheContent) {
    const testkit::TempDir dir;
    const std::string left = dir.File("Qln.Ini~new-");
    testkit::WriteFile(left + "aaaaaaaaaa", "");
    testkit::WriteFile(left + "bbbbbbbbbb", "[Pref");
    testkit::WriteFile(left + "cccccccccc", "[Preferences]\r\nKingdom=Fungi\r\n");
    testkit::WriteFile(left + "dddddddddd", "[Preferences of mine]\r\n");
    testkit::WriteFile(left + "eeeeeeeeee", "mine");
    EXPECT_EQ(ReplaceFile(dir.File("Qln.Ini"), "[Preferences]\r\nKingdom=Plantae\r\n"), "");
    std::vector<std::string> names = NamesIn(dir.path());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names,
              (std::vector<std::string>{"Qln.Ini", "Qln.Ini~new-dddddddddd", "Qln.Ini~new-eeeeeeeeee"}));
}

TEST(FileReplace, ASymbolicLinkStaysOne) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("real.ini"), "old");
    fs::create_symlink("real.ini", dir.File("Qln.Ini"));
    EXPECT_EQ(ReplaceFile(dir.File("Qln.Ini"), "new"), "");
    EXPECT_TRUE(fs::is_symlink(dir.File("Qln.Ini")));
    EXPECT_EQ(testkit::ReadFile(dir.File("real.ini")), "new");
}

TEST(FileReplace, AFullDiskLeavesTheOldFileAlone) {
    const testkit::TempDir dir;
    const std::string path = dir.File("Qln.Ini");
    testkit::WriteFile(path, "old");
    std::string failure;
    {
        const testkit::FilesStopAt limit(1000);
        failure = ReplaceFile(path, std::string(5000, 'x'));
    }
    EXPECT_EQ(failure, "File too large");
    EXPECT_EQ(testkit::ReadFile(path), "old");
    EXPECT_EQ(NamesIn(dir.path()), std::vector<std::string>{"Qln.Ini"});
}

TEST(FileReplace, AReadOnlyFolderIsReported) {
    const testkit::TempDir dir;
    const std::string path = dir.File("Qln.Ini");
    testkit::WriteFile(path, "old");
    std::string failure;
    {
        const testkit::ReadOnlyFolder folder(dir.path());
        failure = ReplaceFile(path, "new");
    }
    EXPECT_EQ(failure, "Permission denied");
    EXPECT_EQ(testkit::ReadFile(path), "old");
}

TEST(FileReplace, AFolderInTheWayIsReported) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("file"), "old");
    fs::create_directory(dir.File("folder"));
    EXPECT_EQ(ReplaceFile(dir.File("file/Qln.Ini"), "new"), "Not a directory");
    EXPECT_EQ(ReplaceFile(dir.File("folder"), "new"), "Is a directory");
    EXPECT_EQ(testkit::ReadFile(dir.File("file")), "old");
}

TEST(SmallFile, IsReadAsItIs) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("a"), std::string("one\0two", 7));
    EXPECT_EQ(ReadSmallFile(dir.File("a")).bytes, std::string("one\0two", 7));
    EXPECT_EQ(ReadSmallFile(dir.File("a")).failure, "");
}

TEST(SmallFile, AMissingOneIsEmptyWithoutAFailure) {
    const testkit::TempDir dir;
    EXPECT_EQ(ReadSmallFile(dir.File("none")).bytes, "");
    EXPECT_EQ(ReadSmallFile(dir.File("none")).failure, "");
}

TEST(SmallFile, APipeOrDeviceIsRefusedWithoutWaiting) {
    const testkit::TempDir dir;
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    EXPECT_EQ(ReadSmallFile(dir.File("pipe")).failure, "it is not a plain file");
    EXPECT_EQ(ReadSmallFile(dir.path()).failure, "it is not a plain file");
    EXPECT_EQ(ReadSmallFile("/dev/zero").failure, "it is not a plain file");
}

TEST(SmallFile, ALargeOneIsRefused) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("a"), std::string(1 << 20, 'x'));
    EXPECT_EQ(ReadSmallFile(dir.File("a")).bytes.size(), 1U << 20);
    testkit::WriteFile(dir.File("a"), std::string((1 << 20) + 1, 'x'));
    EXPECT_EQ(ReadSmallFile(dir.File("a")).failure, "it is too large");
    EXPECT_EQ(ReadSmallFile(dir.File("a")).bytes, "");
}

}  // namespace
}  // namespace quillon
