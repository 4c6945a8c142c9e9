#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "kill_jobs.h"

namespace quillon::campaign {

namespace {

constexpr double kLongestRun = 0.25;  // seconds
constexpr int kMostUnits = 1'000'000;

// A unit is a taxon, a vernacular and a comment that bear its number.
void StoreUnit(Session& session, int number) {
    session.engine.BeginTrans();
    store::Database& database = session.DataSet();
    const auto taxa = database.OpenTable("qb_taxonomic_units");
    taxa->AddNew();
    const Value qb_id = taxa->Get("qb_id");
    taxa->Set("tsn", number);
    taxa->Set("unit_name1", fmt::format("Genus{}", number));
    taxa->Update();
    const auto vernaculars = database.OpenTable("qb_vernaculars");
    vernaculars->AddNew();
    vernaculars->Set("qb_id", qb_id);
    vernaculars->Set("vern_id", number);
    vernaculars->Set("vernacular_name", fmt::format("Ñandú {}", number));
    vernaculars->Update();
    const auto comments = database.OpenTable("qb_comments");
    comments->AddNew();
    comments->Set("comment_id", number);
    comments->Set("comment_detail", std::string(static_cast<std::size_t>(number % 5000) + 1, 'x'));
    comments->Update();
    session.engine.CommitTrans();
}

// Runs until it is killed.
int WriteUnits(const std::string& path, const std::string& acknowledged) {
    Session session;
    session.Open(path);
    const int file = open(acknowledged.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0666);
    for (int number = 1; number < kMostUnits; ++number) {
        StoreUnit(session, number);
        if (write(file, &number, sizeof number) != static_cast<ssize_t>(sizeof number)) return 98;
    }
    return 0;
}

std::vector<std::int64_t> Acknowledged(const std::string& path) {
    const std::string bytes = ReadFile(path);
    std::vector<std::int64_t> units;
    for (std::size_t at = 0; at + sizeof(int) <= bytes.size(); at += sizeof(int)) {
        int unit = 0;
        std::memcpy(&unit, bytes.data() + at, sizeof unit);
        units.push_back(unit);
    }
    return units;
}

// Gives how many units were acknowledged.
std::size_t CheckWriter(const std::string& path, const std::string& acknowledged, const std::string& what,
                        Violations& violations) {
    Session session;
    if (!OpenLeftBehind(session, path, what, violations)) return 0;
    const auto numbers = [&](const char* column, const char* table) {
        return NativeNumbers(
            session.DataSet(),
            fmt::format("SELECT {0} FROM {1} WHERE {0} IS NOT NULL AND {0} < {2} ORDER BY {0}", column, table,
                        kMostUnits));
    };
    const std::vector<std::int64_t> vernaculars = numbers("vern_id", "qb_vernaculars");
    const std::vector<std::int64_t> comments = numbers("comment_id", "qb_comments");
    const std::vector<std::int64_t> taxa =
        NativeNumbers(session.DataSet(), "SELECT tsn FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY tsn");
    if (taxa != vernaculars || taxa != comments)
        violations.Add(fmt::format("{}: a unit is there in part", what));
    const std::vector<std::int64_t> units = Acknowledged(acknowledged);
    if (!std::includes(taxa.begin(), taxa.end(), units.begin(), units.end()))
        violations.Add(fmt::format("{}: {} units acknowledged, {} stored", what, units.size(), taxa.size()));
    return units.size();
}

}  // namespace

void KillWriters(std::size_t count, const Folder& folder, Random& random, Violations& violations) {
    const std::string path = folder.File("writer.mdb"), acknowledged = folder.File("writer.units");
    std::string fresh;
    {
        Session session;
        session.Make(path);
        session.Close();
        fresh = ReadFile(path);
    }
    std::size_t units = 0, journals = 0;
    for (std::size_t i = 0; i < count; ++i) {
        unlink((path + "-journal").c_str());
        WriteFile(path, fresh);
        WriteFile(acknowledged, "");
        const pid_t child = StartChild([&] { return WriteUnits(path, acknowledged); });
        Sleep(UniformBelow(random, kLongestRun));
        kill(child, SIGKILL);
        const int status = WaitFor(child);
        const std::string what = fmt::format("writer {}", i + 1);
        if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
            violations.Add(what + " ended by itself: " + EndText(status));
        if (FileExists(path + "-journal")) ++journals;
        units += CheckWriter(path, acknowledged, what, violations);
    }
    fmt::print("writers killed: {}, units acknowledged: {}, journals left behind: {}\n", count, units,
               journals);
}

}  // namespace quillon::campaign
