// Exports a generated DataSet, all sections of it, with quillon-batch, and lets the stock sqlite3 client
// print the same tables to a file, in turn, so that both meet the same machine. Prints the median ratio and
// the peak memory. Exits with 1 when a goal is missed.
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "generator/tagged_generator.h"
#include "run_program.h"

namespace quillon::bench {

namespace {

constexpr double kMostAgainstClient = 1.0, kMostMegabytes = 100;
constexpr std::uint64_t kSeed = 2024;

constexpr const char* kExportedTables =
    "SELECT * FROM qb_taxonomic_units; SELECT * FROM qb_taxon_authors_lookup; SELECT * FROM qb_nodc_ids; "
    "SELECT * FROM qb_vernaculars; SELECT * FROM qb_synonym_links; SELECT * FROM qb_geographic_division; "
    "SELECT * FROM qb_jurisdiction; SELECT * FROM qb_reference_links; SELECT * FROM qb_publications; "
    "SELECT * FROM qb_experts; SELECT * FROM qb_other_sources; SELECT * FROM qb_vern_ref_links; "
    "SELECT * FROM qb_tu_comments_link; SELECT * FROM qb_comments; SELECT * FROM qb_change_tracks; "
    "SELECT * FROM qb_change_operations; SELECT * FROM qb_change_comments; SELECT * FROM db_tombstone;";

void MakeDataSet(const std::string& folder, const std::string& dataSet, std::size_t names) {
    const std::string lines = folder + "/names.qln";
    fmt::print("{} lines\n", GenerateFile(names, kSeed, lines).Total());
    RunProgram({QUILLON_BATCH, "new", dataSet, "--kingdom", "Animalia"});
    RunProgram({QUILLON_BATCH, "import", dataSet, lines, "--work-dir", folder});
    std::filesystem::remove(lines);
    // The first export of a DataSet writes missing numbers of parents into it.
    RunProgram({QUILLON_BATCH, "export", dataSet, folder + "/ours.qln"});
}

bool Compare(const std::string& folder, const std::string& client, std::size_t names, int pairs) {
    const std::string dataSet = folder + "/names.mdb", ours = folder + "/ours.qln";
    MakeDataSet(folder, dataSet, names);
    std::vector<double> ratios;
    double megabytes = 0;
    for (int i = 0; i < pairs; ++i) {
        const Run exported = RunProgram({QUILLON_BATCH, "export", dataSet, ours, "--yes"});
        const Run printed =
            RunProgram({client, "-batch", dataSet, kExportedTables}, 0, folder + "/client.txt");
        fmt::print("pair {}: ours {:.2f} s, client {:.2f} s\n", i + 1, exported.seconds, printed.seconds);
        ratios.push_back(exported.seconds / printed.seconds);
        megabytes = std::max(megabytes, exported.megabytes);
    }
    const bool fast = Judge("export against the client's print", Median(ratios), kMostAgainstClient);
    return Judge("peak memory in MB", megabytes, kMostMegabytes) && fast;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    using namespace quillon::bench;
    CLI::App app("Exports generated names, against the stock sqlite3 client.", "bench_export");
    std::string folder =
        (std::filesystem::temp_directory_path() / fmt::format("quillon-bench-{}", getpid())).string();
    std::string client = "sqlite3";
    std::size_t names = 1'000'000;
    int pairs = 5;
    app.add_option("--folder", folder, "where the files go; they are removed at the end");
    app.add_option("--client", client, "the sqlite3 client");
    app.add_option("--names", names, "names to export");
    app.add_option("--pairs", pairs, "pairs of the comparison")->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    setlinebuf(stdout);
    bool met = false;
    try {
        std::filesystem::create_directories(folder);
        met = Compare(folder, client, names, pairs);
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_export: {}\n", error.what());
    }
    std::filesystem::remove_all(folder);
    return met ? 0 : 1;
}
