// Implements core/outside.h for quillon-batch: messages and questions are lines on standard error, the
// command line gives the answers, and SIGINT acts as the Cancel button.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::batch {

enum class Answer { No, Yes };

// Prints "message: " and the text on standard error, in one line. Allocates nothing.
void PrintMessage(std::string_view text, std::string_view more = {});
// Prints "question: ", the text, and the answer in brackets.
void PrintQuestion(std::string_view text, std::string_view answer);
// Prints a line about the command's own input.
void PrintRemark(std::string_view line);

// Write results on standard output. Throw std::runtime_error when that fails.
void PrintResult(const std::string& line);
void FlushResults();

// The message for a failure to write standard output, which errno describes.
std::string OutputFailure();

class ConsolePrompter : public Prompter {
public:
    explicit ConsolePrompter(Answer answer) : answer_(answer) {}

    // True when a job of this process has reported that it ran out of memory.
    static bool SaidOutOfMemory();

    void Message(std::string_view text, std::string_view title) override;
    // Prints the question with the answer of the command line.
    bool AskYesNo(std::string_view text, std::string_view title) override;
    // Without a screen there are no dialogs: the answer is always Cancel.
    std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) override;
    std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                          bool overwritePrompt, std::string_view suggested) override;
    void ShowModal(std::string_view) override {}
    void WaitCursor(bool) override {}

private:
    Answer answer_;
};

// From WatchSignals() on, SIGHUP, SIGINT and SIGTERM are noted, including those that were pending.
void WatchSignals();
bool IsSignalled();

// Watches the signals, and sets gBatchCancel after one of them.
class SignalPump : public EventPump {
public:
    explicit SignalPump(ApplicationState& state);
    void Yield() override;

private:
    ApplicationState& state_;
};

// A progress line on standard error that overwrites itself, only on a terminal.
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
