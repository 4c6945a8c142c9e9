#include "export/line_writer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::exporting {
namespace {

constexpr FieldLayout kFields[] = {{"first", FieldForm::Text}, {"second", FieldForm::Text}};
const RecordLayout kRecord{exchange::RecordKind::NotStored, "[XX]", "", kFields};
const RecordLayout kOpenRecord{exchange::RecordKind::NotStored, "", "", kFields, false};

class LineWriting : public ::testing::Test {
protected:
    void Write(std::string_view first, std::string_view second, const RecordLayout& record = kRecord) {
        line.Begin(record);
        line.Text(first);
        line.Text(second);
        line.End();
    }
    std::string Published() {
        file.Publish();
        return testkit::ReadFile(path);
    }

    testkit::TempDir dir;
    std::string path = dir.File("out");
    std::vector<std::string> reported;
    ExportFile file{path, Encoding::Cp1252};
    LineWriter line{file, [this](const OddValue& value) { reported.push_back(Describe(value)); }};
};

TEST_F(LineWriting, EveryFieldIsFollowedByTheSeparator) {
    Write("a", "b");
    Write("", "");
    EXPECT_EQ(Published(), "[XX]a|b|\r\n[XX]||\r\n");
    EXPECT_EQ(line.Breaking().count, 0);
}

TEST_F(LineWriting, AnOpenRecordEndsWithItsLastField) {
    line.Header("first|second");
    Write("a", "b", kOpenRecord);
    Write("a", "", kOpenRecord);
    EXPECT_EQ(Published(), "first|second\r\na|b\r\na|\r\n");
    EXPECT_EQ(line.Breaking().count, 0);
}

TEST_F(LineWriting, DatesAreTurnedAndOthersLeftOut) {
    line.Begin(kRecord);
    for (const std::string_view date : {"31/12/1999", "1/1/1999", "", "31/12/1999 ", "éé/üü/1999"})
        line.Date(date);
    line.End();
    EXPECT_EQ(Published(), "[XX]12/31/1999||||\xFC\xFC/\xE9\xE9/1999|\r\n");
}

TEST_F(LineWriting, StampsAreTurnedAndOthersLeftOut) {
    line.Begin(kRecord);
    for (const std::string_view stamp : {"03022001040506", "0302200104050", "", "030220010405060"})
        line.Stamp(stamp);
    line.End();
    EXPECT_EQ(Published(), "[XX]2001-02-03 04:05:06||||\r\n");
}

TEST_F(LineWriting, NumbersAreDecimalAndZeroIsNothing) {
    line.Begin(kRecord);
    for (const std::int64_t number : {12LL, 0LL, -7LL, 2147483647LL}) line.Number(number);
    line.YesNo(true);
    line.YesNo(false);
    line.End();
    EXPECT_EQ(Published(), "[XX]12||-7|2147483647|Yes|No|\r\n");
}

TEST_F(LineWriting, TextIsWrittenInCp1252) {
    Write("Müller – €", "\xC2\x81");
    EXPECT_EQ(Published(), "[XX]M\xFCller \x96 \x80|\x81|\r\n");
    EXPECT_EQ(line.Foreign().count, 0);
}

TEST_F(LineWriting, ForeignTextTurnsTheWholeFileIntoUtf8) {
    Write("Müller", "a");
    Write("Жук", "Ω");
    Write("é", "b");
    EXPECT_EQ(file.CurrentEncoding(), Encoding::Utf8);
    EXPECT_EQ(line.Foreign().count, 2);
    EXPECT_EQ(Describe(line.Foreign().first), "first of [XX]Жук: Жук");
    EXPECT_EQ(reported, (std::vector<std::string>{"first of [XX]Жук: Жук", "second of [XX]Жук: Ω"}));
    EXPECT_EQ(Published(), "\xEF\xBB\xBF[XX]Müller|a|\r\n[XX]Жук|Ω|\r\n[XX]é|b|\r\n");
}

TEST_F(LineWriting, ForeignTextAfterManyLinesLosesNone) {
    std::string expected = "\xEF\xBB\xBF";
    for (int i = 0; i < 60000; ++i) {
        Write("Müller and others with a name", "0123456789");
        expected += "[XX]Müller and others with a name|0123456789|\r\n";
    }
    Write("Жук", "");
    EXPECT_EQ(Published(), expected + "[XX]Жук||\r\n");
}

// The file stays what it was, without the line that would have turned it.
TEST_F(LineWriting, CancelWhileTheFileIsTurnedKeepsItAsItIs) {
    const std::string target = dir.File("canceled.qln");
    ExportFile canceled(target, Encoding::Cp1252);
    LineWriter writer(canceled, {}, [] { return false; });
    for (const std::string_view text : {"Müller", "Жук"}) {
        writer.Begin(kRecord);
        writer.Text(text);
        EXPECT_EQ(writer.End(), text == "Müller");
    }
    EXPECT_EQ(canceled.CurrentEncoding(), Encoding::Cp1252);
    canceled.Publish();
    EXPECT_EQ(testkit::ReadFile(target), "[XX]M\xFCller|\r\n");
    EXPECT_FALSE(std::filesystem::exists(target + "~utf8"));
}

TEST_F(LineWriting, BrokenUtf8IsForeign) {
    Write("a\xFF", "b");
    EXPECT_EQ(line.Foreign().count, 1);
}

TEST_F(LineWriting, ValuesThatBreakTheRecordPassAndAreCounted) {
    Write("a|b", "c\r\nd");
    Write("e\rf", "g\nh");
    Write("with\ta tab and \x01", "harmless");
    EXPECT_EQ(line.Breaking().count, 4);
    EXPECT_EQ(Describe(line.Breaking().first), "first of [XX]a|b: a|b");
    EXPECT_EQ(Published(), "[XX]a|b|c\r\nd|\r\n[XX]e\rf|g\nh|\r\n[XX]with\ta tab and \x01|harmless|\r\n");
}

TEST_F(LineWriting, DescriptionShowsLineBreaksAsBlanks) {
    Write("a\r\nb", "");
    EXPECT_EQ(Describe(line.Breaking().first), "first of [XX]a  b: a  b");
}

TEST_F(LineWriting, SeparatorIsFoundAtEveryPlace) {
    for (int length = 0; length < 20; ++length)
        Write(std::string(static_cast<std::size_t>(length), 'x') + "|", "");
    EXPECT_EQ(line.Breaking().count, 20);
}

TEST(LineWritingInUtf8, BeginsWithTheByteOrderMark) {
    const testkit::TempDir dir;
    ExportFile file(dir.File("out"), Encoding::Utf8);
    LineWriter line(file, {});
    line.Begin(kRecord);
    line.Text("é");
    line.Text("Ж");
    line.End();
    file.Publish();
    EXPECT_EQ(testkit::ReadFile(dir.File("out")), "\xEF\xBB\xBF[XX]é|Ж|\r\n");
}

}  // namespace
}  // namespace quillon::exporting
