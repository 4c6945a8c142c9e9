#include "startup/start_up.h"

#include <gtest/gtest.h>

#include "startup/preferences.h"
#include "startup/start_fixture.h"
#include "startup/start_up_forms.h"
#include "testkit/limits.h"

namespace quillon::startup {
namespace {

constexpr const char* kNoFile = "message: No Preference file exists, you must select a default Kingdom.";
constexpr const char* kNoKingdom =
    "message: No Preference for Kingdom is set, you must select a default Kingdom.";

class StartUpTest : public StartFixture {
protected:
    // What the user does in the two dialogs.
    void ChooseKingdom(const std::string& name) {
        prompter.onForm["FrmKingdom"] = [this, name] {
            FrmKingdom form(state, prompter);
            form.cboKingdom.UserSetText(name);
            form.cmdOK.UserClick();
        };
    }
    void ClickInNoDb(ButtonControl FrmNoDB::*button) {
        prompter.onForm["frmNoDB"] = [this, button] {
            FrmNoDB form(state, lifecycle, prompter);
            instructions = form.Instructions.Caption();
            reason = form.lblReason.Visible() ? form.lblReason.Caption() : "";
            (form.*button).UserClick();
        };
    }
    void CloseNoDb() {
        prompter.onForm["frmNoDB"] = [this] {
            FrmNoDB form(state, lifecycle, prompter);
            form.form.UserClose();
        };
    }
    void ExpectNoDataSet() const {
        EXPECT_FALSE(state.gDataSetOpen);
        EXPECT_EQ(state.gDatabase, nullptr);
        EXPECT_EQ(state.gDataSetPath, "");
        EXPECT_EQ(state.title, "Taxonomic Quillon - No Open DataSet");
    }

    std::string instructions, reason;
};

TEST_F(StartUpTest, OpensThePreferredDataSet) {
    const std::string path = MakeDataSet("fish.mdb");
    Prefer(path);
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "DataSet", "splash closes", "main form"}));
    EXPECT_TRUE(state.gDataSetOpen);
    EXPECT_EQ(state.gDataSetPath, path);
    EXPECT_EQ(state.title, "Taxonomic Quillon - " + path);
    EXPECT_EQ(state.gVersion, "4.0.6");
    EXPECT_EQ(state.gKingdomName, "Animalia");
    EXPECT_EQ(state.gPrefRank, "Species");
    EXPECT_FALSE(prompter.waitCursor);
}

TEST_F(StartUpTest, BeginsFromACleanState) {
    Prefer(MakeDataSet("fish.mdb"));
    state.gPreferencesChanging = true;
    state.gQuitRequested = true;
    state.gOldKingdomName = "Fungi";
    state.gOldPrefRank = "Tribe";
    state.RecordDirty = true;
    state.gNewChangeTrackIds = {1, 2};
    start.Run();
    EXPECT_FALSE(state.gPreferencesChanging);
    EXPECT_FALSE(state.gQuitRequested);
    EXPECT_EQ(state.gOldKingdomName + state.gOldPrefRank, "");
    EXPECT_FALSE(state.RecordDirty);
    EXPECT_TRUE(state.gNewChangeTrackIds.empty());
    EXPECT_EQ(story.back(), "main form");
}

TEST_F(StartUpTest, WorksInItsDataFolder) {
    Prefer(MakeDataSet("fish.mdb"));
    start.Run();
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), dir.File("data")));
}

TEST_F(StartUpTest, WithoutPreferencesLeadsToANewDataSetOfTheChosenKingdom) {
    ChooseKingdom("Plantae");
    ClickInNoDb(&FrmNoDB::cmdNew);
    prompter.filesToSave.push_back(dir.File("ferns.mdb"));
    start.Run();
    EXPECT_EQ(story, (Story{"splash", kNoFile, "form: FrmKingdom", "form: frmNoDB", "DataSet",
                            "splash closes", "main form"}));
    EXPECT_EQ(instructions,
              "A DataSet  could not be found or is incompatible.  Do you wish to Open an existing DataSet, "
              "or create a New one?");
    EXPECT_EQ(reason, "");
    EXPECT_EQ(state.gDataSetPath, dir.File("ferns.mdb"));
    EXPECT_TRUE(state.gDataSetIsNew);
    EXPECT_EQ(testkit::DumpRows(*state.gDatabase->CreateSnapshot("SELECT * FROM kingdoms")), "3\tPlantae\n");
    EXPECT_FALSE(std::filesystem::exists(iniPath)) << "the choice is kept in memory only";
}

TEST_F(StartUpTest, ASectionWithoutKeysCountsAsNoFile) {
    testkit::WriteFile(iniPath, "[Taxonomic Quillon]\r\n; empty\r\n[Other]\r\nKingdom=Fungi\r\n");
    ChooseKingdom("Monera");
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story[1], kNoFile);
    EXPECT_EQ(state.gKingdomName, "Monera");
}

TEST_F(StartUpTest, AKingdomThatIsMissingIsAskedForAndWritten) {
    const std::string path = MakeDataSet("fish.mdb");
    WritePreferencesFile("DataSet=" + path + "\r\nColour=blue\r\n");
    ChooseKingdom("Animalia");
    start.Run();
    EXPECT_EQ(story,
              (Story{"splash", kNoKingdom, "form: FrmKingdom", "DataSet", "splash closes", "main form"}));
    EXPECT_EQ(testkit::ReadFile(iniPath),
              "[Taxonomic Quillon]\r\nDataSet=" + path + "\r\nColour=blue\r\nKingdom=Animalia\r\n");
}

TEST_F(StartUpTest, KeysThatAreUnknownAreKeysToo) {
    WritePreferencesFile("Colour=blue\r\n");
    ChooseKingdom("Fungi");
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story[1], kNoKingdom);
    EXPECT_EQ(testkit::ReadFile(iniPath), "[Taxonomic Quillon]\r\nColour=blue\r\nKingdom=Fungi\r\n");
}

TEST_F(StartUpTest, AnUnwritableKingdomIsReportedAndStartUpContinues) {
    const std::string large = "[Taxonomic Quillon]\r\nDataSet=" + MakeDataSet("fish.mdb") +
                              "\r\nNote=" + std::string(2000, 'x') + "\r\n";
    testkit::WriteFile(iniPath, large);
    prompter.onForm["FrmKingdom"] = [this] { state.gKingdomName = "Animalia"; };
    std::string failure;
    {
        const testkit::FilesStopAt limit(1000);
        start.LoadMainForm();
    }
    EXPECT_EQ(story.at(2), "message: The preferences could not be saved in " + iniPath +
                               ": File too large.  The file stays as it was, and the choices hold until the "
                               "program ends.");
    EXPECT_EQ(story.back(), "DataSet");
    EXPECT_EQ(testkit::ReadFile(iniPath), large);
    EXPECT_EQ(state.gKingdomName, "Animalia");
}

TEST_F(StartUpTest, APathThatDoesNotExistLeadsToTheDialog) {
    Prefer(dir.File("gone.mdb"));
    CloseNoDb();
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "form: frmNoDB", "DataSet", "splash closes", "main form"}));
    ExpectNoDataSet();
}

TEST_F(StartUpTest, ExitInTheDialogShowsNoMainForm) {
    Prefer(dir.File("gone.mdb"));
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "form: frmNoDB", "splash closes"}));
    EXPECT_TRUE(state.gQuitRequested);
    EXPECT_FALSE(prompter.waitCursor);
    EXPECT_EQ(instructions, "A DataSet " + dir.File("gone.mdb") +
                                " could not be found or is incompatible.  Do you wish to Open an existing "
                                "DataSet, or create a New one?");
}

TEST_F(StartUpTest, AFileThatIsNoDataSetOpensTheDialogWithTheReason) {
    testkit::WriteFile(dir.File("letter.mdb"), "Dear Sir or Madam, this is no DataSet at all.\n");
    Prefer(dir.File("letter.mdb"));
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "form: frmNoDB", "splash closes"}));
    EXPECT_EQ(reason, lifecycle.LastOpenError());
    EXPECT_NE(reason, "");
}

TEST_F(StartUpTest, AnotherDataSetIsOpenedFromTheDialog) {
    const std::string other = MakeDataSet("other.mdb");
    Prefer(dir.File("gone.mdb"));
    ClickInNoDb(&FrmNoDB::cmdOpen);
    prompter.filesToOpen.push_back(other);
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "form: frmNoDB", "DataSet", "splash closes", "main form"}));
    EXPECT_EQ(state.gDataSetPath, other);
}

TEST_F(StartUpTest, ADataSetWithoutAVersionIsRefusedWithoutTheDialog) {
    for (const std::string version : {"", "abc"}) {
        story.clear();
        const std::string path = MakeDataSet("v" + version + ".mdb", version);
        Prefer(path);
        start.Run();
        EXPECT_EQ(story, (Story{"splash",
                                "message: Dataset " + path + " is incompatible with this version of the QLN!",
                                "DataSet", "splash closes", "main form"}));
        ExpectNoDataSet();
    }
}

// A newer one too, and one that File, Open takes as it is.
TEST_F(StartUpTest, AnyOtherVersionGetsTheQuestion) {
    for (const std::string version : {"1.31", "3.6.0", "4.0.5", "4.0.7", "9.1", "Gamma 2"}) {
        story.clear();
        const std::string path = MakeDataSet("v" + version + ".mdb", version);
        Prefer(path);
        ClickInNoDb(&FrmNoDB::cmdExit);
        prompter.yesNo.push_back(false);
        start.Run();
        EXPECT_EQ(story, (Story{"splash",
                                "question: Dataset " + path +
                                    " is incompatible with this version of the QLN.  Do you wish to update "
                                    "the Dataset?",
                                "form: frmNoDB", "splash closes"}));
        EXPECT_EQ(prompter.titles.back(), "Update Dataset");
        EXPECT_EQ(reason, "");
        ExpectNoDataSet();
    }
}

TEST_F(StartUpTest, YesToUpdatingANewerDataSetPointsToTheNewerProgram) {
    const std::string path = MakeDataSet("new.mdb", "4.0.10");
    const std::string before = testkit::ReadFile(path);
    Prefer(path);
    CloseNoDb();
    prompter.yesNo.push_back(true);
    start.Run();
    EXPECT_EQ(story.at(2), "message: Dataset " + path +
                               " is incompatible with this version of the QLN!\nDownload the current version "
                               "of the QLN at:\nhttps://example.org/quillon");
    EXPECT_EQ(story.at(3), "form: frmNoDB");
    EXPECT_EQ(testkit::ReadFile(path), before);
    ExpectNoDataSet();
}

TEST_F(StartUpTest, AClosedKingdomQuestionEndsTheProgram) {
    WritePreferencesFile("Colour=blue\r\n");
    prompter.onForm["FrmKingdom"] = [this] { FrmKingdom(state, prompter).form.UserClose(); };
    start.Run();
    EXPECT_EQ(story, (Story{"splash", kNoKingdom, "form: FrmKingdom", "splash closes"}));
    EXPECT_TRUE(state.gQuitRequested);
    EXPECT_EQ(testkit::ReadFile(iniPath), "[Taxonomic Quillon]\r\nColour=blue\r\n");
}

TEST_F(StartUpTest, PreferencesThatCannotBeReadAreNotCalledMissing) {
    std::filesystem::create_directory(iniPath);
    ChooseKingdom("Fungi");
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story[1], "message: The Preference file " + iniPath +
                            " cannot be read: it is not a plain file.  You must select a default Kingdom.");
}

TEST_F(StartUpTest, WithoutAPreferredDataSetTheOneOpenLastIsOpened) {
    const std::string path = MakeDataSet("fish.mdb");
    WritePreferencesFile("Kingdom=Animalia\r\n");
    ClickInNoDb(&FrmNoDB::cmdOpen);
    prompter.filesToOpen.push_back(path);
    start.Run();
    start.RememberDataSet();
    lifecycle.CloseDataSet();
    story.clear();
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "DataSet", "splash closes", "main form"}));
    EXPECT_EQ(state.gDataSetPath, path);
    EXPECT_EQ(state.gPrefDataSet, "");
    std::filesystem::remove(path);
    lifecycle.CloseDataSet();
    story.clear();
    ClickInNoDb(&FrmNoDB::cmdExit);
    start.Run();
    EXPECT_EQ(story, (Story{"splash", "form: frmNoDB", "splash closes"}));
    EXPECT_NE(reason, "");
}

TEST_F(StartUpTest, ThePreferredDataSetTakesPrecedenceOverTheLastOne) {
    Prefer(MakeDataSet("last.mdb"));
    start.Run();
    start.RememberDataSet();
    lifecycle.CloseDataSet();
    const std::string preferred = MakeDataSet("preferred.mdb");
    profile.IniWriteValue(kPreferencesSection, iniPath, "DataSet", preferred);
    profile.IniFlush();
    start.Run();
    EXPECT_EQ(state.gDataSetPath, preferred);
}

TEST_F(StartUpTest, AFailedUpdateIsReportedBeforeTheDialog) {
    const std::string path = MakeDataSet("old.mdb", "4.0.5");
    Prefer(path);
    CloseNoDb();
    prompter.yesNo.push_back(true);
    start.Run();
    EXPECT_EQ(story, (Story{"splash",
                            "question: Dataset " + path +
                                " is incompatible with this version of the QLN.  Do you wish to update the "
                                "Dataset?",
                            "message: Unable to update " + path + "!", "form: frmNoDB", "DataSet",
                            "splash closes", "main form"}));
    ExpectNoDataSet();
}

TEST_F(StartUpTest, AnErrorOfAStepDoesNotEndTheStart) {
    Prefer(MakeDataSet("fish.mdb"));
    for (const std::string step : {"splash", "DataSet", "splash closes"}) {
        story.clear();
        stage.failing = step;
        start.Run();
        EXPECT_EQ(story, (Story{"splash", "DataSet", "splash closes", "main form"}));
        EXPECT_FALSE(prompter.waitCursor);
    }
}

class StopTest : public testing::Test {
protected:
    StopTest() { data.Make(); }
    bool Stop() { return StopProgram(data.state, data.lifecycle, data.prompter, pump); }

    testkit::DataSetFixture data;
    testkit::NullPump pump;
};

TEST_F(StopTest, ClosesTheDataSetWithPausesAroundIt) {
    EXPECT_TRUE(Stop());
    EXPECT_FALSE(data.state.gDataSetOpen);
    EXPECT_EQ(data.state.gDataSetPath, "");
    EXPECT_EQ(pump.turns, 2);
    EXPECT_TRUE(Stop()) << "with none open";
    EXPECT_EQ(pump.turns, 2);
}

}  // namespace
}  // namespace quillon::startup
