// The interfaces through which the program's logic reaches the outside: questions, progress, events, time.
// The desktop program, the batch program and the tests each implement them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// Messages, questions and file choices. Each call returns when the user has answered.
class Prompter {
public:
    virtual ~Prompter() = default;
    // A message box with an OK button. `title` may be empty.
    virtual void Message(std::string_view text, std::string_view title = {}) = 0;
    // The same with the warning icon, for a failure or a refusal.
    virtual void WarningMessage(std::string_view text, std::string_view title = {}) { Message(text, title); }
    // The same with the stop icon, for a fault of the program or of one of its files.
    virtual void StopMessage(std::string_view text, std::string_view title) { Message(text, title); }
    // A question with Yes and No; true for Yes, the default.
    virtual bool AskYesNo(std::string_view text, std::string_view title) = 0;
    // A question whose Yes overwrites, deletes or loses something. No is the default.
    virtual bool AskBeforeLoss(std::string_view text, std::string_view title) {
        return AskYesNo(text, title);
    }
    // A question with OK and Cancel before much is changed; true for OK. Return answers Cancel.
    virtual bool AskOkCancel(std::string_view text, std::string_view title) {
        return AskBeforeLoss(text, title);
    }
    // A file to open; empty when the user cancels. The filter is "Name (*.x)|*.x|...".
    virtual std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) = 0;
    // A file to save. With `overwritePrompt` the dialog asks before it accepts an existing file, and adds the
    // ending of the filter's first pair to a name without one. `suggested` is the initial path and may be
    // empty.
    virtual std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                                  bool overwritePrompt, std::string_view suggested = {}) = 0;
    // Shows the form of that name until it closes.
    virtual void ShowModal(std::string_view formName) = 0;
    // Shows the wait cursor until each call with true is matched by one with false.
    virtual void WaitCursor(bool on) = 0;
};

// The shared progress dialog. The order is NewTask, SetStatus, SetMax, steps, EndTask.
class ProgressDialog {
public:
    virtual ~ProgressDialog() = default;
    virtual void NewTask(std::string_view caption) = 0;
    virtual void SetStatus(std::string_view status) = 0;
    virtual void SetMin(int minimum) = 0;
    virtual void SetMax(int maximum) = 0;
    // Clamped to the limits of the bar.
    virtual void UpdateValue(int value) = 0;
    virtual void Increment(int step) = 0;
    virtual void EndTask() = 0;
};

// Called at each row of a long job; processes events now and then, so that a call costs little.
class EventPump {
public:
    virtual ~EventPump() = default;
    virtual void Yield() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    // "yyyy-mm-dd hh:mm:ss" of the local time.
    virtual std::string Now() const = 0;
};

}  // namespace quillon
