#include "core/temporary_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <set>
#include <utility>

#include "core/descriptor.h"
#include "core/file_identity.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kMark = "~new-";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";  // 32 letters, all equally likely
constexpr std::size_t kNameLetters = 10;
constexpr std::size_t kLongestName =
    200;  // bytes of the target's name to keep, within the limit on file names
constexpr int kMostAttempts = 100;
constexpr std::size_t kFirstBytes = 100;
constexpr mode_t kAccessBits = 07777;

[[noreturn]] void Fail(std::string_view step, const std::string& path) {
    throw FileError(step, path, errno);
}

std::string RandomLetters(const std::string& target) {
    std::array<unsigned char, kNameLetters> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        Fail("Choosing a name beside", target);
    std::string letters;
    for (const unsigned char byte : bytes) letters += kLetters[byte % kLetters.size()];
    return letters;
}

bool IsSame(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool LeadsTo(const std::string& path, int descriptor) {
    struct stat named {
    }, open{};
    return lstat(path.c_str(), &named) == 0 && fstat(descriptor, &open) == 0 && IsSame(named, open);
}

// What the names of all temporary files for `target` begin with, without the folder.
std::string NameBeginning(const std::string& target) {
    return fs::path(target).filename().string().substr(0, kLongestName);
}

bool IsOurName(std::string_view name, std::string_view beginning) {
    const std::size_t length = beginning.size() + kMark.size() + kNameLetters;
    if (name.size() != length || name.substr(0, beginning.size()) != beginning) return false;
    name.remove_prefix(beginning.size());
    return name.substr(0, kMark.size()) == kMark &&
           name.substr(kMark.size()).find_first_not_of(kLetters) == std::string_view::npos;
}

// Removes the file even when there is no memory for the names of its logs.
void RemoveWithLogs(const std::string& path) noexcept {
    try {
        for (const char* ending : {"-journal", "-wal", "-shm"}) unlink((path + ending).c_str());
    } catch (const std::bad_alloc&) {
        unlink(path.c_str());
        return;
    }
    unlink(path.c_str());
}

// The temporary files of this process. Opening and closing one of them would drop SQLite's locks on it.
std::set<std::string>& Making() {
    static std::set<std::string> making;
    return making;
}

bool IsLeftover(int descriptor, const Recognise& leftover) {
    struct stat info {};
    std::array<char, kFirstBytes> first{};
    if (fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode) || info.st_nlink != 1 ||
        info.st_uid != geteuid())
        return false;
    const ssize_t got = pread(descriptor, first.data(), first.size(), 0);
    return got >= 0 && leftover(std::string_view(first.data(), static_cast<std::size_t>(got)));
}

// Takes the lock before it removes the file, so that it never removes a file in use.
void RemoveUnheld(const std::string& path, const Recognise& leftover) noexcept {
    const Descriptor file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen()) return;
    if (flock(file.Number(), LOCK_EX | LOCK_NB) == 0 && LeadsTo(path, file.Number()) &&
        IsLeftover(file.Number(), leftover))
        RemoveWithLogs(path);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

FileError::FileError(std::string_view step, const std::string& path, int number)
    : std::runtime_error(std::string(step) + " '" + path + "' failed: " + std::strerror(number) + "."),
      number_(number) {}

TemporaryFile::TemporaryFile(const std::string& target, const Recognise& leftover)
    : target_(RealPath(target)) {
    RemoveLeftovers(target_, leftover);
    for (int attempt = 0; !Make(); ++attempt) {
        if (attempt == kMostAttempts) Fail("Opening", target_);
    }
}

TemporaryFile::~TemporaryFile() {
    Discard();
}

// False when the name exists, or when another run removed the file before it was locked.
bool TemporaryFile::Make() {
    path_ = (fs::path(target_).parent_path() / NameBeginning(target_)).string() + std::string(kMark) +
            RandomLetters(target_);
    const mode_t mode = FileExists(target_) ? 0600 : 0666;
    descriptor_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    if (descriptor_ < 0) {
        if (errno == EEXIST) return false;
        Fail("Opening", target_);
    }
    // Fails on a file system without locks; then only the name protects the file.
    flock(descriptor_, LOCK_EX | LOCK_NB);
    if (!LeadsTo(path_, descriptor_)) {
        close(std::exchange(descriptor_, -1));
        errno = EEXIST;
        return false;
    }
    try {
        Making().insert(path_);
    } catch (...) {
        Discard();
        throw;
    }
    return true;
}

void TemporaryFile::Discard() noexcept {
    if (descriptor_ < 0) return;
    if (LeadsTo(path_, descriptor_)) RemoveWithLogs(path_);
    Making().erase(path_);
    close(std::exchange(descriptor_, -1));
}

void TemporaryFile::Write(std::string_view bytes) {
    WriteAll(descriptor_, bytes, target_);
}

// Only root can change the owner; other users can only keep the permissions.
void TemporaryFile::TakePermissions() {
    const std::string& from = FileExists(target_) ? target_ : original_;
    struct stat old {
    }, now{};
    if (from.empty() || stat(from.c_str(), &old) != 0 || fstat(descriptor_, &now) != 0) return;
    const bool another = old.st_uid != now.st_uid || old.st_gid != now.st_gid;
    if (another && fchown(descriptor_, old.st_uid, old.st_gid) != 0 && errno != EPERM)
        Fail("Writing", target_);
    if (fchmod(descriptor_, old.st_mode & kAccessBits) != 0 && errno != EPERM) Fail("Writing", target_);
}

void TemporaryFile::Sync() {
    if (fsync(descriptor_) != 0) Fail("Writing", target_);
}

void TemporaryFile::Publish() {
    TakePermissions();
    Sync();
    if (!LeadsTo(path_, descriptor_)) throw FileError("Replacing", target_, ENOENT);
    if (std::rename(path_.c_str(), target_.c_str()) != 0) Fail("Replacing", target_);
    Making().erase(path_);
    close(std::exchange(descriptor_, -1));
    SyncFolderOf(target_);
}

// The folder is read with readdir: the standard iterator ends the program when memory is short.
void RemoveLeftovers(const std::string& target, const Recognise& leftover) noexcept {
    try {
        const std::string beginning = NameBeginning(target);
        const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(FolderOf(target).c_str()), closedir);
        if (folder == nullptr) return;
        while (const dirent* const entry = readdir(folder.get())) {
            const std::string_view found = static_cast<const char*>(entry->d_name);
            if (!IsOurName(found, beginning)) continue;
            const std::string path = (fs::path(target).parent_path() / found).string();
            if (Making().count(path) == 0) RemoveUnheld(path, leftover);
        }
    } catch (const std::exception&) {
        return;  // a later run removes the rest
    }
}

void WriteAll(int descriptor, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t put = write(descriptor, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put == 0) errno = ENOSPC;
        if (put <= 0) Fail("Writing", path);
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

void SyncFolderOf(const std::string& path) noexcept {
    try {
        const Descriptor folder(open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (folder.IsOpen()) fsync(folder.Number());
    } catch (const std::bad_alloc&) {
        return;  // the file is in place; the kernel writes the folder later
    }
}

}  // namespace quillon
