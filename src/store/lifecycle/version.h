// The version of a DataSet, as its table db_control has it, and how it stands to that of the program. Whoever
// opens a DataSet asks this before anything else is read.
#pragma once

#include <string>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// True when the "Version" row of db_control begins with a digit or with "Gamma". `version` is what the row
// holds, "" when there is none. A table that cannot be read is a StoreError.
bool IsDataSetVersionValid(Database& database, std::string& version);
// The same for a file that is open only meanwhile; false when it cannot be opened or read.
bool IsFileDataSetVersionValid(Engine& engine, const std::string& path, std::string& version);

enum class VersionOrder {
    Older,      // the DataSet must be brought up to date first
    Same,       // the program works with it as it is
    Newer,      // made by a later program
    Unordered,  // the two cannot be compared
};
VersionOrder CompareDataSetVersion(std::string_view version, std::string_view program);

}  // namespace quillon::store
