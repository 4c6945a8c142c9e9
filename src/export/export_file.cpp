#include "export/export_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/codepage.h"
#include "core/file_identity.h"
#include "store/error.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::exporting {

namespace {

using store::ErrorNumber;
using store::StoreError;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void FailFile(std::string_view what, const std::string& path) {
    const int error = errno;
    if (error == ENOSPC || error == EDQUOT || error == EFBIG)
        throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
    const bool forbidden = error == EROFS || error == EACCES || error == EPERM;
    throw StoreError(forbidden ? ErrorNumber::ReadOnly : ErrorNumber::DiskError,
                     fmt::format("{} '{}' failed: {}.", what, path, std::strerror(error)));
}

// A new file; what a run that was killed has left under the name goes first.
int MakeFile(const std::string& path) {
    unlink(path.c_str());
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) FailFile("Opening", path);
    return descriptor;
}

// A write may take less than it was given: it goes on until all is taken, or fails.
void WriteAll(int descriptor, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t put = write(descriptor, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) FailFile("Writing", path);
        if (put == 0) throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

void RefuseOddTarget(const std::string& path, const std::string& real) {
    struct stat info {};
    if (stat(real.c_str(), &info) == 0 && !S_ISREG(info.st_mode))
        throw StoreError(ErrorNumber::InvalidPath,
                         fmt::format("'{}' is not a file that can be written.", path));
}

// The file that takes the place of another is as open to others as that one was.
void KeepPermissions(int descriptor, const std::string& target) {
    struct stat old {};
    if (stat(target.c_str(), &old) == 0) fchmod(descriptor, old.st_mode & 0777);
}

}  // namespace

ExportFile::ExportFile(const std::string& target, Encoding encoding)
    : target_(RealPath(target)), making_(target_ + "~new"), encoding_(encoding) {
    if (target.empty()) throw StoreError(ErrorNumber::InvalidPath, "There is no file to write.");
    RefuseOddTarget(target, target_);
    descriptor_ = MakeFile(making_);
    KeepPermissions(descriptor_, target_);
    buffer_.reserve(kBufferSize + kBufferSize / 4);
    if (encoding_ == Encoding::Utf8) buffer_ = kByteOrderMark;
}

ExportFile::~ExportFile() {
    Discard();
}

void ExportFile::Discard() {
    if (descriptor_ < 0) return;
    close(descriptor_);
    descriptor_ = -1;
    unlink(making_.c_str());
}

void ExportFile::Flush() {
    WriteAll(descriptor_, buffer_, making_);
    buffer_.clear();
}

// What was written so far, converted, to another file; false when the user wants no more.
bool ExportFile::CopyAsUtf8(int to, const std::string& path, const std::function<bool()>& goOn) {
    if (lseek(descriptor_, 0, SEEK_SET) != 0) FailFile("Reading", making_);
    std::string block(kBufferSize, '\0');
    std::string text(kByteOrderMark);
    for (ssize_t got = 1; got != 0;) {
        if (goOn && !goOn()) return false;
        got = read(descriptor_, block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) FailFile("Reading", making_);
        AppendCp1252AsUtf8(std::string_view(block).substr(0, static_cast<std::size_t>(got)), text);
        WriteAll(to, text, path);
        text.clear();
    }
    return true;
}

bool ExportFile::SwitchToUtf8(const std::function<bool()>& goOn) {
    Flush();
    const std::string again = target_ + "~utf8";
    const int converted = MakeFile(again);
    try {
        if (!CopyAsUtf8(converted, again, goOn)) {
            close(converted);
            unlink(again.c_str());
            if (lseek(descriptor_, 0, SEEK_END) < 0) FailFile("Writing", making_);
            return false;
        }
        if (rename(again.c_str(), making_.c_str()) != 0) FailFile("Writing", making_);
    } catch (...) {
        close(converted);
        unlink(again.c_str());
        throw;
    }
    KeepPermissions(converted, target_);
    close(descriptor_);
    descriptor_ = converted;
    encoding_ = Encoding::Utf8;
    return true;
}

void ExportFile::Publish() {
    Flush();
    if (fsync(descriptor_) != 0) FailFile("Writing", making_);
    const int descriptor = descriptor_;
    descriptor_ = -1;
    if (close(descriptor) != 0) {
        const int error = errno;
        unlink(making_.c_str());
        errno = error;
        FailFile("Writing", making_);
    }
    try {
        store::Publish(making_, target_);
    } catch (...) {
        unlink(making_.c_str());
        throw;
    }
}

}  // namespace quillon::exporting
