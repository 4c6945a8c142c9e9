#include "store/engine/whole_file.h"

#include <sqlite3.h>

#include "store/engine/native.h"

namespace quillon::store {

void WriteWithoutSyncs(Connection& connection) {
    ExecNative(connection.Native(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
}

void MakeNoJournal(Connection& connection) {
    ExecNative(connection.Native(), "PRAGMA journal_mode = MEMORY");
}

void CheckWholeFile(const EngineState& engine, const std::string& path, const std::atomic<bool>& stop) {
    Connection connection(engine, path, false);
    // Constraints are not run, because old rows may violate them. Every page is read once, so a large cache
    // would only use memory.
    ExecNative(connection.Native(), "PRAGMA ignore_check_constraints = ON; PRAGMA cache_size = -2000");
    {
        const NativeTurns turns(connection.Native(), [&stop] { return !stop; });
        NativeStatement check(connection.Native(), "PRAGMA quick_check(1)");
        if (!check.Step()) ThrowCode(SQLITE_CORRUPT);
        RequireWhole(check.Text(0));
    }
    connection.Close();
}

void ThrowInterrupted() {
    ThrowCode(SQLITE_INTERRUPT, "interrupted");
}

}  // namespace quillon::store
