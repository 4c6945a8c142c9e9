// Protects the files of others beside a DataSet: SQLite takes any "NAME-journal" and "NAME-wal" for its own,
// and deletes them. Called before a DataSet is opened or made.
#pragma once

#include <string>

namespace quillon::store {

// Throws CannotOpenFile when the journal or the log beside the DataSet at `realPath` has content that SQLite
// never writes. Changes nothing.
void RefuseForeignLogs(const std::string& realPath);

}  // namespace quillon::store
