// campaign-power: the power fails at a random moment of a job, and the disk keeps what was synced and any
// part of the rest. A DataSet must then open whole, with all that was acknowledged: a job over the whole file
// is done or was never begun, and of single units each is there or not.
#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "disk_jobs.h"
#include "disk_log.h"

namespace quillon::campaign {

namespace {

void RunJob(const DiskJob& job, std::size_t states, std::uint64_t seed, const Folder& folder,
            const Originals& originals, Violations& violations) {
    const Place place{folder.File(job.name)};
    PutFiles(place, job, originals);
    const FolderContent before = ReadFolder(place.folder);
    const auto files = FilesOf(place.folder);
    onAcknowledged = Acknowledge;
    StartDiskLog(place.folder);
    const Outcome outcome = job.run(place, originals);
    const std::vector<DiskCall> log = StopDiskLog();
    if (!outcome.message.empty()) throw std::runtime_error(fmt::format("{}: {}", job.name, outcome.message));

    const PowerLoss power(log, before, files);
    Random random(seed);
    std::size_t done = 0;
    for (std::size_t state = 0; state < states; ++state) {
        const std::size_t moment = random() % (log.size() + 1);
        WriteFolder(place.folder, power.After(moment, random));
        std::string wrong;
        try {
            const bool ended = moment == log.size();
            wrong = job.check(place, originals,
                              {ended ? "" : "the power failed", power.AcknowledgedBefore(moment), true});
        } catch (const std::exception& error) {
            wrong = std::string("does not open: ") + error.what();
        }
        if (wrong.empty())
            ++done;
        else
            violations.Add(fmt::format("{}, before call {} of {}, state {}: {}", job.name, moment, log.size(),
                                       state, wrong));
    }
    fmt::print("{}: {} calls, {} states, {} whole\n", job.name, log.size(), states, done);
}

int Run(std::size_t states, std::uint64_t seed, const std::string& where) {
    const Folder folder(where);
    const Originals originals = MakeOriginals(folder, seed);
    Violations violations;
    for (const DiskJob& job : DiskJobs()) RunJob(job, states, seed, folder, originals, violations);
    return violations.Close();
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    CLI::App app("Lets the power fail at random moments of jobs.", "campaign-power");
    std::size_t states = 500;
    std::uint64_t seed = 1;
    std::string where;
    app.add_option("--states", states, "states of the disk for each job");
    app.add_option("--seed", seed, "seed of the names and of the moments");
    app.add_option("--folder", where, "where the files go");
    CLI11_PARSE(app, argc, argv);
    try {
        return quillon::campaign::Run(states, seed, where);
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-power: {}\n", error.what());
        return 3;
    }
}
