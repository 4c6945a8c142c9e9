// The findings of an import, and the log that people read.
//
// A finding is data: a sentence, and the line of the file that it is about. Handlers hand findings to a sink;
// "import.err" is one, a test's list another. Nothing is kept in memory.
#pragma once

#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::importing {

inline constexpr std::string_view kLogName = "import.err";

struct Finding {
    std::string sentence;
    std::string line;  // UTF-8; empty for a finding of the closing pass, which is about no line
    bool operator==(const Finding&) const = default;
};

using FindingSink = std::function<void(const Finding&)>;

// "import.err" in a folder, written anew by each import: for each finding the sentence, then five blanks and
// the line.
class ImportLog {
public:
    // `directory` may be empty for the current one.
    explicit ImportLog(const std::string& directory);

    const std::string& Path() const { return path_; }
    // Makes the file, whatever was there before, but never over one of the files that the import uses, and
    // never over a pipe or a device. Returns why not; "" when the log is open.
    std::string Open(const std::vector<std::string>& used);
    void Write(const Finding& finding);
    // False when not all of it could be written.
    bool Close();

private:
    std::string path_;
    std::ofstream file_;
};

// `name` in `directory`; `name` itself when there is no directory.
std::string PathIn(const std::string& directory, std::string_view name);

}  // namespace quillon::importing
