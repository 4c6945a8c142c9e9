// The findings of an import, and their log.
//
// A finding is a sentence and the line of the file that it is about. Handlers pass findings to a sink:
// "import.err", or a list in tests. Nothing is kept in memory.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/line_file.h"

namespace quillon::importing {

inline constexpr std::string_view kLogName = "import.err";

struct Finding {
    std::string sentence;
    std::string line;  // UTF-8; empty for a finding of the closing pass
    bool operator==(const Finding&) const = default;
};

using FindingSink = std::function<void(const Finding&)>;

// "import.err" in a folder, written anew by each import: for each finding the sentence, then five blanks and
// the line.
class ImportLog {
public:
    // `directory` may be empty for the current one. Never overwrites a file that the import uses, a pipe or a
    // device. Failure() returns the reason when there is no log.
    ImportLog(const std::string& directory, const std::vector<std::string>& inUse);

    const std::string& Path() const { return file_.Path(); }
    // The first failure; empty when there is none.
    const std::string& Failure() const { return file_.Failure(); }
    void Write(const Finding& finding);
    // False when not everything could be written.
    bool Close() { return file_.Close(); }

private:
    LineFile file_;
};

}  // namespace quillon::importing
