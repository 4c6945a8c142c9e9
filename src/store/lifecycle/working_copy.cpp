#include "store/lifecycle/working_copy.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <future>
#include <system_error>
#include <utility>

#include "core/file_identity.h"
#include "store/engine/connection.h"
#include "store/engine/copy_pages.h"
#include "store/lifecycle/file_copy.h"
#include "store/statement_turns.h"

namespace quillon::store {

namespace {

namespace fs = std::filesystem;

// Of the names of copies: "moths.mdb~work-a1B2c3".
constexpr std::string_view kMark = "~work-";
constexpr std::size_t kRandomLetters = 6;

[[noreturn]] void Fail(std::string_view what, const std::string& path) {
    const int error = errno;
    if (error == ENOSPC || error == EDQUOT || error == EFBIG)
        throw StoreError(ErrorNumber::DiskFull, "Not enough space on disk.");
    throw StoreError(error == EROFS || error == EACCES ? ErrorNumber::ReadOnly : ErrorNumber::DiskError,
                     fmt::format("{} '{}' failed: {}.", what, path, std::strerror(error)));
}

std::string MakeEmptyFile(const std::string& target) {
    std::string path = target + std::string(kMark) + "XXXXXX";
    const int file = mkostemp(path.data(), O_CLOEXEC);
    if (file < 0) Fail("Making", path);
    close(file);
    return path;
}

// Empty, or begun as a DataSet begins.
bool LooksLikeCopy(int file) {
    constexpr std::string_view kMagic("SQLite format 3\0", 16);
    std::array<char, kMagic.size()> head{};
    const ssize_t got = pread(file, head.data(), head.size(), 0);
    return got == 0 || (got == static_cast<ssize_t>(head.size()) &&
                        (std::string_view(head.data(), head.size()) == kMagic || head == decltype(head){}));
}

// True for a copy that no process has locked, as SQLite locks a file that is open.
bool IsLeftCopy(const std::string& path) {
    constexpr off_t kLockedBytes = 0x40000000;
    const int file = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return false;
    const bool isCopy = LooksLikeCopy(file);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kLockedBytes;
    lock.l_len = 512;
    const bool asked = fcntl(file, F_OFD_GETLK, &lock) == 0;
    close(file);
    return isCopy && asked && lock.l_type == F_UNLCK;
}

// The copies that killed processes left. One that is being made by another process is at most a moment old
// and not locked yet; it is left alone because its DataSet is locked, so that nobody gets here.
void RemoveLeftCopies(const std::string& target) {
    const fs::path path(target);
    const std::string prefix = path.filename().string() + std::string(kMark);
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(path.parent_path(), error)) {
        const std::string name = entry.path().filename().string();
        const bool isCopy = name.size() == prefix.size() + kRandomLetters && name.rfind(prefix, 0) == 0;
        if (isCopy && entry.is_regular_file(error) && !entry.is_symlink(error) && IsLeftCopy(entry.path()))
            fs::remove(entry.path(), error);
    }
}

}  // namespace

WorkingCopy::WorkingCopy(Engine& engine, Database& original, std::function<bool()> goOn)
    : engine_(engine), goOn_(std::move(goOn)), target_(RealPath(original.Name())) {
    const std::shared_ptr<Connection> connection = original.Shared();
    if (connection->IsReadOnly())
        throw StoreError(ErrorNumber::ReadOnly, "Can't update. The DataSet is read-only.");
    RequireSameFile(original);
    RemoveLeftCopies(target_);
    // So that the copy has the AutoNumbers that were given, and closing the DataSet has nothing left to
    // write.
    Job pending(engine_);
    connection->BeforeWrite();
    pending.End();
    path_ = MakeEmptyFile(target_);
    try {
        CopyPages(*connection, path_, goOn_);
        copy_ = engine_.OpenDatabase(path_);
        ExecNative(copy_->Shared()->Native(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
    } catch (...) {
        copy_.reset();
        unlink(path_.c_str());
        throw;
    }
}

WorkingCopy::~WorkingCopy() {
    if (path_.empty()) return;
    try {
        if (copy_) copy_->Close();
    } catch (const std::exception&) {
        // What could not be written goes with the file.
        copy_.reset();
    }
    // Its journal is in memory: there is nothing beside it.
    unlink(path_.c_str());
}

void WorkingCopy::Replace(DatabaseHandle& original) {
    Check();
    copy_->Close();
    RequireSameFile(*original);
    MakeDurable();
    RequireSameFile(*original);
    const std::string path = original->Name();
    Publish(path_, target_);
    path_.clear();
    // Only now: until the new file stood in its place, nobody else could open the DataSet.
    original->Close();
    original = engine_.OpenDatabase(path);
}

void WorkingCopy::Check() {
    const StatementTurns turns(*copy_, goOn_);
    // Constraints are not run: what was there before need not keep them. Every page is read once, so that a
    // large cache would only fill the memory.
    ExecNative(copy_->Shared()->Native(),
               "PRAGMA ignore_check_constraints = ON; PRAGMA cache_size = -2000; PRAGMA shrink_memory");
    NativeStatement check(copy_->Shared()->Native(), "PRAGMA quick_check(1)");
    if (!check.Step() || check.Text(0) != "ok")
        throw StoreError(ErrorNumber::CorruptFile, "The DataSet is damaged and cannot be read.");
}

void WorkingCopy::MakeDurable() const {
    struct stat info {};
    if (stat(target_.c_str(), &info) != 0) Fail("Reading", target_);
    const int file = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0) Fail("Opening", path_);
    // The owner may be another user, who keeps the file where this is allowed; else it is ours.
    static_cast<void>(!fchown(file, info.st_uid, info.st_gid));
    const int error = fchmod(file, info.st_mode & 07777) == 0 ? SyncInTurns(file) : errno;
    close(file);
    errno = error;
    if (error != 0) Fail("Writing", path_);
}

// A disk takes as long as it likes; the turns go on meanwhile. Returns the error, 0 for none.
int WorkingCopy::SyncInTurns(int file) const {
    auto synced = std::async(std::launch::async, [file] { return fsync(file) == 0 ? 0 : errno; });
    bool goesOn = true;
    while (synced.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
        goesOn = goOn_() && goesOn;
    const int error = synced.get();
    return error == 0 && !goesOn ? EINTR : error;
}

void WorkingCopy::RequireSameFile(Database& original) const {
    struct stat info {};
    const FileIdentity identity = original.Shared()->Identity();
    const bool same = stat(target_.c_str(), &info) == 0 &&
                      FileIdentity{static_cast<std::uint64_t>(info.st_dev),
                                   static_cast<std::uint64_t>(info.st_ino)} == identity;
    if (!same)
        throw StoreError(ErrorNumber::FileNotFound,
                         fmt::format("The DataSet '{}' was moved or replaced while it was open.", target_));
}

}  // namespace quillon::store
