// Answers questions and file dialogs from the queues that a script fills, and shows modal forms by playing
// the next lines of the script on them.
//
// A question without an answer takes No, or Yes when `yes` is set; a file dialog without a path is canceled.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/outside.h"
#include "script/transcript.h"

namespace quillon::script {

class ScriptPrompter : public Prompter {
public:
    ScriptPrompter(Transcript& transcript, bool yes) : transcript_(transcript), yes_(yes) {}

    // For the next question: Yes, No, OK or Cancel, in any letter case. Throws CannotPlay for another word.
    void QueueAnswer(const std::string& word);
    // For the next file dialog.
    void QueueFile(std::string path) { files_.push_back(std::move(path)); }
    // What has not been taken, as the actions that queued it.
    std::vector<std::string> Unused() const;
    // `show` shows the form of that name until it closes.
    void Register(std::string_view formName, std::function<void()> show);

    void Message(std::string_view text, std::string_view title) override;
    bool AskYesNo(std::string_view text, std::string_view title) override;
    bool AskOkCancel(std::string_view text, std::string_view title) override;
    std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) override;
    // Asks before it gives the path of an existing file where the dialog would.
    std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                          bool overwritePrompt, std::string_view suggested) override;
    // Does nothing for a form that is not registered.
    void ShowModal(std::string_view formName) override;
    void WaitCursor(bool) override {}

private:
    bool Ask(std::string_view text, std::string_view agreement, std::string_view refusal);
    std::optional<std::string> TakeFile();

    Transcript& transcript_;
    bool yes_;
    std::deque<std::string> answers_;
    std::deque<std::string> files_;
    std::map<std::string, std::function<void()>, std::less<>> forms_;
};

}  // namespace quillon::script
