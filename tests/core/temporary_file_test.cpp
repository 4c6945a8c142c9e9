// Files on their way to a target: whole or not there, never another's, and gone when their run is.
#include "core/temporary_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

bool AnyContent(std::string_view) {
    return true;
}

class TemporaryFiles : public ::testing::Test {
protected:
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(dir.path())) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
    // What a run that was killed leaves: the file without the lock.
    std::string Leave(std::string_view content) const {
        const std::string name = target + "~new-aaaabbbb22";
        testkit::WriteFile(name, content);
        return name;
    }
    static mode_t ModeOf(const std::string& path) {
        struct stat info {};
        return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
    }

    testkit::TempDir dir;
    const std::string target = dir.File("target");
};

using Names = std::vector<std::string>;

TEST_F(TemporaryFiles, TakeTheTargetsPlaceWhenTheyArePublished) {
    testkit::WriteFile(target, "old");
    TemporaryFile file(target, AnyContent);
    file.Write("new");
    EXPECT_EQ(testkit::ReadFile(target), "old");
    file.Publish();
    EXPECT_EQ(testkit::ReadFile(target), "new");
    EXPECT_EQ(Files(), Names{"target"});
}

TEST_F(TemporaryFiles, LeaveNothingWhenTheyAreNot) {
    testkit::WriteFile(target, "old");
    { TemporaryFile(target, AnyContent).Write("new"); }
    EXPECT_EQ(testkit::ReadFile(target), "old");
    EXPECT_EQ(Files(), Names{"target"});
}

TEST_F(TemporaryFiles, KeepThePermissionsOfWhatTheyReplace) {
    testkit::WriteFile(target, "old");
    chmod(target.c_str(), 0604);
    TemporaryFile file(target, AnyContent);
    EXPECT_EQ(ModeOf(file.Path()), 0600) << "closed to others until it is complete";
    file.Publish();
    EXPECT_EQ(ModeOf(target), 0604);
}

TEST_F(TemporaryFiles, OfACopyHaveThePermissionsOfTheOriginal) {
    const std::string original = dir.File("original");
    testkit::WriteFile(original, "old");
    chmod(original.c_str(), 0640);
    TemporaryFile file(target, AnyContent);
    file.TakePermissionsOf(original);
    file.Publish();
    EXPECT_EQ(ModeOf(target), 0640);
}

TEST_F(TemporaryFiles, AreMadeWhereADanglingLinkPoints) {
    fs::create_directory(dir.File("there"));
    fs::create_symlink("there/file", target);
    TemporaryFile file(target, AnyContent);
    file.Write("new");
    file.Publish();
    EXPECT_TRUE(fs::is_symlink(target));
    EXPECT_EQ(testkit::ReadFile(dir.File("there/file")), "new");
}

TEST_F(TemporaryFiles, OfTwoRunsOnOneTargetAreBothWhole) {
    TemporaryFile first(target, AnyContent), second(target, AnyContent);
    first.Write("first");
    second.Write("second");
    second.Publish();
    EXPECT_EQ(testkit::ReadFile(target), "second");
    first.Publish();
    EXPECT_EQ(testkit::ReadFile(target), "first");
    EXPECT_EQ(Files(), Names{"target"});
}

TEST_F(TemporaryFiles, OfAKilledRunAreRemovedByTheNext) {
    const std::string left = Leave("half");
    testkit::WriteFile(left + "-journal", "old pages");
    const TemporaryFile file(target, AnyContent);
    EXPECT_EQ(Files(), Names{fs::path(file.Path()).filename()});
}

TEST_F(TemporaryFiles, ThatAProcessHoldsStay) {
    const std::string left = Leave("half");
    const int held = open(left.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    { const TemporaryFile file(target, AnyContent); }
    EXPECT_EQ(Files(), Names{"target~new-aaaabbbb22"});
    close(held);
}

TEST_F(TemporaryFiles, ThatAreNotOursStay) {
    const Names others = {"target~new",
                          "target~new-AAAABBBB22",
                          "target~new-aaaabbbb2",
                          "target~new-aaaabbbb223",
                          "target2~new-aaaabbbb22",
                          "target-journal",
                          "target-wal",
                          "target-shm"};
    for (const std::string& name : others) testkit::WriteFile(dir.File(name), "mine");
    Leave("a content of another kind");
    fs::create_directory(dir.File("target~new-ccccdddd22"));
    fs::create_symlink("target-wal", dir.File("target~new-eeeeffff22"));
    const Names before = Files();
    {
        const TemporaryFile file(target, [](std::string_view first) { return first == "half"; });
    }
    EXPECT_EQ(Files(), before);
}

TEST_F(TemporaryFiles, NameTheTargetInAFailure) {
    TemporaryFile file(target, AnyContent);
    const testkit::FilesStopAt limit(1000);
    try {
        file.Write(std::string(2000, 'x'));
        FAIL() << "the limit did not hold";
    } catch (const FileError& error) {
        EXPECT_EQ(std::string(error.what()), "Writing '" +
                                                 fs::path(fs::canonical(dir.path()) / "target").string() +
                                                 "' failed: File too large.");
        EXPECT_EQ(error.Number(), EFBIG);
    }
}

}  // namespace
}  // namespace quillon
