// The program without windows: the objects that the desktop program puts together, with a script in the place
// of the person. quillon-batch makes one for the command script.
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/ini_profile.h"
#include "core/outside.h"
#include "core/system_clock.h"
#include "dataset/lifecycle.h"
#include "editor/rec_view.h"
#include "export/name_list.h"
#include "navigation/explorer.h"
#include "script/form_driver.h"
#include "script/script_player.h"
#include "script/script_prompter.h"
#include "script/transcript.h"
#include "script/tree_driver.h"
#include "store/engine.h"
#include "validation/findings.h"

namespace quillon::script {

struct ScriptOptions {
    std::string workDirectory;    // the folder for logs; "" for the current one
    std::string preferencesFile;  // Qln.Ini; "" for the preferences of a new user
    std::string kingdom;          // the preference kingdom; "" for that of the file, or else of the DataSet
    bool yes = false;             // the answer to questions that the script does not answer
};

class ScriptProgram {
public:
    // `canceled` is asked before each line and at each turn of a long job; true ends the run as the Cancel
    // button ends the job.
    ScriptProgram(Transcript& transcript, ScriptOptions options, std::function<bool()> canceled);
    ~ScriptProgram();
    ScriptProgram(const ScriptProgram&) = delete;
    ScriptProgram& operator=(const ScriptProgram&) = delete;

    // Opens the DataSet and shows it, as at the start of the program. Throws StoreError with a text for the
    // user.
    void Open(const std::string& path);
    // Plays the script. Then leaves the program as File, Quit does, except after a line that could not be
    // played. Returns true when every line was played.
    bool Play(std::istream& script);

private:
    class Pump : public EventPump {
    public:
        Pump(ApplicationState& state, std::function<bool()> canceled)
            : state_(state), canceled_(std::move(canceled)) {}
        bool IsCanceled() const { return canceled_ && canceled_(); }
        void Yield() override {
            if (IsCanceled()) state_.gBatchCancel = true;
        }

    private:
        ApplicationState& state_;
        std::function<bool()> canceled_;
    };
    class NoProgress : public ProgressDialog {
        void NewTask(std::string_view) override {}
        void SetStatus(std::string_view) override {}
        void SetMin(int) override {}
        void SetMax(int) override {}
        void UpdateValue(int) override {}
        void Increment(int) override {}
        void EndTask() override {}
    };

    void ConnectForm();
    void ConnectCommands();
    void RegisterForms();
    void RegisterDialogs();
    void RegisterCleanUp();
    void RegisterJobs();
    void RegisterExports();
    void TakePreferences();
    void ShowJob(std::string_view formName);
    editor::ImportEnd Import();
    void GoToTaxon(int qb_id, std::string_view tab);
    void Settle();
    std::string Current() const;
    void Quit();

    ApplicationState state_;
    store::Engine engine_;
    Transcript& transcript_;
    ScriptOptions options_;
    ScriptPrompter prompter_;
    Pump pump_;
    SystemClock clock_;
    NoProgress progress_;
    IniProfile profile_;
    dataset::Lifecycle lifecycle_;
    navigation::cExplorer explorer_;
    editor::RecView recView_;
    validation::FindingMarks findings_;                           // of the last validation
    exporting::ListType exportType_ = exporting::ListType::Name;  // chosen in ExpType
    FormDriver forms_;
    TreeDriver tree_;
    std::unique_ptr<ScriptPlayer> player_;
    std::function<bool()> formWork_;  // idle work of the form in front; true while there is more
    int reselect_ = -1;               // the record to select again after the action; -1 for none
    bool closed_ = false;
};

}  // namespace quillon::script
