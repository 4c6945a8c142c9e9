// The C library's calls on files, in place of the real ones: each does the real call, and records it when it
// changed a file in the folder that is watched. The program exports them, so that SQLite's library calls them
// too.
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <cstring>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "disk_log.h"

namespace quillon::campaign {

namespace {

std::string gFolder;  // empty while nothing is recorded
std::vector<DiskCall> gLog;

// Leaked: a call may come after the end of main().
auto& gFiles =
    *new std::unordered_map<int, std::uint64_t>;  // open descriptors of watched files, and their inodes
auto& gFolders = *new std::unordered_set<int>;    // open descriptors of the folder itself

template <typename Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// The name in the watched folder; "" for a path elsewhere.
std::string NameOf(const char* path) {
    if (gFolder.empty() || path == nullptr) return "";
    const std::string text(path);
    const std::size_t slash = text.rfind('/');
    if (slash == std::string::npos || text.substr(0, slash) != gFolder) return "";
    return text.substr(slash + 1);
}

void Record(DiskCall call) {
    gLog.push_back(std::move(call));
}

const std::uint64_t* Watched(int file) {
    if (gFolder.empty()) return nullptr;
    const auto found = gFiles.find(file);
    return found == gFiles.end() ? nullptr : &found->second;
}

void RecordWrite(int file, std::uint64_t offset, std::string data) {
    const std::uint64_t* inode = Watched(file);
    if (inode != nullptr && !data.empty())
        Record({DiskCall::Kind::Write, *inode, {}, {}, offset, std::move(data), 0});
}

// What now stands in a file that another file was copied into.
std::string ReadBack(int file, off_t offset, std::size_t size) {
    std::string data(size, '\0');
    std::size_t done = 0;
    // Its own descriptor: the file may be open for writing alone.
    const int reader = open(("/proc/self/fd/" + std::to_string(file)).c_str(), O_RDONLY | O_CLOEXEC);
    while (reader >= 0 && done < size) {
        const ssize_t got = pread(reader, data.data() + done, size - done, offset + static_cast<off_t>(done));
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    if (reader >= 0) close(reader);
    data.resize(done);
    return data;
}

// After an open: follows the descriptor, and records a file that was made or emptied.
int Opened(int file, const char* path, int flags, bool existed) {
    if (file < 0 || gFolder.empty()) return file;
    gFiles.erase(file);
    gFolders.erase(file);
    struct stat info {};
    if (fstat(file, &info) != 0) return file;
    if (S_ISDIR(info.st_mode)) {
        std::string folder(path);
        while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
        if (gFolder == folder) gFolders.insert(file);
        return file;
    }
    const std::string name = NameOf(path);
    if (name.empty()) return file;
    gFiles[file] = info.st_ino;
    if (!existed) Record({DiskCall::Kind::Make, info.st_ino, name, {}, 0, {}, 0});
    if (existed && (flags & O_TRUNC) != 0) Record({DiskCall::Kind::Truncate, info.st_ino, {}, {}, 0, {}, 0});
    return file;
}

bool Exists(const char* path) {
    struct stat info {};
    return stat(path, &info) == 0;
}

int OpenFile(const char* symbol, const char* path, int flags, mode_t mode) {
    const bool existed = gFolder.empty() || Exists(path);
    return Opened(Real<int (*)(const char*, int, ...)>(symbol)(path, flags, mode), path, flags, existed);
}

int Synced(int result, int file) {
    if (result != 0) return result;
    if (gFolders.count(file) != 0) Record({DiskCall::Kind::SyncFolder, 0, {}, {}, 0, {}, 0});
    if (const std::uint64_t* inode = Watched(file)) Record({DiskCall::Kind::Sync, *inode, {}, {}, 0, {}, 0});
    return result;
}

int Truncated(int result, int file, off_t size) {
    const std::uint64_t* inode = Watched(file);
    if (result == 0 && inode != nullptr)
        Record({DiskCall::Kind::Truncate, *inode, {}, {}, static_cast<std::uint64_t>(size), {}, 0});
    return result;
}

ssize_t Wrote(ssize_t result, int file, const void* data, off_t offset) {
    if (result > 0)
        RecordWrite(file, static_cast<std::uint64_t>(offset),
                    std::string(static_cast<const char*>(data), static_cast<std::size_t>(result)));
    return result;
}

}  // namespace

void StartDiskLog(const std::string& folder) {
    gLog.clear();
    gFiles.clear();
    gFolders.clear();
    gFolder = folder;
}

std::vector<DiskCall> StopDiskLog() {
    gFolder.clear();
    return std::exchange(gLog, {});
}

void Acknowledge(int number) {
    Record({DiskCall::Kind::Acknowledge, 0, {}, {}, 0, {}, number});
}

}  // namespace quillon::campaign

using namespace quillon::campaign;  // NOLINT: the C functions below belong to no namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return OpenFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return OpenFile("open64", path, flags, mode);
}

int close(int file) {
    gFiles.erase(file);
    gFolders.erase(file);
    return Real<int (*)(int)>("close")(file);
}

ssize_t write(int file, const void* data, size_t size) {
    const off_t offset = Watched(file) != nullptr ? lseek(file, 0, SEEK_CUR) : 0;
    return Wrote(Real<ssize_t (*)(int, const void*, size_t)>("write")(file, data, size), file, data, offset);
}

ssize_t pwrite(int file, const void* data, size_t size, off_t offset) {
    return Wrote(Real<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite")(file, data, size, offset), file,
                 data, offset);
}

ssize_t pwrite64(int file, const void* data, size_t size, off64_t offset) {
    return Wrote(Real<ssize_t (*)(int, const void*, size_t, off64_t)>("pwrite64")(file, data, size, offset),
                 file, data, offset);
}

int ftruncate(int file, off_t size) noexcept {
    return Truncated(Real<int (*)(int, off_t)>("ftruncate")(file, size), file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    return Truncated(Real<int (*)(int, off64_t)>("ftruncate64")(file, size), file, size);
}

int fsync(int file) {
    return Synced(Real<int (*)(int)>("fsync")(file), file);
}

int fdatasync(int file) {
    return Synced(Real<int (*)(int)>("fdatasync")(file), file);
}

int rename(const char* from, const char* to) noexcept {
    const int result = Real<int (*)(const char*, const char*)>("rename")(from, to);
    if (result == 0 && !NameOf(from).empty())
        Record({DiskCall::Kind::Rename, 0, NameOf(from), NameOf(to), 0, {}, 0});
    return result;
}

int unlink(const char* path) noexcept {
    const int result = Real<int (*)(const char*)>("unlink")(path);
    if (result == 0 && !NameOf(path).empty()) Record({DiskCall::Kind::Remove, 0, NameOf(path), {}, 0, {}, 0});
    return result;
}

ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t size,
                        unsigned flags) {
    const off64_t offset = toOffset != nullptr ? *toOffset : lseek(to, 0, SEEK_CUR);
    const ssize_t result = Real<ssize_t (*)(int, off64_t*, int, off64_t*, size_t, unsigned)>(
        "copy_file_range")(from, fromOffset, to, toOffset, size, flags);
    if (result > 0 && Watched(to) != nullptr)
        RecordWrite(to, static_cast<std::uint64_t>(offset),
                    ReadBack(to, offset, static_cast<std::size_t>(result)));
    return result;
}

int ioctl(int file, unsigned long request, ...) noexcept {
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    const int result = Real<int (*)(int, unsigned long, ...)>("ioctl")(file, request, argument);
    struct stat info {};
    if (result == 0 && request == FICLONE && Watched(file) != nullptr && fstat(file, &info) == 0)
        RecordWrite(file, 0, ReadBack(file, 0, static_cast<std::size_t>(info.st_size)));
    return result;
}

}  // extern "C"
