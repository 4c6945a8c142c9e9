// campaign-hostile: each kind of hostile content goes through the jobs of quillon-batch. Each job must end
// with 0 to 3 and a message when it fails, within its time and its memory, and leave nothing behind; a job
// that failed, or that only reads, leaves the DataSet as it was.
#include <fmt/format.h>
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "batch_child.h"
#include "content.h"
#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "hostile_kinds.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr double kMostSeconds = 60;
constexpr std::size_t kMostMemory = std::size_t{2} << 30;
constexpr std::size_t kNames = 60;
constexpr const char* kOldExport = "an old file";

struct Step {
    const char* name;
    std::vector<std::string> arguments;
    bool writes = false;  // into the DataSet, when it is done
    bool IsExport() const { return arguments[0] == "export"; }
};

const Step kImport = {"import", {"import", "set.mdb", "in.qln", "--yes"}, true};
const std::vector<Step> kReading = {
    {"info", {"info", "set.mdb"}},
    {"query",
     {"query", "set.mdb",
      "select qb_id, unit_name1, parent_qb_id from qb_taxonomic_units order by unit_name1"}},
    {"stored query", {"query", "set.mdb", "Check Comment Links"}},
    {"validate", {"validate", "set.mdb", "--format", "tsv"}},
    {"validate the journal", {"validate", "set.mdb", "--filter", "journal"}},
    {"filter", {"validate", "set.mdb", "--filter", "unit_name1 Like *[a-z]*"}},
    {"export", {"export", "set.mdb", "out.qln", "--yes"}},
    {"export as UTF-8", {"export", "set.mdb", "out.qln", "--yes", "--encoding", "utf-8"}},
    {"export for the online system", {"export", "set.mdb", "out.qln", "--online", "--yes"}},
    {"list", {"export", "set.mdb", "out.qln", "--list", "rank", "--yes"}},
};
// What was exported goes into another new DataSet.
const Step kReturn = {"import of the export", {"import", "other.mdb", "out.qln", "--yes"}, true};

constexpr std::array<std::string_view, 5> kLogs = {"import.err", "validate.log", "vtime.log", "time.log",
                                                   "validate.tsv"};

class HostileRunner {
public:
    HostileRunner(const Folder& folder, std::string program, std::size_t size, bool limited,
                  Violations& violations)
        : work_(folder.File("work")),
          outputs_(folder.File("outputs")),
          program_(std::move(program)),
          size_(size),
          limited_(limited),
          violations_(violations) {
        std::filesystem::create_directory(outputs_);
        WriteFolder(work_, {});
        bench::GenerateFile(kNames, 3, work_ + "/in.qln");
        good_ = ReadFile(work_ + "/in.qln");
        Expect({"new", "set.mdb", "--kingdom", "Animalia"});
        fresh_ = ReadFile(work_ + "/set.mdb");
        Expect({"import", "set.mdb", "in.qln"});
        full_ = ReadFile(work_ + "/set.mdb");
    }

    void RunFile(const HostileKind& kind) {
        WriteFolder(work_, {{"set.mdb", fresh_}, {"other.mdb", fresh_}, {"out.qln", kOldExport}});
        Begin("file", kind);
        RunStep(kImport);
        for (const Step& step : kReading) RunStep(step);
        RunStep(kReturn);
    }
    void RunDataSet(const HostileKind& kind) {
        WriteFolder(work_, {{"set.mdb", full_}, {"in.qln", good_}, {"out.qln", kOldExport}});
        Begin("DataSet", kind);
        for (const Step& step : kReading) RunStep(step);
        RunStep(kImport);
        RunStep(kReading[0]);
    }

    void Print() const {
        fmt::print("hostile contents: {} kinds, {} jobs", kinds_, jobs_);
        for (const auto& [code, count] : ends_) fmt::print("; exit {}: {}", code, count);
        fmt::print("; longest: {:.1f} s, {}\n", longest_, longestJob_);
    }

private:
    BatchOrder Order(const std::vector<std::string>& arguments) const {
        BatchOrder order;
        order.program = program_;
        order.folder = work_;
        order.arguments = arguments;
        order.output = outputs_ + "/out";
        order.errors = outputs_ + "/errors";
        order.mostMemory = limited_ ? kMostMemory : 0;
        return order;
    }
    void Expect(const std::vector<std::string>& arguments) const {
        const BatchEnd end = RunBatch(Order(arguments), kMostSeconds);
        if (!end.Succeeded()) throw std::runtime_error(end.messages);
    }

    void Begin(const char* group, const HostileKind& kind) {
        kind.make({work_, size_});
        ++kinds_;
        kind_ = fmt::format("{} '{}'", group, kind.name);
        names_ = Names();
        wasWhole_ = CheckOfFile(work_ + "/set.mdb") == "ok";
    }

    void RunStep(const Step& step) {
        const FolderContent before = ReadFolder(work_);
        const std::string content = ContentOf(work_ + "/set.mdb");
        const double start = SecondsNow();
        const BatchEnd end = RunBatch(Order(step.arguments), kMostSeconds);
        Count(step, end, SecondsNow() - start);
        std::string wrong = end.WhatIsWrong();
        if (wrong.empty() && end.messages.find("Not enough memory") != std::string::npos)
            wrong = end.messages;
        if (wrong.empty()) wrong = CheckFiles(step, end, before, content);
        if (!wrong.empty())
            violations_.Add(fmt::format("{}, {}: {}", kind_, step.name, wrong.substr(0, 300)));
    }

    void Count(const Step& step, const BatchEnd& end, double seconds) {
        ++jobs_;
        ++ends_[end.Code()];
        if (seconds <= longest_) return;
        longest_ = seconds;
        longestJob_ = fmt::format("{} of {}", step.name, kind_);
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(work_))
            names.push_back(entry.path().filename());
        return names;
    }

    std::string CheckFiles(const Step& step, const BatchEnd& end, const FolderContent& before,
                           const std::string& content) const {
        for (const std::string& name : Names()) {
            const bool log = std::find(kLogs.begin(), kLogs.end(), name) != kLogs.end();
            const bool known = std::find(names_.begin(), names_.end(), name) != names_.end();
            if (!log && !known) return "leaves " + name;
        }
        const std::string target = step.writes ? step.arguments[1] : step.IsExport() ? "out.qln" : "";
        // An export fills in the numbers of parents that are missing, also when it cannot be finished.
        const bool fills = step.IsExport();
        for (const auto& [name, bytes] : before) {
            const bool mayChange = end.Succeeded() && name == target;
            std::string wrong = CheckFile(name, bytes, mayChange);
            if (!wrong.empty() && name == "set.mdb") wrong = CheckContent(content, fills);
            if (!wrong.empty()) return wrong;
        }
        return "";
    }

    // `mayChange`: the file is what the job was to write, and the job was done.
    std::string CheckFile(const std::string& name, const std::string& before, bool mayChange) const {
        const std::string path = work_ + "/" + name;
        if (std::find(kLogs.begin(), kLogs.end(), name) != kLogs.end()) return "";
        // A journal or a log of SQLite is played back or removed at the next opening.
        if (IsLeftover(name)) return "";
        if (!FileExists(path)) return "removed " + name;
        if (!mayChange) return ReadFile(path) == before ? "" : "changed " + name;
        if (!name.ends_with(".mdb") || !wasWhole_) return "";
        const std::string check = CheckOfFile(path);
        return check == "ok" ? "" : name + ": " + check;
    }

    // `content` is what the DataSet held before; with `fills`, fields of its rows may be filled in.
    std::string CheckContent(const std::string& content, bool fills) const {
        const std::string now = ContentOf(work_ + "/set.mdb");
        const bool same = fills ? std::count(now.begin(), now.end(), '\n') ==
                                      std::count(content.begin(), content.end(), '\n')
                                : now == content;
        return same ? "" : "changed what set.mdb holds";
    }

    std::string work_, outputs_, program_;
    std::size_t size_;
    bool limited_;
    Violations& violations_;
    std::string good_, fresh_, full_;
    std::string kind_;
    bool wasWhole_ = true;  // the DataSet, as SQLite finds
    std::vector<std::string> names_;
    std::size_t kinds_ = 0, jobs_ = 0;
    std::map<int, std::size_t> ends_;
    double longest_ = 0;
    std::string longestJob_;
};

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    using namespace quillon::campaign;
    CLI::App app("Gives hostile files and DataSets to quillon-batch.", "campaign-hostile");
    std::size_t size = 5000;
    std::string where, only, group, program = QUILLON_BATCH;
    bool unlimited = false;
    app.add_option("--size", size, "lines, rows or levels of the kinds that have a size")
        ->check(CLI::PositiveNumber);
    app.add_option("--group", group, "files or dataSets alone")->check(CLI::IsMember({"files", "dataSets"}));
    app.add_option("--only", only, "the kinds that have this in their names");
    app.add_option("--folder", where, "where the files go");
    app.add_option("--program", program, "another quillon-batch");
    app.add_flag("--no-memory-limit", unlimited, "for a program under a sanitizer");
    CLI11_PARSE(app, argc, argv);
    try {
        const Folder folder(where);
        Violations violations;
        HostileRunner runner(folder, program, size, !unlimited, violations);
        const auto wanted = [&](const HostileKind& kind) {
            return std::string(kind.name).find(only) != std::string::npos;
        };
        for (const HostileKind& kind : HostileFiles())
            if (group != "dataSets" && wanted(kind)) runner.RunFile(kind);
        for (const HostileKind& kind : HostileDataSets())
            if (group != "files" && wanted(kind)) runner.RunDataSet(kind);
        runner.Print();
        return violations.Close();
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-hostile: {}\n", error.what());
        return 3;
    }
}
