#include "export/line_writer.h"

#include <charconv>
#include <cstring>
#include <utility>

#include "core/codepage.h"

namespace quillon::exporting {

using exchange::kSeparator;

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighs = 0x8080808080808080;

bool HoldsBreak(std::string_view value) {
    return value.find_first_of("|\r\n") != std::string_view::npos;
}

}  // namespace

std::string Describe(const OddValue& value) {
    std::string text = value.field;
    if (!value.record.empty()) text += " of " + value.record;
    text += ": " + value.value;
    for (char& c : text)
        if (c == '\r' || c == '\n') c = ' ';
    return text;
}

void LineWriter::Begin(const RecordLayout& layout) {
    layout_ = &layout;
    start_ = out_.size();
    fields_.clear();
    out_ += layout.tag;
}

void LineWriter::Text(std::string_view value) {
    fields_.push_back(out_.size() - start_);
    out_ += value;
    out_ += kSeparator;
}

void LineWriter::Number(std::int64_t value) {
    if (value == 0) return Empty();
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    Text({digits, static_cast<std::size_t>(end - digits)});
}

void LineWriter::Date(std::string_view stored) {
    Text(exchange::WrittenDate(stored, FieldForm::Date));
}

void LineWriter::Stamp(std::string_view stored) {
    Text(exchange::WrittenDate(stored, FieldForm::Stamp));
}

// Tests eight bytes at a time. The test for bytes below the blank may have false positives.
LineWriter::Look LineWriter::LookAt(std::string_view line) {
    Look look;
    std::uint64_t high = 0, low = 0;
    std::size_t at = 0;
    for (; at + 8 <= line.size(); at += 8) {
        std::uint64_t word;
        std::memcpy(&word, line.data() + at, 8);
        high |= word & kHighs;
        low |= (word - kOnes * 0x20) & ~word & kHighs;
        const std::uint64_t same = word ^ (kOnes * kSeparator);
        const std::uint64_t zeros = ~(((same & ~kHighs) + ~kHighs) | same) & kHighs;
        look.separators += static_cast<int>(((zeros >> 7) * kOnes) >> 56);
    }
    for (; at < line.size(); ++at) {
        const auto byte = static_cast<unsigned char>(line[at]);
        high |= byte & 0x80u;
        low |= byte < 0x20 ? 1u : 0u;
        look.separators += byte == kSeparator ? 1 : 0;
    }
    look.plain = high == 0;
    look.breaks = low != 0 && line.find_first_of("\r\n") != std::string_view::npos;
    return look;
}

std::string_view LineWriter::Field(std::size_t index, std::string_view line) const {
    const std::size_t end =
        index + 1 < fields_.size() ? fields_[index + 1] : line.size() + (layout_->closed ? 0 : 1);
    return line.substr(fields_[index], end - 1 - fields_[index]);
}

OddValue LineWriter::Odd(std::size_t index, std::string_view line) const {
    OddValue odd;
    if (!layout_->tag.empty()) odd.record = std::string(layout_->tag) + std::string(Field(0, line));
    odd.field = layout_->fields[index].column;
    odd.value = Field(index, line);
    return odd;
}

void LineWriter::Note(OddValues& values, OddValue value) {
    if (values.count++ == 0) values.first = std::move(value);
}

void LineWriter::NoteBreaking(std::string_view line) {
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (HoldsBreak(Field(i, line))) Note(breaking_, Odd(i, line));
}

void LineWriter::NoteForeign(std::string_view line) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (Utf8ToCp1252(Field(i, line))) continue;
        Note(foreign_, Odd(i, line));
        if (onForeign_) onForeign_(Odd(i, line));
    }
}

// Converts the line at the end of the buffer from UTF-8 to the file's encoding. Removes a line that cannot be
// converted.
bool LineWriter::Encode() {
    std::string line = out_.substr(start_);
    auto encoded = Utf8ToCp1252(line);
    if (!encoded) NoteForeign(line);
    if (file_.CurrentEncoding() == Encoding::Utf8) return true;
    out_.resize(start_);
    if (!encoded) {
        if (!file_.SwitchToUtf8(goOn_)) return false;
        encoded = std::move(line);
    }
    out_ += *encoded;
    return true;
}

bool LineWriter::End() {
    if (!layout_->closed) out_.pop_back();
    const std::string_view line = std::string_view(out_).substr(start_);
    const Look look = LookAt(line);
    const int expected = static_cast<int>(fields_.size()) - (layout_->closed ? 0 : 1);
    if (look.breaks || look.separators != expected) NoteBreaking(line);
    if (!look.plain && !Encode()) return false;
    out_ += kLineEnd;
    file_.LineDone();
    return true;
}

void LineWriter::Header(std::string_view line) {
    out_ += line;
    out_ += kLineEnd;
    file_.LineDone();
}

}  // namespace quillon::exporting
