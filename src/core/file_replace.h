// Small files read and replaced as a whole, for what must survive a crash and a full disk. Nothing here
// throws; a failure is returned as text.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

struct SmallFile {
    std::string bytes;
    // Why a file that is there could not be read; empty when it was read, and when there is none.
    std::string failure;
};
// A plain file of at most a megabyte; anything else at `path` is a failure, and nothing waits for it.
SmallFile ReadSmallFile(const std::string& path);

// Replaces the content of a file in one durable step, through a TemporaryFile. Makes the folders that are
// missing; keeps a symbolic link and the permissions of the file. Returns the failure, empty when it is done;
// after a failure the old file is as it was and nothing is left beside it.
std::string ReplaceFile(const std::string& path, std::string_view content);

}  // namespace quillon
