// Times look-ups by key through named queries against bare prepared SQLite statements that read the same
// columns, each pair in the same run with its repetitions mixed. Prints the ratio of the medians, and exits
// with 1 when one is above 2.
#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "dataset/lifecycle.h"
#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "lookup_cases.h"
#include "testkit/outside.h"

namespace quillon::bench {

namespace {

constexpr double kMostRatio = 2.0;
constexpr std::size_t kNames = 100'000;

// Ends the bench with the message of a failure.
class ThrowingPrompter : public testkit::SilentPrompter {
public:
    void Message(std::string_view text, std::string_view) override {
        throw std::runtime_error(std::string(text));
    }
};

// A DataSet of generated names, open through the store, and a closed copy of it open through SQLite alone.
class TwoFiles {
public:
    TwoFiles()
        : folder_(std::filesystem::temp_directory_path() / fmt::format("quillon-lookup-{}", getpid())) {
        std::filesystem::create_directories(folder_);
        const std::string dataSet = folder_ / "names.mdb", copy = folder_ / "copy.mdb";
        state_.gKingdomName = "Animalia";
        state_.gPrefRank = "Kingdom";
        lifecycle_.MakeDataSet(dataSet);
        const std::string text = GeneratedText(kNames, 7);
        importing::MemorySource source(text);
        importing::TaggedImport import(state_, engine_, prompter_, events_, [](double) {});
        if (import.ReadTaggedFile(source, [](const importing::Finding&) {}))
            throw std::runtime_error("findings in the import");
        lifecycle_.CloseDataSet();
        std::filesystem::copy_file(dataSet, copy);
        state_.gDataSetPath = lifecycle_.OpenDataSetFile(dataSet);
        if (sqlite3_open_v2(copy.c_str(), &bare_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error("cannot open the copy");
        sqlite3_exec(bare_, "PRAGMA locking_mode = EXCLUSIVE; PRAGMA cache_size = -65536", nullptr, nullptr,
                     nullptr);
    }
    ~TwoFiles() {
        sqlite3_close_v2(bare_);
        lifecycle_.CloseDataSet();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TwoFiles(const TwoFiles&) = delete;
    TwoFiles& operator=(const TwoFiles&) = delete;

    store::Database& DataSet() { return *state_.gDatabase; }
    sqlite3* Bare() const { return bare_; }
    sqlite3_stmt* Prepare(std::string_view sql) const {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v3(bare_, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                               &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(bare_));
        return statement;
    }
    std::vector<Value> Keys(std::string_view sql) const {
        std::vector<Value> keys;
        sqlite3_stmt* statement = Prepare(sql);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            if (sqlite3_column_type(statement, 0) == SQLITE_INTEGER)
                keys.emplace_back(std::int64_t{sqlite3_column_int64(statement, 0)});
            else
                keys.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
        }
        sqlite3_finalize(statement);
        if (keys.empty()) throw std::runtime_error("nothing to look up");
        return keys;
    }

private:
    std::filesystem::path folder_;
    ApplicationState state_;
    store::Engine engine_;
    ThrowingPrompter prompter_;
    testkit::NullPump events_;
    dataset::Lifecycle lifecycle_{state_, engine_, prompter_};
    sqlite3* bare_ = nullptr;
};

// As a C++ program reads a column of a bare statement: by its type, a text as a string.
void ReadBare(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            break;
        case SQLITE_INTEGER:
            benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
            break;
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            benchmark::DoNotOptimize(
                std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))));
        }
    }
}

void Bare(benchmark::State& state, TwoFiles& files, const LookupCase& lookup) {
    const std::vector<Value> keys = files.Keys(lookup.keySql);
    sqlite3_stmt* statement = files.Prepare(lookup.bareSql);
    std::size_t at = 0;
    for (auto _ : state) {
        const Value& key = keys[at++ % keys.size()];
        if (key.IsText())
            sqlite3_bind_text64(statement, 1, key.Text().data(), key.Text().size(), SQLITE_STATIC,
                                SQLITE_UTF8);
        else
            sqlite3_bind_int64(statement, 1, key.AsLong());
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const int count = sqlite3_column_count(statement);
            for (int i = 0; i < count; ++i) ReadBare(statement, i);
        }
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
}

void Named(benchmark::State& state, TwoFiles& files, const LookupCase& lookup) {
    const std::vector<Value> keys = files.Keys(lookup.keySql);
    store::QueryDef query = files.DataSet().OpenQueryDef(lookup.query);
    std::size_t at = 0;
    for (auto _ : state) {
        query.Set(lookup.parameter, keys[at++ % keys.size()]);
        const auto rows = query.CreateSnapshot();
        const std::size_t count = rows->ColumnCount();
        for (; !rows->Eof(); rows->MoveNext())
            for (std::size_t i = 0; i < count; ++i) benchmark::DoNotOptimize(rows->At(i));
    }
}

// As the forms do it: the query is opened by its name each time, and each column is read by its name.
void OpenedByName(benchmark::State& state, TwoFiles& files, const LookupCase& lookup) {
    const std::vector<Value> keys = files.Keys(lookup.keySql);
    std::vector<std::string> names;
    {
        const auto rows = files.DataSet().OpenQueryDef(lookup.query).CreateSnapshot();
        for (std::size_t i = 0; i < rows->ColumnCount(); ++i) names.push_back(rows->ColumnName(i));
    }
    std::size_t at = 0;
    for (auto _ : state) {
        store::QueryDef query = files.DataSet().OpenQueryDef(lookup.query);
        query.Set(lookup.parameter, keys[at++ % keys.size()]);
        const auto rows = query.CreateSnapshot();
        for (; !rows->Eof(); rows->MoveNext())
            for (const std::string& name : names) benchmark::DoNotOptimize(rows->Get(name));
    }
}

// Keeps the medians by the name of the benchmark.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> medians;
};

std::string NameOf(const LookupCase& lookup, const char* how) {
    return fmt::format("{}: {}", lookup.query, how);
}

void Register(TwoFiles& files) {
    for (const LookupCase& lookup : LookupCases()) {
        const auto add = [&](const char* how, void (*run)(benchmark::State&, TwoFiles&, const LookupCase&)) {
            benchmark::RegisterBenchmark(
                NameOf(lookup, how).c_str(),
                [&files, &lookup, run](benchmark::State& state) { run(state, files, lookup); });
        };
        add("bare", Bare);
        add("named", Named);
        add("opened by name", OpenedByName);
    }
}

bool PrintRatios(const std::map<std::string, double>& medians) {
    bool met = true;
    fmt::print("\n{:<18}{:>12}{:>8}{:>16}\n", "look-up", "bare, ns", "named", "opened by name");
    for (const LookupCase& lookup : LookupCases()) {
        const auto bare = medians.find(NameOf(lookup, "bare")), named = medians.find(NameOf(lookup, "named"));
        const auto opened = medians.find(NameOf(lookup, "opened by name"));
        if (bare == medians.end() || named == medians.end() || opened == medians.end()) continue;
        fmt::print("{:<18}{:>12.0f}{:>8.2f}{:>16.2f}\n", lookup.query, bare->second,
                   named->second / bare->second, opened->second / bare->second);
        met = met && named->second / bare->second <= kMostRatio;
    }
    fmt::print("named against bare at most {:.2f}: {}\n", kMostRatio, met ? "met" : "missed");
    return met;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    using namespace quillon::bench;
    // What the command line gives comes after these and wins.
    std::vector<std::string> words = {argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                      "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_report_aggregates_only=true"};
    words.insert(words.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    arguments.reserve(words.size());
    for (std::string& word : words) arguments.push_back(word.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    try {
        TwoFiles files;
        Register(files);
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        return PrintRatios(reporter.medians) ? 0 : 1;
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_lookup: {}\n", error.what());
        return 3;
    }
}
