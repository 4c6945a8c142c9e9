#include "startup/start_up_forms.h"

#include <gtest/gtest.h>

#include "startup/start_fixture.h"

namespace quillon::startup {
namespace {

TEST(Splash, ShowsTheVersionWithoutItsRevision) {
    const FrmSplash form("4.0.6");
    EXPECT_EQ(form.lblVersion.Caption(), "version 4.0 (SR6)");
    EXPECT_EQ(form.lblTitle.Caption(), "Taxonomic Quillon");
}

class KingdomTest : public testing::Test {
protected:
    KingdomTest() {
        form.form.OnClosed([this] { ++closed; });
    }

    ApplicationState state;
    testkit::ScriptedPrompter prompter;
    FrmKingdom form{state, prompter};
    int closed = 0;
};

TEST_F(KingdomTest, OffersTheSixKingdomsAndNoneIsChosen) {
    std::string names;
    for (const auto& choice : form.cboKingdom.Choices()) names += choice.text + " ";
    EXPECT_EQ(names, "Monera Protozoa Plantae Fungi Animalia Chromista ");
    EXPECT_EQ(form.cboKingdom.Text(), "");
}

TEST_F(KingdomTest, TakesTheChosenOne) {
    form.cboKingdom.UserChoose(3);
    form.cmdOK.UserClick();
    EXPECT_EQ(state.gKingdomName, "Fungi");
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(prompter.messages.empty());
}

TEST_F(KingdomTest, StaysUpWithoutOne) {
    form.cmdOK.UserClick();
    EXPECT_EQ(prompter.messages, std::vector<std::string>{"A Kingdom must be entered"});
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(state.gKingdomName, "");
}

TEST_F(KingdomTest, ClosingTheWindowEndsTheProgram) {
    form.form.UserClose();
    EXPECT_TRUE(state.gQuitRequested);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(prompter.messages, std::vector<std::string>{});
}

class NoDbTest : public StartFixture {
protected:
    NoDbTest() {
        state.gKingdomName = "Animalia";
        state.gPrefRank = "Kingdom";
        form.form.OnClosed([this] { ++closed; });
    }
    void Open(const std::optional<std::string>& file) {
        prompter.filesToOpen.push_back(file);
        form.cmdOpen.UserClick();
    }
    void ExpectStillUp() const {
        EXPECT_EQ(closed, 0);
        EXPECT_FALSE(state.gDataSetOpen);
        EXPECT_EQ(state.gDataSetPath, "");
        EXPECT_FALSE(prompter.waitCursor);
    }

    FrmNoDB form{state, lifecycle, prompter};
    int closed = 0;
};

TEST_F(NoDbTest, RestoresTheNormalCursorWhenItLoads) {
    prompter.WaitCursor(true);
    const FrmNoDB other(state, lifecycle, prompter);
    EXPECT_FALSE(prompter.waitCursor);
}

TEST_F(NoDbTest, OpensADataSetOfThisVersion) {
    const std::string path = MakeDataSet("fish.mdb");
    Open(path);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(state.gDataSetPath, path);
    EXPECT_TRUE(state.gDataSetOpen);
    EXPECT_FALSE(prompter.waitCursor);
    EXPECT_EQ(story, Story{});
    EXPECT_EQ(prompter.fileTitles, std::vector<std::string>{"Open Taxonomic DataSet"});
    EXPECT_EQ(prompter.fileFilters,
              std::vector<std::string>{"Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*"});
}

TEST_F(NoDbTest, OpensTheOldVersionsThatCountAsEqual) {
    Open(MakeDataSet("old.mdb", "1.31"));
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(story, Story{});
}

TEST_F(NoDbTest, ACancelOrAnEmptyNameKeepsTheDialogOpen) {
    Open(std::nullopt);
    Open("");
    ExpectStillUp();
    EXPECT_EQ(story, Story{});
}

TEST_F(NoDbTest, AddsTheExtensionToAPathWithoutADot) {
    const std::string inPlace = std::filesystem::temp_directory_path().string() + "/quillonwithoutpoint";
    ASSERT_EQ(inPlace.find('.'), std::string::npos);
    std::filesystem::copy_file(MakeDataSet("fish.mdb"), inPlace + ".MDB",
                               std::filesystem::copy_options::overwrite_existing);
    Open(inPlace);
    EXPECT_EQ(state.gDataSetPath, inPlace + ".MDB");
    lifecycle.CloseDataSet();
    std::filesystem::remove(inPlace + ".MDB");
}

TEST_F(NoDbTest, ABareNameFindsTheFileWithEitherEnding) {
    const std::string lower = MakeDataSet("m1.mdb"), upper = MakeDataSet("m2.MDB");
    Open(dir.File("m1"));
    EXPECT_EQ(state.gDataSetPath, lower);
    lifecycle.CloseDataSet();
    Open(dir.File("m2"));
    EXPECT_EQ(state.gDataSetPath, upper);
}

TEST_F(NoDbTest, ANewerDataSetIsRefusedWithTheAddressOfTheProgram) {
    const std::string path = MakeDataSet("new.mdb", "4.1");
    const std::string before = testkit::ReadFile(path);
    Open(path);
    ExpectStillUp();
    EXPECT_EQ(story, Story{"message: Dataset " + path +
                           " is incompatible with this version of the QLN!\nDownload the current version of "
                           "the QLN at:\nhttps://example.org/quillon"});
    EXPECT_EQ(testkit::ReadFile(path), before);
}

TEST_F(NoDbTest, SaysWhyAFileDoesNotOpenAndStaysUp) {
    testkit::WriteFile(dir.File("letter.txt"), "Dear Sir or Madam, this is no DataSet at all.\n");
    Open(dir.File("letter.txt"));
    ExpectStillUp();
    EXPECT_EQ(prompter.messages, std::vector<std::string>{lifecycle.LastOpenError()});
    EXPECT_EQ(prompter.titles, std::vector<std::string>{"Open Taxonomic DataSet"});
    Open(MakeDataSet("fish.mdb"));
    EXPECT_EQ(closed, 1);
}

TEST_F(NoDbTest, RefusesADataSetWithoutAVersion) {
    const std::string path = MakeDataSet("none.mdb", "");
    Open(path);
    ExpectStillUp();
    EXPECT_EQ(story, Story{"message: Dataset " + path + " is incompatible with this version of the QLN!"});
}

TEST_F(NoDbTest, AnOlderDataSetMayBeLeftOrFailToBeUpdated) {
    const std::string path = MakeDataSet("old.mdb", "3.6.0");
    const std::string question = "question: Dataset " + path +
                                 " is incompatible with this version of the QLN.  Do you wish to update the "
                                 "Dataset?";
    prompter.yesNo = {false, true};
    Open(path);
    ExpectStillUp();
    Open(path);
    ExpectStillUp();
    EXPECT_EQ(story, (Story{question, question, "message: Unable to update " + path + "!"}));
}

TEST_F(NoDbTest, MakesANewDataSet) {
    prompter.filesToSave.push_back(std::nullopt);
    form.cmdNew.UserClick();
    ExpectStillUp();
    prompter.filesToSave.push_back(dir.File("new.mdb"));
    form.cmdNew.UserClick();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(state.gDataSetPath, dir.File("new.mdb"));
}

TEST_F(NoDbTest, ExitAsksTheProgramToEnd) {
    form.cmdExit.UserClick();
    EXPECT_TRUE(state.gQuitRequested);
    EXPECT_TRUE(prompter.waitCursor);
    EXPECT_EQ(closed, 1);
}

TEST_F(NoDbTest, ClosingTheWindowContinuesWithoutADataSet) {
    form.form.UserClose();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(state.gQuitRequested);
}

}  // namespace
}  // namespace quillon::startup
