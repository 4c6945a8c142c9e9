// A text file that a job writes line by line from its start: the logs, and the reports that people read.
//
// It replaces an ordinary file, and nothing else: a device or a pipe is refused, and so is a file that the
// job itself reads. Nothing here throws but for want of memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// `name` in `directory`; `name` itself when there is no directory.
std::string PathIn(const std::string& directory, std::string_view name);

class LineFile {
public:
    static constexpr std::string_view kCrLf = "\r\n", kLineFeed = "\n";

    // Opens the file and empties it, unless it is one of `inUse`, by whatever name. Failure() has the reason
    // when it could not be opened.
    explicit LineFile(std::string path, const std::vector<std::string>& inUse = {},
                      std::string_view lineEnd = kCrLf);
    // Writes what is left; call Close() to learn whether that worked.
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    const std::string& Path() const { return path_; }
    bool Open() const { return descriptor_ >= 0; }
    // The first failure, in plain words; empty as long as all went well.
    const std::string& Failure() const { return failure_; }
    // Adds the line and its end.
    void Print(std::string_view line);
    // Lines so far; a line break within a line counts.
    std::uint32_t Lines() const { return lines_; }
    // False when not all of it could be written.
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
