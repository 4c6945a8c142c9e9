// The outside of quillon-batch: messages and questions as lines on standard error, answers from the command
// line, and SIGINT as the Cancel button.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::batch {

enum class Answer { No, Yes };

// "message: " and the text on standard error, in one line. It needs no memory.
void PrintMessage(std::string_view text, std::string_view more = {});

class ConsolePrompter : public Prompter {
public:
    explicit ConsolePrompter(Answer answer) : answer_(answer) {}

    // Whether a job of this process ran out of memory and reported it.
    static bool SaidOutOfMemory();

    void Message(std::string_view text, std::string_view title) override;
    // "question: ", the text, and the answer taken in brackets.
    bool AskYesNo(std::string_view text, std::string_view title) override;
    // There is nobody to choose a file or to look at a form: the answer is Cancel.
    std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) override;
    std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                          bool overwritePrompt, std::string_view suggested) override;
    void ShowModal(std::string_view) override {}
    void WaitCursor(bool) override {}

private:
    Answer answer_;
};

// Passes SIGHUP, SIGINT and SIGTERM on as gBatchCancel, also one that was sent before the program could take
// it.
class SignalPump : public EventPump {
public:
    explicit SignalPump(ApplicationState& state);
    void Yield() override;

private:
    ApplicationState& state_;
};

// A line on standard error that is drawn over itself, on a terminal only.
class ProgressLine {
public:
    explicit ProgressLine(bool wanted);
    ~ProgressLine();
    // 0 to 100.
    void Show(double percent);

private:
    bool drawn_;
    int last_ = -1;
};

}  // namespace quillon::batch
