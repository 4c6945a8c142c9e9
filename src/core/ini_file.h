// A profile file: sections in brackets, a key and its value a line, read at the start of the program. Names
// of sections and keys are found without regard to case; the first of several counts. The text is UTF-8, with
// or without its mark.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class IniFile {
public:
    // A file that cannot be read is empty.
    static IniFile Read(const std::string& path);
    static IniFile Parse(std::string_view text);

    // Without the blanks around it, and without one pair of double quotes; nothing when the key is missing.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    bool HasSection(std::string_view section) const;

private:
    struct Entry {
        std::string section, key, value;
    };
    std::vector<Entry> entries_;  // a section's own line has no key
};

}  // namespace quillon
