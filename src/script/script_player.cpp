#include "script/script_player.h"

#include <fmt/format.h>

#include <exception>
#include <utility>
#include <vector>

#include "core/attempt.h"

namespace quillon::script {

namespace {

// The words after an action that takes `count` of them.
std::vector<std::string> TakeWords(const std::string& rest, std::size_t count) {
    std::vector<std::string> words = WordsOf(rest);
    if (words.size() != count)
        throw CannotPlay(fmt::format("the action takes {} word{}", count, count == 1 ? "" : "s"));
    return words;
}

std::string TakeWord(const std::string& rest) {
    return TakeWords(rest, 1).front();
}

bool IsOn(const std::string& word) {
    if (word != "on" && word != "off") throw CannotPlay(fmt::format("'{}' is neither on nor off", word));
    return word == "on";
}

}  // namespace

ScriptPlayer::ScriptPlayer(std::istream& input, Stage stage) : lines_(input), stage_(std::move(stage)) {
    AddFieldActions();
    AddRowActions();
    AddTreeActions();
    AddAnswerActions();
}

void ScriptPlayer::AddFieldActions() {
    FormDriver& forms = stage_.forms;
    actions_["set"] = [&forms](const std::string& rest) {
        const auto [name, text] = SplitFirstWord(rest);
        forms.Set(name, Unescaped(text));
    };
    actions_["check"] = [&forms](const std::string& rest) {
        const auto words = TakeWords(rest, 2);
        forms.Check(words[0], IsOn(words[1]));
    };
    actions_["option"] = [&forms](const std::string& rest) { forms.Option(TakeWord(rest)); };
    actions_["click"] = [&forms](const std::string& rest) { forms.Click(TakeWord(rest)); };
    actions_["enter"] = [&forms](const std::string& rest) { forms.Enter(TakeWord(rest)); };
    actions_["leave"] = [&forms](const std::string& rest) { forms.Leave(TakeWord(rest)); };
    actions_["tab"] = [&forms](const std::string& rest) { forms.Tab(TakeWord(rest)); };
}

void ScriptPlayer::AddRowActions() {
    FormDriver& forms = stage_.forms;
    actions_["row"] = [&forms](const std::string& rest) {
        const auto words = TakeWords(rest, 2);
        forms.Row(words[0], NumberOf(words[1], 1));
    };
    actions_["item"] = [&forms](const std::string& rest) {
        const auto words = TakeWords(rest, 2);
        forms.Item(words[0], NumberOf(words[1], 1));
    };
    actions_["items"] = [&forms](const std::string& rest) {
        const auto [name, numbers] = SplitFirstWord(rest);
        std::vector<int> items;
        for (const std::string& word : WordsOf(numbers)) items.push_back(NumberOf(word, 1));
        forms.Items(name, std::move(items));
    };
    actions_["show"] = [this](const std::string& rest) { Show(rest); };
}

void ScriptPlayer::AddTreeActions() {
    TreeDriver& tree = stage_.tree;
    const auto add = [this](const char* name, Action play) {
        actions_[name] = [this, play = std::move(play)](const std::string& rest) {
            OnMainForm();
            play(rest);
        };
    };
    add("select", [this](const std::string& rest) { Select(rest); });
    add("expand", [&tree](const std::string& rest) { tree.Expand(NumberOf(TakeWord(rest))); });
    add("collapse", [&tree](const std::string& rest) { tree.Collapse(NumberOf(TakeWord(rest))); });
    add("drop", [&tree](const std::string& rest) {
        const auto words = TakeWords(rest, 2);
        tree.Drop(NumberOf(words[0]), NumberOf(words[1]));
    });
    actions_["current"] = [this](const std::string& rest) {
        TakeWords(rest, 0);
        stage_.transcript.Print(stage_.current());
    };
}

void ScriptPlayer::AddAnswerActions() {
    ScriptPrompter& prompter = stage_.prompter;
    actions_["answer"] = [&prompter](const std::string& rest) { prompter.QueueAnswer(TakeWord(rest)); };
    actions_["file"] = [&prompter](const std::string& rest) {
        if (rest.empty()) throw CannotPlay("the action takes a path");
        prompter.QueueFile(rest);
    };
}

void ScriptPlayer::Play(Form& form) {
    const auto closing = form.OnClosed([this] { closed_ = true; });
    stage_.forms.Push(form, stage_.ofKey);
    while (PlayNext()) continue;
    stage_.forms.Pop();
    form.RemoveClosedObserver(closing);
}

void ScriptPlayer::PlayModal(Form& form) {
    bool closed = false;
    const auto closing = form.OnClosed([&closed] { closed = true; });
    stage_.forms.Push(form);
    ++modalForms_;
    while (!closed && PlayNext()) continue;
    --modalForms_;
    stage_.forms.Pop();
    if (!closed) form.UserClose();
    form.RemoveClosedObserver(closing);
}

// False at the end of the script, and after a line that could not be played.
bool ScriptPlayer::PlayNext() {
    interrupted_ = interrupted_ || stage_.interrupted();
    if (failed_ || interrupted_) return false;
    const auto line = lines_.Next();
    if (!line) return false;
    try {
        PlayLine(*line);
        stage_.settle();
    } catch (const CannotPlay& reason) {
        failed_ = true;
        stage_.transcript.Remark(fmt::format("line {}: {}", line->number, reason.what()));
    } catch (const std::exception& failure) {
        ReportFailure(stage_.prompter, failure);  // as the window does, which then goes on
    }
    return !failed_;
}

void ScriptPlayer::PlayLine(const ScriptLine& line) {
    if (closed_) throw CannotPlay("the program has ended");
    const auto action = actions_.find(line.action);
    if (action == actions_.end()) throw CannotPlay(fmt::format("there is no action '{}'", line.action));
    action->second(line.rest);
}

// A modal form in front covers the explorer.
void ScriptPlayer::OnMainForm() const {
    if (modalForms_ > 0) throw CannotPlay("another form is in front of the explorer");
}

void ScriptPlayer::Select(const std::string& rest) {
    const std::string word = TakeWord(rest);
    const int qb_id = word == "last" ? stage_.lastSaved() : NumberOf(word);
    if (qb_id == 0) throw CannotPlay("no new record has been saved");
    stage_.tree.Select(qb_id);
}

void ScriptPlayer::Show(const std::string& rest) {
    for (const std::string& line : stage_.forms.Show(WordsOf(rest))) stage_.transcript.Print(line);
}

}  // namespace quillon::script
