#include <sys/stat.h>

#include <string>
#include <string_view>

#include "batch/session.h"
#include "import/import_form.h"
#include "import/tagged_import.h"
#include "store/lifecycle/create.h"

namespace quillon::batch {

ExitStatus RunImport(const CommonOptions& options, const std::string& path, const std::string& file) {
    Session session(options);
    session.Open(path);
    struct stat info {};
    if (stat(file.c_str(), &info) != 0) {
        session.prompter.Message("File " + file + " not found!", "");
        return ExitStatus::Failed;
    }
    session.state.gDataSetIsNew = store::HoldsOnlySeedRows(*session.state.gDatabase);
    if (!importing::MayImport(session.state, session.prompter)) return ExitStatus::Failed;
    ProgressLine progress(options.progress);
    importing::TaggedImport job(session.state, session.engine, session.prompter, session.pump,
                                [&](double percent) { progress.Show(percent); });
    job.Failed = [&](const importing::Failure& failure) {
        session.prompter.Message(importing::TextOf(failure), "");
    };
    const importing::ImportResult result = job.Run(file, options.workDir);
    session.lifecycle.CloseDataSet();
    if (result.canceled || !result.completed) {
        if (result.canceled) session.prompter.Message(importing::kImportCanceled, "");
        return ExitStatus::Failed;
    }
    for (const std::string& note : result.notes) session.prompter.Message(note, "");
    session.prompter.Message(
        result.errors ? "Import Complete -- Errors Occurred." : importing::kImportComplete, "");
    return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace quillon::batch
