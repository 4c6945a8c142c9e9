#include "core/ini_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(IniFile, GivesTheKeysOfASectionInTheirOrder) {
    const auto file = IniFile::Parse("Before=1\n[A]\nTwo=2\n;Three=3\n one = 1\n[B]\nOther=1\n[a]\nTwo=4\n");
    EXPECT_EQ(file.Keys("A"), (std::vector<std::string>{"Two", "one", "Two"}));
    EXPECT_EQ(file.Keys("C"), std::vector<std::string>{});
}

TEST(IniFile, KeepsEverythingThatIsNotChanged) {
    const std::string bytes =
        "; by hand\r\n[Other]\r\nKingdom=x\r\n\n[Taxonomic Quillon]\r\n  Rank = Genus \r\nno key\r\n"
        "Unknown=\"7\"\r\n;Kingdom=old\r\n\r\n[Last]\r\nA=1";
    auto file = IniFile::Parse(bytes);
    EXPECT_EQ(file.Bytes(), bytes);
    EXPECT_TRUE(file.SetValue("taxonomic quillon", "RANK", "Species"));
    EXPECT_TRUE(file.SetValue("Taxonomic Quillon", "Kingdom", "Fungi"));
    EXPECT_EQ(file.Bytes(),
              "; by hand\r\n[Other]\r\nKingdom=x\r\n\n[Taxonomic Quillon]\r\n  Rank =Species\r\nno key\r\n"
              "Unknown=\"7\"\r\n;Kingdom=old\r\nKingdom=Fungi\r\n\r\n[Last]\r\nA=1\r\n");
    EXPECT_EQ(file.Value("Taxonomic Quillon", "Kingdom"), "Fungi");
    EXPECT_EQ(file.Value("Other", "Kingdom"), "x");
}

TEST(IniFile, BeginsAFileAndASection) {
    IniFile file;
    EXPECT_TRUE(file.SetValue("A", "Key", "1"));
    EXPECT_TRUE(file.SetValue("A", "More", ""));
    EXPECT_EQ(file.Bytes(), "[A]\r\nKey=1\r\nMore=\r\n");
    auto other = IniFile::Parse("[B]\nKey=2");
    EXPECT_TRUE(other.SetValue("A", "Key", "1"));
    EXPECT_EQ(other.Bytes(), "[B]\nKey=2\n\n[A]\nKey=1\n");
}

TEST(IniFile, AnEqualValueLeavesItsLineAsItIs) {
    auto file = IniFile::Parse("[A]\r\n Key =  'one'  \r\n");
    EXPECT_EQ(file.Value("A", "Key"), "one");
    EXPECT_TRUE(file.SetValue("A", "Key", "one"));
    EXPECT_EQ(file.Bytes(), "[A]\r\n Key =  'one'  \r\n");
}

TEST(IniFile, ValuesComeBackAsTheyWereWritten) {
    const std::vector<std::string> values = {
        "",   " blanks around ", "\"quoted\"",    "'quoted'",   "\"", "a=b;c", "[x]", "; no comment", "é",
        "Ã©", "Ελλάς.mdb",       "\xC2\x81 open", "\ttab end\t"};
    for (const std::string& value : values) {
        auto file = IniFile::Parse("[A]\r\nName=caf\xE9\r\n");
        EXPECT_TRUE(file.SetValue("A", "Key", value));
        const auto again = IniFile::Parse(file.Bytes());
        EXPECT_EQ(again.Value("A", "Key"), value);
        EXPECT_EQ(again.Value("A", "Name"), "café") << value;
    }
}

TEST(IniFile, ALineHoldsNoLineBreak) {
    auto file = IniFile::Parse("[A]\r\nKey=1\r\n");
    for (const std::string& value : {std::string("a\nb"), std::string("a\rb"), std::string("a\0b", 3)})
        EXPECT_FALSE(file.SetValue("A", "Key", value));
    EXPECT_EQ(file.Bytes(), "[A]\r\nKey=1\r\n");
}

TEST(IniFile, WritesTheCodePageOfTheFile) {
    IniFile fresh;
    fresh.SetValue("A", "Key", "é€");
    EXPECT_EQ(fresh.Bytes(), "[A]\r\nKey=\xE9\x80\r\n");
    auto utf8 = IniFile::Parse("[A]\nName=é\n");
    utf8.SetValue("A", "Key", "ü");
    EXPECT_EQ(utf8.Bytes(), "[A]\nName=é\nKey=ü\n");
    auto marked = IniFile::Parse("\xEF\xBB\xBF[A]\n");
    marked.SetValue("A", "Key", "1");
    EXPECT_EQ(marked.Bytes(), "\xEF\xBB\xBF[A]\nKey=1\n");
}

TEST(IniFile, TakesUtf8WithItsMarkWhereTheCodePageLacksALetter) {
    auto file = IniFile::Parse("[A]\nName=\xE9\n");
    file.SetValue("A", "Key", "Ωmega");
    EXPECT_EQ(file.Bytes(), "\xEF\xBB\xBF[A]\nName=é\nKey=Ωmega\n");
}

TEST(IniFile, SurvivesHostileFiles) {
    std::string noise;
    for (int i = 0; i < 4096; ++i) noise += static_cast<char>(i * 7 + i / 256);
    for (const std::string& bytes :
         {noise, "\xEF\xBB\xBF" + noise, std::string("[A\n=\n[\n]\n[]\n==\n"), std::string("\r\r\r"),
          std::string("[A]\nKey\0=1\n", 11), std::string(100000, '['), std::string(100000, '\n')}) {
        auto file = IniFile::Parse(bytes);
        EXPECT_TRUE(file.SetValue("Taxonomic Quillon", "Kingdom", "Fungi"));
        EXPECT_EQ(IniFile::Parse(file.Bytes()).Value("Taxonomic Quillon", "Kingdom"), "Fungi");
    }
}

TEST(IniFile, BytesOfTheCodePageAreNotChangedByReading) {
    std::string bytes = "[A]\r\n";
    for (int i = 1; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(IniFile::Parse(bytes).Bytes(), bytes);
}

}  // namespace
}  // namespace quillon
