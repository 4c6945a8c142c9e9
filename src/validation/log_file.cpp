#include "validation/log_file.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "core/text.h"

namespace quillon::validation {

namespace {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\') {
            escaped += "\\\\";
        } else if (c == '\t') {
            escaped += "\\t";
        } else if (c == '\n') {
            escaped += "\\n";
        } else if (c == '\r') {
            escaped += "\\r";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

}  // namespace

bool HasFindings(const std::string& directory) {
    std::error_code error;
    const auto size = std::filesystem::file_size(PathIn(directory, kLogName), error);
    return !error && size > 0;
}

FindingMark PrintFinding(LineFile& log, const Finding& finding) {
    if (!finding.heading.empty()) log.Print(finding.heading);
    const FindingMark mark = MarkOf(finding, log.Lines());
    log.Print(finding.message);
    return mark;
}

std::string TableRow(const Finding& finding) {
    const RuleInfo& rule = InfoOf(finding.rule);
    const Subject& subject = finding.subject;
    const std::string qb_id = IsOfTaxon(subject.kind) ? std::to_string(subject.id) : std::string();
    return fmt::format("{}\t{}\t{}\t{}\t{}\t{}", rule.code, WordFor(rule.severity), qb_id,
                       Escaped(subject.name), rule.field, Escaped(Trim(finding.message)));
}

}  // namespace quillon::validation
