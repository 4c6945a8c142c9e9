#include "startup/places.h"

#include <filesystem>
#include <system_error>

#include "startup/preferences.h"

namespace quillon::startup {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFolder = "taxonomic-quillon";

// A base that is not absolute is ignored, as the XDG base directory convention requires.
fs::path FolderIn(const Environment& environment, const char* own, const char* base, const char* otherwise) {
    if (const std::string named = environment(own); !named.empty()) return fs::absolute(named);
    const fs::path location = environment(base);
    if (location.is_absolute()) return location / kFolder;
    return fs::absolute(fs::path(environment("HOME")) / otherwise / kFolder);
}

}  // namespace

Places PlacesOf(const Environment& environment) {
    const fs::path config = FolderIn(environment, "QUILLON_CONFIG_DIR", "XDG_CONFIG_HOME", ".config");
    const fs::path data = FolderIn(environment, "QUILLON_DATA_DIR", "XDG_DATA_HOME", ".local/share");
    return {(config / kPreferencesFile).string(), data.string()};
}

bool EnterFolder(const std::string& folder) {
    std::error_code failure;
    if (fs::create_directories(folder, failure)) {
        std::error_code open;
        fs::permissions(folder, fs::perms::owner_all, open);
    }
    if (!failure) fs::current_path(folder, failure);
    return !failure;
}

}  // namespace quillon::startup
