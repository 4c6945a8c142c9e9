// Validates a generated DataSet with a finding in every fifth name by quillon-batch, and lets the stock
// sqlite3 client print the tables that validation visits, in turn, so that both meet the same machine. Prints
// the median ratio and the peak memory. Exits with 1 when a goal is missed.
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
#include "store/engine.h"
#include "store/map_function.h"

namespace quillon::bench {

namespace {

constexpr double kMostAgainstClient = 2.0, kMostMegabytes = 300;
constexpr std::uint64_t kSeed = 2024;
constexpr int kFindings = 1;  // how quillon-batch ends when there are some

constexpr const char* kVisitedTables =
    "SELECT * FROM qb_taxonomic_units; SELECT * FROM qb_taxon_authors_lookup; SELECT * FROM "
    "qb_reference_links; "
    "SELECT * FROM qb_experts; SELECT * FROM qb_other_sources; SELECT * FROM qb_publications; "
    "SELECT * FROM qb_vernaculars; SELECT * FROM qb_jurisdiction;";

// The generated names have many faults against the rules; these take them away, but for one in every fifth
// name.
constexpr const char* kRepairs[] = {
    "UPDATE qb_vernaculars SET approved_ind = 0",
    "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
    "original_desc_ind) "
    "SELECT qb_id, 'PUB', (SELECT min(qb_publication_id) FROM qb_publications), 0 FROM qb_taxonomic_units "
    "WHERE qb_id NOT IN (SELECT qb_id FROM qb_reference_links)",
    "UPDATE qb_reference_links SET original_desc_ind = 0 WHERE original_desc_ind = 1 AND NOT EXISTS "
    "(SELECT 1 FROM qb_taxonomic_units t JOIN qb_taxon_authors_lookup a USING (qb_taxon_author_id) "
    "JOIN qb_publications p ON p.qb_publication_id = qb_reference_links.qb_documentation_id "
    "WHERE t.qb_id = qb_reference_links.qb_id AND instr(a.taxon_author, substr(p.actual_pub_date, 7, 4)) > "
    "0)",
    "UPDATE qb_reference_links AS l SET original_desc_ind = 0 WHERE original_desc_ind = 1 AND EXISTS "
    "(SELECT 1 FROM qb_reference_links e WHERE e.qb_id = l.qb_id AND e.original_desc_ind = 1 "
    "AND e.qb_documentation_id < l.qb_documentation_id)",
    "UPDATE qb_taxonomic_units SET taxonomic_credibility_rating = NULL WHERE qb_id % 5 = 0",
};

void MakeDataSet(const std::string& folder, const std::string& dataSet, std::size_t names) {
    const std::string lines = folder + "/names.qln";
    GenerateFile(names, kSeed, lines);
    RunProgram({QUILLON_BATCH, "new", dataSet, "--kingdom", "Animalia"});
    RunProgram({QUILLON_BATCH, "import", dataSet, lines, "--work-dir", folder});
    std::filesystem::remove(lines);
    store::Engine engine;
    const store::DatabaseHandle database = engine.OpenDatabase(dataSet);
    const store::Job job(engine);
    for (const char* repair : kRepairs) store::ExecuteNative(*database, repair);
}

bool Compare(const std::string& folder, const std::string& client, std::size_t names, int pairs) {
    const std::string dataSet = folder + "/names.mdb";
    MakeDataSet(folder, dataSet, names);
    std::vector<double> ratios;
    double megabytes = 0;
    for (int i = 0; i < pairs; ++i) {
        const Run ours = RunProgram({QUILLON_BATCH, "validate", dataSet, "--work-dir", folder}, kFindings);
        const Run theirs = RunProgram({client, "-batch", dataSet, kVisitedTables});
        fmt::print("pair {}: ours {:.2f} s, client {:.2f} s\n", i + 1, ours.seconds, theirs.seconds);
        ratios.push_back(ours.seconds / theirs.seconds);
        megabytes = std::max(megabytes, ours.megabytes);
    }
    const bool fast = Judge("validation against the client's print", Median(ratios), kMostAgainstClient);
    return Judge("peak memory in MB", megabytes, kMostMegabytes) && fast;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    using namespace quillon::bench;
    CLI::App app("Validates generated names, against the stock sqlite3 client.", "bench_validation");
    std::string folder =
        (std::filesystem::temp_directory_path() / fmt::format("quillon-bench-{}", getpid())).string();
    std::string client = "sqlite3";
    std::size_t names = 1'000'000;
    int pairs = 5;
    app.add_option("--folder", folder, "where the files go; they are removed at the end");
    app.add_option("--client", client, "the sqlite3 client");
    app.add_option("--names", names, "names to validate");
    app.add_option("--pairs", pairs, "pairs of the comparison")->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    setlinebuf(stdout);
    bool met = false;
    try {
        std::filesystem::create_directories(folder);
        met = Compare(folder, client, names, pairs);
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_validation: {}\n", error.what());
    }
    std::filesystem::remove_all(folder);
    return met ? 0 : 1;
}
