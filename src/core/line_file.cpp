#include "core/line_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "core/target_check.h"

namespace quillon {

namespace {

constexpr std::size_t kBufferSize = 1 << 16;

// Empty for no fault.
std::string RefusalOf(const std::string& path, const std::vector<std::string>& inUse) {
    switch (FaultOfTarget(path, inUse)) {
        case TargetFault::InUse:
            return path + " is in use by this job.";
        case TargetFault::NotOrdinary:
            return path + " is not an ordinary file.";
        case TargetFault::DataSet:
            return path + " is a DataSet.";
        case TargetFault::None:
            break;
    }
    return {};
}

}  // namespace

std::string PathIn(const std::string& directory, std::string_view name) {
    return (std::filesystem::path(directory) / name).string();
}

LineFile::LineFile(std::string path, const std::vector<std::string>& inUse, std::string_view lineEnd)
    : path_(std::move(path)), lineEnd_(lineEnd) {
    OpenFile(inUse);
}

LineFile::~LineFile() {
    try {
        Close();
    } catch (const std::exception&) {
        // A caller that needs the failure calls Close().
        failure_.clear();
    }
}

// Checks the file before it opens it: opening some devices has side effects, and closing a file in use would
// drop the locks that this process holds on it.
void LineFile::OpenFile(const std::vector<std::string>& inUse) {
    failure_ = RefusalOf(path_, inUse);
    if (!failure_.empty()) return;
    descriptor_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, 0666);
    if (descriptor_ < 0) Fail(errno);
}

void LineFile::Fail(int error) {
    if (failure_.empty()) failure_ = path_ + " cannot be written: " + std::strerror(error) + ".";
}

void LineFile::Print(std::string_view line) {
    lines_ += 1 + static_cast<std::uint32_t>(std::count(line.begin(), line.end(), '\n'));
    if (!Open() || !failure_.empty()) return;
    buffer_.append(line).append(lineEnd_);
    if (buffer_.size() >= kBufferSize) Flush();
}

void LineFile::Flush() {
    std::string_view rest = buffer_;
    while (!rest.empty() && failure_.empty()) {
        const ssize_t written = write(descriptor_, rest.data(), rest.size());
        if (written > 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            Fail(written == 0 ? ENOSPC : errno);
        }
    }
    buffer_.clear();
}

bool LineFile::Close() {
    if (Open()) {
        Flush();
        if (close(std::exchange(descriptor_, -1)) != 0) Fail(errno);
    }
    return failure_.empty();
}

}  // namespace quillon
