#include <sys/stat.h>

#include <cstdio>

#include "batch/session.h"
#include "import/tagged_import.h"

namespace quillon::batch {

namespace {

constexpr std::string_view kNotEmptyTitle = "Importing into existing DataSet";
constexpr std::string_view kNotEmpty =
    "You will be importing into a non-empty DataSet.\rIf the imported data contains a Kingdom record,\r"
    "the existing Kingdom record will be deleted \rfrom the DataSet. Continue?";

bool HoldsOnlySeedRows(store::Database& database) {
    const auto more = database.CreateSnapshot("SELECT qb_id FROM qb_taxonomic_units WHERE qb_id <> 1");
    return more->Eof();
}

}  // namespace

ExitStatus RunImport(const CommonOptions& options, const std::string& path, const std::string& file) {
    Session session(options);
    session.Open(path);
    struct stat info {};
    if (stat(file.c_str(), &info) != 0) {
        session.prompter.Message("File " + file + " not found!", "");
        return ExitStatus::Failed;
    }
    session.state.gDataSetIsNew = HoldsOnlySeedRows(*session.state.gDatabase);
    if (!session.state.gDataSetIsNew && !session.prompter.AskYesNo(kNotEmpty, kNotEmptyTitle))
        return ExitStatus::Failed;
    ProgressLine progress(options.progress);
    importing::TaggedImport import(session.state, session.engine, session.prompter, session.pump,
                                   [&](double percent) { progress.Show(percent); });
    const importing::ImportResult result = import.Run(file, options.workDir);
    session.lifecycle.CloseDataSet();
    if (result.canceled || !result.completed) {
        if (result.canceled) session.prompter.Message(importing::kImportCanceled, "");
        return ExitStatus::Failed;
    }
    session.prompter.Message(
        result.errors ? "Import Complete -- Errors Occurred." : importing::kImportComplete, "");
    return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace quillon::batch
