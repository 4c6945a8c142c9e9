// The version of the program: what "About" shows, what a new DataSet is stamped with and what an opened one
// is compared with. CMakeLists.txt reads the number from here.
#pragma once

#include <string_view>

namespace quillon {

inline constexpr std::string_view kProgramVersion = "4.0.6";

}  // namespace quillon
