// The export done the plain way: a select for each section, a query for each row, line after line through
// recordsets. Slow and plain, to compare the real one with. Where a select leaves the order open the rows
// stand in that of their table's key.
#pragma once

#include <string>

#include "core/application_state.h"
#include "store/engine.h"

namespace quillon::exporting {

// The whole file in UTF-8, under gRecordFilter and without what gRejectedTaxa and gRejectedDocs refuse.
std::string ExportRowByRow(const ApplicationState& state, store::Database& database);

}  // namespace quillon::exporting
