// Where the program keeps what belongs to its user: the preferences in the configuration folder, logs and
// work files in one data folder. main() asks once; the environment of the desktop decides.
#pragma once

#include <functional>
#include <string>

namespace quillon::startup {

struct Places {
    std::string preferencesFile;  // Qln.Ini
    std::string dataFolder;
};

// The value of a variable, empty when it is not set.
using Environment = std::function<std::string(const char* name)>;

// QUILLON_CONFIG_DIR and QUILLON_DATA_DIR name the two folders; without them they are "taxonomic-quillon" in
// the user's configuration and data locations. What is named relatively counts from the current directory.
Places PlacesOf(const Environment& environment);

// Makes the folder, for this user alone, when there is none, and makes it the current directory. False when
// that fails; the current directory stays then.
bool EnterFolder(const std::string& folder);

}  // namespace quillon::startup
