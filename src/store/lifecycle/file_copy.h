// DataSets as whole files: put in place, copied, and protected while they are open. Everything is written
// beside its target and put there in one step, so that a failure leaves the target as it was. Every failure
// is a StoreError.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/temporary_file.h"
#include "store/engine.h"

namespace quillon::store {

// The StoreError for a file that could not be read or written.
[[noreturn]] void ThrowFileError(const FileError& error);
template <typename Step>
auto WithStoreErrors(Step step) {
    try {
        return step();
    } catch (const FileError& error) {
        ThrowFileError(error);
    }
}

// True for what a run that makes a DataSet can leave: nothing yet, or the beginning of a DataSet.
bool BeginsLikeDataSet(std::string_view firstBytes);

// True when there is a file at `path`, or a journal or log of one that is gone. Whoever is to make a DataSet
// there asks the user first: all of them go.
bool IsDataSetPlaceTaken(const std::string& path);

// Puts a finished, closed DataSet in its target's place. A journal or a log that another file left beside the
// target goes first, or it would be played into the new one.
void PublishDataSet(TemporaryFile& finished);

// Byte for byte. Neither may be open in this process.
void CopyDataSetFile(const std::string& from, const std::string& to);

// Throws FileInUse when `path` is a DataSet that another process has open; anything else passes.
void RefuseFileInUse(Engine& engine, const std::string& path);

// Opens the DataSet that was just put in place at `path`. Another process may look at it first and have it
// for a moment: it is waited for, up to ten seconds, with `turn` called meanwhile. After that the FileInUse
// says that the DataSet was replaced.
DatabaseHandle OpenReplaced(Engine& engine, const std::string& path, const std::function<void()>& turn);

}  // namespace quillon::store
