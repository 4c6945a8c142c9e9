// The lines of an exchange file as UTF-8 text, read in blocks so that neither a large file nor a monstrous
// line fills the memory.
//
// A line ends at CR LF; a lone CR or LF is an ordinary character, and so is NUL. Only in a file that holds no
// CR LF at all does LF end a line, and only in one that holds no LF either does CR. A file that begins with
// the UTF-8 byte order mark is UTF-8, and bytes in it that belong to no character are read as CP1252; any
// other file is CP1252. The last line needs no line end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "import/byte_source.h"

namespace quillon::importing {

// Longer lines, in bytes of the file without the line end, are passed over.
inline constexpr std::size_t kLongestLine = std::size_t{16} * 1024 * 1024;
// What is kept of a line that is passed over, in characters.
inline constexpr std::size_t kHeadOfLongLine = 200;

// How many lines are odd in one way, and the first of them.
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
        TooLong,  // the text is the head of a line that was passed over
        End,
    };

    // Looks through the source for its kind of line end. Throws ReadError, as Next() does. `turn` is called
    // at each block.
    explicit LineReader(ByteSource& source, std::function<void()> turn = {});
    Kind Next();
    // Valid until Next().
    std::string_view Text() const { return text_; }
    // The lengths of the lines given so far, in bytes of the file, line ends not counted.
    std::int64_t BytesRead() const { return bytesRead_; }
    // Of the line given last, from 1.
    std::int64_t Number() const { return number_; }
    // Among the lines given so far: those with NUL bytes, those of a UTF-8 file that are not well-formed, and
    // those of a CP1252 file with bytes that the code page leaves open.
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
    std::string held_;            // the beginning of a line that goes on in the next block
    std::size_t heldLength_ = 0;  // its length, more than held_ when the line is too long
    char lastHeld_ = '\0';
    std::string converted_;
    std::string_view text_;
    std::int64_t bytesRead_ = 0;
    std::int64_t number_ = 0;
    OddLines withNul_, notUtf8_, notCp1252_;
};

}  // namespace quillon::importing
