#include "import/import_log.h"

#include <filesystem>

namespace quillon::importing {

std::string PathIn(const std::string& directory, std::string_view name) {
    return (std::filesystem::path(directory) / name).string();
}

ImportLog::ImportLog(const std::string& directory)
    : path_(PathIn(directory, kLogName)), file_(path_, std::ios::binary | std::ios::trunc) {}

void ImportLog::Write(const Finding& finding) {
    file_ << finding.sentence << "\r\n";
    if (!finding.line.empty()) file_ << "     " << finding.line << "\r\n";
}

bool ImportLog::Close() {
    file_.flush();
    const bool written = file_.good();
    file_.close();
    return written && file_.good();
}

}  // namespace quillon::importing
