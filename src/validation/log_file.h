// The files of a validation: "validate.log" with the findings for people to read, "validate.tsv" with the
// same findings as rows for programs, and "vtime.log" with the times of its beginning and end. The driver
// writes them from findings.
#pragma once

#include <string>
#include <string_view>

#include "core/line_file.h"
#include "validation/findings.h"

namespace quillon::validation {

inline constexpr std::string_view kLogName = "validate.log";
inline constexpr std::string_view kTimeLogName = "vtime.log";
inline constexpr std::string_view kTableName = "validate.tsv";

// True when there are findings to show: "validate.log" in `directory` exists and is not empty.
bool HasFindings(const std::string& directory);

// Prints a finding: its heading, if any, then its message. Returns its mark.
FindingMark PrintFinding(LineFile& log, const Finding& finding);

// The first row of "validate.tsv": the names of its columns.
inline constexpr std::string_view kTableHeader = "code\tseverity\tqb_id\tname\tfield\tmessage";
// A finding as a row. Tabs, line feeds, carriage returns and backslashes in values are escaped as \t, \n, \r
// and \\. An author or a document has no qb_id, and its name begins with its key.
std::string TableRow(const Finding& finding);

}  // namespace quillon::validation
