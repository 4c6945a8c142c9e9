// Functions for jobs that make or replace a whole DataSet file. Only store/lifecycle uses them.
#pragma once

#include <atomic>
#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

// For a private file that is made durable at the end: switches off syncs and the journal.
void WriteWithoutSyncs(Connection& connection);

// For an open file that was replaced: makes it neither create nor remove a journal.
void MakeNoJournal(Connection& connection);

// Opens the closed file at `path`, checks every page of it, and closes it. CorruptFile when it is damaged.
// May run in another thread; fails soon after `stop` is set.
void CheckWholeFile(const EngineState& engine, const std::string& path, const std::atomic<bool>& stop);

// Throws the error of an interrupted statement.
[[noreturn]] void ThrowInterrupted();

}  // namespace quillon::store
