// No failure leaves a command of the main form, whatever throws below it.
#include <new>
#include <stdexcept>

#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

// Every question fails.
class FailingPrompter : public testkit::ScriptedPrompter {
public:
    bool AskYesNo(std::string_view, std::string_view) override { throw std::bad_alloc(); }
    std::optional<std::string> FileToOpen(std::string_view, std::string_view) override {
        throw std::bad_alloc();
    }
    std::optional<std::string> FileToSave(std::string_view, std::string_view, bool,
                                          std::string_view) override {
        throw std::bad_alloc();
    }
    void ShowModal(std::string_view) override { throw std::bad_alloc(); }
};

class FailingCommands : public RecViewFixture {
protected:
    // The names of the commands that say `message` when they are clicked, one after another, on `form`.
    static std::string CommandsThatSay(const std::string& message, RecView& recView,
                                       testkit::ScriptedPrompter& prompter, ApplicationState& state) {
        std::string names;
        for (Control* control : recView.Controls().form.Controls()) {
            auto* command = dynamic_cast<ButtonControl*>(control);
            if (command == nullptr || !command->Enabled()) continue;
            prompter.messages.clear();
            state.RecordDirty = true;
            EXPECT_NO_THROW(command->UserClick()) << command->Name();
            if (prompter.messages == Messages{message}) names += command->Name() + " ";
        }
        return names;
    }
};

TEST_F(FailingCommands, AQuestionThatFailsIsReported) {
    Make();
    FailingPrompter prompter;
    decltype(data.lifecycle) lifecycle{data.state, data.engine, prompter};
    RecView failing{data.state, prompter, progress, lifecycle, clock};
    failing.Attach(explorer);
    failing.ShowDataSet();
    failing.SelectExplorerItem(3, false);
    EXPECT_EQ(CommandsThatSay("Not enough memory.", failing, prompter, data.state),
              "mnuFNew mnuFOpen mnuFSaveAs mnuFQuit mnuCopy mnuAuth mnuParent mnuFirst mnuPrev mnuNext "
              "mnuLast mnuAdd "
              "mnuHAbout ");
    failing.Controls().form.UserClose();
    EXPECT_EQ(prompter.messages, Messages{"Not enough memory."});
    data.state.RecordDirty = false;
}

TEST_F(FailingCommands, WhatAnotherSubsystemThrowsIsReported) {
    Make();
    const auto fail = [] { throw std::runtime_error("on purpose"); };
    recView.ImportCommand = [fail]() -> ImportEnd {
        fail();
        return ImportEnd::NotStarted;
    };
    recView.StopCommand = [fail] {
        fail();
        return true;
    };
    recView.PreferencesCommand = recView.ValidateCommand = recView.ExportCommand = fail;
    recView.HelpContentsCommand = recView.HelpSearchCommand = fail;
    for (ButtonControl* command : {&form.mnuFImport, &form.mnuFPreferences, &form.mnuFValidate,
                                   &form.mnuFExport, &form.mnuHContents, &form.mnuHSearch, &form.mnuFQuit}) {
        data.prompter.messages.clear();
        EXPECT_NO_THROW(command->UserClick()) << command->Name();
        EXPECT_EQ(data.prompter.messages, Messages{"Failed on purpose"}) << command->Name();
    }
}

TEST_F(FailingCommands, AListenerThatFailsDoesNotEndTheCommand) {
    Make();
    recView.RebuildExplorer.Connect([] { throw std::runtime_error("on purpose"); });
    EXPECT_NO_THROW(recView.ShowDataSet());
    EXPECT_EQ(data.prompter.messages, Messages{"Failed on purpose"});
    EXPECT_EQ(progress.log, "task Loading Taxon Data;status Loading...;end;");
}

TEST_F(FailingCommands, AStoreThatCannotBeReadIsReportedByEachStep) {
    Make();
    Select(3);
    for (const char* table : {"qb_vernaculars", "qb_comments", "qb_geographic_division", "qb_publications"})
        data.db().DeleteTable(table);
    EXPECT_NO_THROW(Select(2));
    EXPECT_EQ(data.prompter.messages.size(), 4U);
    for (const std::string& message : data.prompter.messages) EXPECT_EQ(message.substr(0, 7), "Failed ");
    EXPECT_EQ(tab.txtName1.Text(), "Orca") << "the rest is shown";
}

}  // namespace
}  // namespace quillon::editor
