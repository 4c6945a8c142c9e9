// Programs that a bench times from outside, as a user starts them.
#pragma once

#include <cstddef>
#include <functional>
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

// Two programs in turn, so that both meet the same machine: prints their times, and gives the median of the
// ratios and the most memory of the first.
struct Pairs {
    double ratio = 0;
    double megabytes = 0;
};
Pairs RunPairs(int pairs, const std::function<Run()>& ours, const std::function<Run()>& theirs);

// Prints how a value stands to its goal; true when it is met.
bool Judge(const char* goal, double value, double most);

// What the main() of such a bench does: takes its options, runs `compare` in a folder of its own that is
// removed afterwards, and gives the exit status: 1 when a goal is missed or something failed.
struct Options {
    std::string folder;
    std::string client = "sqlite3";
    std::size_t names = 1'000'000;
    int pairs = 5;
};
int RunBench(int argc, char** argv, const std::string& name, const std::string& purpose,
             const std::function<bool(const Options&)>& compare);

}  // namespace quillon::bench
