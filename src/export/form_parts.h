// What the export forms share: the lines that show DataSet and file, the names that they complete, and the
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
// The path with `extension` behind it when the file's name, folders aside, holds no full stop.
std::string WithExtension(const std::string& path, std::string_view extension);
// The list that the options mean; the name alone when neither is chosen.
ListType ChosenListType(const OptionControl& optAuthority, const OptionControl& optRank);

}  // namespace quillon::exporting
