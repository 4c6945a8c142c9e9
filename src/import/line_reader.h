// Reads the lines of an exchange file as UTF-8, in blocks, so that memory is bounded for any file and any
// line.
//
// A line ends at CR LF; a lone CR, a lone LF and NUL are ordinary characters. In a file without CR LF, lines
// end at LF; in a file without LF, at CR. A file that begins with the UTF-8 byte order mark is UTF-8, and
// bytes in it that belong to no character are read as CP1252; any other file is CP1252. The last line needs
// no line end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "import/byte_source.h"

namespace quillon::importing {

// Longer lines are skipped. In bytes of the file, without the line end.
inline constexpr std::size_t kLongestLine = std::size_t{16} * 1024 * 1024;
// The number of characters kept of a skipped line.
inline constexpr std::size_t kHeadOfLongLine = 200;

// The number of lines with some peculiarity, and the first of them.
struct OddLines {
    std::int64_t count = 0;
    std::int64_t first = 0;

    void Note(std::int64_t line) {
        if (count++ == 0) first = line;
    }
};

class LineReader {
public:
    enum class Kind {
        Line,
        TooLong,  // the text is the head of a skipped line
        End,
    };

    // Reads the source to find its kind of line end. Throws ReadError, like Next(). `turn` is called for each
    // block.
    explicit LineReader(ByteSource& source, std::function<void()> turn = {});
    Kind Next();
    // Valid until Next().
    std::string_view Text() const { return text_; }
    // The total length of the lines returned so far, in bytes of the file, without line ends.
    std::int64_t BytesRead() const { return bytesRead_; }
    // The number of the last line, from 1.
    std::int64_t Number() const { return number_; }
    // Of the lines returned so far: those with NUL bytes, those of a UTF-8 file that are not well-formed, and
    // those of a CP1252 file with undefined bytes.
    const OddLines& WithNul() const { return withNul_; }
    const OddLines& NotUtf8() const { return notUtf8_; }
    const OddLines& NotCp1252() const { return notCp1252_; }

private:
    enum class LineEnd { ReturnAndFeed, Feed, Return };

    void FindLineEnds();
    bool Refill();
    bool TakeByteOrderMark();
    std::size_t FindEnd() const;
    void Hold(std::string_view part);
    std::string_view Converted(std::string_view bytes, bool tooLong);
    Kind Give(std::string_view bytes, std::size_t length);

    ByteSource& source_;
    std::function<void()> turn_;
    std::unique_ptr<char[]> block_;
    std::size_t position_ = 0;
    std::size_t size_ = 0;
    LineEnd lineEnd_ = LineEnd::Feed;
    bool utf8_ = false;
    bool started_ = false;
    std::string held_;            // the beginning of a line that continues in the next block
    std::size_t heldLength_ = 0;  // its length, more than held_ when the line is too long
    char lastHeld_ = '\0';
    std::string converted_;
    std::string_view text_;
    std::int64_t bytesRead_ = 0;
    std::int64_t number_ = 0;
    OddLines withNul_, notUtf8_, notCp1252_;
};

}  // namespace quillon::importing
