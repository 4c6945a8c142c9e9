// campaign-memory: the n-th allocation of a job of quillon-batch fails, once or from then on. The job must
// end as ever, or with "Not enough memory." and exit status 3, and leave every file as it was or whole, and
// nothing else.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <vector>

#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kNames = 300;
constexpr int kNoMemory = 3;

struct MemoryJob {
    const char* name;
    std::vector<std::string> arguments;
};

const std::vector<MemoryJob> kJobs = {
    {"new", {"new", "made.mdb", "--kingdom", "Animalia"}},
    {"new over an old file", {"new", "old.mdb", "--kingdom", "Animalia", "--yes"}},
    {"import", {"import", "empty.mdb", "names.qln"}},
    {"validate", {"validate", "full.mdb"}},
    {"validate the journal", {"validate", "full.mdb", "--filter", "journal"}},
    {"export", {"export", "full.mdb", "out.qln", "--yes"}},
    {"export for the online system", {"export", "full.mdb", "out.qln", "--online", "--yes"}},
    {"list of names", {"export", "full.mdb", "out.qln", "--list", "author", "--yes"}},
    {"query", {"query", "full.mdb", "Get Animal Data"}},
    {"info", {"info", "full.mdb"}},
};

struct End {
    int status = 0;  // as waitpid gives it
    std::string messages;
    bool operator==(const End&) const = default;
};

class Runner {
public:
    Runner(const Folder& folder, std::string program, std::string library)
        : work_(folder.File("work")),
          errors_(folder.File("errors")),
          count_(folder.File("count")),
          program_(std::move(program)),
          library_(std::move(library)) {
        WriteFolder(work_, {});
        Expect(Run({"new", "empty.mdb", "--kingdom", "Animalia"}, ""));
        Expect(Run({"new", "full.mdb", "--kingdom", "Animalia"}, ""));
        bench::GenerateFile(kNames, 3, work_ + "/names.qln");
        Expect(Run({"import", "full.mdb", "names.qln"}, ""));
        before_ = ReadFolder(work_);
        before_["old.mdb"] = "an old file";
        before_["out.qln"] = "an old file";
        before_.erase("import.err");
    }

    // The job on the files of the beginning, with `failing` as QUILLON_FAIL_ALLOCATION.
    End RunJob(const MemoryJob& job, const std::string& failing) {
        WriteFolder(work_, before_);
        return Run(job.arguments, failing);
    }
    const FolderContent& Before() const { return before_; }
    FolderContent After() const { return ReadFolder(work_); }
    // Allocations of the last run that nothing failed in.
    long Allocations() const { return std::stol(ReadFile(count_)); }

private:
    End Run(const std::vector<std::string>& arguments, const std::string& failing) {
        const pid_t child = StartChild([&] {
            if (chdir(work_.c_str()) != 0) return 98;
            const int errors = open(errors_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
            const int nothing = open("/dev/null", O_WRONLY);
            dup2(errors, STDERR_FILENO);
            dup2(nothing, STDOUT_FILENO);
            setenv("LD_PRELOAD", library_.c_str(), 1);
            setenv(failing.empty() ? "QUILLON_COUNT_ALLOCATIONS" : "QUILLON_FAIL_ALLOCATION",
                   failing.empty() ? count_.c_str() : failing.c_str(), 1);
            std::vector<char*> argv = {const_cast<char*>(program_.c_str())};
            for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
            argv.push_back(nullptr);
            execv(program_.c_str(), argv.data());
            return 98;
        });
        const int status = WaitFor(child);
        return {status, ReadFile(errors_)};
    }

    static void Expect(const End& end) {
        if (!WIFEXITED(end.status) || WEXITSTATUS(end.status) > 1) throw std::runtime_error(end.messages);
    }

    std::string work_, errors_, count_, program_, library_;
    FolderContent before_;
};

// Logs may be there in part; every other file is as it was, or as the whole job leaves it.
std::string CheckFiles(const FolderContent& before, const FolderContent& whole, const FolderContent& after) {
    constexpr std::string_view logs[] = {"import.err", "validate.log", "vtime.log", "time.log"};
    for (const auto& [name, content] : after) {
        if (std::find(std::begin(logs), std::end(logs), name) != std::end(logs)) continue;
        const auto old = before.find(name), made = whole.find(name);
        const bool asItWas = old != before.end() && old->second == content;
        // Time stamps make two whole DataSets differ, so their size decides.
        const bool isWhole = made != whole.end() && made->second.size() == content.size();
        if (!asItWas && !isWhole) return "leaves " + name + (old == before.end() ? "" : " changed");
    }
    for (const auto& [name, content] : before)
        if (after.count(name) == 0) return "removed " + name;
    return "";
}

std::string WhatIsWrong(const End& end, const End& ordinary) {
    if (!WIFEXITED(end.status)) return EndText(end.status);
    if (WEXITSTATUS(end.status) != kNoMemory) return end.status == ordinary.status ? "" : EndText(end.status);
    return end.messages.find("Not enough memory.") != std::string::npos ? "" : "exit 3 with: " + end.messages;
}

void SampleJob(Runner& runner, const MemoryJob& job, long places, Violations& violations) {
    const End ordinary = runner.RunJob(job, "");
    const FolderContent whole = runner.After();
    const long allocations = runner.Allocations();
    std::map<bool, long> ends;
    for (long i = 0; i < places; ++i) {
        // Dense at the beginning, where one-time work is, then evenly over the job.
        const long place =
            i < places / 3 ? 1 + i : 1 + allocations * (i - places / 3) / (places - places / 3);
        const std::string failing = std::to_string(place) + (i % 2 == 0 ? "" : "+");
        const End end = runner.RunJob(job, failing);
        std::string wrong = WhatIsWrong(end, ordinary);
        if (wrong.empty()) wrong = CheckFiles(runner.Before(), whole, runner.After());
        if (!wrong.empty()) violations.Add(fmt::format("{}, allocation {}: {}", job.name, failing, wrong));
        ++ends[end.status == ordinary.status];
    }
    fmt::print("{}: {} allocations, {} places: {} ended as ever, {} for want of memory\n", job.name,
               allocations, places, ends[true], ends[false]);
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    using namespace quillon::campaign;
    CLI::App app("Lets the n-th allocation of each job of quillon-batch fail.", "campaign-memory");
    long places = 150;
    std::string where;
    app.add_option("--places", places, "allocations that fail, for each job")->check(CLI::PositiveNumber);
    app.add_option("--folder", where, "where the files go");
    CLI11_PARSE(app, argc, argv);
    try {
        const Folder folder(where);
        Runner runner(folder, QUILLON_BATCH, QUILLON_FAILING_MEMORY);
        Violations violations;
        for (const MemoryJob& job : kJobs) SampleJob(runner, job, places, violations);
        return violations.Close();
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-memory: {}\n", error.what());
        return 3;
    }
}
