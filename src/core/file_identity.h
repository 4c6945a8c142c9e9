// Tests whether two paths are the same file, and resolves paths. Every job that writes a file checks this
// first, so that none overwrites its input.
#pragma once

#include <string>

namespace quillon {

// True for a file of any kind at `path`, with symbolic links followed.
bool FileExists(const std::string& path);

// True when both paths lead to the same device and inode, so also for hard and symbolic links. Paths to files
// that do not exist are the same when they lead to the same place.
bool IsSameFile(const std::string& left, const std::string& right);

// `path` with its symbolic links followed, also where the last one leads to a file that does not exist yet: a
// file made there appears where the link points. `path` itself when it leads nowhere.
std::string RealPath(const std::string& path);

}  // namespace quillon
