#include "import/line_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "core/codepage.h"
#include "core/text.h"

namespace quillon::importing {

namespace {

constexpr std::size_t kBlock = std::size_t{1024} * 1024;
// Enough bytes for the head of a long line.
constexpr std::size_t kHeadBytes = 4 * kHeadOfLongLine + 4;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsAscii(std::string_view bytes) {
    std::uint64_t bits = 0;
    std::size_t at = 0;
    for (; at + sizeof bits <= bytes.size(); at += sizeof bits) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        bits |= word;
    }
    for (; at < bytes.size(); ++at) bits |= static_cast<unsigned char>(bytes[at]);
    return (bits & 0x8080808080808080U) == 0;
}

bool IsOpenInCp1252(char byte) {
    switch (static_cast<unsigned char>(byte)) {
        case 0x81:
        case 0x8D:
        case 0x8F:
        case 0x90:
        case 0x9D:
            return true;
        default:
            return false;
    }
}

}  // namespace

LineReader::LineReader(ByteSource& source, std::function<void()> turn)
    : source_(source), turn_(std::move(turn)), block_(std::make_unique_for_overwrite<char[]>(kBlock)) {
    FindLineEnds();
}

void LineReader::FindLineEnds() {
    bool afterReturn = false, feeds = false, returns = false, both = false;
    while (!both && Refill()) {
        const std::string_view block(block_.get(), size_);
        both = (afterReturn && block.front() == '\n') || block.find("\r\n") != std::string_view::npos;
        feeds = feeds || block.find('\n') != std::string_view::npos;
        returns = returns || block.find('\r') != std::string_view::npos;
        afterReturn = block.back() == '\r';
    }
    if (both)
        lineEnd_ = LineEnd::ReturnAndFeed;
    else if (returns && !feeds)
        lineEnd_ = LineEnd::Return;
    source_.Rewind();
    position_ = size_ = 0;
}

bool LineReader::Refill() {
    position_ = size_ = 0;
    if (turn_) turn_();
    while (size_ < kBlock) {
        const std::size_t count = source_.Read(block_.get() + size_, kBlock - size_);
        if (count == 0) break;
        size_ += count;
    }
    return size_ > 0;
}

bool LineReader::TakeByteOrderMark() {
    started_ = true;
    if (!Refill()) return false;
    if (std::string_view(block_.get(), size_).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        utf8_ = true;
        position_ = kByteOrderMark.size();
    }
    return position_ < size_;
}

// The position in the block of the LF or CR that ends the line.
std::size_t LineReader::FindEnd() const {
    const char last = lineEnd_ == LineEnd::Return ? '\r' : '\n';
    for (std::size_t from = position_; from < size_;) {
        const auto* found = static_cast<const char*>(std::memchr(block_.get() + from, last, size_ - from));
        if (found == nullptr) break;
        const auto at = static_cast<std::size_t>(found - block_.get());
        if (lineEnd_ != LineEnd::ReturnAndFeed) return at;
        const bool heldBefore = at == position_ && heldLength_ > 0;
        if (heldBefore ? lastHeld_ == '\r' : at > position_ && block_[at - 1] == '\r') return at;
        from = at + 1;
    }
    return std::string_view::npos;
}

void LineReader::Hold(std::string_view part) {
    if (part.empty()) return;
    heldLength_ += part.size();
    lastHeld_ = part.back();
    // One byte more than the longest line, for the CR of the line end.
    if (heldLength_ <= kLongestLine + 1) {
        held_.append(part);
        return;
    }
    if (held_.size() < kHeadBytes) held_.append(part.substr(0, kHeadBytes - held_.size()));
    if (held_.size() > kHeadBytes) {
        held_.resize(kHeadBytes);
        held_.shrink_to_fit();
    }
}

LineReader::Kind LineReader::Next() {
    held_.clear();
    heldLength_ = 0;
    text_ = {};
    if (!started_ && !TakeByteOrderMark()) return Kind::End;
    for (;;) {
        if (position_ == size_ && !Refill()) {
            if (heldLength_ == 0) return Kind::End;
            return Give(held_, heldLength_);
        }
        const std::size_t end = FindEnd();
        const std::size_t stop = end == std::string_view::npos ? size_ : end;
        const std::string_view part(block_.get() + position_, stop - position_);
        position_ = end == std::string_view::npos ? size_ : end + 1;
        const std::size_t lineEnd = lineEnd_ == LineEnd::ReturnAndFeed ? 1 : 0;
        if (end == std::string_view::npos) {
            Hold(part);
        } else if (heldLength_ == 0) {
            return Give(part.substr(0, part.size() - lineEnd), part.size() - lineEnd);
        } else {
            Hold(part);
            return Give(held_, heldLength_ - lineEnd);
        }
    }
}

// The bytes as UTF-8, in place or in converted_.
std::string_view LineReader::Converted(std::string_view bytes, bool tooLong) {
    if (utf8_) {
        const bool valid = IsValidUtf8(bytes);
        if (valid && !tooLong) return bytes;
        // The head of a long line may end within a character.
        if (!tooLong) notUtf8_.Note(number_);
        converted_ = RepairUtf8(bytes);
        return converted_;
    }
    if (std::any_of(bytes.begin(), bytes.end(), IsOpenInCp1252)) notCp1252_.Note(number_);
    converted_.clear();
    AppendCp1252AsUtf8(bytes, converted_);
    return converted_;
}

// `bytes` is the line, possibly with its CR, or the head of a line that is too long.
LineReader::Kind LineReader::Give(std::string_view bytes, std::size_t length) {
    bytesRead_ += static_cast<std::int64_t>(length);
    ++number_;
    const bool tooLong = length > kLongestLine;
    bytes = bytes.substr(0, tooLong ? kHeadBytes : length);
    if (bytes.find('\0') != std::string_view::npos) withNul_.Note(number_);
    if (!IsAscii(bytes)) bytes = Converted(bytes, tooLong);
    text_ = tooLong ? LeftCharacters(bytes, kHeadOfLongLine) : bytes;
    return tooLong ? Kind::TooLong : Kind::Line;
}

}  // namespace quillon::importing
