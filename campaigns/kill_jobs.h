// The jobs of the kill campaign: each starts child processes, kills them at random moments, opens what
// they left, and counts what it found.
#pragma once

#include <cstddef>
#include <string>

#include "support.h"

namespace quillon::campaign {

// `count` tagged imports, `together` of them side by side.
void KillImports(std::size_t count, std::size_t together, const Folder& folder, Random& random,
                 Violations& violations);
// `count` writers that store unit after unit and note each acknowledged one in a file of their own before the
// next.
void KillWriters(std::size_t count, const Folder& folder, Random& random, Violations& violations);

// `count` exports of the quillon-batch at `program`, some of them ended by SIGTERM and SIGHUP instead.
void KillExports(std::size_t count, const std::string& program, const Folder& folder, Random& random,
                 Violations& violations);

// `count` scripts of saves, deletions and author clean-ups, played by the quillon-batch at `program`.
void KillScripts(std::size_t count, const std::string& program, const Folder& folder, Random& random,
                 Violations& violations);

// What a killed child left under `path`, opened through the store; nothing when it does not open or is not
// whole, which is a violation. Removes nothing.
bool OpenLeftBehind(Session& session, const std::string& path, const std::string& what,
                    Violations& violations);

}  // namespace quillon::campaign
