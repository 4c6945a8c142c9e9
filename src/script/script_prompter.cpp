#include "script/script_prompter.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "core/file_identity.h"
#include "core/text.h"
#include "script/script_line.h"

namespace quillon::script {

namespace {

constexpr std::string_view kAnswers[] = {"Yes", "No", "OK", "Cancel"};

bool Agrees(std::string_view answer) {
    return answer == "Yes" || answer == "OK";
}

// The ending that the dialog adds to a bare name: that of the filter's first pair, in upper case.
std::string WithEnding(const std::string& path, std::string_view filter) {
    const std::string_view pattern = filter.substr(std::min(filter.find('|'), filter.size() - 1) + 1);
    const std::string ending = UpperCase(pattern.substr(0, pattern.find('|')));
    const bool isBare = std::filesystem::path(path).extension().empty();
    const bool isAdded = ending == "*.MDB" || ending == "*.LOG";
    return isBare && isAdded ? path + ending.substr(1) : path;
}

}  // namespace

void ScriptPrompter::QueueAnswer(const std::string& word) {
    const auto* known = std::find_if(std::begin(kAnswers), std::end(kAnswers),
                                     [&](std::string_view each) { return EqualText(each, word); });
    if (known == std::end(kAnswers))
        throw CannotPlay(fmt::format("'{}' is no answer: it is one of Yes, No, OK, Cancel", word));
    answers_.emplace_back(*known);
}

std::vector<std::string> ScriptPrompter::Unused() const {
    std::vector<std::string> unused;
    for (const std::string& answer : answers_) unused.push_back("answer " + answer);
    for (const std::string& file : files_) unused.push_back("file " + file);
    return unused;
}

void ScriptPrompter::Register(std::string_view formName, std::function<void()> show) {
    forms_[std::string(formName)] = std::move(show);
}

void ScriptPrompter::Message(std::string_view text, std::string_view) {
    transcript_.Message(text);
}

bool ScriptPrompter::Ask(std::string_view text, std::string_view agreement, std::string_view refusal) {
    bool agreed = yes_;
    if (!answers_.empty()) {
        agreed = Agrees(answers_.front());
        answers_.pop_front();
    }
    transcript_.Question(text, agreed ? agreement : refusal);
    return agreed;
}

bool ScriptPrompter::AskYesNo(std::string_view text, std::string_view) {
    return Ask(text, "Yes", "No");
}

bool ScriptPrompter::AskOkCancel(std::string_view text, std::string_view) {
    return Ask(text, "OK", "Cancel");
}

std::optional<std::string> ScriptPrompter::TakeFile() {
    if (files_.empty()) return std::nullopt;
    const std::string path = files_.front();
    files_.pop_front();
    return path;
}

std::optional<std::string> ScriptPrompter::FileToOpen(std::string_view, std::string_view) {
    return TakeFile();
}

std::optional<std::string> ScriptPrompter::FileToSave(std::string_view title, std::string_view filter,
                                                      bool overwritePrompt, std::string_view) {
    auto path = TakeFile();
    if (!path || !overwritePrompt) return path;
    path = WithEnding(*path, filter);
    if (!FileExists(*path)) return path;
    return AskBeforeLoss(fmt::format("{} already exists.  Replace it?", *path), title) ? path : std::nullopt;
}

void ScriptPrompter::ShowModal(std::string_view formName) {
    const auto form = forms_.find(formName);
    if (form != forms_.end()) form->second();
}

}  // namespace quillon::script
