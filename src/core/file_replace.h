// Reads and replaces small files as a whole, safe against a crash and a full disk. Nothing here throws; a
// failure is returned as text.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

struct SmallFile {
    std::string bytes;
    // Why an existing file could not be read; empty when it was read or does not exist.
    std::string failure;
};
// Reads a regular file of at most a megabyte; anything else at `path` is a failure. Never blocks.
SmallFile ReadSmallFile(const std::string& path);

// Replaces the content of a file in one durable step, through a TemporaryFile. Of the files that killed runs
// left beside it, those that begin like `content` are removed. Creates missing folders; keeps
// a symbolic link and the permissions of the file. Returns the failure, or an empty text. After a failure the
// old file is unchanged and no other file is left.
std::string ReplaceFile(const std::string& path, std::string_view content);

}  // namespace quillon
