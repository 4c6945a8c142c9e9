// Whether two paths mean one file, and where a path leads. Every job that writes a file asks this first, so
// that none writes over what it reads.
#pragma once

#include <string>

namespace quillon {

// Anything at `path`, at the end of its symbolic links.
bool FileExists(const std::string& path);

// True when both paths lead to one file, by device and inode: hard links and symbolic links to it included.
// Paths of files that do not exist are the same when they lead to the same place.
bool IsSameFile(const std::string& left, const std::string& right);

// `path` with its symbolic links followed, also where the last one leads to a file that does not exist yet: a
// file made there appears where the link points. `path` itself when it leads nowhere.
std::string RealPath(const std::string& path);

}  // namespace quillon
