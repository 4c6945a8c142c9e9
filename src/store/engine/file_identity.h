// The identity of a file: device and inode.
#pragma once

#include <cstdint>
#include <string>

namespace quillon::store {

struct FileIdentity {
    std::uint64_t device = 0, number = 0;
    bool operator==(const FileIdentity&) const = default;
};

// All zero when there is no such file.
FileIdentity IdentityOf(const std::string& path) noexcept;

}  // namespace quillon::store
