#include "batch/commands.h"

#include <fmt/format.h>

#include "batch/batch_job.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "store/lifecycle/create.h"
#include "store/lifecycle/file_copy.h"
#include "store/lifecycle/version.h"
#include "store/statement_turns.h"

namespace quillon::batch {

namespace {

void Fail(const std::string& text) {
    PrintMessage(text);
}

std::string Escape(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '\t':
                escaped += "\\t";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            case '\\':
                escaped += "\\\\";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

// The text of a value as it is stored: a Boolean is 0 or 1.
std::string Field(const Value& value) {
    if (value.IsNull()) return "\\N";
    return value.IsBoolean() ? (value.AsBoolean() ? "1" : "0") : Escape(value.AsText());
}

// False when the job is canceled.
bool GoesOn(BatchJob& batchJob) {
    batchJob.pump.Yield();
    return !batchJob.state.gBatchCancel;
}

// Interrupts the running statement when the job is canceled.
store::StatementTurns CancelableStatements(BatchJob& batchJob) {
    return {*batchJob.state.gDatabase, [&batchJob] { return GoesOn(batchJob); }};
}

ExitStatus Ended(BatchJob& batchJob) {
    FlushResults();
    batchJob.lifecycle.CloseDataSet();
    return batchJob.state.gBatchCancel ? ExitStatus::Failed : ExitStatus::Done;
}

void PrintRows(BatchJob& batchJob, store::Recordset& rows) {
    std::string line;
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
        line += (i == 0 ? "" : "\t") + Escape(rows.ColumnName(i));
    PrintResult(line + "\n");
    for (; !rows.Eof() && !batchJob.state.gBatchCancel; rows.MoveNext()) {
        batchJob.pump.Yield();
        line.clear();
        for (std::size_t i = 0; i < rows.ColumnCount(); ++i) line += (i == 0 ? "" : "\t") + Field(rows.At(i));
        PrintResult(line + "\n");
    }
}

bool IsSelect(std::string_view query) {
    return EqualText(query.substr(0, 6), "select");
}

// Reports a parameter that is not NAME=VALUE and returns false.
bool SetParameters(store::QueryDef& def, const std::vector<std::string>& parameters) {
    for (const std::string& parameter : parameters) {
        const std::size_t equals = parameter.find('=');
        if (equals == std::string::npos) {
            Fail(fmt::format("'{}' is not of the form PARAMETER=VALUE.", parameter));
            return false;
        }
        def.Set(parameter.substr(0, equals), parameter.substr(equals + 1));
    }
    return true;
}

bool PrintQuery(BatchJob& batchJob, const std::string& query, const std::vector<std::string>& parameters) {
    const store::StatementTurns turns = CancelableStatements(batchJob);
    store::QueryDef def = IsSelect(query) ? batchJob.state.gDatabase->CreateQueryDef("", query)
                                          : batchJob.state.gDatabase->OpenQueryDef(query);
    if (!SetParameters(def, parameters)) return false;
    if (def.IsSelect()) {
        PrintRows(batchJob, *def.OpenRecordset(store::RecordsetType::ForwardOnly));
    } else {
        PrintResult(fmt::format("rows\n{}\n", def.Execute()));
    }
    return true;
}

void PrintInfo(BatchJob& batchJob, const std::string& path) {
    const store::StatementTurns turns = CancelableStatements(batchJob);
    std::string version;
    store::IsDataSetVersionValid(*batchJob.state.gDatabase, version);
    PrintResult(fmt::format("version\t{}\nkingdom\t{}\npath\t{}\n", Escape(version),
                            Escape(batchJob.state.gKingdomName), Escape(path)));
    for (const store::TableDef& table : batchJob.state.gDatabase->TableDefs()) {
        const auto count =
            batchJob.state.gDatabase->CreateSnapshot(fmt::format("SELECT count(*) FROM [{}]", table.name));
        PrintResult(fmt::format("{}\t{}\n", table.name, count->At(0).AsLong()));
    }
}

}  // namespace

ExitStatus RunNew(const CommonOptions& options, const std::string& path) {
    BatchJob batchJob(options);
    batchJob.state.gKingdomName = options.kingdom;
    batchJob.state.gPrefRank = "Kingdom";
    if (KingdomIndex(options.kingdom) == 0) {
        Fail(fmt::format("'{}' is no kingdom: it is one of {}.", options.kingdom,
                         fmt::join(kKingdomNames, ", ")));
        return ExitStatus::Usage;
    }
    store::RefuseSpecialFile(path);
    if (store::IsDataSetPlaceTaken(path) && options.answer != Answer::Yes) {
        Fail(fmt::format("The file {} exists; --yes overwrites it.", path));
        return ExitStatus::Failed;
    }
    store::RefuseFileInUse(batchJob.engine, path);
    // The DataSet is not opened here, because another process may open it as soon as it exists.
    try {
        store::MakeDataSetFile(batchJob.engine, path, options.kingdom, batchJob.state.gVersion,
                               [&batchJob] { return GoesOn(batchJob); });
    } catch (const store::StoreError&) {
        if (!batchJob.state.gBatchCancel) throw;
        Fail("Canceled.");
        return ExitStatus::Failed;
    }
    return ExitStatus::Done;
}

ExitStatus RunQuery(const CommonOptions& options, const std::string& path, const std::string& query,
                    const std::vector<std::string>& parameters) {
    BatchJob batchJob(options);
    batchJob.Open(path);
    const bool done = PrintQuery(batchJob, query, parameters);
    return done ? Ended(batchJob) : ExitStatus::Usage;
}

ExitStatus RunInfo(const CommonOptions& options, const std::string& path) {
    BatchJob batchJob(options);
    batchJob.Open(path);
    PrintInfo(batchJob, path);
    return Ended(batchJob);
}

}  // namespace quillon::batch
