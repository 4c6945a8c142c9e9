// The command import: asks before it adds to a DataSet in use, runs the import, and reports its failures,
// notes and outcome.
#include <sys/stat.h>

#include <string>
#include <string_view>

#include "batch/batch_job.h"
#include "import/import_form.h"
#include "import/tagged_import.h"
#include "store/lifecycle/create.h"

namespace quillon::batch {

ExitStatus RunImport(const CommonOptions& options, const std::string& path, const std::string& file) {
    BatchJob batchJob(options);
    batchJob.Open(path);
    struct stat info {};
    if (stat(file.c_str(), &info) != 0) {
        batchJob.prompter.Message("File " + file + " not found!", "");
        return ExitStatus::Failed;
    }
    batchJob.state.gDataSetIsNew = store::HoldsOnlySeedRows(*batchJob.state.gDatabase);
    if (!importing::MayImport(batchJob.state, batchJob.prompter)) return ExitStatus::Failed;
    ProgressLine progress(options.progress);
    importing::TaggedImport job(batchJob.state, batchJob.engine, batchJob.prompter, batchJob.pump,
                                [&](double percent) { progress.Show(percent); });
    job.Failed = [&](const importing::Failure& failure) {
        batchJob.prompter.Message(importing::TextOf(failure), "");
    };
    const importing::ImportResult result = job.Run(file, options.workDir);
    batchJob.lifecycle.CloseDataSet();
    if (result.canceled || !result.completed) {
        if (result.canceled) batchJob.prompter.Message(importing::kImportCanceled, "");
        return ExitStatus::Failed;
    }
    for (const std::string& note : result.notes) batchJob.prompter.Message(note, "");
    batchJob.prompter.Message(
        result.errors ? "Import Complete -- Errors Occurred." : importing::kImportComplete, "");
    return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}

}  // namespace quillon::batch
