// The two logs of a validation: "validate.log" with the findings for people to read, "vtime.log" with the
// times of its beginning and end. The driver writes them; the findings come to it as data.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "validation/findings.h"

namespace quillon::validation {

inline constexpr std::string_view kLogName = "validate.log";
inline constexpr std::string_view kTimeLogName = "vtime.log";

// `name` in `directory`; `name` itself when there is no directory.
std::string PathIn(const std::string& directory, std::string_view name);

// Whether there are findings to show: the "validate.log" in `directory` is there, and holds something.
bool HasFindings(const std::string& directory);

// A file of lines closed by CR LF, emptied when opened.
class LineFile {
public:
    explicit LineFile(std::string path);

    const std::string& Path() const { return path_; }
    bool Open() const { return file_.is_open(); }
    void Print(std::string_view line);
    // Lines so far; a line break within a line counts.
    std::uint32_t Lines() const { return lines_; }
    // False when not all of it could be written.
    bool Close();

private:
    std::string path_;
    std::ofstream file_;
    std::uint32_t lines_ = 0;
};

// Prints a finding: its heading when it has one, then its message. Gives where it stands.
FindingMark PrintFinding(LineFile& log, const Finding& finding);

}  // namespace quillon::validation
