// What a file holds, however it came to hold it: two files with the same content are equal here even when
// their time stamps or the order of their pages differ. Reads with SQLite alone, so that the program under
// test does not judge itself.
#pragma once

#include <string>

namespace quillon::campaign {

// "ok" when SQLite finds the DataSet at `path` whole, otherwise its first complaint.
std::string CheckOfFile(const std::string& path);

// Every row of every table of a DataSet, without its time stamps; for any other file its bytes, without time
// stamps; "(none)" when there is no file, and nothing of a
// pipe, a device or a folder.
std::string ContentOf(const std::string& path);

// What quillon-batch must never leave beside a file: temporary files, journals and logs of the store.
bool IsLeftover(const std::string& name);

}  // namespace quillon::campaign
