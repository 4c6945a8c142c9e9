// Publishes and copies DataSet files, and protects open ones. Everything is written beside its target and
// moved there in one step, so that a failure leaves the target unchanged. Every failure is a StoreError.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/temporary_file.h"
#include "store/engine.h"

namespace quillon::store {

// Throws the StoreError for a file that could not be read or written.
[[noreturn]] void ThrowFileError(const FileError& error);
template <typename Step>
auto WithStoreErrors(Step step) {
    try {
        return step();
    } catch (const FileError& error) {
        ThrowFileError(error);
    }
}

// True for bytes that a killed run may leave: none, or the beginning of a DataSet.
bool BeginsLikeDataSet(std::string_view firstBytes);

// True when there is a file at `path`, or a journal or log of a deleted one. Callers ask the user before they
// make a DataSet there, because all of them are removed.
bool IsDataSetPlaceTaken(const std::string& path);

// Throws InvalidPath when `path` leads to a device, a pipe or a folder, which no file may replace.
void RefuseSpecialFile(const std::string& path);

// The same, and CannotOpenFile when a file of another program is where the journal or the log of a DataSet
// at `path` would be.
void RefuseOccupiedPlace(const std::string& path);

// Called during a long job; false cancels it.
using GoOn = std::function<bool()>;
// Throws the error of an interrupted statement when `goOn` returns false. An empty one never does.
void RequireGoOn(const GoOn& goOn);

// Replaces the target with a finished, closed DataSet. First removes a journal or log that another file left
// beside the target, because SQLite would apply it to the new file.
// Asks `goOn` for the last time when the file is written, before it is moved into place.
void PublishDataSet(TemporaryFile& finished, const GoOn& goOn = {});

// Copies the file. Neither file may be open in this process. When it is canceled, `to` is unchanged.
void CopyDataSetFile(const std::string& from, const std::string& to, const GoOn& goOn = {});

// Throws FileInUse when `path` is a DataSet that another process has open.
void RefuseFileInUse(Engine& engine, const std::string& path);

// Opens the DataSet that was just put in place at `path`. Another process may look at it first and have it
// for a moment: it is waited for, up to ten seconds, with `turn` called meanwhile. After that the FileInUse
// says that the DataSet was replaced.
DatabaseHandle OpenReplaced(Engine& engine, const std::string& path, const std::function<void()>& turn);

}  // namespace quillon::store
