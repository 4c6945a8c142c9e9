// The jobs of quillon-batch: each fills in what the form of the job would hold, and calls what the form's
// button calls.
#pragma once

#include <string>
#include <vector>

#include "batch/console.h"

namespace quillon::batch {

enum class ExitStatus { Done = 0, Findings = 1, Usage = 2, Failed = 3 };

struct CommonOptions {
    std::string workDir;  // where logs land; "" for the current directory
    Answer answer = Answer::No;
    std::string kingdom;  // the preference kingdom; "" for the DataSet's own
    bool progress = false;
};

ExitStatus RunNew(const CommonOptions& options, const std::string& path);
ExitStatus RunImport(const CommonOptions& options, const std::string& path, const std::string& file);
// `parameters` are NAME=VALUE; one not given is Null.
ExitStatus RunQuery(const CommonOptions& options, const std::string& path, const std::string& query,
                    const std::vector<std::string>& parameters);
ExitStatus RunInfo(const CommonOptions& options, const std::string& path);

}  // namespace quillon::batch
