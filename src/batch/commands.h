// The jobs of quillon-batch. Each fills in the form of the job and runs the command of its button.
#pragma once

#include <string>
#include <vector>

#include "batch/console.h"
#include "export/export_file.h"
#include "export/name_list.h"

namespace quillon::batch {

enum class ExitStatus { Done = 0, Findings = 1, Usage = 2, Failed = 3 };

struct CommonOptions {
    std::string workDir;  // the folder for logs; "" for the current directory
    Answer answer = Answer::No;
    std::string kingdom;  // the preference kingdom; "" for the DataSet's own
    bool progress = false;
};

struct ExportArguments {
    std::string file;
    bool online = false;                                   // "For Online System"
    exporting::ListType list = exporting::ListType::None;  // of the partial list; None for a tagged file
    std::string filter = "none";                           // none, journal, or COLUMN OPERATOR VALUE
    exporting::Encoding encoding = exporting::Encoding::Cp1252;
};

ExitStatus RunNew(const CommonOptions& options, const std::string& path);
ExitStatus RunImport(const CommonOptions& options, const std::string& path, const std::string& file);
ExitStatus RunExport(const CommonOptions& options, const std::string& path, const ExportArguments& arguments);
// `filter` is "none", "journal", or a column, an operator and a value. `writeTable` writes "validate.tsv"
// beside the log.
ExitStatus RunValidate(const CommonOptions& options, const std::string& path, const std::string& filter,
                       bool writeTable);
// `parameters` are NAME=VALUE; one not given is Null.
ExitStatus RunQuery(const CommonOptions& options, const std::string& path, const std::string& query,
                    const std::vector<std::string>& parameters);
// Plays the actions of `file`, or of standard input for "-". `preferencesFile` is a Qln.Ini; "" for the
// preferences of a new user.
ExitStatus RunScript(const CommonOptions& options, const std::string& path, const std::string& file,
                     const std::string& preferencesFile);
ExitStatus RunInfo(const CommonOptions& options, const std::string& path);

}  // namespace quillon::batch
