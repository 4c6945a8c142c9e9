// Imports that are killed: the DataSet must be as it was, or hold the whole file.
#include <fmt/format.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <stdexcept>
#include <vector>

#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "imported_lines.h"
#include "kill_jobs.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kNames = 3000;

struct ImportJob {
    std::string folder, file;
    std::string DataSet() const { return folder + "/set.mdb"; }
};

int RunImport(const ImportJob& job) {
    Session session;
    session.Open(job.DataSet());
    testkit::NullPump pump;
    importing::TaggedImport import(session.state, session.engine, session.prompter, pump, [](double) {});
    const importing::ImportResult result = import.Run(job.file, job.folder);
    session.Close();
    for (const std::string& message : session.prompter.messages) fmt::print(stderr, "import: {}\n", message);
    return result.completed && !result.errors ? 0 : 97;
}

class ImportKiller {
public:
    ImportKiller(const Folder& folder, Violations& violations) : folder_(folder), violations_(violations) {
        Session session;
        session.Make(folder.File("fresh.mdb"));
        session.Close();
        fresh_ = ReadFile(folder.File("fresh.mdb"));
        bench::GenerateFile(kNames, 11, folder.File("names.qln"));
        lines_ = ImportedLines(ReadFile(folder.File("names.qln")));
        MeasureWhole();
    }

    // Kills `count` imports that run side by side.
    void Round(std::size_t count, Random& random) {
        std::vector<ImportJob> jobs;
        std::vector<pid_t> children;
        for (std::size_t i = 0; i < count; ++i) {
            jobs.push_back(JobNumber(i));
            children.push_back(StartChild([&] { return RunImport(jobs.back()); }));
        }
        // Side by side each takes longer: some are killed late, too.
        Sleep(UniformBelow(random, wholeSeconds_ * (1.1 + 0.5 * static_cast<double>(count - 1))));
        for (std::size_t i = 0; i < count; ++i) kill(children[i], SIGKILL);
        for (std::size_t i = 0; i < count; ++i) Check(jobs[i], WaitFor(children[i]));
    }

    void Print() const {
        fmt::print("imports killed: {} of {} lines each; {} left the DataSet as it was, {} were in place\n",
                   killed_, lines_.Count(), unchanged_, done_);
    }

private:
    ImportJob JobNumber(std::size_t number) {
        ImportJob job{folder_.File(fmt::format("import{}", number)), folder_.File("names.qln")};
        WriteFolder(job.folder, {{"set.mdb", fresh_}});
        return job;
    }

    // An import that runs to its end: how long one takes, and that it has no findings.
    void MeasureWhole() {
        const ImportJob job = JobNumber(0);
        const double start = SecondsNow();
        const int status = RunChild([&] { return RunImport(job); });
        wholeSeconds_ = SecondsNow() - start;
        if (status != 0) violations_.Add("an import that was not killed ended with " + EndText(status));
    }

    void Check(const ImportJob& job, int status) {
        const std::string what = fmt::format("import {}", ++killed_);
        if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
            violations_.Add(what + " ended by itself: " + EndText(status));
        {
            Session session;
            if (!OpenLeftBehind(session, job.DataSet(), what, violations_)) return;
            if (NativeNumber(session.DataSet(), "SELECT count(*) FROM qln_waiting_indexes") != 0)
                violations_.Add(what + ": indexes are still missing");
            const std::optional<std::size_t> stored = lines_.Stored(session.DataSet());
            if (!stored || (*stored != 0 && *stored != lines_.Count()))
                return violations_.Add(what + ": the DataSet holds a part of the file");
            ++(*stored == 0 ? unchanged_ : done_);
            if (WIFEXITED(status) && *stored == 0)
                violations_.Add(what + " reported success and stored nothing");
        }
        CheckNextRun(job, what);
    }

    // The next import works, and removes what the killed one left.
    void CheckNextRun(const ImportJob& job, const std::string& what) {
        if (killed_ % kNextRuns != 0) return;
        WriteFile(job.DataSet(), fresh_);
        if (const int status = RunChild([&] { return RunImport(job); }); status != 0)
            violations_.Add(what + ": the next import ended with " + EndText(status));
        for (const auto& [name, content] : ReadFolder(job.folder))
            if (name != "set.mdb" && name != "import.err") violations_.Add(what + " left " + name);
    }

    static constexpr std::size_t kNextRuns = 8;  // every so many

    const Folder& folder_;
    Violations& violations_;
    std::string fresh_;
    ImportedLines lines_;
    double wholeSeconds_ = 0;
    std::size_t killed_ = 0, unchanged_ = 0, done_ = 0;
};

}  // namespace

void KillImports(std::size_t count, std::size_t together, const Folder& folder, Random& random,
                 Violations& violations) {
    if (count == 0) return;
    ImportKiller killer(folder, violations);
    for (std::size_t done = 0; done < count; done += together)
        killer.Round(std::min(together, count - done), random);
    killer.Print();
}

}  // namespace quillon::campaign
