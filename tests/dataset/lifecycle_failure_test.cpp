// New, Open and Save As that fail: what is reported, and that everything is as it was.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "testkit/limits.h"
#include "testkit/testkit.h"

namespace quillon::dataset {
namespace {

// first.mdb is open, and second.mdb is another DataSet beside it.
class LifecycleFailure : public ::testing::Test {
protected:
    LifecycleFailure() {
        f.Make("Plantae", "second.mdb");
        f.Make("Animalia", "first.mdb");
    }
    void ExpectFirstIsOpen() {
        EXPECT_EQ(f.state.gDataSetPath, first);
        EXPECT_TRUE(f.state.gDataSetOpen);
        EXPECT_EQ(f.state.title, "Taxonomic Quillon - " + first);
        EXPECT_EQ(f.Dump("SELECT kingdom_name FROM kingdoms"), "Animalia\n");
        EXPECT_FALSE(f.prompter.waitCursor);
    }
    std::vector<std::string> FilesInFolder() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(f.dir.path()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    testkit::DataSetFixture f;
    const std::string first = f.dir.File("first.mdb"), second = f.dir.File("second.mdb");
    const std::vector<std::string> both{"first.mdb", "second.mdb"};
};

TEST_F(LifecycleFailure, OfSeedingLeavesTheFileThatWasToBeReplaced) {
    const std::string before = testkit::ReadFile(second);
    f.state.gVersion = "10.11.12.13";  // one character more than the field takes
    f.prompter.filesToSave = {second};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{
                  "Failed The field 'value' is too small to accept the text: it holds 10 characters."});
    EXPECT_EQ(testkit::ReadFile(second), before);
    EXPECT_EQ(FilesInFolder(), both);
    ExpectFirstIsOpen();
    EXPECT_TRUE(f.state.gDataSetIsNew);
}

TEST_F(LifecycleFailure, SaveAsThatIsCanceledSaysNothing) {
    const std::string before = testkit::ReadFile(second);
    f.lifecycle.GoOn = [] { return false; };
    f.prompter.filesToSave = {second, f.dir.File("third.mdb")};
    f.prompter.yesNo = {true};
    f.lifecycle.SaveDataSetAs();
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{});
    EXPECT_EQ(testkit::ReadFile(second), before);
    EXPECT_EQ(FilesInFolder(), both);
    ExpectFirstIsOpen();
}

TEST_F(LifecycleFailure, NewThatIsCanceledSaysNothing) {
    f.lifecycle.GoOn = [] { return false; };
    f.prompter.filesToSave = {f.dir.File("third.mdb")};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{});
    EXPECT_EQ(FilesInFolder(), both);
    ExpectFirstIsOpen();
}

TEST_F(LifecycleFailure, APipeIsNotReplaced) {
    const std::string pipe = f.dir.File("pipe.mdb");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string refusal = "Failed '" + pipe + "' is not a file that can be written.";
    f.prompter.filesToSave = {pipe, pipe};
    f.prompter.yesNo = {true};
    f.lifecycle.SaveDataSetAs();
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.warnings, (std::vector<std::string>{refusal, refusal}));
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    ExpectFirstIsOpen();
}

TEST_F(LifecycleFailure, OfSeedingWithoutADataSetLeavesNoneOpen) {
    f.lifecycle.CloseDataSet();
    f.state.gVersion = "10.11.12.13";
    f.prompter.filesToSave = {f.dir.File("third.mdb")};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(FilesInFolder(), both);
    EXPECT_FALSE(f.state.gDataSetOpen);
    EXPECT_EQ(f.state.gDatabase, nullptr);
    EXPECT_EQ(f.state.title, "Taxonomic Quillon - No Open DataSet");
}

TEST_F(LifecycleFailure, OfAFullDiskLeavesTheFileThatWasToBeReplaced) {
    const std::string before = testkit::ReadFile(second);
    f.prompter.filesToSave = {second};
    bool made = true;
    {
        const testkit::FilesStopAt limit(64 * 1024);
        made = f.lifecycle.NewDataSet();
    }
    EXPECT_FALSE(made);
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{"Failed Disk error: reading or writing the file failed."});
    EXPECT_EQ(testkit::ReadFile(second), before);
    EXPECT_EQ(FilesInFolder(), both);
    ExpectFirstIsOpen();
}

TEST_F(LifecycleFailure, OfSaveAsOpensTheOldPathAgain) {
    const std::string before = testkit::ReadFile(second);
    f.prompter.filesToSave = {second};
    f.prompter.yesNo = {true};
    {
        const testkit::FilesStopAt limit(64 * 1024);
        f.lifecycle.SaveDataSetAs();
    }
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{"Failed Writing '" + std::filesystem::canonical(second).string() +
                                       "' failed: File too large."});
    EXPECT_EQ(f.prompter.titles.back(), "Save Taxonomic DataSet As");
    EXPECT_EQ(testkit::ReadFile(second), before);
    EXPECT_EQ(FilesInFolder(), both);
    ExpectFirstIsOpen();
    EXPECT_TRUE(f.state.gDataSetIsNew);
}

TEST_F(LifecycleFailure, TheDialogsForSavingHaveTheirTitles) {
    f.prompter.filesToSave = {std::nullopt, std::nullopt};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(f.prompter.fileTitles,
              (std::vector<std::string>{"Open New Taxonomic DataSet", "Save Taxonomic DataSet As"}));
    const std::string filter = "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
    EXPECT_EQ(f.prompter.fileFilters, (std::vector<std::string>{filter, filter}));
    ExpectFirstIsOpen();
}

TEST_F(LifecycleFailure, ANewDataSetStaysNewWhenItsPathIsOpenedAgain) {
    f.prompter.filesToSave = {f.dir.File("copy.mdb")};
    f.lifecycle.SaveDataSetAs();
    EXPECT_TRUE(f.state.gDataSetIsNew) << "after Save As";
    f.prompter.filesToOpen = {f.dir.File("none.mdb"), first, second, first};
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_TRUE(f.state.gDataSetIsNew) << "after an Open that was refused";
    EXPECT_TRUE(f.lifecycle.OpenDataSet());
    EXPECT_TRUE(f.state.gDataSetIsNew) << "after an Open of the path itself";
    EXPECT_TRUE(f.lifecycle.OpenDataSet());
    EXPECT_FALSE(f.state.gDataSetIsNew) << "another one is open";
    EXPECT_TRUE(f.lifecycle.OpenDataSet());
    EXPECT_FALSE(f.state.gDataSetIsNew);
}

TEST_F(LifecycleFailure, AUsedDataSetDoesNotBecomeNewAgain) {
    f.state.gDataSetIsNew = false;
    f.prompter.filesToSave = {f.dir.File("copy.mdb")};
    f.lifecycle.SaveDataSetAs();
    EXPECT_FALSE(f.state.gDataSetIsNew);
    f.prompter.filesToOpen = {f.dir.File("none.mdb")};
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_FALSE(f.state.gDataSetIsNew);
}

}  // namespace
}  // namespace quillon::dataset
