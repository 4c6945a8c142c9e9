#include "store/lifecycle/file_copy.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <thread>

#include "core/descriptor.h"
#include "core/file_identity.h"
#include "store/engine/foreign_logs.h"
#include "store/engine/whole_file.h"

namespace quillon::store {

namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr auto kWaitForOthers = std::chrono::seconds(10);
constexpr auto kWaitStep = std::chrono::milliseconds(10);
constexpr std::array<const char*, 3> kLogs = {"-journal", "-wal", "-shm"};

class Source {
public:
    explicit Source(const std::string& path)
        : path_(path), descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (!descriptor_.IsOpen()) throw FileError("Opening", path, errno);
    }

    int Number() const { return descriptor_.Number(); }
    std::size_t Read(char* buffer, std::size_t size) {
        ssize_t got = -1;
        do got = read(Number(), buffer, size);
        while (got < 0 && errno == EINTR);
        if (got < 0) throw FileError("Reading", path_, errno);
        return static_cast<std::size_t>(got);
    }

private:
    std::string path_;
    Descriptor descriptor_;
};

// Shares the blocks if the file system supports that.
void CopyBytes(const std::string& from, TemporaryFile& to, const GoOn& goOn) {
    Source source(from);
    if (ioctl(to.Descriptor(), FICLONE, source.Number()) == 0) return;
    std::array<char, 1 << 16> buffer;
    while (const std::size_t got = source.Read(buffer.data(), buffer.size())) {
        RequireGoOn(goOn);
        to.Write({buffer.data(), got});
    }
}

}  // namespace

void ThrowFileError(const FileError& error) {
    switch (error.Number()) {
        case ENOSPC:
        case EDQUOT:
            throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
        case EFBIG:
            throw StoreError(ErrorNumber::DiskFull, error.what());
        case EROFS:
        case EACCES:
        case EPERM:
            throw StoreError(ErrorNumber::ReadOnly, error.what());
        default:
            throw StoreError(ErrorNumber::DiskError, error.what());
    }
}

bool BeginsLikeDataSet(std::string_view firstBytes) {
    const std::string_view start = firstBytes.substr(0, kMagic.size());
    const bool untouched = std::all_of(start.begin(), start.end(), [](char byte) { return byte == 0; });
    return untouched || start == kMagic;
}

bool IsDataSetPlaceTaken(const std::string& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) == 0 && !S_ISLNK(info.st_mode)) return true;
    const std::string real = RealPath(path);
    return FileExists(real) || std::any_of(kLogs.begin(), kLogs.end(),
                                           [&](const char* ending) { return FileExists(real + ending); });
}

void RefuseSpecialFile(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode))
        throw StoreError(ErrorNumber::InvalidPath,
                         fmt::format("'{}' is not a file that can be written.", path));
}

void RefuseOccupiedPlace(const std::string& path) {
    RefuseSpecialFile(path);
    RefuseForeignLogs(RealPath(path));
}

void RequireGoOn(const GoOn& goOn) {
    if (goOn && !goOn()) ThrowInterrupted();
}

void PublishDataSet(TemporaryFile& finished, const GoOn& goOn) {
    if (goOn) {
        WithStoreErrors([&] { finished.Sync(); });
        RequireGoOn(goOn);
    }
    for (const char* ending : kLogs) unlink((finished.Target() + ending).c_str());
    WithStoreErrors([&] { finished.Publish(); });
}

void CopyDataSetFile(const std::string& from, const std::string& to, const GoOn& goOn) {
    RefuseOccupiedPlace(to);
    WithStoreErrors([&] {
        TemporaryFile copy(to, BeginsLikeDataSet);
        copy.TakePermissionsOf(from);
        CopyBytes(from, copy, goOn);
        PublishDataSet(copy, goOn);
    });
}

void RefuseFileInUse(Engine& engine, const std::string& path) {
    try {
        engine.OpenDatabase(path)->Close();
    } catch (const StoreError& error) {
        if (error.Is(ErrorNumber::FileInUse)) throw;
    }
}

DatabaseHandle OpenReplaced(Engine& engine, const std::string& path, const std::function<void()>& turn) {
    const auto latest = std::chrono::steady_clock::now() + kWaitForOthers;
    for (;;) {
        try {
            return engine.OpenDatabase(path);
        } catch (const StoreError& error) {
            if (!error.Is(ErrorNumber::FileInUse)) throw;
        }
        if (std::chrono::steady_clock::now() > latest)
            throw StoreError(ErrorNumber::FileInUse,
                             "The DataSet was replaced, but another program has opened it meanwhile.");
        turn();
        std::this_thread::sleep_for(kWaitStep);
    }
}

}  // namespace quillon::store
