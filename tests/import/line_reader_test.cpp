#include "import/line_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillon::importing {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

struct Read {
    std::vector<std::string> lines;  // a line that was too long begins with "TOO LONG: "
    std::int64_t bytes = 0;
    bool operator==(const Read&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Read& read) {
    for (const std::string& line : read.lines) out << '[' << line.substr(0, 200) << "] ";
    return out << read.bytes;
}

Read ReadAll(ByteSource& source) {
    LineReader reader(source);
    Read read;
    for (auto kind = reader.Next(); kind != LineReader::Kind::End; kind = reader.Next()) {
        const std::string prefix = kind == LineReader::Kind::TooLong ? "TOO LONG: " : "";
        read.lines.push_back(prefix + std::string(reader.Text()));
    }
    read.bytes = reader.BytesRead();
    return read;
}

Read ReadText(std::string_view text) {
    MemorySource source(text);
    return ReadAll(source);
}

// Gives one byte at a call, as a slow pipe would.
class DripSource : public ByteSource {
public:
    explicit DripSource(std::string_view bytes) : memory_(bytes) {}
    std::size_t Read(char* buffer, std::size_t) override { return memory_.Read(buffer, 1); }
    void Rewind() override { memory_.Rewind(); }
    std::int64_t Size() const override { return memory_.Size(); }

private:
    MemorySource memory_;
};

// A file of many lines that is never held in memory: `before`, then a run of "x", then `after`.
class LongLineSource : public ByteSource {
public:
    LongLineSource(std::string before, std::size_t run, std::string after)
        : before_(std::move(before)), run_(run), after_(std::move(after)) {}
    std::size_t Read(char* buffer, std::size_t size) override {
        std::size_t done = 0;
        for (; done < size && position_ < Total(); ++done, ++position_) buffer[done] = At(position_);
        return done;
    }
    void Rewind() override { position_ = 0; }
    std::int64_t Size() const override { return static_cast<std::int64_t>(Total()); }

private:
    std::size_t Total() const { return before_.size() + run_ + after_.size(); }
    char At(std::size_t place) const {
        if (place < before_.size()) return before_[place];
        place -= before_.size();
        return place < run_ ? 'x' : after_[place - run_];
    }
    std::string before_;
    std::size_t run_;
    std::string after_;
    std::size_t position_ = 0;
};

TEST(LineReader, AnEmptyFileHasNoLines) {
    EXPECT_EQ(ReadText(""), (Read{{}, 0}));
}

TEST(LineReader, ALineEndsAtCrLfAndTheLastNeedsNone) {
    EXPECT_EQ(ReadText("one\r\ntwo\r\nthree"), (Read{{"one", "two", "three"}, 11}));
    EXPECT_EQ(ReadText("one\r\ntwo\r\n"), (Read{{"one", "two"}, 6}));
}

TEST(LineReader, AnEmptyLineIsALine) {
    EXPECT_EQ(ReadText("one\r\n\r\ntwo"), (Read{{"one", "", "two"}, 6}));
}

TEST(LineReader, LoneCrAndLfAreOrdinaryCharactersInAFileWithCrLf) {
    EXPECT_EQ(ReadText("a\rb\nc\n\rd\r\ne\r\r\n\nf"), (Read{{"a\rb\nc\n\rd", "e\r", "\nf"}, 12}));
}

TEST(LineReader, AFileWithoutCrLfEndsItsLinesAtLf) {
    EXPECT_EQ(ReadText("a\nb\rc\n\nd"), (Read{{"a", "b\rc", "", "d"}, 5}));
}

TEST(LineReader, AFileWithoutLineEndsIsOneLine) {
    EXPECT_EQ(ReadText("a b"), (Read{{"a b"}, 3}));
}

TEST(LineReader, NulIsAnOrdinaryCharacter) {
    const std::string text("a\0b\r\n\0\r\n", 8);
    EXPECT_EQ(ReadText(text), (Read{{std::string("a\0b", 3), std::string(1, '\0')}, 4}));
}

TEST(LineReader, BytesAreCp1252AndCountAsBytes) {
    EXPECT_EQ(ReadText("caf\xE9\r\n\x80"), (Read{{"caf\u00e9", "\u20ac"}, 5}));
}

TEST(LineReader, BytesThatTheCodePageLeavesOpenAreControlCharacters) {
    EXPECT_EQ(ReadText("\x81\x8D\x8F\x90\x9D"), (Read{{"\u0081\u008d\u008f\u0090\u009d"}, 5}));
}

TEST(LineReader, AFileWithTheByteOrderMarkIsUtf8) {
    EXPECT_EQ(ReadText(std::string(kMark) + "caf\u00e9\r\n\u017e"), (Read{{"caf\u00e9", "\u017e"}, 7}));
    EXPECT_EQ(ReadText(kMark), (Read{{}, 0}));
    EXPECT_EQ(ReadText("\xEF\xBB"), (Read{{"\u00ef\u00bb"}, 2}));
}

TEST(LineReader, BytesThatAreNoUtf8AreReadAsCp1252) {
    EXPECT_EQ(ReadText(std::string(kMark) + "caf\xE9 \u017e"), (Read{{"caf\u00e9 \u017e"}, 7}));
}

TEST(LineReader, TheMarkIsOneOnlyAtTheBeginning) {
    EXPECT_EQ(ReadText("a\r\n" + std::string(kMark)), (Read{{"a", "\u00ef\u00bb\u00bf"}, 4}));
}

TEST(LineReader, ShortReadsGiveTheSameLines) {
    DripSource source("one\r\ntw\ro\r\n\xE9");
    EXPECT_EQ(ReadAll(source), (Read{{"one", "tw\ro", "\u00e9"}, 8}));
}

TEST(LineReader, ALineEndMayFallBetweenTwoBlocks) {
    constexpr std::size_t block = 1024 * 1024;
    for (const std::size_t length : {block - 2, block - 1, block, block + 1}) {
        const std::string first(length, 'a');
        EXPECT_EQ(ReadText(first + "\r\nb\r\nc"),
                  (Read{{first, "b", "c"}, static_cast<std::int64_t>(length) + 2}))
            << length;
    }
    const std::string untilReturn(block - 1, 'a');
    EXPECT_EQ(ReadText(untilReturn + "\rb\r\n"),
              (Read{{untilReturn + "\rb"}, static_cast<std::int64_t>(block) + 1}));
    // The one CR LF of the file is cut in two.
    EXPECT_EQ(ReadText(untilReturn + "\r\nb\nc"),
              (Read{{untilReturn, "b\nc"}, static_cast<std::int64_t>(block) + 2}));
}

TEST(LineReader, TheLongestLineIsReadAndALongerOneIsPassedOver) {
    LongLineSource longest("a\r\n", kLongestLine, "\r\nb");
    EXPECT_EQ(ReadAll(longest), (Read{{"a", std::string(kLongestLine, 'x'), "b"},
                                      static_cast<std::int64_t>(kLongestLine) + 2}));
    LongLineSource longer("a\r\n", kLongestLine + 1, "\r\nb");
    EXPECT_EQ(ReadAll(longer), (Read{{"a", "TOO LONG: " + std::string(200, 'x'), "b"},
                                     static_cast<std::int64_t>(kLongestLine) + 3}));
}

TEST(LineReader, ALongLastLineNeedsNoLineEnd) {
    LongLineSource source("a\r\n", 20 * 1024 * 1024, "");
    EXPECT_EQ(ReadAll(source), (Read{{"a", "TOO LONG: " + std::string(200, 'x')}, 20 * 1024 * 1024 + 1}));
}

TEST(LineReader, TheHeadOfALongLineIsCountedInCharacters) {
    std::string head;
    std::string shown;
    for (int place = 0; place < 150; ++place) {
        head += "\xE9";
        shown += "\u00e9";
    }
    LongLineSource source(head, 17 * 1024 * 1024, "\r\n");
    EXPECT_EQ(ReadAll(source), (Read{{"TOO LONG: " + shown + std::string(50, 'x')}, 17 * 1024 * 1024 + 150}));
}

TEST(LineReader, AFileOfLoneCarriageReturnsIsReadByThem) {
    EXPECT_EQ(ReadText("a\rb\r\rc"), (Read{{"a", "b", "", "c"}, 3}));
    EXPECT_EQ(ReadText("a\rb\nc\r"), (Read{{"a\rb", "c\r"}, 5}));
}

TEST(LineReader, OddLinesAreCountedWithTheFirst) {
    MemorySource source(std::string_view("a\r\nb\0\r\n\x81\r\n\xE9\0\r\n\x9D\r\n", 17));
    LineReader reader(source);
    while (reader.Next() != LineReader::Kind::End) continue;
    EXPECT_EQ(reader.Number(), 5);
    EXPECT_EQ(reader.WithNul().count, 2);
    EXPECT_EQ(reader.WithNul().first, 2);
    EXPECT_EQ(reader.NotCp1252().count, 2);
    EXPECT_EQ(reader.NotCp1252().first, 3);
    EXPECT_EQ(reader.NotUtf8().count, 0);
}

TEST(LineReader, BytesThatAreNotUtf8AreOddInAFileWithTheMark) {
    const std::string text = std::string(kMark) + "\u00e9\r\n\xE9\r\n\x81\r\n";
    MemorySource source(text);
    LineReader reader(source);
    while (reader.Next() != LineReader::Kind::End) continue;
    EXPECT_EQ(reader.NotUtf8().count, 2);
    EXPECT_EQ(reader.NotUtf8().first, 2);
    EXPECT_EQ(reader.NotCp1252().count, 0);
}

TEST(LineReader, AMissingFileIsAReadError) {
    EXPECT_THROW(FileSource("no such folder/no such file.qln"), ReadError);
}

TEST(LineReader, APipeIsAReadErrorAndLosesNothing) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    ASSERT_EQ(write(ends[1], "a\r\n", 3), 3);
    const std::string path = "/dev/fd/" + std::to_string(ends[0]);
    std::string message;
    try {
        const FileSource source(path);
    } catch (const ReadError& error) {
        message = error.what();
    }
    EXPECT_EQ(message, "File " + path + " cannot be read!");
    std::array<char, 8> rest{};
    EXPECT_EQ(read(ends[0], rest.data(), rest.size()), 3);
    for (const int end : ends) close(end);
}

TEST(LineReader, AFolderIsAReadError) {
    EXPECT_THROW(FileSource("."), ReadError);
}

}  // namespace
}  // namespace quillon::importing
