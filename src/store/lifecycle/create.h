// Creates DataSets: the file with its tables and named queries, and the first rows. File, New, the batch
// program and the tests call it. Nothing here asks or reports anything: every failure is a StoreError.
#pragma once

#include <string>
#include <string_view>

#include "store/engine.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::store {

// Adds the first rows of a DataSet for that kingdom, with `version`. An unknown kingdom gets empty rows and
// no ranks.
void SeedDataSet(Engine& engine, Database& database, std::string_view kingdomName, std::string_view version);

// Creates, seeds and closes a DataSet at `path`, replacing any file there. It is made beside `path` and moved
// into place when it is complete: after a failure or a cancel the old file is unchanged. Throws InvalidPath
// for a device, a pipe or a folder.
void MakeDataSetFile(Engine& engine, const std::string& path, std::string_view kingdomName,
                     std::string_view version, const GoOn& goOn = {});

// True when the DataSet has only the rows of SeedDataSet.
bool HoldsOnlySeedRows(Database& database);

}  // namespace quillon::store
