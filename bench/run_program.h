// Programs that a bench times from outside, as a user starts them.
#pragma once

#include <string>
#include <vector>

namespace quillon::bench {

struct Run {
    double seconds = 0;
    double processor = 0;  // seconds of it, which a busy machine changes little
    double megabytes = 0;  // most at any time
};

// Runs a program to its end. It reads the file `input`; its standard output goes into the file `output`. Each
// is nothing when empty. Throws std::runtime_error when it does not end with `expected`.
Run RunProgram(const std::vector<std::string>& words, int expected = 0, const std::string& output = {},
               const std::string& input = {});

// The mean of the two in the middle of an even number.
double Median(std::vector<double> numbers);

// Prints how a value stands to its goal; true when it is met.
bool Judge(const char* goal, double value, double most);

}  // namespace quillon::bench
