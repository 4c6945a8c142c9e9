// Imports generated files with quillon-batch and lets the stock sqlite3 client import the same rows into the
// same tables, in turn, so that both meet the same machine. Prints medians of ratios, the time per line at
// three sizes, and the peak memory. Exits with 1 when a goal is missed.
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "client_script.h"
#include "generator/tagged_generator.h"
#include "run_program.h"

namespace quillon::bench {

namespace {

constexpr double kMostAgainstClient = 1.0, kMostGrowth = 1.3, kMostMegabytes = 300;
constexpr std::uint64_t kSeed = 2024;

class Bench {
public:
    Bench(std::string folder, std::string client) : folder_(std::move(folder)), client_(std::move(client)) {
        std::filesystem::create_directories(folder_);
    }

    void Generate(std::size_t names) {
        names_ = names;
        lines_ = GenerateFile(names, kSeed, File("names.qln")).Total();
    }
    std::size_t Lines() const { return lines_; }

    Run New() {
        std::filesystem::remove(File("ours.mdb"));
        return RunProgram({QUILLON_BATCH, "new", File("ours.mdb"), "--kingdom", "Animalia"});
    }
    Run Import() {
        return RunProgram(
            {QUILLON_BATCH, "import", File("ours.mdb"), File("names.qln"), "--work-dir", folder_});
    }
    // The whole way from no file to the rows in it.
    double Ours() { return New().seconds + Import().seconds; }
    double Client(Indexes indexes) {
        const std::string script = File(indexes == Indexes::Live ? "live.sql" : "after.sql");
        std::filesystem::remove(File("client.db"));
        return RunProgram({client_, "-batch", File("client.db")}, 0, {}, script).seconds;
    }
    void PrepareClient() {
        New();
        Import();
        ExportRows(File("ours.mdb"), folder_);
        std::ofstream(File("live.sql")) << ClientScript(File("ours.mdb"), folder_, Indexes::Live);
        std::ofstream(File("after.sql")) << ClientScript(File("ours.mdb"), folder_, Indexes::After);
    }
    std::string File(const std::string& name) const { return folder_ + "/" + name; }

private:
    std::string folder_, client_;
    std::size_t names_ = 0, lines_ = 0;
};

// The median of our time against the client's with live indexes.
double CompareWithClient(Bench& bench, std::size_t names, int pairs) {
    bench.Generate(names);
    bench.PrepareClient();
    std::vector<double> live, after;
    for (int i = 0; i < pairs; ++i) {
        const double ours = bench.Ours();
        const double clientLive = bench.Client(Indexes::Live);
        const double clientAfter = bench.Client(Indexes::After);
        live.push_back(ours / clientLive);
        after.push_back(ours / clientAfter);
        fmt::print("pair {}: ours {:.2f} s, client {:.2f} s, client with indexes built last {:.2f} s\n",
                   i + 1, ours, clientLive, clientAfter);
    }
    fmt::print("import of {} names ({} lines) against the client: {:.2f}; with indexes built last: {:.2f}\n",
               names, bench.Lines(), Median(live), Median(after));
    return Median(live);
}

struct PerLine {
    double microseconds = 0, processor = 0, megabytes = 0;
};

PerLine MeasureLines(Bench& bench, std::size_t names, int runs) {
    bench.Generate(names);
    std::vector<double> times, processor;
    PerLine result;
    for (int i = 0; i < runs; ++i) {
        bench.New();
        const Run run = bench.Import();
        times.push_back(run.seconds * 1e6 / static_cast<double>(bench.Lines()));
        processor.push_back(run.processor * 1e6 / static_cast<double>(bench.Lines()));
        result.megabytes = std::max(result.megabytes, run.megabytes);
    }
    result.microseconds = Median(times);
    result.processor = Median(processor);
    fmt::print("{} names, {} lines: {:.2f} us a line, {:.2f} us of the processor, {:.0f} MB\n", names,
               bench.Lines(), result.microseconds, result.processor, result.megabytes);
    return result;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    using namespace quillon::bench;
    CLI::App app("Imports generated files, against the stock sqlite3 client.", "bench_import");
    std::string folder =
        (std::filesystem::temp_directory_path() / fmt::format("quillon-bench-{}", getpid())).string();
    std::string client = "sqlite3";
    std::size_t names = 100'000, most = 1'000'000;
    int pairs = 5, runs = 5;
    app.add_option("--folder", folder, "where the files go; they are removed at the end");
    app.add_option("--client", client, "the sqlite3 client");
    app.add_option("--names", names, "names of the comparison");
    app.add_option("--most", most, "names of the largest import");
    app.add_option("--pairs", pairs, "pairs of the comparison")->check(CLI::PositiveNumber);
    app.add_option("--runs", runs, "runs at each size below the largest")->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    setlinebuf(stdout);
    bool met = false;
    try {
        Bench bench(folder, client);
        const double ratio = CompareWithClient(bench, names, pairs);
        const PerLine small = MeasureLines(bench, most / 100, runs);
        MeasureLines(bench, most / 10, runs);
        const PerLine large = MeasureLines(bench, most, std::max(1, runs / 3));
        met = Judge("against the client", ratio, kMostAgainstClient);
        met =
            Judge("growth of the time per line", large.microseconds / small.microseconds, kMostGrowth) && met;
        fmt::print("growth of the processor's time per line {:.2f}\n", large.processor / small.processor);
        met = Judge("peak memory in MB", large.megabytes, kMostMegabytes) && met;
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_import: {}\n", error.what());
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return met ? 0 : 1;
}
