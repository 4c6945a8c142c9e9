#include "core/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargest = 1 << 20;
constexpr mode_t kAccessBits = 07777;

std::string LastFailure() {
    return std::strerror(errno);
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    bool Close() { return close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

bool WriteAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t put = write(descriptor, content.data(), content.size());
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

// The file that a symbolic link stands for; the path itself when there is none.
std::string TargetOf(const std::string& path) {
    std::error_code none;
    const fs::path real = fs::canonical(path, none);
    return none ? path : real.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

void SyncFolder(const std::string& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) fsync(descriptor.Number());
}

bool WriteDurably(Descriptor& file, std::string_view content, const std::string& target) {
    struct stat old {};
    const bool hasOld = stat(target.c_str(), &old) == 0;
    return WriteAll(file.Number(), content) &&
           (!hasOld || fchmod(file.Number(), old.st_mode & kAccessBits) == 0) && fsync(file.Number()) == 0 &&
           file.Close();
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
    const std::string target = TargetOf(path);
    std::error_code failure;
    fs::create_directories(FolderOf(target), failure);
    if (failure) return failure.message();
    std::string making = target + "~XXXXXX";
    Descriptor file(mkostemp(making.data(), O_CLOEXEC));
    if (!file.IsOpen()) return LastFailure();
    if (WriteDurably(file, content, target) && std::rename(making.c_str(), target.c_str()) == 0) {
        SyncFolder(FolderOf(target));
        return "";
    }
    std::string reason = LastFailure();
    unlink(making.c_str());
    return reason;
}

}  // namespace quillon
