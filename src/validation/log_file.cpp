#include "validation/log_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon::validation {

std::string PathIn(const std::string& directory, std::string_view name) {
    return (std::filesystem::path(directory) / name).string();
}

bool HasFindings(const std::string& directory) {
    std::error_code error;
    const auto size = std::filesystem::file_size(PathIn(directory, kLogName), error);
    return !error && size > 0;
}

LineFile::LineFile(std::string path)
    : path_(std::move(path)), file_(path_, std::ios::binary | std::ios::trunc) {}

void LineFile::Print(std::string_view line) {
    file_.write(line.data(), static_cast<std::streamsize>(line.size())).write("\r\n", 2);
    lines_ += 1 + static_cast<std::uint32_t>(std::count(line.begin(), line.end(), '\n'));
}

bool LineFile::Close() {
    file_.flush();
    const bool written = file_.good();
    file_.close();
    return written && file_.good();
}

FindingMark PrintFinding(LineFile& log, const Finding& finding) {
    if (!finding.heading.empty()) log.Print(finding.heading);
    const FindingMark mark = MarkOf(finding, log.Lines());
    log.Print(finding.message);
    return mark;
}

}  // namespace quillon::validation
