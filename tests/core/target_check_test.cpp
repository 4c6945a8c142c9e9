// What a job may not write over.
#include "core/target_check.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon {
namespace {

TEST(TargetCheck, FindsEachFaultByWhateverName) {
    const testkit::TempDir dir;
    testkit::WriteFile(dir.File("in.qln"), "[RV]|");
    testkit::WriteFile(dir.File("set.mdb"), std::string("SQLite format 3\0", 16) + "more");
    testkit::WriteFile(dir.File("short"), "SQLite");
    std::filesystem::create_hard_link(dir.File("in.qln"), dir.File("hard"));
    std::filesystem::create_symlink("set.mdb", dir.File("validate.log"));
    std::filesystem::create_symlink("new.qln", dir.File("dangling"));
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    const std::vector<std::string> used = {"", dir.File("in.qln"), dir.File("new.qln")};
    const auto fault = [&](const std::string& name) { return FaultOfTarget(dir.File(name), used); };
    EXPECT_EQ(fault("in.qln"), TargetFault::InUse);
    EXPECT_EQ(fault("hard"), TargetFault::InUse);
    EXPECT_EQ(fault("dangling"), TargetFault::InUse);
    EXPECT_EQ(fault("pipe"), TargetFault::NotOrdinary);
    EXPECT_EQ(FaultOfTarget(dir.path(), used), TargetFault::NotOrdinary);
    EXPECT_EQ(fault("validate.log"), TargetFault::DataSet);
    EXPECT_EQ(fault("short"), TargetFault::None);
    EXPECT_EQ(fault("none"), TargetFault::None);
}

}  // namespace
}  // namespace quillon
