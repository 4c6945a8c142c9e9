// campaign-pairs: two jobs that start together on one target or one DataSet. What they leave must be what
// they leave one after the other, or what one leaves alone when the other refused; a job on the same target
// that comes later may replace all of it. One that did not write must say so, and nothing else may change.
#include <fmt/format.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "batch_child.h"
#include "content.h"
#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr double kMostSeconds = 60;

struct PairJob {
    const char* name;
    std::vector<std::string> arguments;  // of quillon-batch; for Save As the DataSet and the new one
    std::string target;                  // the file that the job makes or changes
    bool replaces;                       // whatever the target held
};

constexpr std::string_view kSaveAs = "Save As";

struct Pair {
    PairJob first, second;
};

PairJob New(const char* target, const char* kingdom) {
    return {"new", {"new", target, "--kingdom", kingdom, "--yes"}, target, true};
}
PairJob Import(const char* target, const char* file) {
    return {"import", {"import", target, file, "--yes"}, target, false};
}
PairJob Export(const char* from, const char* target) {
    return {"export", {"export", from, target, "--yes"}, target, true};
}
PairJob List(const char* from, const char* target) {
    return {"list", {"export", from, target, "--list", "rank", "--yes"}, target, true};
}
PairJob SaveAs(const char* from, const char* target) {
    return {kSaveAs.data(), {from, target}, target, true};
}
const std::vector<Pair> kPairs = {
    {New("t.mdb", "Animalia"), New("t.mdb", "Plantae")},
    {New("t.mdb", "Animalia"), Import("t.mdb", "a.qln")},
    {New("t.mdb", "Animalia"), Export("one.mdb", "t.mdb")},
    {New("t.mdb", "Plantae"), SaveAs("one.mdb", "t.mdb")},
    {Import("t.mdb", "a.qln"), Import("t.mdb", "b.qln")},
    {Import("t.mdb", "a.qln"), Export("one.mdb", "t.mdb")},
    {Import("t.mdb", "a.qln"), Export("t.mdb", "out.qln")},
    {Import("t.mdb", "a.qln"), SaveAs("one.mdb", "t.mdb")},
    {Import("t.mdb", "a.qln"), SaveAs("t.mdb", "copy.mdb")},
    {Export("one.mdb", "out.qln"), Export("two.mdb", "out.qln")},
    {Export("one.mdb", "out.qln"), List("two.mdb", "out.qln")},
    {Export("one.mdb", "t.mdb"), SaveAs("two.mdb", "t.mdb")},
    {SaveAs("one.mdb", "t.mdb"), SaveAs("two.mdb", "t.mdb")},
};

// Chooses the file of a Save As, and says Yes.
class SavingPrompter : public testkit::SilentPrompter {
public:
    explicit SavingPrompter(std::string path) : path_(std::move(path)) {}
    bool AskYesNo(std::string_view, std::string_view) override { return true; }
    std::optional<std::string> FileToSave(std::string_view, std::string_view, bool,
                                          std::string_view) override {
        return path_;
    }

private:
    std::string path_;
};

// A DataSet is open in the desktop program, and is saved under another name.
int SaveOpenDataSetAs(const std::string& from, const std::string& to) {
    ApplicationState state;
    store::Engine engine;
    SavingPrompter prompter(to);
    dataset::Lifecycle lifecycle(state, engine, prompter);
    state.gDataSetPath = lifecycle.OpenDataSetFile(from);
    if (!state.gDataSetOpen) {
        prompter.messages.push_back(lifecycle.LastOpenError());
    } else {
        lifecycle.SaveDataSetAs();
        lifecycle.CloseDataSet();
    }
    for (const std::string& message : prompter.messages) fmt::print(stderr, "message: {}\n", message);
    return prompter.messages.empty() ? 0 : 3;
}

// What the files of the folder hold, by their names.
using Content = std::map<std::string, std::string>;

// How two jobs ended, and what they left.
struct Outcome {
    bool firstDone = false, secondDone = false;
    Content content;
};

// What the two jobs of a pair leave one after the other, and each alone.
struct Reference {
    Content before;
    std::vector<Outcome> outcomes;
    double seconds = 0;  // that the longer one takes
};

class PairRunner {
public:
    PairRunner(const Folder& folder, std::string program, std::size_t names)
        : work_(folder.File("work")), aside_(folder.File("aside")), program_(std::move(program)) {
        WriteFolder(aside_, {});
        WriteFolder(work_, {});
        bench::GenerateFile(names, 3, work_ + "/a.qln");
        bench::GenerateFile(names, 4, work_ + "/b.qln");
        bench::GenerateFile(names / 4, 5, work_ + "/old.qln");
        MakeFull("one.mdb", "a.qln");
        MakeFull("two.mdb", "b.qln");
        MakeFull("t.mdb", "old.qln");
        before_ = ReadFolder(work_);
        before_["out.qln"] = before_["copy.mdb"] = "an old file";
    }

    const Reference& ReferenceOf(std::size_t number) {
        std::optional<Reference>& known = references_[number];
        if (!known) known = Measure(kPairs[number]);
        return *known;
    }

    // Starts both, the second so many seconds after the first, or before it.
    Outcome Together(const Pair& pair, double after, std::string& wrong) {
        WriteFolder(work_, before_);
        const BatchOrder first = OrderOf(pair.first, "first", -after),
                         second = OrderOf(pair.second, "second", after);
        const pid_t firstChild = Start(pair.first, first), secondChild = Start(pair.second, second);
        firstEnd = WaitForBatch(firstChild, first, kMostSeconds);
        secondEnd = WaitForBatch(secondChild, second, kMostSeconds);
        for (const BatchEnd* end : {&firstEnd, &secondEnd})
            if (wrong.empty()) wrong = end->WhatIsWrong();
        return {firstEnd.Succeeded(), secondEnd.Succeeded(), Now()};
    }
    Content Now() const {
        Content content;
        for (const auto& entry : std::filesystem::directory_iterator(work_))
            content[entry.path().filename()] = ContentOf(entry.path());
        return content;
    }
    // The first complaint about a DataSet of the folder, "" for none.
    std::string CheckDataSets() const {
        for (const auto& [name, bytes] : ReadFolder(work_)) {
            if (!bytes.starts_with("SQLite")) continue;
            if (const std::string check = CheckOfFile(work_ + "/" + name); check != "ok")
                return name + ": " + check;
        }
        return "";
    }
    // Files that neither job may have changed.
    std::string CheckOthers(const Pair& pair) const {
        const FolderContent after = ReadFolder(work_);
        for (const auto& [name, bytes] : before_) {
            if (name == pair.first.target || name == pair.second.target) continue;
            const auto found = after.find(name);
            if (found == after.end() || found->second != bytes) return name + " was changed";
        }
        for (const auto& [name, bytes] : after)
            if (before_.count(name) == 0 && name != pair.first.target && name != pair.second.target)
                return "leaves " + name;
        return "";
    }

    BatchEnd firstEnd, secondEnd;

private:
    void MakeFull(const char* dataSet, const char* file) {
        Expect(RunBatch(Order({"new", dataSet, "--kingdom", "Animalia"}, "making"), kMostSeconds));
        Expect(RunBatch(Order({"import", dataSet, file, "--work-dir", aside_}, "making"), kMostSeconds));
    }
    static void Expect(const BatchEnd& end) {
        if (!end.Succeeded()) throw std::runtime_error(end.messages);
    }

    BatchOrder Order(std::vector<std::string> arguments, const char* who) const {
        BatchOrder order;
        order.program = program_;
        order.folder = work_;
        order.arguments = std::move(arguments);
        order.errors = aside_ + "/" + who + ".errors";
        return order;
    }
    BatchOrder OrderOf(const PairJob& job, const char* who, double after) const {
        BatchOrder order = Order(job.arguments, who);
        const std::string logs = aside_ + "/" + who;
        std::filesystem::create_directory(logs);
        order.arguments.insert(order.arguments.end(), {"--work-dir", logs});
        order.startAfter = after;
        return order;
    }
    pid_t Start(const PairJob& job, const BatchOrder& order) const {
        if (job.name != kSaveAs) return StartBatch(order);
        return StartChild([&] {
            if (freopen(order.errors.c_str(), "w", stderr) == nullptr || chdir(work_.c_str()) != 0) return 98;
            Sleep(order.startAfter);
            return SaveOpenDataSetAs(job.arguments[0], job.arguments[1]);
        });
    }
    bool RunAlone(const PairJob& job) {
        const BatchOrder order = OrderOf(job, "first", 0);
        const BatchEnd end = WaitForBatch(Start(job, order), order, kMostSeconds);
        if (const std::string wrong = end.WhatIsWrong(); !wrong.empty()) throw std::runtime_error(wrong);
        return end.Succeeded();
    }

    Reference Measure(const Pair& pair) {
        Reference reference;
        WriteFolder(work_, before_);
        reference.before = Now();
        for (const bool reversed : {false, true}) {
            const PairJob &early = reversed ? pair.second : pair.first,
                          &late = reversed ? pair.first : pair.second;
            WriteFolder(work_, before_);
            const double start = SecondsNow();
            const bool earlyDone = RunAlone(early);
            reference.seconds = std::max(reference.seconds, SecondsNow() - start);
            reference.outcomes.push_back({!reversed && earlyDone, reversed && earlyDone, Now()});
            const bool lateDone = RunAlone(late);
            reference.outcomes.push_back(
                {reversed ? lateDone : earlyDone, reversed ? earlyDone : lateDone, Now()});
        }
        reference.outcomes.push_back({false, false, reference.before});
        return reference;
    }

    std::string work_, aside_, program_;
    FolderContent before_;
    std::map<std::size_t, std::optional<Reference>> references_;
};

// A later job on the same target may have replaced what the other wrote, though the other had read the old
// file.
bool MayHideTheOther(const Pair& pair) {
    return pair.first.target == pair.second.target && (pair.first.replaces || pair.second.replaces);
}

bool IsAllowed(const Pair& pair, const Reference& reference, const Outcome& outcome) {
    const bool bothDone = outcome.firstDone && outcome.secondDone;
    for (const Outcome& known : reference.outcomes) {
        const bool sameEnds = known.firstDone == outcome.firstDone && known.secondDone == outcome.secondDone;
        const bool oneAlone = known.firstDone != known.secondDone;
        const bool hides = bothDone && oneAlone && MayHideTheOther(pair);
        if ((sameEnds || hides) && known.content == outcome.content) return true;
    }
    return false;
}

// Where the folder differs from how it was.
std::string Difference(const Content& before, const Content& after) {
    std::string text;
    for (const auto& [name, content] : after) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != content)
            text += fmt::format(" {}({} bytes of content)", name, content.size());
    }
    return text.empty() ? " nothing" : text;
}

std::string WhatIsWrong(PairRunner& runner, const Pair& pair, const Reference& reference,
                        const Outcome& outcome) {
    if (const std::string others = runner.CheckOthers(pair); !others.empty()) return others;
    if (const std::string check = runner.CheckDataSets(); !check.empty()) return check;
    if (IsAllowed(pair, reference, outcome)) return "";
    return "neither one whole result nor both: changed" + Difference(reference.before, outcome.content);
}

void RunPairs(PairRunner& runner, std::size_t runs, Random& random, Violations& violations) {
    std::map<std::string, std::size_t> ends;
    for (std::size_t i = 0; i < runs; ++i) {
        const Pair& pair = kPairs[i % kPairs.size()];
        const Reference& reference = runner.ReferenceOf(i % kPairs.size());
        // Every other time at the same moment.
        const bool atOnce = (i / kPairs.size()) % 2 == 0;
        const double after = atOnce ? 0 : reference.seconds * (2 * UniformBelow(random, 1) - 1);
        std::string wrong;
        const Outcome outcome = runner.Together(pair, after, wrong);
        if (wrong.empty()) wrong = WhatIsWrong(runner, pair, reference, outcome);
        ++ends[outcome.firstDone && outcome.secondDone   ? "both wrote"
               : outcome.firstDone || outcome.secondDone ? "one wrote"
                                                         : "none wrote"];
        if (wrong.empty()) continue;
        violations.Add(fmt::format("run {}, {} and {} on {}, {:.3f} s apart: {} ({}: {}; {}: {})", i + 1,
                                   pair.first.name, pair.second.name, pair.second.target, after, wrong,
                                   runner.firstEnd.Text(), runner.firstEnd.messages, runner.secondEnd.Text(),
                                   runner.secondEnd.messages));
    }
    fmt::print("pairs of jobs: {}, of {} kinds", runs, kPairs.size());
    for (const auto& [end, count] : ends) fmt::print("; {}: {}", end, count);
    fmt::print("\n");
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    using namespace quillon::campaign;
    CLI::App app("Starts two jobs together on one target.", "campaign-pairs");
    std::size_t runs = 400, names = 300;
    std::uint64_t seed = 1;
    std::string where, program = QUILLON_BATCH;
    app.add_option("--runs", runs, "pairs to start");
    app.add_option("--names", names, "names in each file");
    app.add_option("--seed", seed, "seed of the moments");
    app.add_option("--folder", where, "where the files go");
    app.add_option("--program", program, "another quillon-batch");
    CLI11_PARSE(app, argc, argv);
    try {
        const Folder folder(where);
        Random random(seed);
        Violations violations;
        PairRunner runner(folder, program, names);
        RunPairs(runner, runs, random, violations);
        return violations.Close();
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-pairs: {}\n", error.what());
        return 3;
    }
}
