// Makes one write, sync, truncation or renaming of this process fail, or all from one on, as a full disk or a
// broken one does. SQLite's calls come through a VFS around its own; those of the store itself are put here
// by the linker.
#pragma once

#include <cstdint>

namespace quillon::campaign {

enum class Fault { NoSpace, BrokenDisk };

struct FaultPlan {
    std::uint64_t failAt = 0;  // the number of the call, from 1; 0 for never
    bool fromThenOn = false;
    Fault fault = Fault::NoSpace;
};

// Becomes SQLite's default VFS. Once, before any file is opened.
void InstallFaultVfs();
// Starts to count at 0.
void SetFaultPlan(const FaultPlan& plan);
// The calls so far that could have failed.
std::uint64_t FaultCalls();
// Counts one call, and returns whether it is to fail.
bool FailsNow();
// ENOSPC or EIO.
int FaultErrno();

}  // namespace quillon::campaign
