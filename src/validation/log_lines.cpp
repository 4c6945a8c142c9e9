#include "validation/log_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/text.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kLead = "     ";  // before a message; a heading has none

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// `wanted` is in lower case. Most lines are ASCII and need no copy in lower case.
bool Holds(std::string_view line, std::string_view wanted) {
    if (!IsAscii(line)) return LowerCase(line).find(wanted) != std::string::npos;
    const auto found = std::search(
        line.begin(), line.end(), wanted.begin(), wanted.end(),
        [](char c, char w) { return (c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c) == w; });
    return wanted.empty() || found != line.end();
}

void TakeTurnAt(std::size_t line, const LogLines::Turn& turn) {
    if (turn && line % LogLines::kLinesOfATurn == 0) turn();
}

std::vector<std::string> Split(std::string_view log, const LogLines::Turn& turn) {
    std::vector<std::string> lines;
    while (!log.empty()) {
        const std::size_t end = std::min(log.find('\n'), log.size());
        std::string_view line = log.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
        log.remove_prefix(std::min(end + 1, log.size()));
        TakeTurnAt(lines.size(), turn);
    }
    return lines;
}

}  // namespace

LogLines::LogLines(std::string_view log, FindingMarks marks, const Turn& turn)
    : lines_(Split(log, turn)), marks_(std::move(marks)) {}

const FindingMark* LogLines::MarkFrom(std::size_t line) const {
    const auto found =
        std::lower_bound(marks_.begin(), marks_.end(), line,
                         [](const FindingMark& mark, std::size_t wanted) { return mark.line < wanted; });
    return found == marks_.end() ? nullptr : &*found;
}

const FindingMark* LogLines::MarkAt(std::size_t line) const {
    const FindingMark* mark = MarkFrom(line);
    return mark != nullptr && mark->line == line ? mark : nullptr;
}

std::vector<std::size_t> LogLines::Narrowed(std::string_view text, std::optional<Rule> rule,
                                            const Turn& turn) const {
    const std::string wanted = LowerCase(text);
    const std::string code = UpperCase(Trim(text));
    std::vector<std::size_t> kept;
    std::size_t heading = lines_.size();  // the heading above, until it is kept
    bool wholeRecord = false;
    auto mark = marks_.begin();
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        TakeTurnAt(i, turn);
        while (mark != marks_.end() && mark->line < i) ++mark;
        const bool isFinding = mark != marks_.end() && mark->line == i;
        const bool ofRule = !rule || (isFinding && mark->rule == *rule);
        const bool holds = Holds(lines_[i], wanted) || (isFinding && InfoOf(mark->rule).code == code);
        if (!lines_[i].starts_with(kLead)) {
            wholeRecord = holds;
            heading = i;
            if (!holds || rule) continue;
        } else if (!ofRule || (!holds && !wholeRecord)) {
            continue;
        }
        if (heading < i) kept.push_back(heading);
        heading = lines_.size();
        kept.push_back(i);
    }
    return kept;
}

std::optional<RuleCounts> LogLines::Count(const std::vector<std::size_t>& lines) const {
    if (marks_.empty() && !lines_.empty()) return std::nullopt;
    RuleCounts counts{};
    auto mark = marks_.begin();
    for (const std::size_t line : lines) {
        while (mark != marks_.end() && mark->line < line) ++mark;
        if (mark != marks_.end() && mark->line == line) ++counts[static_cast<std::size_t>(mark->rule)];
    }
    return counts;
}

std::string CountsText(const RuleCounts& counts) {
    std::vector<std::size_t> rules;
    for (std::size_t i = 0; i < kRuleCount; ++i)
        if (counts[i] > 0) rules.push_back(i);
    std::stable_sort(rules.begin(), rules.end(),
                     [&](std::size_t left, std::size_t right) { return counts[left] > counts[right]; });
    const std::size_t total = std::accumulate(counts.begin(), counts.end(), std::size_t{0});
    std::string text = fmt::format("{} {}", total, total == 1 ? "finding" : "findings");
    for (const std::size_t rule : rules)
        text += fmt::format("{}{} {}", rule == rules.front() ? ": " : ", ", counts[rule],
                            InfoOf(static_cast<Rule>(rule)).label);
    return text;
}

}  // namespace quillon::validation
