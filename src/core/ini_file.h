// A profile file as text: sections in brackets, one key and its value in each line, comments after a
// semicolon. Names of sections and keys are not case-sensitive; the first of several counts. This class reads
// files; ini_profile.h writes them.
//
// The bytes are CP1252. A file that begins with the byte order mark of UTF-8, or whose bytes are well-formed
// UTF-8, is read and written as UTF-8. A CP1252 file becomes UTF-8 with the mark when a new value needs it,
// so every value that was written is read back. Unchanged lines keep their text, order and line ends.
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
    static IniFile Parse(std::string_view bytes);

    // Without surrounding blanks and one pair of quotes; empty when the key is missing.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    bool HasSection(std::string_view section) const;
    // In the spelling and order of the file, with duplicates.
    std::vector<std::string> Keys(std::string_view section) const;

    // Replaces the first such key, or adds one at the end of its section. Returns false and changes nothing
    // when the value has a line break or a NUL.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    std::string Bytes() const;

private:
    enum class Encoding { Cp1252, Utf8, Utf8WithMark };
    struct Line {
        std::string text;  // without its line end
        std::string end;
        std::string section, key, value;  // a section line has no key, any other line no section
    };
    Line& AddLine(std::size_t at, std::string text, std::string_view section);
    std::size_t EndOfSection(std::string_view section);
    std::string LineEnd() const;

    Encoding encoding_ = Encoding::Cp1252;
    std::vector<Line> lines_;
};

}  // namespace quillon
