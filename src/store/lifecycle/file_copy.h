// Files as a whole, for making, copying and replacing DataSets. A target is written beside its place, made
// durable, and put there in one step; a symbolic link in its place stays a link. Every failure is a
// StoreError.
#pragma once

#include <string>

#include "store/engine.h"

namespace quillon::store {

// Nothing when there is no such file.
void RemoveFile(const std::string& path);
// The file and the journal and logs beside it.
void RemoveDataSetFile(const std::string& path);
// Moves a finished, closed file over `target`, which must be a real path, and syncs the folder. A journal or
// a log that the old file left behind goes first, or it would be played into the new one.
void Publish(const std::string& finished, const std::string& target);
// Byte for byte. Neither may be open in this process.
void CopyDataSetFile(const std::string& from, const std::string& to);
// Throws FileInUse when `path` is a DataSet that another process, or this one, has open; anything else
// passes.
void RefuseFileInUse(Engine& engine, const std::string& path);

}  // namespace quillon::store
