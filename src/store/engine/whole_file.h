// A DataSet as one file, for the jobs that make or replace the whole of it. Only store/lifecycle uses it.
#pragma once

#include <atomic>
#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

// For a file that nobody else has and that is made durable as a whole at its end: nothing is synced before
// that, and no journal stands beside it.
void WriteWithoutSyncs(Connection& connection);

// For an open file that was replaced: it makes and removes no journal from now on.
void MakeNoJournal(Connection& connection);

// Opens the closed file at `path`, checks every page of it, and closes it. CorruptFile when it is damaged.
// May run in a thread of its own; it fails soon after another thread has set `stop`.
void CheckWholeFile(const EngineState& engine, const std::string& path, const std::atomic<bool>& stop);

// The failure of a statement that was interrupted.
[[noreturn]] void ThrowInterrupted();

}  // namespace quillon::store
