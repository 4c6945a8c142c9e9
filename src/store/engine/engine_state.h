// What all connections of one Engine share: whether a transaction is open, whether a long job runs, and how
// to look into another DataSet. The Engine owns it; a connection only reads it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/schema/table_def.h"

namespace quillon::store {

class Connection;

struct OtherDataSet {
    const Connection* connection = nullptr;  // to compare; it may be closed again
    std::vector<TableDef> tables;
};

struct EngineState {
    bool inTransaction = false;
    bool inJob = false;
    bool inCommand = false;  // a job with one commit, at its end
    // Opens a DataSet with all checks, reads its tables, and closes it unless it was open before.
    std::function<OtherDataSet(const std::string& path)> look;
};

}  // namespace quillon::store
