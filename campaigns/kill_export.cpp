// Exports that are killed, or asked to end: the target must be the old file or the whole new one.
#include <fmt/format.h>
#include <signal.h>

#include "batch_child.h"
#include "content.h"
#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "kill_jobs.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kNames = 6000;
constexpr double kMostSeconds = 60;
constexpr int kSignals[] = {SIGKILL, SIGTERM, SIGHUP, SIGKILL};
constexpr const char* kOld = "[TU]an old export";

class ExportKiller {
public:
    ExportKiller(const Folder& folder, const std::string& program, Violations& violations)
        : work_(folder.File("export")), errors_(folder.File("export.errors")), violations_(violations) {
        order_.program = program;
        order_.folder = work_;
        order_.errors = errors_;
        WriteFolder(work_, {});
        Expect({"new", "set.mdb", "--kingdom", "Animalia"});
        bench::GenerateFile(kNames, 11, work_ + "/names.qln");
        Expect({"import", "set.mdb", "names.qln"});
        // The first export fills in numbers of parents; every later one reads the same rows.
        Expect(kExport);
        before_ = {{"set.mdb", ReadFile(work_ + "/set.mdb")}, {"out.qln", kOld}};
        const double start = SecondsNow();
        Expect(kExport);
        seconds_ = SecondsNow() - start;
        whole_ = ReadFile(work_ + "/out.qln");
    }

    void KillOne(double moment, int signal) {
        const std::string what = fmt::format("export {}, signal {}", ++killed_, signal);
        WriteFolder(work_, before_);
        order_.arguments = kExport;
        const pid_t child = StartBatch(order_);
        Sleep(moment * seconds_ * 1.2);
        kill(child, signal);
        const BatchEnd end = WaitForBatch(child, order_, kMostSeconds);
        Check(what, end, signal);
        CheckNextRun(what);
    }
    void Print() const {
        fmt::print("exports killed: {}; {} left the old file, {} were in place, {} left a part beside it\n",
                   killed_, old_, killed_ - old_, parts_);
    }

private:
    void Expect(const std::vector<std::string>& arguments) {
        order_.arguments = arguments;
        const BatchEnd end = RunBatch(order_, kMostSeconds);
        if (!end.Succeeded()) throw std::runtime_error(end.messages);
    }

    void Check(const std::string& what, const BatchEnd& end, int signal) {
        if (end.hung) violations_.Add(what + ": hangs");
        const FolderContent after = ReadFolder(work_);
        const std::string& target = after.at("out.qln");
        if (target == kOld) ++old_;
        if (target != kOld && target != whole_)
            violations_.Add(what + ": neither the old file nor the whole one");
        if (end.Succeeded() && target != whole_)
            violations_.Add(what + ": reported success and wrote nothing");
        if (after.at("set.mdb") != before_.at("set.mdb")) violations_.Add(what + ": changed the DataSet");
        if (after.size() > before_.size()) ++parts_;
        if (signal != SIGKILL) CheckNothingBeside(what, after);
    }
    // The next export works, and removes what this one left.
    void CheckNextRun(const std::string& what) {
        order_.arguments = kExport;
        const BatchEnd end = RunBatch(order_, kMostSeconds);
        if (!end.Succeeded())
            violations_.Add(what + ": the next export ended with " + end.Text() + ": " + end.messages);
        const FolderContent after = ReadFolder(work_);
        if (after.at("out.qln") != whole_) violations_.Add(what + ": the next export is another");
        CheckNothingBeside(what, after);
    }
    void CheckNothingBeside(const std::string& what, const FolderContent& after) {
        for (const auto& [name, content] : after)
            if (before_.count(name) == 0) violations_.Add(what + " left " + name);
    }

    const std::vector<std::string> kExport = {"export", "set.mdb", "out.qln", "--yes"};

    std::string work_, errors_;
    Violations& violations_;
    BatchOrder order_;
    FolderContent before_;
    std::string whole_;
    double seconds_ = 0;
    std::size_t killed_ = 0, old_ = 0, parts_ = 0;
};

}  // namespace

void KillExports(std::size_t count, const std::string& program, const Folder& folder, Random& random,
                 Violations& violations) {
    if (count == 0) return;
    ExportKiller killer(folder, program, violations);
    for (std::size_t i = 0; i < count; ++i)
        killer.KillOne(UniformBelow(random, 1), kSignals[i % std::size(kSignals)]);
    killer.Print();
}

}  // namespace quillon::campaign
