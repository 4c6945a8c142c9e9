// Names of tables, fields and queries: compares them ignoring the case of ASCII letters, and quotes them for
// SQLite. Every layer of the store uses this.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillon::store {

bool SameWord(std::string_view left, std::string_view right);

std::string QuoteName(std::string_view name);
std::string QuoteLiteral(std::string_view text);

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const;
};
struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const { return SameWord(left, right); }
};
template <typename T>
using NameMap = std::unordered_map<std::string, T, NameHash, NameEqual>;

}  // namespace quillon::store
