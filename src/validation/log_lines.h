// The lines of a validation's log as the error viewer shows them: all of them, or those that a text or a rule
// narrows them to, and how many findings there are of each rule. It reads no file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "validation/findings.h"

namespace quillon::validation {

using RuleCounts = std::array<std::size_t, kRuleCount>;

class LogLines {
public:
    // The log as it stands in the file, and the marks of the run that wrote it; no marks when they are
    // unknown.
    LogLines(std::string_view log, FindingMarks marks);

    const std::vector<std::string>& Lines() const { return lines_; }
    // The lines that stay, by their numbers: findings that hold the text, or are of the rule with that code,
    // with the heading above them; a heading that holds the text with all its findings. `rule` keeps the
    // findings of one rule alone.
    std::vector<std::size_t> Narrowed(std::string_view text, std::optional<Rule> rule) const;
    // nullptr for a heading, and when marks are unknown.
    const FindingMark* MarkAt(std::size_t line) const;
    // The mark at a line, or the first behind it; nullptr behind the last.
    const FindingMark* MarkFrom(std::size_t line) const;
    // Of the findings among these lines. Nothing when the marks of the log are unknown.
    std::optional<RuleCounts> Count(const std::vector<std::size_t>& lines) const;

private:
    std::vector<std::string> lines_;
    FindingMarks marks_;
};

// "5 findings: 2 reference missing, 1 expert missing, ...", the most frequent first.
std::string CountsText(const RuleCounts& counts);

}  // namespace quillon::validation
