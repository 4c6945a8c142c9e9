#include "startup/preferences.h"

#include <gtest/gtest.h>

#include "startup/preferences_form.h"
#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon::startup {
namespace {

constexpr const char* kFile =
    "[Taxonomic Quillon]\r\nKingdom=Fungi\r\nRank=Genus\r\nDataSet=/home/ana/fungi.mdb\r\nAuthor=Partial\r\n"
    "Warnings=First\r\nSave References=Yes\r\nSave Author=No\r\nSave Parent=Yes\r\nSave Comments=No\r\n"
    "Save Other Fields=Yes\r\n";

// The ten variables, each with a bar behind it.
std::string Shown(const ApplicationState& state) {
    std::string text;
    for (const Preference& preference : Preferences()) text += state.*preference.variable + "|";
    return text;
}

class PreferencesTest : public testing::Test {
protected:
    void Write(std::string_view bytes) const { testkit::WriteFile(path, bytes); }
    std::string Read() const { return testkit::ReadFile(path); }

    testkit::TempDir dir;
    const std::string path = dir.File("Qln.Ini");
    testkit::ScriptedPrompter prompter;
    IniProfile profile{prompter};
    ApplicationState state;
};

TEST_F(PreferencesTest, ReadsTheTenKeys) {
    Write(kFile);
    EXPECT_EQ(ReadPreferences(state, profile, path), 10);
    EXPECT_EQ(Shown(state), "Fungi|Genus|/home/ana/fungi.mdb|Partial|First|Yes|No|Yes|No|Yes|");
}

TEST_F(PreferencesTest, AbsentKeysStayEmptyAndUnknownOnesAreCounted) {
    Write("[TAXONOMIC QUILLON]\nrank=Species\nColour=blue\n");
    EXPECT_EQ(ReadPreferences(state, profile, path), 2);
    EXPECT_EQ(Shown(state), "|Species|||||||||");
}

TEST_F(PreferencesTest, NoFileAndAnEmptySectionAreTheSame) {
    EXPECT_EQ(ReadPreferences(state, profile, path), 0);
    Write("[Taxonomic Quillon]\r\n[Other]\r\nKingdom=Fungi\r\n");
    EXPECT_EQ(ReadPreferences(state, profile, path), 0);
    EXPECT_EQ(Shown(state), "||||||||||");
}

TEST_F(PreferencesTest, WritesThemInTheirOrder) {
    Write(kFile);
    ReadPreferences(state, profile, path);
    const std::string fresh = dir.File("fresh/Qln.Ini");
    EXPECT_TRUE(WritePreferences(state, profile, fresh));
    EXPECT_EQ(testkit::ReadFile(fresh), kFile);
}

TEST_F(PreferencesTest, LeavesWhatItDoesNotKnow) {
    Write("; mine\r\n[Other]\r\nKingdom=x\r\n[Taxonomic Quillon]\r\nColour=blue\r\nrank = Tribe\r\n");
    state.gKingdomName = "Monera";
    state.gPrefRank = "Family";
    EXPECT_TRUE(WritePreferences(state, profile, path));
    EXPECT_EQ(Read(),
              "; mine\r\n[Other]\r\nKingdom=x\r\n[Taxonomic Quillon]\r\nColour=blue\r\nrank =Family\r\n"
              "Kingdom=Monera\r\nDataSet=\r\nAuthor=\r\nWarnings=\r\nSave References=\r\nSave Author=\r\n"
              "Save Parent=\r\nSave Comments=\r\nSave Other Fields=\r\n");
}

class PreferencesFormTest : public testing::Test {
protected:
    PreferencesFormTest() {
        data.Make("Animalia");
        data.prompter.messages.clear();
        testkit::WriteFile(path, kOld);
    }
    // The form as it loads from the state.
    void Load() {
        form = std::make_unique<FrmPreferences>(data.state, profile, data.prompter, path);
        form->form.OnClosed([this] { ++closed; });
    }
    // The names of the options and boxes that are on.
    std::string On() const {
        std::string names;
        for (const Control* control : form->form.Controls()) {
            const auto* option = dynamic_cast<const OptionControl*>(control);
            const auto* check = dynamic_cast<const CheckControl*>(control);
            if ((option != nullptr && option->Value()) || (check != nullptr && check->Value()))
                names += control->Name() + " ";
        }
        return names;
    }
    std::string Ranks() const {
        std::string names;
        for (const auto& choice : form->cboPRank.Choices()) names += choice.text + " ";
        return names;
    }
    std::string Read() const { return testkit::ReadFile(path); }

    static constexpr const char* kOld = "[Taxonomic Quillon]\r\nKingdom=Fungi\r\nColour=blue\r\n";
    static constexpr const char* kAnimalRanks =
        "Kingdom Subkingdom Phylum Subphylum Superclass Class Subclass Infraclass Superorder Order Suborder "
        "Infraorder Superfamily Family Subfamily Tribe Subtribe Genus Subgenus Species Subspecies ";

    testkit::DataSetFixture data;
    const std::string path = data.dir.File("Qln.Ini");
    IniProfile profile{data.prompter};
    std::unique_ptr<FrmPreferences> form;
    int closed = 0;
};

TEST_F(PreferencesFormTest, ShowsThePreferences) {
    data.state.gPrefRank = "Genus";
    data.state.gPrefDataSet = "/home/ana/fish.mdb";
    data.state.gPrefAuthor = "Full";
    data.state.gPrefWarnings = "All";
    data.state.gPrefSaveReferences = data.state.gPrefSaveComments = "Yes";
    data.state.gPrefSaveAuthor = "No";
    Load();
    EXPECT_TRUE(data.state.gPreferencesChanging);
    EXPECT_EQ(form->form.Title(), "Preferences");
    EXPECT_EQ(On(), "OptAnimalia OptFullName optAll chkRefs chkComm ");
    EXPECT_EQ(form->cboPRank.Text(), "Genus");
    EXPECT_EQ(form->txtDatabase.Text(), "/home/ana/fish.mdb");
}

TEST_F(PreferencesFormTest, WithoutPreferencesShowsTheFirstRankAndNoWarning) {
    data.state.gPrefRank.clear();
    Load();
    EXPECT_EQ(On(), "OptAnimalia OptAbbr ");
    EXPECT_EQ(form->cboPRank.Text(), "Kingdom");
    EXPECT_EQ(form->txtDatabase.Text(), "");
}

TEST_F(PreferencesFormTest, OffersTheRanksOfTheDataSet) {
    data.db().Execute("DELETE * FROM taxonomic_unit_types WHERE rank_id > 30");
    data.db().Execute(
        "INSERT INTO taxonomic_unit_types (kingdom_id, rank_id, rank_name, direct_parent_rank_id, "
        "required_parent_rank_id) VALUES (5, 15, 'Superdomain', 10, 10)");
    Load();
    EXPECT_EQ(Ranks(), "Kingdom Superdomain Subkingdom Phylum ");
}

TEST_F(PreferencesFormTest, ShowsWhatTheDataSetOverrode) {
    data.state.gOldKingdomName = "Plantae";
    data.state.gOldPrefRank = "Variety";
    Load();
    EXPECT_EQ(On(), "OptPlantae OptAbbr ");
    EXPECT_EQ(form->cboPRank.Text(), "Variety") << "though the DataSet has no such rank";
}

TEST_F(PreferencesFormTest, ChoosingAKingdomListsItsRanksAndSelectsNone) {
    Load();
    form->OptAnimalia.UserChoose();
    EXPECT_EQ(form->cboPRank.Text(), "Kingdom") << "it was chosen before";
    form->optFungi.UserChoose();
    EXPECT_EQ(
        Ranks(),
        "Kingdom Subkingdom Division Subdivision Class Subclass Order Suborder Family Subfamily Tribe "
        "Subtribe Genus Subgenus Section Subsection Species Subspecies Variety Subvariety Form Subform ");
    EXPECT_EQ(form->cboPRank.Text(), "");
    form->OptAnimalia.UserChoose();
    EXPECT_EQ(Ranks(), kAnimalRanks);
    EXPECT_EQ(On(), "OptAnimalia OptAbbr ");
}

TEST_F(PreferencesFormTest, ChangeAsksForAFile) {
    data.state.gPrefDataSet = "old.mdb";
    Load();
    data.prompter.filesToOpen = {std::nullopt, "/home/ana/new.mdb"};
    form->CmdChange.UserClick();
    EXPECT_EQ(form->txtDatabase.Text(), "old.mdb");
    form->CmdChange.UserClick();
    EXPECT_EQ(form->txtDatabase.Text(), "/home/ana/new.mdb");
    EXPECT_EQ(data.prompter.fileTitles,
              (std::vector<std::string>{"Select Default DataSet", "Select Default DataSet"}));
    EXPECT_EQ(data.prompter.fileFilters.back(), "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*");
    EXPECT_EQ(data.state.gPrefDataSet, "old.mdb");
}

TEST_F(PreferencesFormTest, SavesAllOfIt) {
    data.state.gOldKingdomName = "Fungi";
    data.state.gOldPrefRank = "Variety";
    Load();
    form->OptPlantae.UserChoose();
    form->cboPRank.UserSetText("Species");
    form->txtDatabase.UserSetText("/home/josé/ferns.mdb");
    form->OptFullName.UserChoose();
    form->optFirst.UserChoose();
    form->chkAuth.UserSetValue(true);
    form->chkAll.UserSetValue(true);
    form->cmdSave.UserClick();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Shown(data.state), "Plantae|Species|/home/josé/ferns.mdb|Full|First|No|Yes|No|No|Yes|");
    EXPECT_EQ(data.state.gOldKingdomName + data.state.gOldPrefRank, "");
    EXPECT_TRUE(data.state.gPreferencesChanging) << "the reset of the main form clears it";
    EXPECT_EQ(Read(),
              "[Taxonomic Quillon]\r\nKingdom=Plantae\r\nColour=blue\r\nRank=Species\r\n"
              "DataSet=/home/jos\xE9/ferns.mdb\r\nAuthor=Full\r\nWarnings=First\r\nSave References=No\r\n"
              "Save Author=Yes\r\nSave Parent=No\r\nSave Comments=No\r\nSave Other Fields=Yes\r\n");
    EXPECT_TRUE(data.prompter.messages.empty());
}

TEST_F(PreferencesFormTest, AnyAuthorButFullIsAbbreviatedAndSavedAsPartial) {
    for (const std::string author : {"", "full", "Abbreviated", "Partial"}) {
        data.state.gPrefAuthor = author;
        Load();
        EXPECT_TRUE(form->OptAbbr.Value()) << author;
        form->cmdSave.UserClick();
        EXPECT_EQ(data.state.gPrefAuthor, "Partial");
    }
}

TEST_F(PreferencesFormTest, NoKingdomAndNoWarningAreSavedAsEmpty) {
    data.state.gKingdomName = "Viruses";
    data.state.gPrefWarnings = "Some";
    Load();
    EXPECT_EQ(On(), "OptAbbr ");
    form->cmdSave.UserClick();
    EXPECT_EQ(Shown(data.state), "|Kingdom||Partial||No|No|No|No|No|");
}

TEST_F(PreferencesFormTest, ResetSetsTheDefaultsAndSaveStoresThem) {
    data.state.gKingdomName = "Fungi";
    data.state.gPrefDataSet = "/home/ana/fungi.mdb";
    data.state.gPrefWarnings = "All";
    data.state.gPrefSaveParent = "Yes";
    Load();
    form->CmdReset.UserClick();
    EXPECT_EQ(On(), "OptAnimalia OptFullName optNone ");
    EXPECT_EQ(form->cboPRank.Text(), "");
    EXPECT_EQ(Ranks(), kAnimalRanks);
    EXPECT_EQ(form->txtDatabase.Text(), "");
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Read(), kOld);
    form->cmdSave.UserClick();
    EXPECT_EQ(Shown(data.state), "Animalia|||Full|None|No|No|No|No|No|");
}

TEST_F(PreferencesFormTest, ResetAndCancelChangeNothing) {
    data.state.gPrefWarnings = "All";
    data.state.gOldPrefRank = "Variety";
    const std::string before = Shown(data.state);
    for (ButtonControl FrmPreferences::*way : {&FrmPreferences::cmdCancel, &FrmPreferences::mnuFQuit}) {
        Load();
        form->CmdReset.UserClick();
        (form.get()->*way).UserClick();
    }
    Load();
    form->form.UserClose();
    EXPECT_EQ(closed, 3);
    EXPECT_EQ(Shown(data.state), before);
    EXPECT_EQ(data.state.gOldPrefRank, "Variety");
    EXPECT_EQ(Read(), kOld);
}

TEST_F(PreferencesFormTest, AnUnwritableFolderIsReportedAndTheChoicesAreKept) {
    const std::string large = kOld + std::string("Note=") + std::string(2000, 'x') + "\r\n";
    testkit::WriteFile(path, large);
    Load();
    form->optAll.UserChoose();
    {
        const testkit::FilesStopAt limit(1000);
        form->cmdSave.UserClick();
    }
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(data.prompter.messages,
              std::vector<std::string>{"The preferences could not be saved in " + path +
                                       ": File too large.  The file stays as it was, and the choices hold "
                                       "until the program ends."});
    EXPECT_EQ(data.state.gPrefWarnings, "All");
    EXPECT_EQ(Read(), large);
}

TEST_F(PreferencesFormTest, TheMenuHelpReachesItsWindows) {
    Load();
    std::string asked;
    form->mnuHContents.UserClick();
    form->HelpContentsCommand = [&] { asked += "contents "; };
    form->HelpSearchCommand = [&] { asked += "search "; };
    form->mnuHContents.UserClick();
    form->mnuHSearch.UserClick();
    form->mnuHAbout.UserClick();
    EXPECT_EQ(asked, "contents search ");
    EXPECT_EQ(data.prompter.forms, std::vector<std::string>{"FrmAbout"});
    EXPECT_EQ(closed, 0);
}

}  // namespace
}  // namespace quillon::startup
