// The names of DataSet files as people give them in the dialogs.
#pragma once

#include <string>

namespace quillon::dataset {

// A name without a point gets the ending ".MDB". The whole path is looked at, its folders included.
std::string WithExtension(std::string path);

}  // namespace quillon::dataset
