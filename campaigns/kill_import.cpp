#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>

#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "imported_lines.h"
#include "kill_jobs.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kNames = 3000;
constexpr double kSlowSeconds = 2.5;  // that a slowed import takes to read
constexpr double kMayBeLost = 1.0;    // seconds of work

// When each line was done: the child writes it, the parent reads it after the child's end.
struct LineTimes {
    static constexpr std::size_t kMost = 100'000;
    std::atomic<std::uint32_t> lines{0};
    std::array<double, kMost> at{};
};

class SharedTimes {
public:
    SharedTimes()
        : memory_(
              mmap(nullptr, sizeof(LineTimes), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (memory_ == MAP_FAILED) throw std::runtime_error("no shared memory");
    }
    ~SharedTimes() { munmap(memory_, sizeof(LineTimes)); }
    SharedTimes(const SharedTimes&) = delete;
    SharedTimes& operator=(const SharedTimes&) = delete;
    LineTimes& operator*() const { return *static_cast<LineTimes*>(memory_); }

private:
    void* memory_;
};

// Is called after each line: notes the time, and keeps a slowed import to its pace.
class NotingPump : public EventPump {
public:
    NotingPump(LineTimes& times, std::size_t lines, bool slow)
        : times_(times),
          lines_(lines),
          pause_(slow ? kSlowSeconds / static_cast<double>(lines) : 0),
          start_(SecondsNow()) {}

    void Yield() override {
        const std::uint32_t line = times_.lines.load(std::memory_order_relaxed);
        if (line >= lines_) return;
        times_.at[line] = SecondsNow();
        times_.lines.store(line + 1, std::memory_order_release);
        const double ahead = start_ + pause_ * (line + 1) - times_.at[line];
        if (ahead > 0.002) Sleep(ahead);
    }

private:
    LineTimes& times_;
    std::size_t lines_;
    double pause_, start_;
};

struct ImportJob {
    std::string dataSet, file, workFolder;
    std::size_t lines = 0;
    bool slow = false;
};

int RunImport(const ImportJob& job, LineTimes& times) {
    Session session;
    session.Open(job.dataSet);
    NotingPump pump(times, job.lines, job.slow);
    importing::TaggedImport import(session.state, session.engine, session.prompter, pump, [](double) {});
    const importing::ImportResult result = import.Run(job.file, job.workFolder);
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
        if (lines_.Count() > LineTimes::kMost) throw std::runtime_error("too many lines");
        MeasureWhole();
    }

    // Kills `count` imports that run side by side.
    void Round(std::size_t count, bool slow, Random& random) {
        std::vector<Running> running(count);
        for (std::size_t i = 0; i < count; ++i) Start(running[i], i, slow, random);
        std::vector<Running*> order;
        for (Running& one : running) order.push_back(&one);
        std::sort(order.begin(), order.end(),
                  [](const Running* a, const Running* b) { return a->end < b->end; });
        for (Running* one : order) {
            Sleep(one->end - SecondsNow());
            one->end = SecondsNow();
            kill(one->child, SIGKILL);
        }
        for (Running& one : running) one.status = WaitFor(one.child);
        for (Running& one : running) Check(one);
    }

    void Print() const {
        fmt::print(
            "imports killed: {} of {} lines each; {} while lines were read, {} in the closing pass, {} were "
            "done before; "
            "most work lost: {:.2f} s\n",
            killed_, lines_.Count(), whileReading_, inClosing_, done_, mostLost_);
    }

private:
    struct Running {
        ImportJob job;
        SharedTimes times;
        pid_t child = 0;
        double end = 0;  // when it is to be killed, and then when it was
        int status = 0;
    };

    ImportJob JobNumber(std::size_t number, bool slow) {
        const std::string name = fmt::format("import{}", number);
        mkdir(folder_.File(name).c_str(), 0777);
        return {folder_.File(name + ".mdb"), folder_.File("names.qln"), folder_.File(name), lines_.Count(),
                slow};
    }

    void PutFresh(const std::string& path) {
        unlink((path + "-journal").c_str());
        WriteFile(path, fresh_);
    }

    // An import that nobody kills: how long one takes, and that it has no findings.
    void MeasureWhole() {
        const SharedTimes times;
        const ImportJob job = JobNumber(0, false);
        PutFresh(job.dataSet);
        const double start = SecondsNow();
        const int status = RunChild([&] { return RunImport(job, *times); });
        wholeSeconds_ = SecondsNow() - start;
        if (status != 0) violations_.Add("an import that was not killed ended with " + EndText(status));
    }

    void Start(Running& one, std::size_t number, bool slow, Random& random) {
        one.job = JobNumber(number, slow);
        PutFresh(one.job.dataSet);
        one.child = StartChild([&] { return RunImport(one.job, *one.times); });
        const double longest = slow ? kSlowSeconds + wholeSeconds_ : wholeSeconds_ * 1.1;
        one.end = SecondsNow() + UniformBelow(random, longest);
    }

    void Check(Running& one) {
        ++killed_;
        const std::string what = fmt::format("import {}", killed_);
        const LineTimes& times = *one.times;
        const std::size_t handled = times.lines.load(std::memory_order_acquire);
        if (WIFEXITED(one.status)) {
            if (WEXITSTATUS(one.status) != 0)
                violations_.Add(what + " ended by itself: " + EndText(one.status));
            ++done_;
        } else {
            ++(handled < lines_.Count() ? whileReading_ : inClosing_);
        }
        Session session;
        if (!OpenLeftBehind(session, one.job.dataSet, what, violations_)) return;
        if (NativeNumber(session.DataSet(), "SELECT count(*) FROM qln_waiting_indexes") != 0)
            violations_.Add(what + ": indexes are still missing");
        const std::optional<std::size_t> stored = lines_.Stored(session.DataSet());
        if (!stored) return violations_.Add(what + ": the rows are not those of the first lines");
        if (*stored >= handled) return;
        const double lost = one.end - times.at[*stored];
        mostLost_ = std::max(mostLost_, lost);
        if (lost > kMayBeLost)
            violations_.Add(fmt::format("{}: {} of {} lines stored, {:.2f} s of work lost", what, *stored,
                                        handled, lost));
    }

    const Folder& folder_;
    Violations& violations_;
    std::string fresh_;
    ImportedLines lines_;
    double wholeSeconds_ = 0, mostLost_ = 0;
    std::size_t killed_ = 0, whileReading_ = 0, inClosing_ = 0, done_ = 0;
};

}  // namespace

void KillImports(std::size_t count, std::size_t together, const Folder& folder, Random& random,
                 Violations& violations) {
    if (count == 0) return;
    ImportKiller killer(folder, violations);
    const std::size_t slow = count / 2;
    for (std::size_t i = 0; i < count - slow; ++i) killer.Round(1, false, random);
    for (std::size_t done = 0; done < slow; done += together)
        killer.Round(std::min(together, slow - done), true, random);
    killer.Print();
}

}  // namespace quillon::campaign
