#include "store/engine/foreign_logs.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "core/descriptor.h"
#include "store/error.h"

namespace quillon::store {

namespace {

constexpr std::string_view kJournalMagic = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
constexpr std::array<std::string_view, 2> kWalMagics = {"\x37\x7f\x06\x82", "\x37\x7f\x06\x83"};

// SQLite fills the place of the magic number with zeroes until the rest is written, and again when the log is
// spent.
bool IsEmptyOrZero(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == 0; });
}

bool BeginsLikeJournal(std::string_view bytes) {
    return IsEmptyOrZero(bytes) || bytes == kJournalMagic;
}

bool BeginsLikeWal(std::string_view bytes) {
    return IsEmptyOrZero(bytes) || std::any_of(kWalMagics.begin(), kWalMagics.end(),
                                               [&](std::string_view magic) { return bytes == magic; });
}

// True when `isOwn` accepts the first bytes. A file that cannot be read is left to SQLite, which reports it.
bool IsOwnOrAbsent(const std::string& path, std::size_t size, bool (*isOwn)(std::string_view)) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) return true;
    if (!S_ISREG(info.st_mode)) return false;
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen()) return true;
    std::array<char, kJournalMagic.size()> first{};
    const ssize_t got = read(file.Number(), first.data(), size);
    return got < 0 || isOwn(std::string_view(first.data(), static_cast<std::size_t>(got)));
}

void Refuse(const std::string& path) {
    throw StoreError(ErrorNumber::CannotOpenFile,
                     fmt::format("The file '{}' of another program is in the way.", path));
}

}  // namespace

void RefuseForeignLogs(const std::string& realPath) {
    const std::string journal = realPath + "-journal", wal = realPath + "-wal";
    if (!IsOwnOrAbsent(journal, kJournalMagic.size(), BeginsLikeJournal)) Refuse(journal);
    if (!IsOwnOrAbsent(wal, kWalMagics.front().size(), BeginsLikeWal)) Refuse(wal);
}

}  // namespace quillon::store
