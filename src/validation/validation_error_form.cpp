#include "validation/validation_error_form.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "core/text.h"
#include "validation/finding_taxon.h"
#include "validation/log_file.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kSaveTitle = "Save Error Log As";
constexpr std::string_view kLogFilter = "Taxonomic Files (*.LOG)|*.log|All Files (*.*)|*.*";
constexpr std::string_view kLead = "     ";  // of a message; a heading has none

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// `wanted` is in lower case. Most lines are plain, and need no copy in lower case.
bool Holds(std::string_view line, std::string_view wanted) {
    if (!IsAscii(line)) return LowerCase(line).find(wanted) != std::string::npos;
    const auto found = std::search(
        line.begin(), line.end(), wanted.begin(), wanted.end(),
        [](char c, char w) { return (c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c) == w; });
    return wanted.empty() || found != line.end();
}

// Which lines stay when the log is narrowed: a message that holds the text, with the heading above it; a
// heading that holds it, with all its messages.
std::vector<std::size_t> LinesWith(const std::vector<std::string>& lines, const std::string& wanted) {
    std::vector<std::size_t> kept;
    std::size_t heading = lines.size();  // one that has not been kept yet
    bool wholeRecord = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool matches = Holds(lines[i], wanted);
        if (!lines[i].starts_with(kLead)) {
            wholeRecord = matches;
            heading = matches ? lines.size() : i;
        }
        if (!matches && !wholeRecord) continue;
        if (heading < i) kept.push_back(std::exchange(heading, lines.size()));
        kept.push_back(i);
    }
    return kept;
}

const FindingMark* MarkFrom(const FindingMarks& marks, std::int64_t line) {
    const auto found =
        std::lower_bound(marks.begin(), marks.end(), line,
                         [](const FindingMark& mark, std::int64_t wanted) { return mark.line < wanted; });
    return found == marks.end() ? nullptr : &*found;
}

}  // namespace

FrmVError::FrmVError(ApplicationState& state, Prompter& prompter, const std::string& workDirectory,
                     const FindingMarks& marks, GoTo goTo)
    : state_(state),
      prompter_(prompter),
      logPath_(PathIn(workDirectory, kLogName)),
      marks_(marks),
      goTo_(std::move(goTo)) {
    form.SetTitle("Validation Error Log");
    ReadLog();
    ShowLines();
    txtFilter.OnEdit([this] { ShowLines(); });
    lstError.OnActivate([this] { GoToFinding(); });
    cmdSave.OnClick([this] { SaveLogAs(); });
    cmdOK.OnClick([this] { Exit(); });
    form.OnUserClose([this] { Exit(); });
}

void FrmVError::ReadLog() {
    std::ifstream file(logPath_, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines_.push_back(std::move(line));
    }
}

void FrmVError::ShowLines() {
    std::vector<ChoiceControl::Choice> choices;
    for (const std::size_t i : LinesWith(lines_, LowerCase(txtFilter.Text())))
        choices.push_back({lines_[i], static_cast<std::int64_t>(i)});
    lstError.SetChoices(std::move(choices));
    ShowCounts();
}

void FrmVError::ShowCounts() {
    if (marks_.empty() && !lines_.empty()) return;  // a log of another run
    std::array<std::size_t, kRuleCount> counts{};
    std::size_t total = 0;
    auto mark = marks_.begin();
    for (const ChoiceControl::Choice& line : lstError.Choices()) {
        while (mark != marks_.end() && mark->line < line.itemData) ++mark;
        if (mark == marks_.end() || mark->line != line.itemData) continue;
        ++counts[static_cast<std::size_t>(mark->rule)];
        ++total;
    }
    std::vector<std::size_t> rules;
    for (std::size_t i = 0; i < kRuleCount; ++i)
        if (counts[i] > 0) rules.push_back(i);
    std::stable_sort(rules.begin(), rules.end(),
                     [&](std::size_t left, std::size_t right) { return counts[left] > counts[right]; });
    std::string text = fmt::format("{} {}", total, total == 1 ? "finding" : "findings");
    for (const std::size_t rule : rules)
        text += fmt::format("{}{} {}", rule == rules.front() ? ": " : ", ", counts[rule],
                            InfoOf(static_cast<Rule>(rule)).label);
    lblCounts.SetCaption(text);
}

void FrmVError::GoToFinding() {
    const FindingMark* mark =
        lstError.ListIndex() < 0 ? nullptr : MarkFrom(marks_, lstError.ItemData(lstError.ListIndex()));
    if (mark == nullptr) return;
    if (mark->id == 0 || !state_.gDatabase)
        return prompter_.Message("This record is not in the DataSet that is open.");
    const auto qb_id = TaxonOfFinding(*state_.gDatabase, *mark);
    if (!qb_id) {
        prompter_.Message("No taxon refers to this record.");
        return;
    }
    goTo_(*qb_id, InfoOf(mark->rule).tab);
}

void FrmVError::SaveLogAs() {
    auto path = prompter_.FileToSave(kSaveTitle, kLogFilter, true);
    if (!path) return;
    if (std::filesystem::path(*path).filename().string().find('.') == std::string::npos) *path += ".LOG";
    std::error_code error;
    std::filesystem::copy_file(logPath_, *path, std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
        prompter_.Message("Failed " + error.message());
        return;
    }
    std::filesystem::remove(logPath_, error);
}

void FrmVError::Exit() {
    std::error_code error;
    std::filesystem::remove(kLogName, error);
    form.Close();
}

}  // namespace quillon::validation
