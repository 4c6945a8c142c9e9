#include "core/ini_file.h"

#include <algorithm>

#include "core/codepage.h"
#include "core/file_replace.h"
#include "core/text.h"

namespace quillon {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kQuotes = "\"'";

std::string_view Stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() &&
           kQuotes.find(text.front()) != std::string_view::npos;
}

std::string_view Unquoted(std::string_view text) {
    return IsQuoted(text) ? text.substr(1, text.size() - 2) : text;
}

// Quotes protect blanks and quotes that reading would strip.
std::string Quoted(std::string_view value) {
    if (!IsQuoted(value) && Stripped(value).size() == value.size()) return std::string(value);
    return '"' + std::string(value) + '"';
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool EqualName(std::string_view left, std::string_view right) {
    return left == right || EqualText(left, right);
}

}  // namespace

IniFile IniFile::Read(const std::string& path) {
    return Parse(ReadSmallFile(path).bytes);
}

IniFile IniFile::Parse(std::string_view bytes) {
    IniFile parsed;
    std::string decoded;
    if (bytes.starts_with(kMark)) {
        parsed.encoding_ = Encoding::Utf8WithMark;
        decoded = RepairUtf8(bytes.substr(kMark.size()));
    } else if (!IsAscii(bytes) && IsValidUtf8(bytes)) {
        parsed.encoding_ = Encoding::Utf8;
        decoded = bytes;
    } else {
        decoded = Cp1252ToUtf8(bytes);
    }
    std::string section;
    for (std::string_view text = decoded; !text.empty();) {
        const std::size_t feed = text.find('\n');
        const std::size_t next = feed == std::string_view::npos ? text.size() : feed + 1;
        std::size_t end = std::min(feed, text.size());
        if (end < next && end > 0 && text[end - 1] == '\r') --end;
        Line& line = parsed.AddLine(parsed.lines_.size(), std::string(text.substr(0, end)), section);
        line.end = text.substr(end, next - end);
        section = line.section;
        text.remove_prefix(next);
    }
    return parsed;
}

// Splits the line into key and value; a line that is neither a section nor a key belongs to the section
// above.
IniFile::Line& IniFile::AddLine(std::size_t at, std::string text, std::string_view section) {
    Line line{std::move(text), {}, std::string(section), {}, {}};
    const std::string_view shown = Stripped(line.text);
    const std::size_t equals = shown.find('=');
    if (!shown.empty() && shown.front() != ';') {
        if (shown.front() == '[' && shown.back() == ']') {
            line.section = Stripped(shown.substr(1, shown.size() - 2));
        } else if (equals != std::string_view::npos && equals > 0) {
            line.key = Stripped(shown.substr(0, equals));
            line.value = Unquoted(Stripped(shown.substr(equals + 1)));
        }
    }
    return *lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

std::optional<std::string> IniFile::Value(std::string_view section, std::string_view key) const {
    for (const Line& line : lines_) {
        if (!line.key.empty() && EqualName(line.section, section) && EqualName(line.key, key))
            return line.value;
    }
    return std::nullopt;
}

bool IniFile::HasSection(std::string_view section) const {
    return !section.empty() && std::any_of(lines_.begin(), lines_.end(), [&](const Line& line) {
        return EqualName(line.section, section);
    });
}

std::vector<std::string> IniFile::Keys(std::string_view section) const {
    std::vector<std::string> keys;
    for (const Line& line : lines_) {
        if (!line.key.empty() && EqualName(line.section, section)) keys.push_back(line.key);
    }
    return keys;
}

bool IniFile::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return false;
    for (Line& line : lines_) {
        if (line.key.empty() || !EqualName(line.section, section) || !EqualName(line.key, key)) continue;
        if (line.value == value) return true;
        line.text = line.text.substr(0, line.text.find('=') + 1) + Quoted(value);
        line.value = value;
        return true;
    }
    const std::string end = LineEnd();
    const std::size_t at = EndOfSection(section);
    AddLine(at, std::string(key) + "=" + Quoted(value), section).end = end;
    return true;
}

// The position after the section's last line that is not blank. A missing section is added at the end of the
// file.
std::size_t IniFile::EndOfSection(std::string_view section) {
    const auto inSection = [&](const Line& line) { return EqualName(line.section, section); };
    const auto first = std::find_if(lines_.begin(), lines_.end(), inSection);
    const std::string end = LineEnd();
    if (!lines_.empty() && lines_.back().end.empty()) lines_.back().end = end;
    if (first == lines_.end()) {
        if (!lines_.empty() && !Stripped(lines_.back().text).empty())
            AddLine(lines_.size(), "", lines_.back().section).end = end;
        AddLine(lines_.size(), "[" + std::string(section) + "]", section).end = end;
        return lines_.size();
    }
    auto last = std::find_if_not(first, lines_.end(), inSection);
    while (Stripped((last - 1)->text).empty()) --last;
    return static_cast<std::size_t>(last - lines_.begin());
}

// The line end that the file uses.
std::string IniFile::LineEnd() const {
    return !lines_.empty() && lines_.front().end == "\n" ? "\n" : "\r\n";
}

std::string IniFile::Bytes() const {
    std::string text;
    for (const Line& line : lines_) text += line.text + line.end;
    if (encoding_ == Encoding::Utf8) return text;
    if (encoding_ == Encoding::Cp1252) {
        const auto bytes = Utf8ToCp1252(text);
        if (bytes && (IsAscii(*bytes) || !IsValidUtf8(*bytes))) return *bytes;
    }
    return std::string(kMark) + text;
}

}  // namespace quillon
