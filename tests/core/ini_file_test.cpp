#include "core/ini_file.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(IniFile, ReadsTheKeysOfASection) {
    const auto file = IniFile::Parse(
        "; preferences\r\n[Other]\r\nDataSet=wrong\r\n\r\n[Taxonomic Quillon]\r\n  DataSet = /home/ana/my "
        "fish.mdb \r\n"
        "Kingdom=\"Plantae\"\r\nRank=\r\nno key here\r\n=no name\r\n");
    EXPECT_EQ(file.Value("Taxonomic Quillon", "DataSet"), "/home/ana/my fish.mdb");
    EXPECT_EQ(file.Value("taxonomic quillon", "KINGDOM"), "Plantae");
    EXPECT_EQ(file.Value("Taxonomic Quillon", "Rank"), "");
    EXPECT_EQ(file.Value("Taxonomic Quillon", "Author"), std::nullopt);
    EXPECT_EQ(file.Value("Missing", "DataSet"), std::nullopt);
    EXPECT_EQ(file.Value("Taxonomic Quillon", ""), std::nullopt);
}

TEST(IniFile, TheFirstOfSeveralCounts) {
    const auto file = IniFile::Parse("[A]\nKey=1\nKey=2\n[B]\nKey=3\n[A]\nKey=4\nMore=a=b\n");
    EXPECT_EQ(file.Value("A", "Key"), "1");
    EXPECT_EQ(file.Value("B", "Key"), "3");
    EXPECT_EQ(file.Value("A", "More"), "a=b");
}

TEST(IniFile, KnowsAnEmptySection) {
    const auto file = IniFile::Parse("[Taxonomic Quillon]");
    EXPECT_TRUE(file.HasSection("Taxonomic Quillon"));
    EXPECT_FALSE(file.HasSection("Other"));
}

TEST(IniFile, TakesUtf8WithItsMark) {
    const auto file = IniFile::Parse("\xEF\xBB\xBF[A]\nDataSet=/données/é.mdb");
    EXPECT_EQ(file.Value("A", "DataSet"), "/données/é.mdb");
}

TEST(IniFile, AFileThatIsNotThereIsEmpty) {
    EXPECT_EQ(IniFile::Read("/nowhere/Qln.Ini").Value("A", "B"), std::nullopt);
    EXPECT_FALSE(IniFile::Read("/").HasSection(""));
}

}  // namespace
}  // namespace quillon
