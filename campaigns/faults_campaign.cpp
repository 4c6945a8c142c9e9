// campaign-faults: the k-th write, sync, truncation or renaming of a job fails, once and from then on, with
// no space and with a broken disk, for every k up to the job's end. The job must say so in clear words, and
// leave a file that opens whole with all that was acknowledged, or the original.
#include <fmt/format.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "disk_jobs.h"
#include "fault_vfs.h"

namespace quillon::campaign {

namespace {

// A text that says what happened: the disk is full or broken, or the file is.
bool IsClear(const std::string& message) {
    constexpr std::string_view clear[] = {"Not enough space on disk", "Disk error",
                                          "failed: No space left on device", "failed: Input/output error"};
    return std::any_of(std::begin(clear), std::end(clear),
                       [&](std::string_view text) { return message.find(text) != std::string::npos; });
}

// The calls of the whole job, which says nothing.
std::uint64_t CountCalls(const Place& place, const DiskJob& job, const Originals& originals) {
    PutFiles(place, job, originals);
    SetFaultPlan({});
    const Outcome outcome = job.run(place, originals);
    const std::uint64_t calls = FaultCalls();
    SetFaultPlan({});
    const std::string wrong = job.check(place, originals, outcome);
    if (!outcome.message.empty() || !wrong.empty())
        throw std::runtime_error(fmt::format("{} without faults: {} {}", job.name, outcome.message, wrong));
    return calls;
}

enum CaseEnd : int { kWentThrough = 10, kSaidSo = 11, kWrong = 12 };

// In a child process, as it may crash.
int RunCase(const Place& place, const DiskJob& job, const Originals& originals, const FaultPlan& plan,
            const std::string& what) {
    PutFiles(place, job, originals);
    SetFaultPlan(plan);
    const Outcome outcome = job.run(place, originals);
    SetFaultPlan({});
    std::string wrong;
    try {
        wrong = job.check(place, originals, outcome);
    } catch (const store::StoreError& error) {
        wrong = "does not open: " + error.Description();
    }
    if (wrong.empty() && !outcome.message.empty() && !IsClear(outcome.message))
        wrong = "the message is not clear";
    if (wrong.empty()) return outcome.message.empty() ? kWentThrough : kSaidSo;
    fmt::print("{}: {} (said: {})\n", what, wrong, outcome.message);
    return kWrong;
}

struct Case {
    FaultPlan plan;
    std::string what;
};

std::vector<Case> CasesOf(const DiskJob& job, std::uint64_t calls, std::uint64_t stride) {
    std::vector<Case> cases;
    for (std::uint64_t k = 1; k <= calls; k += stride)
        for (const Fault fault : {Fault::NoSpace, Fault::BrokenDisk})
            for (const bool fromThenOn : {false, true})
                cases.push_back({{k, fromThenOn, fault},
                                 fmt::format("{}, call {}, {}, {}", job.name, k,
                                             fault == Fault::NoSpace ? "no space" : "broken disk",
                                             fromThenOn ? "from then on" : "once")});
    return cases;
}

void RunJob(const DiskJob& job, std::uint64_t stride, std::size_t together, const Folder& folder,
            const Originals& originals, Violations& violations) {
    const std::uint64_t calls = CountCalls({folder.File(job.name)}, job, originals);
    const std::vector<Case> cases = CasesOf(job, calls, stride);
    std::map<int, std::size_t> ends;
    for (std::size_t first = 0; first < cases.size(); first += together) {
        const std::size_t last = std::min(first + together, cases.size());
        std::vector<pid_t> children;
        for (std::size_t i = first; i < last; ++i) {
            const Place place{folder.File(fmt::format("{}{}", job.name, i - first))};
            children.push_back(
                StartChild([&] { return RunCase(place, job, originals, cases[i].plan, cases[i].what); }));
        }
        for (std::size_t i = first; i < last; ++i) {
            const int status = WaitFor(children[i - first]);
            const int end = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            ++ends[end];
            if (end != kWentThrough && end != kSaidSo) violations.Add(cases[i].what + ": " + EndText(status));
        }
    }
    fmt::print("{}: {} calls, {} cases: {} said so, {} went through all the same\n", job.name, calls,
               cases.size(), ends[kSaidSo], ends[kWentThrough]);
}

int Run(std::uint64_t stride, std::uint64_t seed, std::size_t together, const std::string& where) {
    InstallFaultVfs();
    const Folder folder(where);
    const Originals originals = MakeOriginals(folder, seed);
    Violations violations;
    for (const DiskJob& job : DiskJobs()) RunJob(job, stride, together, folder, originals, violations);
    return violations.Close();
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    CLI::App app("Lets the k-th write, sync, truncation or renaming of a job fail, for every k.",
                 "campaign-faults");
    std::uint64_t stride = 1, seed = 1;
    std::size_t together = 8;
    std::string where;
    app.add_option("--stride", stride, "only every so many calls")->check(CLI::PositiveNumber);
    app.add_option("--seed", seed, "seed of the imported file");
    app.add_option("--together", together, "cases that run side by side")->check(CLI::PositiveNumber);
    app.add_option("--folder", where, "where the files go");
    CLI11_PARSE(app, argc, argv);
    try {
        return quillon::campaign::Run(stride, seed, together, where);
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-faults: {}\n", error.what());
        return 3;
    }
}
