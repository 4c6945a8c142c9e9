// Hashes with a random seed for each run of the program, for tables whose keys come from a file: no file can
// cause collisions on purpose.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::importing {

std::uint64_t SeededHash(std::uint64_t number);
std::uint64_t SeededHash(std::string_view text);

}  // namespace quillon::importing
