#include "core/ini_file.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/text.h"

namespace quillon {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";

std::string_view Stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"' ? text.substr(1, text.size() - 2)
                                                                         : text;
}

}  // namespace

IniFile IniFile::Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return Parse(text.str());
}

IniFile IniFile::Parse(std::string_view text) {
    IniFile parsed;
    if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
    std::string section;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Stripped(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t equals = line.find('=');
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[' && line.back() == ']') {
            section = Stripped(line.substr(1, line.size() - 2));
            parsed.entries_.push_back({section, {}, {}});
        } else if (equals != std::string_view::npos && equals > 0) {
            parsed.entries_.push_back({section, std::string(Stripped(line.substr(0, equals))),
                                       std::string(Unquoted(Stripped(line.substr(equals + 1))))});
        }
    }
    return parsed;
}

std::optional<std::string> IniFile::Value(std::string_view section, std::string_view key) const {
    for (const Entry& entry : entries_) {
        if (!entry.key.empty() && EqualText(entry.section, section) && EqualText(entry.key, key))
            return entry.value;
    }
    return std::nullopt;
}

bool IniFile::HasSection(std::string_view section) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&](const Entry& entry) { return EqualText(entry.section, section); });
}

}  // namespace quillon
