// Reports the progress of a long job.
#pragma once

#include <functional>

namespace quillon {

// Receives the percentage done, 0 to 100.
using Gauge = std::function<void(double)>;

}  // namespace quillon
