#include "startup/preferences_form.h"

#include <utility>
#include <vector>

#include "core/text.h"
#include "core/vocabulary.h"
#include "startup/preferences.h"
#include "store/engine.h"

namespace quillon::startup {

namespace {

constexpr int kRankRows = 27;
constexpr std::string_view kNoRank = "Error";
constexpr std::string_view kYes = "Yes";
constexpr std::string_view kNo = "No";
constexpr std::string_view kFullAuthor = "Full";
constexpr std::string_view kPartialAuthor = "Partial";

}  // namespace

FrmPreferences::FrmPreferences(ApplicationState& state, IniProfile& profile, Prompter& prompter,
                               std::string file)
    : state_(state),
      profile_(profile),
      prompter_(prompter),
      file_(std::move(file)),
      kingdoms_({{{&OptMonera, kKingdomNames[0]},
                  {&optProtozoa, kKingdomNames[1]},
                  {&OptPlantae, kKingdomNames[2]},
                  {&optFungi, kKingdomNames[3]},
                  {&OptAnimalia, kKingdomNames[4]},
                  {&optChromista, kKingdomNames[5]}}}),
      warnings_({{{&optNone, "None"}, {&optFirst, "First"}, {&optAll, "All"}}}),
      kept_({{{&chkRefs, &ApplicationState::gPrefSaveReferences},
              {&chkAuth, &ApplicationState::gPrefSaveAuthor},
              {&chkParent, &ApplicationState::gPrefSaveParent},
              {&chkComm, &ApplicationState::gPrefSaveComments},
              {&chkAll, &ApplicationState::gPrefSaveOtherFields}}}) {
    form.SetTitle("Preferences");
    state_.gPreferencesChanging = true;
    ShowPreferences();
    ConnectCommands();
}

void FrmPreferences::ConnectCommands() {
    for (const auto& [option, kingdom] : kingdoms_)
        option->OnEdit([this, name = kingdom] { ShowRanksOf(name); });
    CmdChange.OnClick([this] { Change(); });
    CmdReset.OnClick([this] { Reset(); });
    cmdSave.OnClick([this] { Save(); });
    cmdCancel.OnClick([this] { form.Close(); });
    mnuFQuit.OnClick([this] { form.Close(); });
    mnuHAbout.OnClick([this] { prompter_.ShowModal("FrmAbout"); });
    mnuHContents.OnClick([this] {
        if (HelpContentsCommand) HelpContentsCommand();
    });
    mnuHSearch.OnClick([this] {
        if (HelpSearchCommand) HelpSearchCommand();
    });
}

void FrmPreferences::ShowPreferences() {
    const std::string& kingdomName =
        state_.gOldKingdomName.empty() ? state_.gKingdomName : state_.gOldKingdomName;
    for (const auto& [option, kingdom] : kingdoms_) option->SetValue(kingdom == Trim(kingdomName));
    FillRanks();
    txtDatabase.SetText(state_.gPrefDataSet);
    (state_.gPrefAuthor == kFullAuthor ? OptFullName : OptAbbr).SetValue(true);
    for (const auto& [option, word] : warnings_) option->SetValue(state_.gPrefWarnings == word);
    for (const auto& [box, variable] : kept_) box->SetValue(state_.*variable == kYes);
}

void FrmPreferences::FillRanks() {
    try {
        const auto ranks =
            state_.gDatabase->CreateSnapshot("SELECT rank_name FROM taxonomic_unit_types ORDER BY rank_id");
        for (; !ranks->Eof(); ranks->MoveNext()) cboPRank.AddItem(ranks->Get("rank_name").AsText());
    } catch (const store::StoreError& error) {
        prompter_.WarningMessage("Failed " + error.Description());
    }
    const std::string& rank = state_.gOldPrefRank.empty() ? state_.gPrefRank : state_.gOldPrefRank;
    if (rank.empty()) {
        cboPRank.SetListIndex(0);
    } else {
        cboPRank.SetText(rank);
    }
}

// The built-in ranks, which a DataSet of that kingdom will have; none is selected yet.
void FrmPreferences::ShowRanksOf(std::string_view kingdom) {
    std::vector<std::string> names;
    for (int row = 1; row <= kRankRows; ++row) {
        const std::string_view name = RankRow(FamilyOfKingdom(kingdom), row).rank_name;
        if (name != kNoRank) names.emplace_back(name);
    }
    cboPRank.SetTexts(names);
    cboPRank.SetText("");
}

void FrmPreferences::Change() {
    const auto chosen =
        prompter_.FileToOpen("Select Default DataSet", "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*");
    if (chosen) txtDatabase.SetText(*chosen);
}

void FrmPreferences::Reset() {
    OptAnimalia.SetValue(true);
    ShowRanksOf(kKingdomNames[4]);
    txtDatabase.SetText("");
    OptFullName.SetValue(true);
    optNone.SetValue(true);
    for (const auto& kept : kept_) kept.box->SetValue(false);
}

void FrmPreferences::Save() {
    TakeFromControls();
    WritePreferences(state_, profile_, file_);
    form.Close();
}

void FrmPreferences::TakeFromControls() {
    state_.gOldPrefRank.clear();
    state_.gOldKingdomName.clear();
    state_.gKingdomName.clear();
    for (const auto& [option, kingdom] : kingdoms_)
        if (option->Value()) state_.gKingdomName = kingdom;
    state_.gPrefRank = cboPRank.Text();
    state_.gPrefDataSet = txtDatabase.Text();
    state_.gPrefAuthor = OptAbbr.Value() ? kPartialAuthor : kFullAuthor;
    state_.gPrefWarnings.clear();
    for (const auto& [option, word] : warnings_)
        if (option->Value()) state_.gPrefWarnings = word;
    for (const auto& [box, variable] : kept_) state_.*variable = box->Value() ? kYes : kNo;
}

}  // namespace quillon::startup
