// campaign-damage: DataSets with random bytes changed. Each is opened in a child process, all tables are
// read, all queries run, and rows written: it is refused or read, never a crash and never an endless job.
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "damage_visit.h"
#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "store/schema/schema.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kNames = 120;
constexpr std::size_t kPage = 4096;
constexpr unsigned kMostSeconds = 120;  // for one file, under sanitizers on a busy machine
constexpr int kFirstEnd = 10;           // the child's exit status is this and the Visit

std::string SampleDataSet(const Folder& folder) {
    const std::string path = folder.File("whole.mdb");
    Session session;
    session.Make(path);
    const std::string text = bench::GeneratedText(kNames, 5);
    importing::MemorySource source(text);
    testkit::NullPump events;
    importing::TaggedImport import(session.state, session.engine, session.prompter, events, [](double) {});
    import.ReadTaggedFile(source, [](const importing::Finding&){});
    // Some queries name the tables that are there only while two DataSets are compared.
    for (const store::TableSpec& table : store::DataSetTables())
        if (table.temporary) session.DataSet().AppendTable(store::TableDefOf(table));
    session.Close();
    return ReadFile(path);
}

// Half of the changes fall anywhere, the others on the headers of pages and what follows them: the cells'
// places.
std::size_t PlaceToChange(const std::string& bytes, Random& random) {
    if (random() % 2 == 0) return random() % bytes.size();
    const std::size_t page = random() % (bytes.size() / kPage);
    const std::size_t header = page == 0 ? random() % 2 * 100 : 0;
    return page * kPage + header + random() % 48;
}

std::string Damaged(std::string bytes, std::uint64_t seed) {
    Random random(seed);
    // Few changes are not always noticed at the opening, many are.
    const std::size_t changes = 1 + random() % (seed % 2 == 0 ? 64 : 4);
    for (std::size_t i = 0; i < changes; ++i) {
        const std::size_t at = std::min(PlaceToChange(bytes, random), bytes.size() - 1);
        bytes[at] = static_cast<char>(random());
    }
    return bytes;
}

int VisitDamaged(const std::string& path, const std::string& whole, std::uint64_t seed) {
    alarm(kMostSeconds);
    unlink((path + "-journal").c_str());
    WriteFile(path, Damaged(whole, seed));
    return kFirstEnd + static_cast<int>(VisitDataSet(path, seed));
}

int Run(std::size_t count, std::uint64_t seed, std::size_t together, const std::string& where) {
    const Folder folder(where);
    const std::string whole = SampleDataSet(folder);
    WriteFile(folder.File("copy.mdb"), whole);
    if (VisitDataSet(folder.File("copy.mdb"), seed) != Visit::Read)
        throw std::runtime_error("the whole DataSet is refused");
    std::map<int, std::size_t> ends;
    Violations violations;
    for (std::size_t first = 0; first < count; first += together) {
        const std::size_t last = std::min(first + together, count);
        std::vector<pid_t> children;
        for (std::size_t i = first; i < last; ++i) {
            const std::string path = folder.File(fmt::format("damaged{}.mdb", i - first));
            children.push_back(StartChild([&, i] { return VisitDamaged(path, whole, seed + i); }));
        }
        for (std::size_t i = first; i < last; ++i) {
            const int status = WaitFor(children[i - first]);
            const int end = WIFEXITED(status) ? WEXITSTATUS(status) - kFirstEnd : -1;
            ++ends[end];
            const bool allowed =
                end >= static_cast<int>(Visit::Refused) && end <= static_cast<int>(Visit::Read);
            if (!allowed) violations.Add(fmt::format("--seed {} --count 1: {}", seed + i, EndText(status)));
        }
    }
    fmt::print("damaged DataSets: {}, refused: {}, read in part: {}, read: {}\n", count,
               ends[static_cast<int>(Visit::Refused)], ends[static_cast<int>(Visit::Partly)],
               ends[static_cast<int>(Visit::Read)]);
    return violations.Close();
}

}  // namespace

}  // namespace quillon::campaign

int main(int argc, char** argv) {
    CLI::App app("Changes random bytes of DataSets and lets the store open, read and write them.",
                 "campaign-damage");
    std::size_t count = 3000, together = 2;
    std::uint64_t seed = 1;
    std::string where;
    app.add_option("--count", count, "how many DataSets");
    app.add_option("--seed", seed, "seed of the first; each takes the next");
    app.add_option("--together", together, "cases that run side by side")->check(CLI::PositiveNumber);
    app.add_option("--folder", where, "where the files go");
    CLI11_PARSE(app, argc, argv);
    try {
        return quillon::campaign::Run(count, seed, together, where);
    } catch (const std::exception& error) {
        fmt::print(stderr, "campaign-damage: {}\n", error.what());
        return 3;
    }
}
