#include "import/tagged_reading.h"

#include <fmt/format.h>

#include <cmath>

#include "import/cross_references.h"
#include "import/import_run.h"
#include "import/line_reader.h"
#include "import/placeholders.h"
#include "import/record_handlers.h"
#include "store/bulk.h"
#include "store/statement_turns.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kLineTooLong = "Line too long in the following data line of import file!";

// The progress of the reading. The total is the file size plus a fiftieth, so that the gauge stays below 100
// during the closing pass.
class Progress {
public:
    Progress(std::int64_t fileSize, const Gauge& gauge)
        : whole_(static_cast<double>(fileSize) + std::nearbyint(static_cast<double>(fileSize) / 50)),
          gauge_(gauge) {}
    void Show(std::int64_t bytesRead) const {
        if (whole_ > 0) gauge_(static_cast<double>(bytesRead) / whole_ * 100);
    }

private:
    double whole_;
    const Gauge& gauge_;
};

// A bulk load that is abandoned without its indexes when the reading ends early.
class Load {
public:
    Load(const ReadingTools& tools, bool deferIndexes) : load_(tools.engine, tools.database, deferIndexes) {}
    ~Load() {
        if (!finished_) load_.Abandon();
    }
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    store::BulkLoad& operator*() { return load_; }
    void Finish() {
        finished_ = true;
        load_.Finish();
    }

private:
    store::BulkLoad load_;
    bool finished_ = false;
};

// True for an empty DataSet, whose indexes can be built at the end because no look-up needs them.
bool HoldsOnlyTheRoot(store::Database& database) {
    const auto taxa =
        database.OpenRecordset("SELECT qb_id FROM qb_taxonomic_units;", store::RecordsetType::ForwardOnly);
    if (taxa->Eof()) return true;
    taxa->MoveNext();
    return taxa->Eof();
}

void ReadLines(const ReadingTools& tools, ByteSource& source, LineReader& reader, ImportRun& run) {
    const Progress progress(source.Size(), tools.gauge);
    for (auto kind = reader.Next(); kind != LineReader::Kind::End; kind = reader.Next()) {
        if (kind == LineReader::Kind::Line && reader.Text().empty()) break;
        progress.Show(reader.BytesRead());
        run.SetLine(reader.Number(), reader.Text());
        if (kind == LineReader::Kind::TooLong)
            run.Report(std::string(kLineTooLong), reader.Text());
        else
            HandleLine(run, reader.Text());
        TakeTurn(tools.turns);
    }
    run.SetLine(0, {});
}

void NoteOddLines(const OddLines& lines, std::string_view what, std::vector<std::string>& notes) {
    if (lines.count == 0) return;
    notes.push_back(fmt::format("{} {} {}; the first is line {}.", lines.count,
                                lines.count == 1 ? "line has" : "lines have", what, lines.first));
}

void NoteOddities(const LineReader& reader, const ImportRun& run, std::vector<std::string>& notes) {
    NoteOddLines(run.WithMoreFields(), "fields behind the last one that is read", notes);
    NoteOddLines(run.WithOddNumber(), "a number field that is not a whole number in range", notes);
    NoteOddLines(reader.WithNul(), "NUL bytes", notes);
    NoteOddLines(reader.NotUtf8(), "bytes that are not UTF-8", notes);
    NoteOddLines(reader.NotCp1252(), "bytes that CP1252 leaves open", notes);
}

// Notes lines after the empty line that ends the file, except empty lines at the very end.
void NoteLinesAfterEnd(const ReadingTools& tools, LineReader& reader, ReadingOutcome& outcome) {
    const std::int64_t end = reader.Number();
    std::int64_t last = end;
    while (reader.Next() != LineReader::Kind::End) {
        TakeTurn(tools.turns);
        if (!reader.Text().empty()) last = reader.Number();
    }
    if (last == end) return;
    outcome.errors = true;
    outcome.notes.push_back(fmt::format("Reading ended at the empty line {}; {} {} after it {} not read.",
                                        end, last - end, last - end == 1 ? "line" : "lines",
                                        last - end == 1 ? "was" : "were"));
}

void NotePlaceholders(std::int64_t count, std::vector<std::string>& notes) {
    if (count == 0) return;
    notes.push_back(
        fmt::format("{} in the DataSet for records that the file names but does not hold.",
                    count == 1 ? "1 placeholder stays" : fmt::format("{} placeholders stay", count)));
}

void Close(const ReadingTools& tools, ImportRun& run, store::BulkLoad& load) {
    StorePlaceholders(run, tools.turns);
    CrossReferences references(run, load, tools.turns, tools.stage);
    references.FillVernacularNames();
    tools.gauge(98);
    references.ResolveCrossReferences();
}

}  // namespace

ReadingOutcome ReadTagged(const ReadingTools& tools, ByteSource& source) {
    ReadingOutcome outcome;
    LineReader reader(source, [&tools] { TakeTurn(tools.turns); });
    Load load(tools, HoldsOnlyTheRoot(tools.database));
    ImportSinks sinks = tools.sinks;
    sinks.failure = [&](const Failure& failure) {
        outcome.errors = true;
        tools.sinks.failure(failure);
    };
    ImportRun run(tools.state, tools.engine, tools.database, *load, tools.turns, sinks);
    ReadLines(tools, source, reader, run);
    NoteOddities(reader, run, outcome.notes);
    NoteLinesAfterEnd(tools, reader, outcome);
    Close(tools, run, *load);
    NotePlaceholders(CountPlaceholders(run, tools.turns), outcome.notes);
    load.Finish();
    tools.gauge(100);
    outcome.errors = outcome.errors || run.ImportError();
    return outcome;
}

}  // namespace quillon::importing
