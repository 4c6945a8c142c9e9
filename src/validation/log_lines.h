// The lines of a validation's log for the error viewer: all lines, or those that match a text or a rule, and
// the number of findings of each rule. Reads no file.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "validation/findings.h"

namespace quillon::validation {

using RuleCounts = std::array<std::size_t, kRuleCount>;

class LogLines {
public:
    // Called every few thousand lines; may be empty.
    using Turn = std::function<void()>;
    static constexpr std::size_t kLinesOfATurn = 4096;

    // The content of the log, and the marks of the run that wrote it; empty when they are unknown.
    LogLines(std::string_view log, FindingMarks marks, const Turn& turn = {});

    const std::vector<std::string>& Lines() const { return lines_; }
    // The numbers of matching lines: findings that contain the text, or whose rule has that code, with the
    // heading above them; and headings that contain the text, with all their findings. With `rule`, only
    // findings of that rule.
    std::vector<std::size_t> Narrowed(std::string_view text, std::optional<Rule> rule,
                                      const Turn& turn = {}) const;
    // nullptr for a heading, or when the marks are unknown.
    const FindingMark* MarkAt(std::size_t line) const;
    // The first mark at or after a line; nullptr after the last.
    const FindingMark* MarkFrom(std::size_t line) const;
    // Counts the findings among these lines. Empty when the marks are unknown.
    std::optional<RuleCounts> Count(const std::vector<std::size_t>& lines) const;

private:
    std::vector<std::string> lines_;
    FindingMarks marks_;
};

// "5 findings: 2 reference missing, 1 expert missing, ...", the most frequent first.
std::string CountsText(const RuleCounts& counts);

}  // namespace quillon::validation
