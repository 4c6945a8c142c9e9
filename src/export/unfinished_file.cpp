#include "export/unfinished_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "store/error.h"

namespace quillon::exporting {

namespace {

namespace fs = std::filesystem;

using store::ErrorNumber;
using store::StoreError;

constexpr std::string_view kEnding = ".part";
constexpr std::size_t kDigits = 12;
constexpr std::size_t kLongestName =
    200;  // of the target's that is kept, so that the whole stays a valid name
constexpr mode_t kAccessBits = 0777;
constexpr int kAttempts = 100;
constexpr std::size_t kFirstBytes = 64;

[[noreturn]] void Fail(std::string_view what, const std::string& target) {
    const int error = errno;
    if (error == ENOSPC || error == EDQUOT)
        throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
    if (error == EFBIG)
        throw StoreError(ErrorNumber::DiskFull,
                         fmt::format("'{}' would become larger than files may be.", target));
    const bool forbidden = error == EROFS || error == EACCES || error == EPERM;
    throw StoreError(forbidden ? ErrorNumber::ReadOnly : ErrorNumber::DiskError,
                     fmt::format("{} '{}' failed: {}.", what, target, std::strerror(error)));
}

std::string FolderOf(const std::string& target) {
    const std::string folder = fs::path(target).parent_path().string();
    return folder.empty() ? "." : folder;
}

// What the names of all files in the making for the target begin with.
std::string NameBeginning(const std::string& target) {
    return fs::path(target).filename().string().substr(0, kLongestName) + "~";
}

std::string RandomDigits() {
    std::uint64_t number = 0;
    if (getrandom(&number, sizeof number, 0) != sizeof number) number = static_cast<std::uint64_t>(getpid());
    return fmt::format("{:016x}", number).substr(0, kDigits);
}

bool IsNameOfOne(std::string_view name, std::string_view beginning) {
    if (name.size() != beginning.size() + kDigits + kEnding.size()) return false;
    return name.starts_with(beginning) && name.ends_with(kEnding) &&
           name.substr(beginning.size(), kDigits).find_first_not_of("0123456789abcdef") ==
               std::string_view::npos;
}

// Locks a file just made. False when another run took it for abandoned in between.
bool Hold(int descriptor) {
    if (flock(descriptor, LOCK_EX) != 0) return true;  // this file system has no locks
    struct stat info {};
    return fstat(descriptor, &info) == 0 && info.st_nlink > 0;
}

void SyncFolder(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

// The file that takes the place of another is as open to others as that one was.
void KeepPermissions(int descriptor, const std::string& target) {
    struct stat old {};
    struct stat own {};
    if (stat(target.c_str(), &old) != 0 || fstat(descriptor, &own) != 0) return;
    if (own.st_gid != old.st_gid && fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0)
        old.st_mode &= ~070u;
    fchmod(descriptor, old.st_mode & kAccessBits);
}

// A regular file of this user that no process holds, with an accepted beginning.
bool IsAbandoned(int descriptor, const std::function<bool(std::string_view)>& isOurs) {
    struct stat info {};
    if (fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode) || info.st_nlink != 1 ||
        info.st_uid != geteuid())
        return false;
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) return false;
    std::array<char, kFirstBytes> first;
    const ssize_t got = pread(descriptor, first.data(), first.size(), 0);
    return got >= 0 && isOurs({first.data(), static_cast<std::size_t>(got)});
}

}  // namespace

UnfinishedFile::UnfinishedFile(const std::string& target) : target_(target) {
    const std::string beginning = (fs::path(target).parent_path() / NameBeginning(target)).string();
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        path_ = beginning + RandomDigits() + std::string(kEnding);
        descriptor_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (descriptor_ >= 0 && Hold(descriptor_)) return;
        if (descriptor_ >= 0)
            close(std::exchange(descriptor_, -1));
        else if (errno != EEXIST)
            break;
    }
    Fail("Opening", target_);
}

UnfinishedFile::~UnfinishedFile() {
    Discard();
}

UnfinishedFile::UnfinishedFile(UnfinishedFile&& other) noexcept
    : target_(std::move(other.target_)),
      path_(std::move(other.path_)),
      descriptor_(std::exchange(other.descriptor_, -1)) {}

UnfinishedFile& UnfinishedFile::operator=(UnfinishedFile&& other) noexcept {
    std::swap(target_, other.target_);
    std::swap(path_, other.path_);
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

void UnfinishedFile::Discard() noexcept {
    if (descriptor_ < 0) return;
    unlink(path_.c_str());
    close(std::exchange(descriptor_, -1));
}

// A write may take less than it was given: it goes on until all is taken, or fails.
void UnfinishedFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = write(descriptor_, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) Fail("Writing", target_);
        if (put == 0) throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

bool UnfinishedFile::ReadBack(std::size_t blockSize, const std::function<bool(std::string_view)>& take) {
    std::string block(blockSize, '\0');
    off_t at = 0;
    for (ssize_t got = 1; got != 0; at += got) {
        do got = pread(descriptor_, block.data(), block.size(), at);
        while (got < 0 && errno == EINTR);
        if (got < 0) Fail("Reading", target_);
        if (!take(std::string_view(block).substr(0, static_cast<std::size_t>(got)))) return false;
    }
    return true;
}

void UnfinishedFile::TakePlace() {
    KeepPermissions(descriptor_, target_);
    if (fsync(descriptor_) != 0) Fail("Writing", target_);
    if (std::rename(path_.c_str(), target_.c_str()) != 0) Fail("Replacing", target_);
    close(std::exchange(descriptor_, -1));
    SyncFolder(FolderOf(target_));
}

void UnfinishedFile::RemoveAbandoned(const std::string& target,
                                     const std::function<bool(std::string_view)>& isOurs) {
    const std::string beginning = NameBeginning(target);
    std::error_code failure;
    for (fs::directory_iterator entry(FolderOf(target), failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!IsNameOfOne(entry->path().filename().string(), beginning)) continue;
        const int descriptor = open(entry->path().c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0) continue;
        if (IsAbandoned(descriptor, isOurs)) unlink(entry->path().c_str());
        close(descriptor);
    }
}

}  // namespace quillon::exporting
