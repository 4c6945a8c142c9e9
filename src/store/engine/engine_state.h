// The state shared by all connections of an Engine: whether a transaction is open, whether a long job runs,
// and a function to inspect another DataSet. The Engine owns it; connections only read it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/schema/table_def.h"

namespace quillon::store {

class Connection;

struct OtherDataSet {
    const Connection* connection = nullptr;  // only for comparison; it may be closed
    std::vector<TableDef> tables;
};

struct EngineState {
    bool inTransaction = false;
    bool inJob = false;
    bool inCommand = false;  // a job with a single commit at its end
    // Opens a DataSet with all checks, reads its tables, and closes it unless it was open before.
    std::function<OtherDataSet(const std::string& path)> look;
};

}  // namespace quillon::store
