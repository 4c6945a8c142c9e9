#include "import/byte_source.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quillon::importing {

FileSource::FileSource(const std::string& path) : path_(path), file_(std::fopen(path.c_str(), "rb")) {
    if (!file_) throw ReadError("File " + path + " cannot be opened!");
    // The line reader goes over the bytes twice, which a pipe does not allow; nothing is taken out of it.
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) throw ReadError("File " + path + " cannot be read!");
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    // A device has no size; the gauge then stands still, and the lines are read all the same.
    if (!error) size_ = static_cast<std::int64_t>(size);
    // The line reader takes large blocks; a buffer between them and the file would only copy.
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

std::size_t FileSource::Read(char* buffer, std::size_t size) {
    const std::size_t count = std::fread(buffer, 1, size, file_.get());
    if (count == 0 && std::ferror(file_.get()) != 0) throw ReadError("File " + path_ + " cannot be read!");
    return count;
}

void FileSource::Rewind() {
    std::clearerr(file_.get());
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) throw ReadError("File " + path_ + " cannot be read!");
}

std::size_t MemorySource::Read(char* buffer, std::size_t size) {
    const std::size_t count = std::min(size, bytes_.size() - position_);
    std::copy_n(bytes_.data() + position_, count, buffer);
    position_ += count;
    return count;
}

}  // namespace quillon::importing
