#include "script/script_program.h"

#include <fmt/format.h>

#include <utility>

#include "core/attempt.h"
#include "core/text.h"
#include "core/version.h"
#include "core/wait_cursor.h"
#include "startup/preferences.h"
#include "startup/start_up.h"
#include "store/lifecycle/version.h"

namespace quillon::script {

ScriptProgram::ScriptProgram(Transcript& transcript, ScriptOptions options, std::function<bool()> canceled)
    : transcript_(transcript),
      options_(std::move(options)),
      prompter_(transcript, options_.yes),
      pump_(state_, std::move(canceled)),
      profile_(prompter_),
      lifecycle_(state_, engine_, prompter_),
      explorer_(state_, engine_, prompter_),
      recView_(state_, prompter_, progress_, lifecycle_, clock_),
      tree_(state_, explorer_) {
    state_.gVersion = kProgramVersion;
    recView_.Attach(explorer_);
    ConnectForm();
    ConnectCommands();
    RegisterForms();
}

// A DataSet that a failed run has left open is closed in order.
ScriptProgram::~ScriptProgram() {
    if (state_.gDataSetOpen) Attempt(prompter_, [this] { lifecycle_.CloseDataSet(); });
}

void ScriptProgram::ConnectForm() {
    editor::RecViewForm& form = recView_.Controls();
    form.hierarchy.Observe([this] { explorer_.SetTreeVisible(recView_.Controls().hierarchy.Value()); });
    form.form.OnClosed([this] { closed_ = true; });
    recView_.RebuildExplorer.Connect([this] {
        explorer_.Init();
        if (explorer_.TreeV().TopCount() > 0) explorer_.HiliteNode(explorer_.TreeV().Top(0));
    });
    recView_.DataSetReopened.Connect([this] { explorer_.ListV().Reattach(state_.gDatabase); });
    recView_.ReselectLater.Connect([this](int qb_id) { reselect_ = qb_id; });
}

void ScriptProgram::ConnectCommands() {
    recView_.ImportCommand = [this] { return Import(); };
    recView_.PreferencesCommand = [this] { prompter_.ShowModal("FrmPreferences"); };
    recView_.StopCommand = [this] { return startup::StopProgram(state_, lifecycle_, prompter_, pump_); };
    recView_.AuthorEditCommand = [this] { prompter_.ShowModal("CleanUp"); };
    recView_.ValidateCommand = [this] { ShowJob("frmValidate"); };
    recView_.ExportCommand = [this] { ShowJob("FrmNExport"); };
}

void ScriptProgram::TakePreferences() {
    if (options_.preferencesFile.empty()) {
        state_.gPrefRank = "Species";
    } else {
        startup::ReadPreferences(state_, profile_, options_.preferencesFile);
    }
    if (!options_.kingdom.empty()) state_.gKingdomName = options_.kingdom;
    if (!state_.gKingdomName.empty()) return;
    const auto kingdom = state_.gDatabase->CreateSnapshot("SELECT * FROM kingdoms;");
    if (!kingdom->Eof()) state_.gKingdomName = Trim(kingdom->Get("kingdom_name").AsText());
}

void ScriptProgram::Open(const std::string& path) {
    state_.gDataSetPath = lifecycle_.OpenDataSetFile(path);
    if (!state_.gDataSetOpen)
        throw store::StoreError(store::ErrorNumber::CannotOpenFile, lifecycle_.LastOpenError());
    const store::VersionOrder order = lifecycle_.OrderOfOpen();
    if (order != store::VersionOrder::Same)
        throw store::StoreError(store::ErrorNumber::UnrecognizedFormat, dataset::RefusalText(path, order));
    TakePreferences();
    recView_.ShowDataSet();
    Settle();
}

bool ScriptProgram::Play(std::istream& script) {
    player_ = std::make_unique<ScriptPlayer>(
        script, Stage{forms_, tree_, prompter_, transcript_, [this] { return recView_.LastSaved(); },
                      [this] { return Current(); }, [this] { Settle(); },
                      [this](std::string_view key) { return recView_.Controls().OfKey(key); },
                      [this] { return pump_.IsCanceled(); }});
    player_->Play(recView_.Controls().form);
    if (player_->Failed() || player_->Interrupted()) return false;
    Quit();
    for (const std::string& action : prompter_.Unused()) transcript_.Remark("unused: " + action);
    return true;
}

std::string ScriptProgram::Current() const {
    return fmt::format("{}\t{}", state_.currentTaxon.qb_id, Escaped(recView_.CurrentTaxonName()));
}

// Nothing is read while a job runs, or without a DataSet.
void ScriptProgram::Settle() {
    const auto mayRead = [this] { return state_.gDataSetOpen && !engine_.IsJobRunning(); };
    do {
        if (const int qb_id = std::exchange(reselect_, -1); qb_id >= 0) explorer_.Reselect(qb_id);
        while (mayRead() && explorer_.Continue()) continue;
        while (mayRead() && formWork_ && formWork_()) continue;
    } while (reselect_ >= 0);
}

// After the answer No the record is lost all the same, because the run ends.
void ScriptProgram::Quit() {
    if (!closed_) recView_.Controls().mnuFQuit.UserClick();
}

// Stops reading the list while a job reads at full speed or writes.
void ScriptProgram::ShowJob(std::string_view formName) {
    explorer_.ListV().LoadAll(pump_);
    prompter_.ShowModal(formName);
}

}  // namespace quillon::script
