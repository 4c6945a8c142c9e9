#include "export/export_file.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/codepage.h"
#include "core/file_identity.h"
#include "store/error.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::exporting {

namespace {

using store::ErrorNumber;
using store::StoreError;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The real path of the target. Refuses anything but a regular file.
std::string CheckedTarget(const std::string& target) {
    if (target.empty()) throw StoreError(ErrorNumber::InvalidPath, "There is no file to write.");
    std::string real = RealPath(target);
    store::RefuseSpecialFile(target);
    return real;
}

// True for the beginning of an export: a tagged record, or the header of a list.
bool BeginsLikeAnExport(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text.empty() || text.starts_with("[TU]") || text.starts_with("name");
}

std::unique_ptr<TemporaryFile> MakeFile(const std::string& target) {
    return store::WithStoreErrors(
        [&] { return std::make_unique<TemporaryFile>(target, BeginsLikeAnExport); });
}

// Reads what was written so far in blocks; stops and returns false when `take` returns false.
bool ReadBack(const TemporaryFile& file, std::size_t blockSize,
              const std::function<bool(std::string_view)>& take) {
    std::string block(blockSize, '\0');
    off_t at = 0;
    for (ssize_t got = 1; got != 0; at += got) {
        do got = pread(file.Descriptor(), block.data(), block.size(), at);
        while (got < 0 && errno == EINTR);
        if (got < 0) store::ThrowFileError({"Reading", file.Target(), errno});
        if (!take(std::string_view(block).substr(0, static_cast<std::size_t>(got)))) return false;
    }
    return true;
}

}  // namespace

ExportFile::ExportFile(const std::string& target, Encoding encoding)
    : target_(CheckedTarget(target)), file_(MakeFile(target_)), encoding_(encoding) {
    buffer_.reserve(kBufferSize + kBufferSize / 4);
    if (encoding_ == Encoding::Utf8) buffer_ = kByteOrderMark;
}

void ExportFile::Flush() {
    store::WithStoreErrors([this] { file_->Write(buffer_); });
    buffer_.clear();
}

bool ExportFile::SwitchToUtf8(const std::function<bool()>& goOn) {
    Flush();
    std::unique_ptr<TemporaryFile> converted = MakeFile(target_);
    std::string text(kByteOrderMark);
    const bool done = ReadBack(*file_, kBufferSize, [&](std::string_view block) {
        if (goOn && !goOn()) return false;
        AppendCp1252AsUtf8(block, text);
        store::WithStoreErrors([&] { converted->Write(text); });
        text.clear();
        return true;
    });
    if (!done) return false;
    file_ = std::move(converted);
    encoding_ = Encoding::Utf8;
    return true;
}

void ExportFile::Publish() {
    Flush();
    store::WithStoreErrors([this] { file_->Publish(); });
}

}  // namespace quillon::exporting
