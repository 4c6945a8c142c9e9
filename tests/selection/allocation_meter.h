// Counts the bytes that the program has from `new`, so that a test can show how much memory a job takes.
#pragma once

#include <cstddef>

namespace quillon::selection {

class AllocationMeter {
public:
    // Begins to count.
    AllocationMeter();
    // The most bytes held at a time since, above those held at the beginning.
    std::size_t Peak() const;

private:
    std::size_t before_;
};

}  // namespace quillon::selection
