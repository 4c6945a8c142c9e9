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

#include "fault_vfs.h"
#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "imported_lines.h"
#include "store/lifecycle/file_copy.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr int kUnits = 6;
constexpr std::size_t kNames = 25;

// What a finished job says: nothing when it went through, otherwise the text for the user.
struct Outcome {
    std::string message;
    int acknowledged = 0;  // units
};

// One case's folder with the files that the job finds.
struct Place {
    std::string folder;
    std::string File(const char* name) const { return folder + "/" + name; }
};

struct Originals {
    std::string fresh;  // a new DataSet
    std::string text;   // the tagged file
    ImportedLines lines;
};

// Lets one durable commit fall into the middle of the import.
class PausingPump : public EventPump {
public:
    explicit PausingPump(std::size_t line) : line_(line) {}
    void Yield() override {
        if (++calls_ == line_) Sleep(0.45);
    }

private:
    std::size_t line_, calls_ = 0;
};

Outcome Import(const Place& place, const Originals& originals) {
    Outcome outcome;
    Session session;
    try {
        session.Open(place.File("set.mdb"));
        PausingPump pump(originals.lines.Count() / 2);
        importing::TaggedImport import(session.state, session.engine, session.prompter, pump, [](double) {});
        const importing::ImportResult result = import.Run(place.File("names.qln"), place.folder);
        if (!result.completed && session.prompter.messages.empty()) outcome.message = "(none)";
        session.Close();
    } catch (const store::StoreError& error) {
        outcome.message = error.Description();
    }
    if (outcome.message.empty() && !session.prompter.messages.empty())
        outcome.message = session.prompter.messages.back();
    return outcome;
}

Outcome StoreUnits(const Place& place, const Originals&) {
    Outcome outcome;
    try {
        Session session;
        session.Open(place.File("set.mdb"));
        for (int number = 1; number <= kUnits; ++number) {
            session.engine.BeginTrans();
            for (const char* column : {"comment_id", "tsn"}) {
                const auto rows =
                    session.DataSet().OpenTable(column[0] == 'c' ? "qb_comments" : "qb_taxonomic_units");
                rows->AddNew();
                rows->Set(column, number);
                rows->Update();
            }
            session.engine.CommitTrans();
            outcome.acknowledged = number;
        }
        session.Close();
    } catch (const store::StoreError& error) {
        outcome.message = error.Description();
    }
    return outcome;
}

Outcome MakeNew(const Place& place, const Originals&) {
    Session session;
    try {
        session.Make(place.File("set.mdb"));
        session.Close();
    } catch (const store::StoreError& error) {
        return {error.Description()};
    }
    return {};
}

Outcome Copy(const Place& place, const Originals&) {
    try {
        store::CopyDataSetFile(place.File("set.mdb"), place.File("copy.mdb"));
    } catch (const store::StoreError& error) {
        return {error.Description()};
    }
    return {};
}

// Each says what is wrong with what the job left; "" for nothing.
std::string CheckImport(const Place& place, const Originals& originals, const Outcome& outcome) {
    Session session;
    session.Open(place.File("set.mdb"));
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    const auto stored = originals.lines.Stored(session.DataSet());
    if (!stored) return "the rows are not those of the first lines";
    if (outcome.message.empty() && *stored != originals.lines.Count())
        return fmt::format("said nothing and stored {} of {} lines", *stored, originals.lines.Count());
    return "";
}

std::string CheckUnits(const Place& place, const Originals&, const Outcome& outcome) {
    Session session;
    session.Open(place.File("set.mdb"));
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    const auto taxa =
        NativeNumbers(session.DataSet(), "SELECT tsn FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY tsn");
    const auto comments =
        NativeNumbers(session.DataSet(), "SELECT comment_id FROM qb_comments ORDER BY comment_id");
    if (taxa != comments) return "a unit is there in part";
    if (static_cast<int>(taxa.size()) < outcome.acknowledged)
        return fmt::format("{} units acknowledged, {} stored", outcome.acknowledged, taxa.size());
    if (outcome.message.empty() && outcome.acknowledged != kUnits) return "said nothing and did not finish";
    return "";
}

std::string CheckNew(const Place& place, const Originals& originals, const Outcome& outcome) {
    if (FileExists(place.File("set.mdb~new"))) return "leaves its half-made file";
    if (ReadFile(place.File("set.mdb")) == originals.text)
        return outcome.message.empty() ? "said nothing" : "";
    Session session;
    session.Open(place.File("set.mdb"));
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    const bool seeded = NativeNumber(session.DataSet(), "SELECT count(*) FROM qb_taxonomic_units") == 1;
    return outcome.message.empty() && !seeded ? "said nothing and did not seed" : "";
}

std::string CheckCopy(const Place& place, const Originals& originals, const Outcome& outcome) {
    if (FileExists(place.File("copy.mdb~new"))) return "leaves its half-made file";
    const std::string copy = ReadFile(place.File("copy.mdb"));
    if (copy == originals.fresh) return "";
    return copy == originals.text && !outcome.message.empty() ? ""
                                                              : "neither the old file nor the whole copy";
}

struct Job {
    const char* name;
    Outcome (*run)(const Place&, const Originals&);
    std::string (*check)(const Place&, const Originals&, const Outcome&);
};
constexpr Job kJobs[] = {{"import", Import, CheckImport},
                         {"units", StoreUnits, CheckUnits},
                         {"new", MakeNew, CheckNew},
                         {"copy", Copy, CheckCopy}};

// "new" and "copy" have an older file, the text, in their way.
void PutFiles(const Place& place, const Job& job, const Originals& originals) {
    mkdir(place.folder.c_str(), 0777);
    const bool isNew = std::string_view(job.name) == "new";
    unlink(place.File("set.mdb-journal").c_str());
    WriteFile(place.File("set.mdb"), isNew ? originals.text : originals.fresh);
    WriteFile(place.File("copy.mdb"), originals.text);
    WriteFile(place.File("names.qln"), originals.text);
}

// A text that says what happened: the disk is full or broken, or the file is.
bool IsClear(const std::string& message) {
    constexpr std::string_view clear[] = {"Not enough space on disk", "Disk error",
                                          "failed: No space left on device", "failed: Input/output error"};
    return std::any_of(std::begin(clear), std::end(clear),
                       [&](std::string_view text) { return message.find(text) != std::string::npos; });
}

// The calls of the whole job, which says nothing.
std::uint64_t CountCalls(const Place& place, const Job& job, const Originals& originals) {
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
int RunCase(const Place& place, const Job& job, const Originals& originals, const FaultPlan& plan,
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

std::vector<Case> CasesOf(const Job& job, std::uint64_t calls, std::uint64_t stride) {
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

void RunJob(const Job& job, std::uint64_t stride, std::size_t together, const Folder& folder,
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
    Originals originals;
    {
        Session session;
        session.Make(folder.File("fresh.mdb"));
        session.Close();
    }
    originals.fresh = ReadFile(folder.File("fresh.mdb"));
    originals.text = bench::GeneratedText(kNames, seed);
    originals.lines = ImportedLines(originals.text);
    Violations violations;
    for (const Job& job : kJobs) RunJob(job, stride, together, folder, originals, violations);
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
