// The command script: its exit status, its streams, and the scripts of tests/golden/scripts.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "batch_fixture.h"
#include "testkit/golden.h"

namespace quillon::batch {
namespace {

namespace fs = std::filesystem;

const std::string kScripts = QUILLON_SOURCE_DIR "/tests/golden/scripts";
const std::string kSample = QUILLON_SOURCE_DIR "/samples/cetacea.qln";

// The sample as a DataSet, imported once.
std::string SampleDataSet() {
    static const Batch batch;
    static const std::string bytes = [] {
        batch.Run("new sample.mdb --kingdom Animalia");
        batch.Run("import sample.mdb " + kSample);
        return testkit::ReadFile(batch.dir.File("sample.mdb"));
    }();
    return bytes;
}

std::vector<std::string> NamesOfScripts() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kScripts))
        if (entry.path().extension() == ".script") names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

// A golden file is what a script leaves on the sample: "== output", "== messages" and "== status", then the
// rows of each "== select ..." and the content of each "== file NAME" that the file names.
class GoldenScript : public testing::TestWithParam<std::string> {
protected:
    std::string Section(const std::string& heading) {
        if (heading == "== output") return ended_.out;
        if (heading == "== messages") return ended_.err;
        if (heading == "== status") return std::to_string(ended_.status) + "\n";
        const std::string argument = heading.substr(heading.find(' ', 3) + 1);
        if (heading.starts_with("== file ")) return testkit::ReadFile(batch_.dir.File(argument));
        testkit::WriteFile(batch_.dir.File("select.txt"), heading.substr(3));
        return batch_.Run("query t.mdb \"$(cat select.txt)\"").out;
    }
    // The golden file with the content that its sections have now.
    std::string Anew(const std::string& golden) {
        std::istringstream lines(golden);
        std::string anew;
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with("== ")) anew += line + "\n" + Section(line);
        return anew;
    }

    Batch batch_;
    Ended ended_;
};

TEST_P(GoldenScript, LeavesWhatItsFileSays) {
    testkit::WriteFile(batch_.dir.File("t.mdb"), SampleDataSet());
    ended_ = batch_.Run("script t.mdb " + kScripts + "/" + GetParam() + ".script");
    const std::string golden = testkit::Golden("scripts/" + GetParam() + ".txt");
    EXPECT_NE(golden, "");
    EXPECT_EQ(Anew(golden), golden);
}

INSTANTIATE_TEST_SUITE_P(Scripts, GoldenScript, testing::ValuesIn(NamesOfScripts()),
                         [](const auto& script) { return script.param; });

class BatchScript : public testing::Test {
protected:
    BatchScript() { batch.Run("new t.mdb --kingdom Animalia"); }
    Ended Play(const std::string& script, const std::string& options = "") const {
        testkit::WriteFile(batch.dir.File("a.script"), script);
        return batch.Run("script t.mdb a.script " + options);
    }
    Batch batch;
};

TEST_F(BatchScript, ResultsGoToOneStreamAndMessagesToTheOther) {
    const Ended ended = Play("select 1\ncurrent\nclick cmdOK\nanswer Yes\nshow mode\n");
    EXPECT_EQ(ended.out, "1\tAnimalia\nmode\tEDIT\n");
    EXPECT_EQ(ended.err, "message: You can't modify the Kingdom record.\nunused: answer Yes\n");
    EXPECT_EQ(ended.status, 0);
}

TEST_F(BatchScript, ALineThatCannotBePlayedIsAFailure) {
    const Ended ended = Play("current\nclick cmdNone\ncurrent\n");
    EXPECT_EQ(ended.out, "0\t\n");
    EXPECT_EQ(ended.err, "line 2: RecView has no control 'cmdNone'\n");
    EXPECT_EQ(ended.status, 3);
}

TEST_F(BatchScript, ReadsStandardInput) {
    testkit::WriteFile(batch.dir.File("a.script"), "current\n");
    const std::string command =
        "cd " + batch.dir.path() + " && " QUILLON_BATCH " script t.mdb - <a.script >out.txt";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("out.txt")), "0\t\n");
}

TEST_F(BatchScript, FilesThatAreMissingAreFailures) {
    Ended ended = batch.Run("script t.mdb none.script");
    EXPECT_EQ(ended.err, "message: File none.script not found!\n");
    EXPECT_EQ(ended.status, 3);
    ended = Play("current\n", "--preferences none.ini");
    EXPECT_EQ(ended.err, "message: File none.ini not found!\n");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(batch.Run("script . a.script").status, 3);
    EXPECT_EQ(batch.Run("script t.mdb").status, 2);
}

TEST_F(BatchScript, TakesThePreferencesOfAFile) {
    testkit::WriteFile(batch.dir.File("Qln.Ini"), "[Taxonomic Quillon]\r\nKingdom=Plantae\r\nRank=Genus\r\n");
    const Ended ended = Play("show cboRank\n", "--preferences Qln.Ini");
    EXPECT_EQ(ended.out, "cboRank\tGenus\n");
    EXPECT_EQ(ended.err,
              "message: Warning:  The 'Preference' kingdom does not match what is in the t.mdb dataset!  "
              "Dataset Kingdom will be used.\n");
    EXPECT_EQ(Play("show cboRank\n").err, "");
}

TEST_F(BatchScript, YesAnswersTheQuestionsThatTheScriptLeaves) {
    const std::string change = "set txtVName whale\nset cboLanguage English\nclick cmdVAdd\n";
    EXPECT_EQ(Play(change, "--yes").err,
              "question: A new or modified record was not saved.  Continuing will lose that record!  "
              "Continue? [Yes]\n");
}

TEST_F(BatchScript, ResultsThatCannotBePrintedAreAFailure) {
    testkit::WriteFile(batch.dir.File("a.script"), "current\n");
    const Ended ended = batch.Run("script t.mdb a.script", "/dev/full");
    EXPECT_EQ(ended.err,
              "message: The job failed: Standard output cannot be written: No space left on device.\n");
    EXPECT_EQ(ended.status, 3);
}

}  // namespace
}  // namespace quillon::batch
