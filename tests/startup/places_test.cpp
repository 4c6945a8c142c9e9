#include "startup/places.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "startup/start_fixture.h"

namespace quillon::startup {
namespace {

Places With(std::map<std::string, std::string> variables) {
    return PlacesOf([&](const char* name) { return variables[name]; });
}

TEST(Places, AreInTheHomeOfTheUser) {
    const Places places = With({{"HOME", "/home/ana"}});
    EXPECT_EQ(places.preferencesFile, "/home/ana/.config/taxonomic-quillon/Qln.Ini");
    EXPECT_EQ(places.dataFolder, "/home/ana/.local/share/taxonomic-quillon");
}

TEST(Places, FollowTheLocationsOfTheDesktop) {
    const Places places =
        With({{"HOME", "/home/ana"}, {"XDG_CONFIG_HOME", "/etc/ana"}, {"XDG_DATA_HOME", "/data/ana"}});
    EXPECT_EQ(places.preferencesFile, "/etc/ana/taxonomic-quillon/Qln.Ini");
    EXPECT_EQ(places.dataFolder, "/data/ana/taxonomic-quillon");
}

TEST(Places, ALocationThatIsNotAbsoluteDoesNotCount) {
    const Places places = With({{"HOME", "/home/ana"}, {"XDG_CONFIG_HOME", "conf"}, {"XDG_DATA_HOME", "."}});
    EXPECT_EQ(places.preferencesFile, "/home/ana/.config/taxonomic-quillon/Qln.Ini");
    EXPECT_EQ(places.dataFolder, "/home/ana/.local/share/taxonomic-quillon");
}

TEST(Places, CanBeNamed) {
    const Places places = With({{"HOME", "/home/ana"},
                                {"XDG_CONFIG_HOME", "/etc/ana"},
                                {"QUILLON_CONFIG_DIR", "/demo/config"},
                                {"QUILLON_DATA_DIR", "work"}});
    EXPECT_EQ(places.preferencesFile, "/demo/config/Qln.Ini");
    EXPECT_EQ(places.dataFolder, (std::filesystem::current_path() / "work").string());
}

TEST(EnterFolder, MakesItForTheUserAlone) {
    const testkit::TempDir dir;
    const KeptDirectory kept;
    const std::string folder = dir.File("share/taxonomic-quillon");
    EXPECT_TRUE(EnterFolder(folder));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder));
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
    EXPECT_TRUE(EnterFolder(folder)) << "one that is there is taken";
}

TEST(EnterFolder, StaysWhereItIsWhenThatFails) {
    const testkit::TempDir dir;
    const KeptDirectory kept;
    testkit::WriteFile(dir.File("file"), "");
    const auto before = std::filesystem::current_path();
    EXPECT_FALSE(EnterFolder(dir.File("file")));
    EXPECT_FALSE(EnterFolder(dir.File("file/below")));
    EXPECT_EQ(std::filesystem::current_path(), before);
}

}  // namespace
}  // namespace quillon::startup
