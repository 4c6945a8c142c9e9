#include "run_program.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <filesystem>
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

Pairs RunPairs(int pairs, const std::function<Run()>& ours, const std::function<Run()>& theirs) {
    std::vector<double> ratios;
    Pairs result;
    for (int i = 0; i < pairs; ++i) {
        const Run first = ours(), second = theirs();
        fmt::print("pair {}: ours {:.2f} s, client {:.2f} s\n", i + 1, first.seconds, second.seconds);
        ratios.push_back(first.seconds / second.seconds);
        result.megabytes = std::max(result.megabytes, first.megabytes);
    }
    result.ratio = Median(ratios);
    return result;
}

bool Judge(const char* goal, double value, double most) {
    fmt::print("{} {:.2f}, at most {:.2f}: {}\n", goal, value, most, value <= most ? "met" : "missed");
    return value <= most;
}

int RunBench(int argc, char** argv, const std::string& name, const std::string& purpose,
             const std::function<bool(const Options&)>& compare) {
    CLI::App app(purpose, name);
    Options options;
    options.folder =
        (std::filesystem::temp_directory_path() / fmt::format("quillon-bench-{}", getpid())).string();
    app.add_option("--folder", options.folder, "where the files go; they are removed at the end");
    app.add_option("--client", options.client, "the sqlite3 client");
    app.add_option("--names", options.names, "how many names");
    app.add_option("--pairs", options.pairs, "pairs of the comparison")->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    setlinebuf(stdout);
    bool met = false;
    try {
        std::filesystem::create_directories(options.folder);
        met = compare(options);
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}: {}\n", name, error.what());
    }
    std::error_code ignored;
    std::filesystem::remove_all(options.folder, ignored);
    return met ? 0 : 1;
}

}  // namespace quillon::bench
