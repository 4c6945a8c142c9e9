// Makes DataSets: the file with its tables and named queries, the rows that every new one begins with, and
// both together put in the place of a path. File New, the batch program and the tests call it. Nothing here
// asks or reports anything: every failure is a StoreError.
#pragma once

#include <string>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// A new file with all tables and named queries, and no rows. 3204 when there is a file at `path`; after any
// other failure nothing is left there.
void CreateDataSetFile(Engine& engine, const std::string& path);

// The first rows of a DataSet for that kingdom, stamped with `version`. A kingdom that the program does not
// know gives rows with nothing in them, and no ranks.
void SeedDataSet(Engine& engine, Database& database, std::string_view kingdomName, std::string_view version);

// A created, seeded and closed DataSet at `path`, whatever was there before. It is made beside `path` and put
// in place when it is complete: after a failure the old file is as it was.
void MakeDataSetFile(Engine& engine, const std::string& path, std::string_view kingdomName,
                     std::string_view version);

// True while nothing was added to what SeedDataSet leaves.
bool HoldsOnlySeedRows(Database& database);

}  // namespace quillon::store
