// The lines of an exchange file as UTF-8 text, read in blocks so that neither a large file nor a monstrous
// line fills the memory.
//
// A line ends at CR LF; a lone CR or LF is an ordinary character, and so is NUL. Only in a file that holds no
// CR LF at all does LF end a line. A file that begins with the UTF-8 byte order mark is UTF-8, and bytes in
// it that belong to no character are read as CP1252; any other file is CP1252. The last line needs no line
// end.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "import/byte_source.h"

namespace quillon::importing {

// Longer lines, in bytes of the file without the line end, are passed over.
inline constexpr std::size_t kLongestLine = std::size_t{16} * 1024 * 1024;
// What is kept of a line that is passed over, in characters.
inline constexpr std::size_t kHeadOfLongLine = 200;

class LineReader {
public:
    enum class Kind {
        Line,
        TooLong,  // the text is the head of a line that was passed over
        End,
    };

    // Looks through the source for its kind of line end. Throws ReadError, as Next() does.
    explicit LineReader(ByteSource& source);
    Kind Next();
    // Valid until Next().
    std::string_view Text() const { return text_; }
    // The lengths of the lines given so far, in bytes of the file, line ends not counted.
    std::int64_t BytesRead() const { return bytesRead_; }

private:
    void FindLineEnds();
    bool Refill();
    bool TakeByteOrderMark();
    std::size_t FindEnd() const;
    void Hold(std::string_view part);
    Kind Give(std::string_view bytes, std::size_t length);

    ByteSource& source_;
    std::unique_ptr<char[]> block_;
    std::size_t position_ = 0;
    std::size_t size_ = 0;
    bool carriageReturns_ = false;  // lines end at CR LF
    bool utf8_ = false;
    bool started_ = false;
    std::string held_;            // the beginning of a line that goes on in the next block
    std::size_t heldLength_ = 0;  // its length, more than held_ when the line is too long
    char lastHeld_ = '\0';
    std::string converted_;
    std::string_view text_;
    std::int64_t bytesRead_ = 0;
};

}  // namespace quillon::importing
