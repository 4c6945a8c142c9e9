// Exports a generated DataSet, all sections of it, with quillon-batch, and lets the stock sqlite3 client
// print the same tables to a file, in turn, so that both meet the same machine. Prints the median ratio and
// the peak memory. Exits with 1 when a goal is missed.
#include <fmt/format.h>

#include <filesystem>
#include <string>

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

bool Compare(const Options& options) {
    const std::string dataSet = options.folder + "/names.mdb", ours = options.folder + "/ours.qln";
    MakeDataSet(options.folder, dataSet, options.names);
    const Pairs pairs = RunPairs(
        options.pairs,
        [&] {
            return RunProgram({QUILLON_BATCH, "export", dataSet, ours, "--yes"});
        },
        [&] {
            return RunProgram({options.client, "-batch", dataSet, kExportedTables}, 0,
                              options.folder + "/client.txt");
        });
    const bool fast = Judge("export against the client's print", pairs.ratio, kMostAgainstClient);
    return Judge("peak memory in MB", pairs.megabytes, kMostMegabytes) && fast;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    return quillon::bench::RunBench(argc, argv, "bench_export",
                                    "Exports generated names, against the stock sqlite3 client.",
                                    quillon::bench::Compare);
}
