// The folders for the user's files: preferences in the configuration folder, logs and work files in the data
// folder. main() calls this once.
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
// the user's configuration and data locations. Relative paths start at the current directory.
Places PlacesOf(const Environment& environment);

// Creates the folder if necessary, accessible to this user only, and makes it the current directory. On
// failure returns false and keeps the current directory.
bool EnterFolder(const std::string& folder);

}  // namespace quillon::startup
