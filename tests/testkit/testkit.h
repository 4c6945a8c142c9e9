// Shared by all tests: scripted answers in place of a user, a temporary folder, and a new DataSet in it.
#pragma once

#include <deque>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "store/engine.h"
#include "testkit/outside.h"

namespace quillon::testkit {

// Answers from queues, and records messages and questions. A question without an answer fails the test and
// counts as No.
class ScriptedPrompter : public Prompter {
public:
    ~ScriptedPrompter() override;

    std::deque<bool> yesNo;
    std::deque<std::optional<std::string>> filesToOpen, filesToSave;

    std::vector<std::string> messages;   // the texts of message boxes
    std::vector<std::string> warnings;   // those of them with the warning icon
    std::vector<std::string> stops;      // those of them with the stop icon
    std::vector<std::string> titles;     // of message boxes and questions, in order
    std::vector<std::string> questions;  // the texts of Yes or No questions
    std::vector<std::string> losses;     // those of them with No as the default
    std::vector<std::string> fileTitles, fileFilters;
    std::vector<std::string> filesOffered;  // the initial paths of save dialogs
    std::vector<std::string> forms;         // shown modally

    void Message(std::string_view text, std::string_view title) override;
    void WarningMessage(std::string_view text, std::string_view title) override;
    void StopMessage(std::string_view text, std::string_view title) override;
    bool AskYesNo(std::string_view text, std::string_view title) override;
    bool AskBeforeLoss(std::string_view text, std::string_view title) override;
    std::optional<std::string> FileToOpen(std::string_view title, std::string_view filter) override;
    std::optional<std::string> FileToSave(std::string_view title, std::string_view filter,
                                          bool overwritePrompt, std::string_view suggested) override;
    void ShowModal(std::string_view formName) override { forms.emplace_back(formName); }
    void WaitCursor(bool on) override { waitCursor = on; }

    bool waitCursor = false;
};

// A temporary folder, removed by the destructor.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string File(std::string_view name) const;

private:
    std::string path_;
};

// A new, open DataSet, as after the New command: a copy of one that is made once per process and kingdom.
struct DataSetFixture {
    TempDir dir;
    ApplicationState state;
    store::Engine engine;
    ScriptedPrompter prompter;
    dataset::Lifecycle lifecycle{state, engine, prompter};

    void Make(const std::string& kingdom = "Animalia", std::string_view file = "test.mdb");
    store::Database& db() { return *state.gDatabase; }
    // The rows of a select, tab-separated, Null as \N, one line each.
    std::string Dump(std::string_view sql);
    // Every table with its rows, each after a line with its name.
    std::string DumpEverything();
};

// Lines as a file of the program has them.
std::string Lines(std::initializer_list<std::string_view> lines);
std::string DumpRows(store::Recordset& rows);
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, std::string_view content);

}  // namespace quillon::testkit
