#include "import/spooled_source.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "core/descriptor.h"

namespace quillon::importing {

namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;
// The time in milliseconds that a turn waits for an empty pipe.
constexpr int kWait = 50;

[[noreturn]] void FailToRead(const std::string& path) {
    throw ReadError("File " + path + " cannot be read!");
}

// A file without a name in the directory, removed when it is closed.
int OpenNameless(const std::string& directory) {
    const std::string folder = directory.empty() ? "." : directory;
    const int made = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (made >= 0) return made;
    // Not every file system supports files without a name.
    std::string name = folder + "/import-XXXXXX";
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) unlink(name.c_str());
    return named;
}

// Writes all bytes; false on any failure, such as a full disk.
bool WriteAll(int to, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t put = write(to, bytes, size);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        bytes += put;
        size -= static_cast<std::size_t>(put);
    }
    return true;
}

// Waits, turn by turn, until there is something to read or the other end is closed.
void WaitFor(int from, Turns& turns) {
    pollfd waiting{from, POLLIN, 0};
    do {
        TakeTurn(turns);
    } while (poll(&waiting, 1, kWait) == 0);
}

void Spool(int from, int to, const std::string& path, Turns& turns) {
    const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
    for (;;) {
        WaitFor(from, turns);
        const ssize_t got = read(from, block.get(), kBlock);
        if (got == 0) return;
        if (got < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        if (got < 0) FailToRead(path);
        if (!WriteAll(to, block.get(), static_cast<std::size_t>(got)))
            throw ReadError("File " + path + " cannot be copied: there is not enough space on disk.");
    }
}

}  // namespace

std::unique_ptr<ByteSource> OpenSource(const std::string& path, const std::string& directory, Turns& turns) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0 || S_ISREG(info.st_mode) || S_ISDIR(info.st_mode))
        return std::make_unique<FileSource>(path);
    // Non-blocking, because open would otherwise wait for a writer of the pipe.
    const Descriptor from(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (from.Number() < 0) throw ReadError("File " + path + " cannot be opened!");
    Descriptor to(OpenNameless(directory));
    if (to.Number() < 0) FailToRead(path);
    Spool(from.Number(), to.Number(), path, turns);
    std::FILE* const file = fdopen(to.Number(), "rb");
    if (file == nullptr) FailToRead(path);
    to.Release();
    return std::make_unique<FileSource>(path, file);
}

}  // namespace quillon::importing
