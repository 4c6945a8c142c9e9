// How far a long job is.
#pragma once

#include <functional>

namespace quillon {

// Takes the per cent done, 0 to 100.
using Gauge = std::function<void(double)>;

}  // namespace quillon
