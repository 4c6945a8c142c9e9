// Hashes with a seed that is drawn anew by each run of the program, for tables whose keys come from a file:
// no file can choose keys that all fall into one place.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::importing {

std::uint64_t SeededHash(std::uint64_t number);
std::uint64_t SeededHash(std::string_view text);

}  // namespace quillon::importing
