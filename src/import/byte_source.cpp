#include "import/byte_source.h"

#include <sys/stat.h>

#include <algorithm>

namespace quillon::importing {

FileSource::FileSource(const std::string& path) : FileSource(path, std::fopen(path.c_str(), "rb")) {}

FileSource::FileSource(const std::string& path, std::FILE* file) : path_(path), file_(file) {
    if (!file_) throw ReadError("File " + path + " cannot be opened!");
    struct stat info {};
    if (fstat(fileno(file_.get()), &info) != 0 || !S_ISREG(info.st_mode))
        throw ReadError("File " + path + " cannot be read!");
    size_ = info.st_size;
    // The line reader reads large blocks, so a buffer would only add a copy.
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    Rewind();
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
