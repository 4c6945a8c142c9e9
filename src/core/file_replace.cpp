#include "core/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/descriptor.h"
#include "core/file_identity.h"
#include "core/temporary_file.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargest = 1 << 20;

std::string LastFailure() {
    return std::strerror(errno);
}

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// True when a run that wrote an older form of `content` can have left a file with these first bytes: nothing
// yet, the same beginning, or the same first line.
bool BeginsAlike(std::string_view first, std::string_view content) {
    const std::size_t line = first.find('\n');
    return content.starts_with(first) ||
           (line != std::string_view::npos && content.starts_with(first.substr(0, line + 1)));
}

}  // namespace

SmallFile ReadSmallFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen()) return {{}, errno == ENOENT || errno == ENOTDIR ? "" : LastFailure()};
    struct stat info {};
    if (fstat(file.Number(), &info) != 0) return {{}, LastFailure()};
    if (!S_ISREG(info.st_mode)) return {{}, "it is not a plain file"};
    std::string bytes(kLargest + 1, '\0');
    std::size_t size = 0;
    while (size < bytes.size()) {
        const ssize_t got = read(file.Number(), bytes.data() + size, bytes.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return {{}, LastFailure()};
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    if (size > kLargest) return {{}, "it is too large"};
    bytes.resize(size);
    return {std::move(bytes), {}};
}

std::string ReplaceFile(const std::string& path, std::string_view content) {
    const std::string target = RealPath(path);
    std::error_code failure;
    fs::create_directories(FolderOf(target), failure);
    if (failure) return failure.message();
    try {
        TemporaryFile file(target, [content](std::string_view first) { return BeginsAlike(first, content); });
        file.Write(content);
        file.Publish();
        return "";
    } catch (const FileError& error) {
        return std::strerror(error.Number());
    }
}

}  // namespace quillon
