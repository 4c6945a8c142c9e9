// The bytes that an import reads: from a file, or from memory for tests and fuzzing. A pipe or device is
// copied to a file first (spooled_source.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon::importing {

// Thrown when the source cannot be read; what() is a sentence for the user.
class ReadError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class ByteSource {
public:
    virtual ~ByteSource() = default;
    // Reads up to `size` bytes and returns their number; 0 only at the end. Throws ReadError.
    virtual std::size_t Read(char* buffer, std::size_t size) = 0;
    // Goes back to the first byte. Throws ReadError.
    virtual void Rewind() = 0;
    // The number of bytes.
    virtual std::int64_t Size() const = 0;
};

class FileSource : public ByteSource {
public:
    // Throws ReadError when the file cannot be opened or is not a regular file.
    explicit FileSource(const std::string& path);
    // Takes over an open file, which `path` names in messages.
    FileSource(const std::string& path, std::FILE* file);
    std::size_t Read(char* buffer, std::size_t size) override;
    void Rewind() override;
    std::int64_t Size() const override { return size_; }

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::string path_;
    std::unique_ptr<std::FILE, Closer> file_;
    std::int64_t size_ = 0;
};

// The bytes must outlive the source.
class MemorySource : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes) : bytes_(bytes) {}
    std::size_t Read(char* buffer, std::size_t size) override;
    void Rewind() override { position_ = 0; }
    std::int64_t Size() const override { return static_cast<std::int64_t>(bytes_.size()); }

private:
    std::string_view bytes_;
    std::size_t position_ = 0;
};

}  // namespace quillon::importing
