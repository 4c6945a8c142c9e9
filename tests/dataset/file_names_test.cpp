// What a person gets who types the bare name of a DataSet.
#include "dataset/file_names.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::dataset {
namespace {

namespace fs = std::filesystem;

// Bare names need folders without a point.
class FileNames : public ::testing::Test {
protected:
    std::string Folder() const { return fs::canonical(dir.path()).string(); }
    void Write(const std::string& name) const { testkit::WriteFile(dir.File(name), "there"); }

    testkit::TempDir dir;
    testkit::ScriptedPrompter prompter;
};

TEST_F(FileNames, AreFoundWithEitherEnding) {
    Write("m1.mdb");
    Write("m2.MDB");
    Write("m3");
    Write("m3.mdb");
    EXPECT_EQ(FindDataSetFile(dir.File("m1")), dir.File("m1.mdb"));
    EXPECT_EQ(FindDataSetFile(dir.File("m2")), dir.File("m2.MDB"));
    EXPECT_EQ(FindDataSetFile(dir.File("m3")), dir.File("m3"));
    EXPECT_EQ(FindDataSetFile(dir.File("m4.old")), dir.File("m4.old"));
    EXPECT_EQ(FindDataSetFile(dir.File("m4")), dir.File("m4.MDB"));
}

TEST_F(FileNames, ForNewAreAskedAboutWhenTheEndingMakesThemAnotherFile) {
    Write("moths.MDB");
    Write("flies.MDB");
    prompter.filesToSave = {dir.File("moths"), dir.File("flies"), dir.File("new")};
    prompter.yesNo = {false, true};
    EXPECT_EQ(AskNewDataSetFile(prompter, "New"), dir.File("flies.MDB"));
    EXPECT_EQ(prompter.losses, (std::vector<std::string>{
                                   "DataSet '" + dir.File("moths.MDB") + "' already exists.  Overwrite?",
                                   "DataSet '" + dir.File("flies.MDB") + "' already exists.  Overwrite?"}));
    EXPECT_EQ(AskNewDataSetFile(prompter, "New"), dir.File("new.MDB"));
    prompter.filesToSave = {std::nullopt};
    EXPECT_EQ(AskNewDataSetFile(prompter, "New"), std::nullopt);
}

TEST_F(FileNames, ThatTheDialogAskedAboutAreNotAskedAboutAgain) {
    Write("moths.mdb");
    prompter.filesToSave = {dir.File("moths.mdb")};
    EXPECT_EQ(AskNewDataSetFile(prompter, "New"), dir.File("moths.mdb"));
}

TEST_F(FileNames, AskAboutTheRemainsOfADeletedDataSet) {
    Write("moths.mdb-journal");
    prompter.filesToSave = {dir.File("moths.mdb")};
    prompter.yesNo = {true};
    EXPECT_EQ(AskNewDataSetFile(prompter, "New"), dir.File("moths.mdb"));
}

}  // namespace
}  // namespace quillon::dataset
