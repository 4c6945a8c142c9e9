// Which paths mean one file, and where a path leads.
#include "core/file_identity.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

class FilePaths : public ::testing::Test {
protected:
    FilePaths() { testkit::WriteFile(file, "content"); }

    testkit::TempDir dir;
    const std::string file = dir.File("file"), other = dir.File("other"), link = dir.File("link");
    const fs::path folder = fs::canonical(dir.path());
};

TEST_F(FilePaths, OfOneFileAreTheSame) {
    fs::create_hard_link(file, other);
    fs::create_symlink("file", link);
    EXPECT_TRUE(IsSameFile(file, other));
    EXPECT_TRUE(IsSameFile(link, other));
    EXPECT_TRUE(IsSameFile(file, dir.path() + "/./file"));
}

TEST_F(FilePaths, OfTwoFilesAreNot) {
    testkit::WriteFile(other, "content");
    EXPECT_FALSE(IsSameFile(file, other));
    EXPECT_FALSE(IsSameFile(file, dir.File("none")));
    EXPECT_FALSE(IsSameFile(file, ""));
}

TEST_F(FilePaths, OfNoFileAreTheSameWhereTheyLeadToOnePlace) {
    fs::create_symlink("other", link);
    EXPECT_TRUE(IsSameFile(link, other));
    EXPECT_FALSE(IsSameFile(link, dir.File("third")));
}

TEST_F(FilePaths, AreFollowedToTheirEnd) {
    fs::create_symlink("other", link);
    fs::create_symlink(link, dir.File("again"));
    EXPECT_EQ(RealPath(dir.File("again")), folder / "other");
    EXPECT_FALSE(FileExists(link));
    testkit::WriteFile(link, "made through the link");
    EXPECT_EQ(RealPath(dir.File("again")), folder / "other");
    EXPECT_TRUE(FileExists(link));
}

TEST_F(FilePaths, ThatLeadNowhereStay) {
    fs::create_symlink("link", link);
    EXPECT_EQ(RealPath(link), link);
    EXPECT_EQ(RealPath("/no/such/folder/file"), "/no/such/folder/file");
}

}  // namespace
}  // namespace quillon
