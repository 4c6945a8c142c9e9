#include "disk_jobs.h"

#include <fmt/format.h>

#include "disk_log.h"
#include "generator/tagged_generator.h"
#include "import/tagged_import.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::campaign {

namespace {

constexpr int kUnits = 6;
constexpr std::size_t kNames = 25;

Outcome Import(const Place& place, const Originals&) {
    Outcome outcome;
    Session session;
    try {
        session.Open(place.File("set.mdb"));
        testkit::NullPump pump;
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
            if (onAcknowledged != nullptr) onAcknowledged(number);
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

// A job that ended leaves nothing beside the files that it was given.
std::string LeftBeside(const Place& place, const Outcome& outcome) {
    if (outcome.died) return "";
    for (const auto& [name, content] : ReadFolder(place.folder))
        if (name != "set.mdb" && name != "copy.mdb" && name != "names.qln" && name != "import.err")
            return "leaves " + name;
    return "";
}

// Each says what is wrong with what the job left; "" for nothing.
std::string CheckImport(const Place& place, const Originals& originals, const Outcome& outcome) {
    Session session;
    session.Open(place.File("set.mdb"));
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    const auto stored = originals.lines.Stored(session.DataSet());
    if (!stored || (*stored != 0 && *stored != originals.lines.Count())) return "the import is there in part";
    if (outcome.message.empty() && *stored == 0) return "said nothing and stored nothing";
    return LeftBeside(place, outcome);
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
    if (const std::string left = LeftBeside(place, outcome); !left.empty()) return left;
    if (ReadFile(place.File("set.mdb")) == originals.text)
        return outcome.message.empty() ? "said nothing" : "";
    Session session;
    session.Open(place.File("set.mdb"));
    if (const std::string check = FullCheck(session.DataSet()); check != "ok") return check;
    const bool seeded = NativeNumber(session.DataSet(), "SELECT count(*) FROM qb_taxonomic_units") == 1;
    return outcome.message.empty() && !seeded ? "said nothing and did not seed" : "";
}

std::string CheckCopy(const Place& place, const Originals& originals, const Outcome& outcome) {
    if (const std::string left = LeftBeside(place, outcome); !left.empty()) return left;
    const std::string copy = ReadFile(place.File("copy.mdb"));
    if (copy == originals.fresh) return "";
    return copy == originals.text && !outcome.message.empty() ? ""
                                                              : "neither the old file nor the whole copy";
}

constexpr DiskJob kJobs[] = {{"import", Import, CheckImport},
                             {"units", StoreUnits, CheckUnits},
                             {"new", MakeNew, CheckNew},
                             {"copy", Copy, CheckCopy}};

}  // namespace

void (*onAcknowledged)(int number) = nullptr;

std::span<const DiskJob> DiskJobs() {
    return kJobs;
}

Originals MakeOriginals(const Folder& folder, std::uint64_t seed) {
    Originals originals;
    {
        Session session;
        session.Make(folder.File("fresh.mdb"));
        session.Close();
    }
    originals.fresh = ReadFile(folder.File("fresh.mdb"));
    originals.text = bench::GeneratedText(kNames, seed);
    originals.lines = ImportedLines(originals.text);
    return originals;
}

void PutFiles(const Place& place, const DiskJob& job, const Originals& originals) {
    const bool isNew = std::string_view(job.name) == "new";
    WriteFolder(place.folder, {{"set.mdb", isNew ? originals.text : originals.fresh},
                               {"copy.mdb", originals.text},
                               {"names.qln", originals.text}});
}

}  // namespace quillon::campaign
