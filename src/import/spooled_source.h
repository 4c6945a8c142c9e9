// Pipes and devices as the source of an import. They can be read only once, and a line reader reads twice, so
// they are first read to their end into a file without a name.
#pragma once

#include <memory>
#include <string>

#include "import/byte_source.h"
#include "import/import_turns.h"

namespace quillon::importing {

// The source for `path`: the file itself when it is a plain file, else a copy made in `directory`, the
// current one when empty. Takes turns while it waits for a pipe. Throws ReadError and ImportCanceled.
std::unique_ptr<ByteSource> OpenSource(const std::string& path, const std::string& directory, Turns& turns);

}  // namespace quillon::importing
