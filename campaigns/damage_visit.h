// Does with a DataSet what the program may do with one that it opens: reads every table, runs every query,
// writes.
#pragma once

#include <cstdint>
#include <string>

namespace quillon::campaign {

enum class Visit {
    Refused,  // it did not open
    Partly,   // it opened, and something in it was refused
    Read,     // all of it was read, and the write went through
};

// Only a StoreError may come out of the store; any other exception passes through.
Visit VisitDataSet(const std::string& path, std::uint64_t seed);

}  // namespace quillon::campaign
