// What an import could not store, with the line of the file. A failure never ends an import; the failures are
// shown in one list at its end instead of a message box each.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "import/import_log.h"

namespace quillon::importing {

struct Failure {
    std::string sentence;
    std::int64_t number = 0;  // of the line, from 1; 0 in the closing pass
    std::string line;         // its first characters
};

using FailureSink = std::function<void(const Failure&)>;

// Where an import hands what it has to say; each is called as it comes up.
struct ImportSinks {
    FindingSink finding;
    FailureSink failure;
};

// "Failed ... (line 12: [TU]...)"; the sentence alone in the closing pass.
std::string TextOf(const Failure& failure);

// Takes the messages of the procedures that an import calls as failures of the line at hand. Nothing is
// shown, and nothing can be asked.
class FailurePrompter : public Prompter {
public:
    FailurePrompter(const ApplicationState& state, FailureSink sink);

    // The line must live until the next call.
    void SetLine(std::int64_t number, std::string_view line);
    using Prompter::Message;
    // Ignored once the user has cancelled: statements that the Cancel interrupts are no failures.
    void Message(std::string_view text, std::string_view title) override;
    bool AskYesNo(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> FileToOpen(std::string_view, std::string_view) override { return {}; }
    std::optional<std::string> FileToSave(std::string_view, std::string_view, bool,
                                          std::string_view) override {
        return {};
    }
    void ShowModal(std::string_view) override {}
    void WaitCursor(bool) override {}

private:
    const ApplicationState& state_;
    FailureSink sink_;
    std::int64_t number_ = 0;
    std::string_view line_;
};

}  // namespace quillon::importing
