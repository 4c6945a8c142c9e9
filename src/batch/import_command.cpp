#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "batch/session.h"
#include "import/import_form.h"
#include "import/tagged_import.h"

namespace quillon::batch {

namespace {

// What a new DataSet has rows in, beside its root taxon.
constexpr std::array<std::string_view, 4> kSeeded = {"kingdoms", "taxonomic_unit_types", "db_control",
                                                     "change_operations_lookup"};

bool HasRows(store::Database& database, const std::string& select) {
    return !database.OpenRecordset(select, store::RecordsetType::ForwardOnly)->Eof();
}

bool HoldsOnlySeedRows(store::Database& database) {
    for (const store::TableDef& table : database.TableDefs()) {
        if (std::find(kSeeded.begin(), kSeeded.end(), table.name) != kSeeded.end()) continue;
        const std::string root = table.name == "qb_taxonomic_units" ? " WHERE qb_id <> 1" : "";
        if (HasRows(database, "SELECT * FROM [" + table.name + "]" + root)) return false;
    }
    return true;
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
    if (!importing::MayImport(session.state, session.prompter)) return ExitStatus::Failed;
    ProgressLine progress(options.progress);
    importing::TaggedImport import(session.state, session.engine, session.prompter, session.pump,
                                   [&](double percent) { progress.Show(percent); });
    import.Failed = [&](const importing::Failure& failure) {
        session.prompter.Message(importing::TextOf(failure), "");
};
const importing::ImportResult result = import.Run(file, options.workDir);
session.lifecycle.CloseDataSet();
if (result.canceled || !result.completed) {
    if (result.canceled) session.prompter.Message(importing::kImportCanceled, "");
    return ExitStatus::Failed;
}
for (const std::string& note : result.notes) session.prompter.Message(note, "");
session.prompter.Message(result.errors ? "Import Complete -- Errors Occurred." : importing::kImportComplete,
                         "");
return result.errors ? ExitStatus::Findings : ExitStatus::Done;
}  // namespace quillon::batch

}  // namespace quillon::batch
