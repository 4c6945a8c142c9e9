// Stand-ins for the outside that need no test framework, so that campaigns, benches and fuzzers use them too:
// a clock that stands still, event pumps that count, cancel or act, and a prompter that answers No.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::testkit {

class FixedClock : public Clock {
public:
    std::string Now() const override { return "2024-06-01 12:34:56"; }
};

// Counts the turns.
class NullPump : public EventPump {
public:
    void Yield() override { ++turns; }
    int turns = 0;
};

// Cancels the run at a turn, counted from 1; 0 for never.
class CancelingPump : public NullPump {
public:
    explicit CancelingPump(ApplicationState& state, int at = 0) : cancelAt(at), state_(state) {}
    void Yield() override {
        NullPump::Yield();
        if (turns == cancelAt) state_.gBatchCancel = true;
    }
    int cancelAt;

private:
    ApplicationState& state_;
};

// Does something at each turn, which may throw. The turns are counted from 1.
class ActingPump : public NullPump {
public:
    explicit ActingPump(std::function<void(int turn)> act) : act_(std::move(act)) {}
    void Yield() override {
        NullPump::Yield();
        act_(turns);
    }

private:
    std::function<void(int)> act_;
};

// Answers No, cancels file dialogs unless `fileToSave` names a file, and keeps the messages.
class SilentPrompter : public Prompter {
public:
    std::vector<std::string> messages;
    std::optional<std::string> fileToSave;

    void Message(std::string_view text, std::string_view) override { messages.emplace_back(text); }
    bool AskYesNo(std::string_view, std::string_view) override { return false; }
    std::optional<std::string> FileToOpen(std::string_view, std::string_view) override { return {}; }
    std::optional<std::string> FileToSave(std::string_view, std::string_view, bool,
                                          std::string_view) override {
        return fileToSave;
    }
    void ShowModal(std::string_view) override {}
    void WaitCursor(bool) override {}
};

}  // namespace quillon::testkit
