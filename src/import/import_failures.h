// Records that an import could not store, with the line of the file. A failure never ends an import; all
// failures are shown in one list at its end, not in a message box each.
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

// Receives the findings and failures of an import as they occur.
struct ImportSinks {
    FindingSink finding;
    FailureSink failure;
};

// "Failed ... (line 12: [TU]...)"; the sentence alone in the closing pass.
std::string TextOf(const Failure& failure);

// Records messages of procedures called by an import as failures of the current line. It shows nothing and
// cannot ask.
class FailurePrompter : public Prompter {
public:
    FailurePrompter(const ApplicationState& state, FailureSink sink);

    // The line must stay valid until the next call.
    void SetLine(std::int64_t number, std::string_view line);
    using Prompter::Message;
    // Ignored after a Cancel: an interrupted statement is not a failure.
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
