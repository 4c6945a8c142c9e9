#include "store/engine/whole_file.h"

#include <sqlite3.h>

#include "store/engine/connection.h"
#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr int kInstructions = 10'000;  // of SQLite's machine: about a millisecond

int IsSet(void* flag) {
    return *static_cast<const std::atomic<bool>*>(flag) ? 1 : 0;
}

}  // namespace

void WriteWithoutSyncs(Database& database) {
    ExecNative(database.Shared()->Native(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
}

void MakeNoJournal(Database& database) {
    ExecNative(database.Shared()->Native(), "PRAGMA journal_mode = MEMORY");
}

void CheckWholeFile(Engine& engine, const std::string& path, const std::atomic<bool>& stop) {
    Connection connection(engine.State(), path, false);
    sqlite3_progress_handler(connection.Native(), kInstructions, IsSet,
                             const_cast<std::atomic<bool>*>(&stop));
    // Constraints are not run: what was there before need not keep them. Every page is read once, so that a
    // large cache would only fill the memory.
    ExecNative(connection.Native(), "PRAGMA ignore_check_constraints = ON; PRAGMA cache_size = -2000");
    {
        NativeStatement check(connection.Native(), "PRAGMA quick_check(1)");
        if (!check.Step()) ThrowCode(SQLITE_CORRUPT);
        RequireWhole(check.Text(0));
    }
    sqlite3_progress_handler(connection.Native(), 0, nullptr, nullptr);
    connection.Close();
}

void ThrowInterrupted() {
    ThrowCode(SQLITE_INTERRUPT, "interrupted");
}

}  // namespace quillon::store
