#include "import/import_log.h"

namespace quillon::importing {

ImportLog::ImportLog(const std::string& directory, const std::vector<std::string>& inUse)
    : file_(PathIn(directory, kLogName), inUse) {}

void ImportLog::Write(const Finding& finding) {
    file_.Print(finding.sentence);
    if (!finding.line.empty()) file_.Print("     " + finding.line);
}

}  // namespace quillon::importing
