#include "validation/validation_error_form.h"

#include <fmt/format.h>

#include <utility>

#include "core/attempt.h"
#include "core/line_file.h"
#include "validation/finding_taxon.h"
#include "validation/log_file.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kAllRules = "All rules";
constexpr std::int64_t kNoRule = -1;

}  // namespace

FrmVError::FrmVError(const ApplicationState& state, Prompter& prompter, EventPump& events,
                     const std::string& workDirectory, FindingMarks marks, GoTo goTo)
    : LogForm("FrmVError", "Validation Error Log", state, prompter, PathIn(workDirectory, kLogName),
              std::string(kLogName)),
      events_(events),
      log_(ReadLog(logPath_), std::move(marks), [&events] { events.Yield(); }),
      goTo_(std::move(goTo)),
      dataSetPath_(state.gDataSetPath) {
    FillRules();
    ShowLines();
    txtFilter.OnEdit([this] { ShowLines(); });
    cboRules.OnEdit([this] { ShowLines(); });
    lstError.OnEdit([this] { ShowRule(); });
    lstError.OnActivate([this] { Attempt(prompter_, [this] { GoToFinding(); }); });
}

void FrmVError::FillRules() {
    cboRules.AddItem(kAllRules, kNoRule);
    const auto counts = log_.Count(log_.Narrowed({}, std::nullopt, [this] { events_.Yield(); }));
    for (const RuleInfo& rule : AllRules()) {
        const auto place = static_cast<std::size_t>(rule.rule);
        if (counts && (*counts)[place] > 0)
            cboRules.AddItem(fmt::format("{} {} ({})", rule.code, rule.label, (*counts)[place]),
                             static_cast<std::int64_t>(place));
    }
    cboRules.SetListIndex(0);
}

std::optional<Rule> FrmVError::ChosenRule() const {
    if (cboRules.ListIndex() <= 0) return std::nullopt;
    return static_cast<Rule>(cboRules.ItemData(cboRules.ListIndex()));
}

void FrmVError::ShowLines() {
    const std::vector<std::size_t> lines =
        log_.Narrowed(txtFilter.Text(), ChosenRule(), [this] { events_.Yield(); });
    std::vector<ChoiceControl::Choice> choices;
    choices.reserve(lines.size());
    for (const std::size_t i : lines) {
        choices.push_back({log_.Lines()[i], static_cast<std::int64_t>(i)});
        if (choices.size() % LogLines::kLinesOfATurn == 0) events_.Yield();
    }
    lstError.SetChoices(std::move(choices));
    const auto counts = log_.Count(lines);
    lblCounts.SetCaption(counts ? CountsText(*counts) : std::string());
    ShowRule();
}

void FrmVError::ShowRule() {
    const int item = lstError.ListIndex();
    const FindingMark* mark =
        item < 0 ? nullptr : log_.MarkAt(static_cast<std::size_t>(lstError.ItemData(item)));
    if (mark == nullptr) return lblRule.SetCaption("");
    const RuleInfo& rule = InfoOf(mark->rule);
    lblRule.SetCaption(fmt::format("{} ({}): {}", rule.code, WordFor(rule.severity), rule.sentence));
}

void FrmVError::GoToFinding() {
    const int item = lstError.ListIndex();
    const FindingMark* mark =
        item < 0 ? nullptr : log_.MarkFrom(static_cast<std::size_t>(lstError.ItemData(item)));
    if (mark == nullptr) return;
    if (mark->id == 0 || !state_.gDatabase || state_.gDataSetPath != dataSetPath_)
        return prompter_.Message("This record is not in the DataSet that is open.");
    const auto qb_id = TaxonOfFinding(*state_.gDatabase, *mark);
    if (!qb_id) return prompter_.Message("No taxon refers to this record.");
    goTo_(*qb_id, InfoOf(mark->rule).tab);
}

}  // namespace quillon::validation
