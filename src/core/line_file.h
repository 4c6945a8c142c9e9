// A text file that a job writes line by line: logs and reports.
//
// It overwrites only a regular file: a device or a pipe is refused, and so is a file that the job reads.
// Nothing here throws except when memory runs out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// `name` in `directory`; just `name` when `directory` is empty.
std::string PathIn(const std::string& directory, std::string_view name);

class LineFile {
public:
    static constexpr std::string_view kCrLf = "\r\n", kLineFeed = "\n";

    // Opens and truncates the file, unless it is the same file as one of `inUse`. Failure() returns the
    // reason when it could not be opened.
    explicit LineFile(std::string path, const std::vector<std::string>& inUse = {},
                      std::string_view lineEnd = kCrLf);
    // Writes buffered lines; call Close() to find out whether that worked.
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    const std::string& Path() const { return path_; }
    bool Open() const { return descriptor_ >= 0; }
    // The first failure, as a text for the user; empty when there is none.
    const std::string& Failure() const { return failure_; }
    // Appends the line and a line end.
    void Print(std::string_view line);
    // Lines so far; a line break within a line counts.
    std::uint32_t Lines() const { return lines_; }
    // False when not everything could be written.
    bool Close();

private:
    void OpenFile(const std::vector<std::string>& inUse);
    void Flush();
    void Fail(int error);

    std::string path_, buffer_, failure_;
    std::string_view lineEnd_;
    int descriptor_ = -1;
    std::uint32_t lines_ = 0;
};

}  // namespace quillon
