#include "run_program.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace quillon::bench {

namespace {

[[noreturn]] void BecomeProgram(const std::vector<std::string>& words, const std::string& output,
                                const std::string& input) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const int nowhere = open("/dev/null", O_WRONLY);
    const int out = output.empty() ? nowhere : open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    dup2(open(input.empty() ? "/dev/null" : input.c_str(), O_RDONLY), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

Run RunProgram(const std::vector<std::string>& words, int expected, const std::string& output,
               const std::string& input) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a process");
    if (child == 0) BecomeProgram(words, output, input);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != expected)
        throw std::runtime_error(fmt::format("{} {} ended with status {}", words[0], words[1], status));
    return {taken.count(), Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

double Median(std::vector<double> numbers) {
    std::sort(numbers.begin(), numbers.end());
    const std::size_t middle = numbers.size() / 2;
    return numbers.size() % 2 == 1 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
}

bool Judge(const char* goal, double value, double most) {
    fmt::print("{} {:.2f}, at most {:.2f}: {}\n", goal, value, most, value <= most ? "met" : "missed");
    return value <= most;
}

}  // namespace quillon::bench
