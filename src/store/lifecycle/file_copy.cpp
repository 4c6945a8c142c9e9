#include "store/lifecycle/file_copy.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "core/file_identity.h"

namespace quillon::store {

namespace {

[[noreturn]] void FailFile(std::string_view what, const std::string& path) {
    const int error = errno;
    if (error == ENOSPC || error == EDQUOT)
        throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
    const ErrorNumber number =
        error == EROFS || error == EACCES ? ErrorNumber::ReadOnly : ErrorNumber::DiskError;
    throw StoreError(number, fmt::format("{} '{}' failed: {}.", what, path, std::strerror(error)));
}

class File {
public:
    File(const std::string& path, int flags)
        : path_(path), descriptor_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {
        if (descriptor_ < 0) FailFile("Opening", path);
    }
    ~File() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::size_t Read(char* buffer, std::size_t size) {
        const ssize_t got = read(descriptor_, buffer, size);
        if (got < 0) FailFile("Reading", path_);
        return static_cast<std::size_t>(got);
    }
    void Write(const char* buffer, std::size_t size) {
        while (size > 0) {
            const ssize_t put = write(descriptor_, buffer, size);
            if (put < 0) FailFile("Writing", path_);
            buffer += put;
            size -= static_cast<std::size_t>(put);
        }
    }
    void Finish() {
        if (fsync(descriptor_) != 0) FailFile("Writing", path_);
        const int descriptor = descriptor_;
        descriptor_ = -1;
        if (close(descriptor) != 0) FailFile("Writing", path_);
    }

private:
    std::string path_;
    int descriptor_;
};

void SyncFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

void RemoveLogsOf(const std::string& path) {
    for (const char* ending : {"-journal", "-wal", "-shm"}) RemoveFile(path + ending);
}

}  // namespace

void RemoveFile(const std::string& path) {
    unlink(path.c_str());
}

void RemoveDataSetFile(const std::string& path) {
    RemoveFile(path);
    RemoveLogsOf(path);
}

void Publish(const std::string& finished, const std::string& target) {
    RemoveLogsOf(target);
    if (rename(finished.c_str(), target.c_str()) != 0) FailFile("Replacing", target);
    SyncFolder(target);
}

void CopyDataSetFile(const std::string& from, const std::string& to) {
    const std::string target = RealPath(to);
    const std::string making = target + "~new";
    try {
        File in(from, O_RDONLY);
        File out(making, O_WRONLY | O_CREAT | O_TRUNC);
        std::array<char, 1 << 16> buffer;
        while (const std::size_t got = in.Read(buffer.data(), buffer.size())) out.Write(buffer.data(), got);
        out.Finish();
        Publish(making, target);
    } catch (...) {
        RemoveFile(making);
        throw;
    }
}

void RefuseFileInUse(Engine& engine, const std::string& path) {
    try {
        engine.OpenDatabase(path)->Close();
    } catch (const StoreError& error) {
        if (error.Is(ErrorNumber::FileInUse)) throw;
    }
}

}  // namespace quillon::store
