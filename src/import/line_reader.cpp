#include "import/line_reader.h"

#include <algorithm>
#include <cstring>

#include "core/codepage.h"
#include "core/text.h"

namespace quillon::importing {

namespace {

constexpr std::size_t kBlock = std::size_t{1024} * 1024;
// Enough for the head of a long line, whatever its characters are.
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

}  // namespace

LineReader::LineReader(ByteSource& source)
    : source_(source), block_(std::make_unique_for_overwrite<char[]>(kBlock)) {
    FindLineEnds();
}

void LineReader::FindLineEnds() {
    bool afterReturn = false;
    while (!carriageReturns_ && Refill()) {
        const std::string_view block(block_.get(), size_);
        carriageReturns_ =
            (afterReturn && block.front() == '\n') || block.find("\r\n") != std::string_view::npos;
        afterReturn = block.back() == '\r';
    }
    source_.Rewind();
    position_ = size_ = 0;
}

bool LineReader::Refill() {
    position_ = size_ = 0;
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

// The place of the LF that ends the line, in the block.
std::size_t LineReader::FindEnd() const {
    for (std::size_t from = position_; from < size_;) {
        const auto* found = static_cast<const char*>(std::memchr(block_.get() + from, '\n', size_ - from));
        if (found == nullptr) break;
        const auto at = static_cast<std::size_t>(found - block_.get());
        if (!carriageReturns_) return at;
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
    // One byte more than the longest line: it may be the CR of the line end.
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
        const std::size_t lineEnd = carriageReturns_ ? 1 : 0;
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

// `bytes` is the line, perhaps with its CR, or the head of a line that is too long.
LineReader::Kind LineReader::Give(std::string_view bytes, std::size_t length) {
    bytesRead_ += static_cast<std::int64_t>(length);
    const bool tooLong = length > kLongestLine;
    bytes = bytes.substr(0, tooLong ? kHeadBytes : length);
    if (!IsAscii(bytes)) {
        if (utf8_) {
            if (tooLong || !IsValidUtf8(bytes)) {
                converted_ = RepairUtf8(bytes);
                bytes = converted_;
            }
        } else {
            converted_.clear();
            AppendCp1252AsUtf8(bytes, converted_);
            bytes = converted_;
        }
    }
    text_ = tooLong ? LeftCharacters(bytes, kHeadOfLongLine) : bytes;
    return tooLong ? Kind::TooLong : Kind::Line;
}

}  // namespace quillon::importing
