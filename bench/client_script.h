// The stock client's share of the import bench: a DataSet taken apart into its schema and one file a table,
// and the script by which `sqlite3` makes the same tables with the same indexes and imports the same rows.
#pragma once

#include <string>

namespace quillon::bench {

enum class Indexes {
    Live,   // made with the tables, as the schema stands in the file
    After,  // made when the rows are in
};

// Writes the rows of every table of `dataSet` into `folder`, in the client's ascii mode. Throws
// std::runtime_error.
void ExportRows(const std::string& dataSet, const std::string& folder);
// The script for the client's standard input; the rows are those that ExportRows wrote into `folder`. The
// client has no Null in a text file and no collation of ours: an empty text and NOCASE stand for them, checks
// are off.
std::string ClientScript(const std::string& dataSet, const std::string& folder, Indexes indexes);

}  // namespace quillon::bench
