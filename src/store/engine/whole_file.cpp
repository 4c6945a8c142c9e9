#include "store/engine/whole_file.h"

#include <sqlite3.h>

#include "store/engine/connection.h"
#include "store/engine/native.h"

namespace quillon::store {

void WriteWithoutSyncs(Database& database) {
    ExecNative(database.Shared()->Native(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
}

void MakeNoJournal(Database& database) {
    ExecNative(database.Shared()->Native(), "PRAGMA journal_mode = MEMORY");
}

void CheckWholeFile(Engine& engine, const std::string& path) {
    Connection connection(engine, path, false);
    // Constraints are not run: what was there before need not keep them. Every page is read once, so that a
    // large cache would only fill the memory.
    ExecNative(connection.Native(), "PRAGMA ignore_check_constraints = ON; PRAGMA cache_size = -2000");
    {
        NativeStatement check(connection.Native(), "PRAGMA quick_check(1)");
        if (!check.Step() || check.Text(0) != "ok") throw ErrorOf(SQLITE_CORRUPT, "");
    }
    connection.Close();
}

void ThrowInterrupted() {
    throw ErrorOf(SQLITE_INTERRUPT, "interrupted");
}

}  // namespace quillon::store
