// The names of DataSet and file as the export forms show and complete them.
#pragma once

#include <string>
#include <string_view>

namespace quillon::exporting {

inline const std::string kDataSetLine = "Export DataSet: ";
inline const std::string kFileLine = "To File: ";

// ".qln" for the last four characters of the path; empty for an empty path.
std::string WithQln(const std::string& path);
// The path with `extension` behind it when the file's name, folders aside, holds no full stop.
std::string WithExtension(const std::string& path, std::string_view extension);

}  // namespace quillon::exporting
