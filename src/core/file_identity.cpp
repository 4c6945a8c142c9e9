#include "core/file_identity.h"

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace quillon {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // the kernel's limit

// Follows the symbolic links in the folders of `path` but not in its last part.
fs::path InRealFolder(const fs::path& path) {
    std::error_code failure;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const fs::path real = fs::canonical(folder, failure);
    return failure ? path : real / path.filename();
}

}  // namespace

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

bool IsSameFile(const std::string& left, const std::string& right) {
    struct stat a {
    }, b{};
    const bool hasLeft = stat(left.c_str(), &a) == 0, hasRight = stat(right.c_str(), &b) == 0;
    if (hasLeft && hasRight) return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
    return hasLeft == hasRight && RealPath(left) == RealPath(right);
}

std::string RealPath(const std::string& path) {
    std::error_code failure;
    const fs::path real = fs::canonical(path, failure);
    if (!failure) return real.string();
    fs::path place = InRealFolder(path);
    for (int links = 0; links < kMostLinks; ++links) {
        const fs::path next = fs::read_symlink(place, failure);
        if (failure) return place.string();
        place = InRealFolder(next.is_absolute() ? next : place.parent_path() / next);
    }
    return path;
}

}  // namespace quillon
