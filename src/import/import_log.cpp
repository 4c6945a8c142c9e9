#include "import/import_log.h"

#include <filesystem>
#include <system_error>

namespace quillon::importing {

std::string PathIn(const std::string& directory, std::string_view name) {
    return (std::filesystem::path(directory) / name).string();
}

ImportLog::ImportLog(const std::string& directory) : path_(PathIn(directory, kLogName)) {}

std::string ImportLog::Open(const std::vector<std::string>& used) {
    std::error_code error;
    for (const std::string& path : used) {
        if (std::filesystem::equivalent(path_, path, error))
            return "The log of the import would overwrite " + path + "!";
    }
    const auto type = std::filesystem::status(path_, error).type();
    if (type == std::filesystem::file_type::regular || type == std::filesystem::file_type::not_found)
        file_.open(path_, std::ios::binary | std::ios::trunc);
    return file_.is_open() ? "" : "File " + path_ + " cannot be written!";
}

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
