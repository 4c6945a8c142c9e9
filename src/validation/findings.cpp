#include "validation/findings.h"

#include <algorithm>

namespace quillon::validation {

bool IsOfTaxon(RecordKind kind) {
    return kind == RecordKind::Taxon || kind == RecordKind::ReferenceLink || kind == RecordKind::Vernacular ||
           kind == RecordKind::Jurisdiction;
}

std::string FindingMark::Prefix() const {
    return {prefix.begin(), std::find(prefix.begin(), prefix.end(), '\0')};
}

FindingMark MarkOf(const Finding& finding, std::uint32_t line) {
    FindingMark mark;
    mark.line = line;
    mark.id = finding.subject.id;
    mark.rule = finding.rule;
    mark.kind = finding.subject.kind;
    const std::string& prefix = finding.subject.prefix;
    std::copy_n(prefix.begin(), std::min(prefix.size(), mark.prefix.size()), mark.prefix.begin());
    return mark;
}

}  // namespace quillon::validation
