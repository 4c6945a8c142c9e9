// The outside as the program's logic sees it: questions, progress, events, time. Nothing here shows anything
// itself; the desktop program, the batch program and the tests each hand in their own.
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
    // The same with the warning icon: something failed or was refused.
    virtual void WarningMessage(std::string_view text, std::string_view title = {}) { Message(text, title); }
    // The same with the stop icon: the program, or one of its files, is broken.
    virtual void StopMessage(std::string_view text, std::string_view title) { Message(text, title); }
    // A question with Yes and No; true for Yes. Return answers Yes.
    virtual bool AskYesNo(std::string_view text, std::string_view title) = 0;
    // A question whose Yes overwrites, deletes or loses something. Return answers No.
    virtual bool AskBeforeLoss(std::string_view text, std::string_view title) {
        return AskYesNo(text, title);
    }
    // A file to open, or nothing when the user cancels. The filter is "Name (*.x)|*.x|..." with pairs split
    // by bars.
    virtual std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) = 0;
    // A file to save. With `overwritePrompt` the dialog itself asks before an existing file is taken, and
    // adds the ending of the filter's first pair to a name without one; it offers the path `suggested`, which
    // may be empty.
    virtual std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                                  bool overwritePrompt, std::string_view suggested = {}) = 0;
    // Shows the form of that name until it closes.
    virtual void ShowModal(std::string_view formName) = 0;
    // The wait cursor, and back once each call with true has had its call with false.
    virtual void WaitCursor(bool on) = 0;
};

// The one shared progress dialog. The order is NewTask, SetStatus, SetMax, steps, EndTask.
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

// Called at each row of a long job; lets events through now and then, so that calling it costs nothing.
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
