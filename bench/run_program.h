// Programs that a bench times from outside, as a user starts them.
#pragma once

#include <string>
#include <vector>

namespace quillon::bench {

struct Run {
    double seconds = 0;
    double megabytes = 0;  // most at any time
};

// Runs a program to its end. Its standard output goes into the file `output`, nowhere when empty. Throws
// std::runtime_error when it does not end with `expected`.
Run RunProgram(const std::vector<std::string>& words, int expected = 0, const std::string& output = {});

double Median(std::vector<double> numbers);

// Prints how a value stands to its goal; true when it is met.
bool Judge(const char* goal, double value, double most);

}  // namespace quillon::bench
