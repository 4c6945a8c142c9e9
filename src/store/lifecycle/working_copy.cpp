#include "store/lifecycle/working_copy.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <future>
#include <string>
#include <system_error>
#include <utility>

#include "core/file_identity.h"
#include "store/engine/connection.h"
#include "store/engine/copy_pages.h"
#include "store/engine/whole_file.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::store {

namespace {

constexpr auto kTurnInterval = std::chrono::milliseconds(10);
constexpr std::streamsize kJournalHeader = 28;

// Runs without a thread when none can be created.
template <typename Work>
std::future<void> Start(const Work& work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, work);
    }
}

// Runs `work` in another thread while this one takes its turns. When a turn returns false, sets `stop`, waits
// for the work and returns false.
template <typename Work>
bool RunWithTurns(const Work& work, std::atomic<bool>& stop, const std::function<bool()>& turn) {
    std::future<void> done = Start(work);
    while (done.wait_for(kTurnInterval) == std::future_status::timeout)
        if (!turn()) stop = true;
    done.get();
    return !stop && turn();
}

// True for the journal of an open DataSet without an open unit, which contains nothing to roll back. Also
// true without a journal.
bool IsSpentJournal(const std::string& path) {
    std::ifstream journal(path, std::ios::binary);
    std::string header(kJournalHeader, '\0');
    journal.read(header.data(), kJournalHeader);
    return header.find_first_not_of('\0') == std::string::npos;
}

Database& RequireWritable(Database& database) {
    if (database.Shared()->IsReadOnly())
        throw StoreError(ErrorNumber::ReadOnly, "Can't update. The DataSet is read-only.");
    return database;
}

}  // namespace

WorkingCopy::WorkingCopy(Engine& engine, Database& original, std::function<bool()> goOn)
    : engine_(engine), goOn_(std::move(goOn)), file_(WithStoreErrors([&] {
          return TemporaryFile(RequireWritable(original).Name(), BeginsLikeDataSet);
      })) {
    RequireSameFile(original);
    // Writes the AutoNumbers, so that the copy has them and closing the DataSet writes nothing.
    Job pending(engine_);
    original.Shared()->Write([] {});
    pending.End();
    CopyPages(*original.Shared(), file_.Path(), goOn_);
    if (!goOn_()) ThrowInterrupted();
    copy_ = engine_.OpenDatabase(file_.Path());
    WriteWithoutSyncs(*copy_->Shared());
}

WorkingCopy::~WorkingCopy() {
    if (!copy_) return;
    try {
        copy_->Close();
    } catch (const std::exception&) {
        // The file is removed, so unwritten data does not matter.
        copy_.reset();
    }
}

void WorkingCopy::Replace(DatabaseHandle& original) {
    copy_->Close();
    std::atomic<bool> stop = false;
    const auto finish = [this, &stop] {
        CheckWholeFile(engine_.State(), file_.Path(), stop);
        WithStoreErrors([this] { file_.Sync(); });
    };
    if (!RunWithTurns(finish, stop, goOn_)) ThrowInterrupted();
    RequireSameFile(*original);
    RefuseForeignLogs();
    const std::string path = original->Name();
    WithStoreErrors([this] { file_.Publish(); });
    // Only now, because the old handle kept other processes from opening the DataSet until it was replaced.
    LeaveNoJournal(*original);
    original->Close();
    original = OpenReplaced(engine_, path, [this] { goOn_(); });
}

void WorkingCopy::RequireSameFile(Database& original) const {
    struct stat info {};
    const FileIdentity identity = original.Shared()->Identity();
    const bool same = stat(file_.Target().c_str(), &info) == 0 &&
                      FileIdentity{static_cast<std::uint64_t>(info.st_dev),
                                   static_cast<std::uint64_t>(info.st_ino)} == identity;
    if (!same)
        throw StoreError(
            ErrorNumber::FileNotFound,
            fmt::format("The DataSet '{}' was moved or replaced while it was open.", file_.Target()));
}

void WorkingCopy::RefuseForeignLogs() const {
    const auto refuse = [](const std::string& path) {
        throw StoreError(ErrorNumber::DatabaseExists,
                         fmt::format("The file '{}' of another program is in the way.", path));
    };
    for (const char* ending : {"-wal", "-shm"})
        if (FileExists(file_.Target() + ending)) refuse(file_.Target() + ending);
    if (!IsSpentJournal(file_.Target() + "-journal")) refuse(file_.Target() + "-journal");
}

// The old file is replaced: removes its journal, and prevents that closing it removes the journal of the new
// file.
void WorkingCopy::LeaveNoJournal(Database& replaced) const {
    try {
        MakeNoJournal(*replaced.Shared());
        const std::string journal = file_.Target() + "-journal";
        if (IsSpentJournal(journal)) unlink(journal.c_str());
    } catch (const std::exception&) {
        return;  // the empty journal stays but is harmless
    }
}

}  // namespace quillon::store
