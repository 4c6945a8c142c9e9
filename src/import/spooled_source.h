// Pipes and devices as the source of an import. They can be read only once, but a line reader reads twice, so
// they are copied to a file without a name first.
#pragma once

#include <memory>
#include <string>

#include "import/byte_source.h"
#include "import/import_turns.h"

namespace quillon::importing {

// The source for `path`: the file itself if it is a regular file, else a copy in `directory`, or in the
// current directory when it is empty. Takes turns while it waits for a pipe. Throws ReadError and
// ImportCanceled.
std::unique_ptr<ByteSource> OpenSource(const std::string& path, const std::string& directory, Turns& turns);

}  // namespace quillon::importing
