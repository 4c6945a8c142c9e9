#include "core/target_check.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "core/file_identity.h"

namespace quillon {

namespace {

// Only for a file that this process does not have open: closing it would drop the locks on it.
bool BeginsLikeDataSet(const std::string& path) {
    constexpr std::string_view start("SQLite format 3\0", 16);
    std::array<char, start.size()> bytes{};
    std::ifstream file(path, std::ios::binary);
    return file.read(bytes.data(), bytes.size()) && std::string_view(bytes.data(), bytes.size()) == start;
}

}  // namespace

TargetFault FaultOfTarget(const std::string& target, const std::vector<std::string>& used) {
    if (std::any_of(used.begin(), used.end(),
                    [&](const std::string& file) { return !file.empty() && IsSameFile(target, file); }))
        return TargetFault::InUse;
    if (!FileExists(target)) return TargetFault::None;
    std::error_code error;
    if (!std::filesystem::is_regular_file(target, error)) return TargetFault::NotOrdinary;
    return BeginsLikeDataSet(target) ? TargetFault::DataSet : TargetFault::None;
}

}  // namespace quillon
