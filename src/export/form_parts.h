// Common parts of the export forms: the lines that show DataSet and file, the completion of names, and the
// choice of a list.
#pragma once

#include <string>
#include <string_view>

#include "core/controls.h"
#include "export/name_list.h"

namespace quillon::exporting {

inline constexpr std::string_view kDataSetLine = "Export DataSet: ";
inline constexpr std::string_view kFileLine = "To File: ";

// ".qln" for the last four characters of the path; empty for an empty path.
std::string WithQln(const std::string& path);
// The path with `extension` appended if the file name, without folders, has no full stop.
std::string WithExtension(const std::string& path, std::string_view extension);
// The list type set by the options; Name when neither is chosen.
ListType ChosenListType(const OptionControl& optAuthority, const OptionControl& optRank);

}  // namespace quillon::exporting
