// Validates a generated DataSet with a finding in every fifth name by quillon-batch, and lets the stock
// sqlite3 client print the tables that validation visits, in turn, so that both meet the same machine. Prints
// the median ratio and the peak memory. Exits with 1 when a goal is missed.
#include <filesystem>
#include <string>

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

bool Compare(const Options& options) {
    const std::string dataSet = options.folder + "/names.mdb";
    MakeDataSet(options.folder, dataSet, options.names);
    const Pairs pairs = RunPairs(
        options.pairs,
        [&] {
            return RunProgram({QUILLON_BATCH, "validate", dataSet, "--work-dir", options.folder}, kFindings);
        },
        [&] {
            return RunProgram({options.client, "-batch", dataSet, kVisitedTables});
        });
    const bool fast = Judge("validation against the client's print", pairs.ratio, kMostAgainstClient);
    return Judge("peak memory in MB", pairs.megabytes, kMostMegabytes) && fast;
}

}  // namespace

}  // namespace quillon::bench

int main(int argc, char** argv) {
    return quillon::bench::RunBench(argc, argv, "bench_validation",
                                    "Validates generated names, against the stock sqlite3 client.",
                                    quillon::bench::Compare);
}
