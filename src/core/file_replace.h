// Small files read and replaced as a whole, for what must survive a crash and a full disk. Nothing here
// throws; a failure is given in plain words.
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

// Writes `content` beside the file, makes it durable and puts it in the file's place in one step; folders
// that are missing are made, a symbolic link stays one, and so do the file's permissions. Gives the failure,
// empty when it is done; after a failure the old file stands as it was and nothing is left beside it.
std::string ReplaceFile(const std::string& path, std::string_view content);

}  // namespace quillon
