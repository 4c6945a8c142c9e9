#include "core/ini_profile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon {
namespace {

using Table = std::vector<IniProfile::KeyAndValue>;

class IniProfileTest : public testing::Test {
protected:
    void Write(std::string_view bytes) const { testkit::WriteFile(path, bytes); }
    std::string Read() const { return testkit::ReadFile(path); }
    Table AllKeys() {
        Table table;
        profile.IniSetTarget("S", path);
        const int count = profile.IniGetAllKeys(table);
        EXPECT_EQ(count, static_cast<int>(table.size()));
        return table;
    }

    testkit::TempDir dir;
    const std::string path = dir.File("Qln.Ini");
    testkit::ScriptedPrompter prompter;
    IniProfile profile{prompter};
};

TEST_F(IniProfileTest, GivesAllKeysOfItsTarget) {
    Write("[Other]\r\nA=0\r\n[S]\r\nA=1\r\nB b = two \r\nC=\r\n");
    EXPECT_EQ(AllKeys(), (Table{{"A", "1"}, {"B b", "two"}, {"C", ""}}));
}

TEST_F(IniProfileTest, TrimsItsTarget) {
    Write("[S]\r\nA=1\r\n");
    profile.IniSetTarget("  S ", " " + path + "  ");
    EXPECT_EQ(profile.IniGetValue("A", "none"), "1");
}

TEST_F(IniProfileTest, ASectionWithoutKeysHasNone) {
    EXPECT_EQ(AllKeys(), Table{});
    Write("[S]\r\n;A=1\r\n");
    EXPECT_EQ(AllKeys(), Table{});
    Write("[T]\r\nA=1\r\n");
    EXPECT_EQ(AllKeys(), Table{});
}

TEST_F(IniProfileTest, AnAbsentKeyGivesTheDefaultAnEmptyOneNothing) {
    Write("[S]\r\nA=\r\n");
    profile.IniSetTarget("S", path);
    EXPECT_EQ(profile.IniGetValue("A", "default"), "");
    EXPECT_EQ(profile.IniGetValue("B", "default"), "default");
}

TEST_F(IniProfileTest, AMissingTargetIsAProgrammingError) {
    Table table = {{"old", "row"}};
    EXPECT_EQ(profile.IniGetAllKeys(table), 0);
    EXPECT_EQ(profile.IniGetValue("A", "default"), "");
    const std::string text = "QLN.INI file is corrupted.  Please contact support personnel.";
    EXPECT_EQ(prompter.messages, (std::vector<std::string>{text, text}));
    EXPECT_EQ(prompter.stops, (std::vector<std::string>{text, text}));
    EXPECT_EQ(prompter.titles, (std::vector<std::string>{"IniFile Logic Error", "IniFile Logic Error"}));
    EXPECT_EQ(table, Table{});
}

TEST_F(IniProfileTest, AValueEndsWithItsBuffer) {
    const std::string fits(254, 'x');
    Write("[S]\r\nA=" + fits + "\r\nB=" + fits + "y\r\n");
    EXPECT_EQ(AllKeys(), (Table{{"A", fits}, {"B", fits}}));
}

// 4,096 characters less two NULs; a name and its own NUL are 100 each, so the 41st has 94 left.
TEST_F(IniProfileTest, TheNamesEndWithTheirBuffer) {
    std::string bytes = "[S]\r\n";
    for (int i = 10; i < 60; ++i) bytes += std::to_string(i) + std::string(97, 'k') + "=v\r\n";
    Write(bytes);
    const Table table = AllKeys();
    ASSERT_EQ(table.size(), 41U);
    EXPECT_EQ(table[39], (IniProfile::KeyAndValue{"49" + std::string(97, 'k'), "v"}));
    EXPECT_EQ(table[40], (IniProfile::KeyAndValue{"50" + std::string(92, 'k'), ""}));
}

TEST_F(IniProfileTest, ANulEndsANameAndAValue) {
    Write(std::string("[S]\nA=on\0e\nB\0=2\nC=3\n", 20));
    // The name after the NUL is empty, and an empty name is the end.
    EXPECT_EQ(AllKeys(), (Table{{"A", "on"}, {"B", ""}}));
}

TEST_F(IniProfileTest, WritesAtTheFlushAndReadsItBefore) {
    Write("[S]\r\nA=1\r\n");
    profile.IniSetTarget("S", path);
    profile.IniWriteValue("S", path, "A", "2");
    profile.IniWriteValue("S", path, "B", "3");
    EXPECT_EQ(profile.IniGetValue("A", ""), "2");
    EXPECT_EQ(Read(), "[S]\r\nA=1\r\n");
    EXPECT_TRUE(profile.IniFlush());
    EXPECT_EQ(Read(), "[S]\r\nA=2\r\nB=3\r\n");
    testkit::WriteFile(path, "[S]\r\nA=9\r\n");
    EXPECT_TRUE(profile.IniFlush());
    EXPECT_EQ(Read(), "[S]\r\nA=9\r\n") << "nothing waits any more";
}

TEST_F(IniProfileTest, MakesTheFileAndItsFolder) {
    const std::string deep = dir.File("config/taxonomic-quillon/Qln.Ini");
    profile.IniWriteValue("S", deep, "A", "1");
    EXPECT_TRUE(profile.IniFlush());
    EXPECT_EQ(testkit::ReadFile(deep), "[S]\r\nA=1\r\n");
}

TEST_F(IniProfileTest, SaysThatAFolderIsReadOnly) {
    Write("[S]\r\nA=1\r\n");
    profile.IniWriteValue("S", path, "A", "2");
    {
        const testkit::ReadOnlyFolder folder(dir.path());
        EXPECT_FALSE(profile.IniFlush());
    }
    EXPECT_EQ(prompter.messages,
              std::vector<std::string>{"The preferences could not be saved in " + path +
                                       ": Permission denied.  The file stays as it was, and the choices "
                                       "hold until the program ends."});
    EXPECT_EQ(Read(), "[S]\r\nA=1\r\n");
    EXPECT_TRUE(profile.IniFlush());
    EXPECT_EQ(Read(), "[S]\r\nA=1\r\n") << "what failed waits no more";
}

TEST_F(IniProfileTest, ADiskThatIsFullLosesNothing) {
    const std::string old = "[S]\r\nA=1\r\nLong=" + std::string(2000, 'x') + "\r\n";
    Write(old);
    profile.IniWriteValue("S", path, "A", "2");
    bool done = true;
    {
        const testkit::FilesStopAt limit(1000);
        done = profile.IniFlush();
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(prompter.messages.size(), 1U);
    EXPECT_EQ(Read(), old);
}

TEST_F(IniProfileTest, AFileThatCannotBeReadIsNotReplaced) {
    const std::string large(2 << 20, '\n');
    Write(large);
    profile.IniWriteValue("S", path, "A", "2");
    EXPECT_FALSE(profile.IniFlush());
    EXPECT_EQ(prompter.messages,
              std::vector<std::string>{"The preferences could not be saved in " + path +
                                       ": it is too large.  The file stays as it was, and the choices hold "
                                       "until the program ends."});
    EXPECT_EQ(Read().size(), large.size());
}

TEST_F(IniProfileTest, AValueWithALineBreakIsRefusedAndNothingIsWritten) {
    Write("[S]\r\nA=1\r\n");
    profile.IniWriteValue("S", path, "A", "2");
    profile.IniWriteValue("S", path, "DataSet", "/home/ana/two\nlines.mdb");
    EXPECT_FALSE(profile.IniFlush());
    EXPECT_EQ(prompter.messages,
              std::vector<std::string>{"The preferences could not be saved in " + path +
                                       ": a line cannot hold the value of DataSet.  The file stays as it "
                                       "was, and the choices hold until the program ends."});
    EXPECT_EQ(Read(), "[S]\r\nA=1\r\n");
}

}  // namespace
}  // namespace quillon
