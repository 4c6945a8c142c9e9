// The names of DataSet files as the user enters them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/outside.h"

namespace quillon::dataset {

// A name without a full stop gets the ending ".MDB". The full stop may be anywhere in the path, also in a
// folder.
std::string WithExtension(std::string path);

// The file to open for `path`: a name without an ending also finds the file with one.
std::string FindDataSetFile(const std::string& path);

// Asks before a DataSet replaces a file.
bool AskToOverwrite(Prompter& prompter, const std::string& path);

// The dialog of File, New; empty when the user cancels. The dialog asks before it accepts an existing file.
// If the added ending makes it another file that exists, this function asks, and a No returns to the dialog.
std::optional<std::string> AskNewDataSetFile(Prompter& prompter, std::string_view title);

}  // namespace quillon::dataset
