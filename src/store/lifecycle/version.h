// Reads the version of a DataSet from its table db_control, and compares it with that of the program. Call it
// before anything else is read from a DataSet.
#pragma once

#include <string>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// True when the "Version" row of db_control begins with a digit or with "Gamma". `version` gets the value of
// the row, "" when there is none. Throws StoreError when the table cannot be read.
bool IsDataSetVersionValid(Database& database, std::string& version);
// Opens a file for the same test and closes it; false when it cannot be opened or read.
bool IsFileDataSetVersionValid(Engine& engine, const std::string& path, std::string& version);

enum class VersionOrder {
    Older,      // the DataSet must be updated first
    Same,       // the program can use it
    Newer,      // made by a later program
    Unordered,  // the two cannot be compared
};
VersionOrder CompareDataSetVersion(std::string_view version, std::string_view program);

}  // namespace quillon::store
