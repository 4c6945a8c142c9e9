// The names of DataSet files as people give them in the dialogs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/outside.h"

namespace quillon::dataset {

// A name without a point gets the ending ".MDB". The whole path is looked at, its folders included.
std::string WithExtension(std::string path);

// The file that a person means who opens `path`: a bare name also finds the file with an ending.
std::string FindDataSetFile(const std::string& path);

// The question before a DataSet takes the place of a file.
bool AskToOverwrite(Prompter& prompter, const std::string& path);

// The dialog of File, New: nothing when the user cancels. The dialog itself asks before it takes an existing
// file; where the ending makes it another file, this asks, and a No leads back to the dialog.
std::optional<std::string> AskNewDataSetFile(Prompter& prompter, std::string_view title);

}  // namespace quillon::dataset
