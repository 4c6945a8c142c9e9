// The version of the program. "About" shows it, new DataSets store it, and opened ones are compared with it.
// CMakeLists.txt reads the number from here.
#pragma once

#include <string_view>

namespace quillon {

inline constexpr std::string_view kProgramVersion = "4.0.6";

}  // namespace quillon
