// Whole scripts on a small DataSet: the explorer, the modal forms, questions and the end of the run.
#include "script/script_program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "testkit/testkit.h"
#include "transcript_log.h"

namespace quillon::script {
namespace {

class ScriptProgramTest : public testing::Test {
protected:
    // Animalia (1) > Orcidae (2) > Orca (3) > Orca alpha (4); Cetidae (5) is a second family, and Gladiator
    // (6) an invalid name of Orca.
    ScriptProgramTest() {
        data.Make("Animalia");
        Add("2", "140", "'Orcidae', Null", "1", "valid");
        Add("3", "180", "'Orca', Null", "2", "valid");
        Add("4", "220", "'Orca', 'alpha'", "3", "valid");
        Add("5", "140", "'Cetidae', Null", "1", "valid");
        Add("6", "180", "'Gladiator', Null", "Null", "invalid");
        data.db().Execute("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (6, 3)");
        path = data.state.gDataSetPath;
        data.lifecycle.CloseDataSet();
    }

    void Add(const std::string& id, const std::string& rank, const std::string& units,
             const std::string& parent, const std::string& usage) {
        data.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, kingdom_id, rank_id, unit_name1, "
            "unit_name2, parent_qb_id, usage) VALUES (" +
            id + ", 5, " + rank + ", " + units + ", " + parent + ", '" + usage + "')");
    }

    // What the script prints. `played` is false after a line that could not be played.
    std::string Play(const std::string& script, const ScriptOptions& options = {}) {
        TranscriptLog transcript;
        ScriptProgram program(transcript, options, [this] { return canceled; });
        program.Open(path);
        std::istringstream input(script);
        played = program.Play(input);
        return transcript.log;
    }
    // The rows of a select on the DataSet as the scripts left it.
    std::string Dump(std::string_view sql) {
        data.state.gDataSetPath = data.lifecycle.OpenDataSetFile(path);
        const std::string rows = data.Dump(sql);
        data.lifecycle.CloseDataSet();
        return rows;
    }

    testkit::DataSetFixture data;
    std::string path;
    bool played = false, canceled = false;
};

constexpr std::string_view kLoses =
    "question: A new or modified record was not saved.  Continuing will lose that record!  Continue?";

TEST_F(ScriptProgramTest, StartsWithAnEmptyFormOfRankSpecies) {
    EXPECT_EQ(Play("show cboRank mode taxa\ncurrent"), "cboRank\tSpecies\nmode\tINPUT\ntaxa\tTAXA: 6\n0\t\n");
    EXPECT_TRUE(played);
}

TEST_F(ScriptProgramTest, SelectsTaxaBelowClosedNodesAndSynonyms) {
    EXPECT_EQ(Play("select 4\ncurrent\nselect 6\nshow name mode\n"),
              "4\tOrca  alpha\nname\tGladiator\nmode\tEDIT\n");
}

TEST_F(ScriptProgramTest, OpensAndClosesBranches) {
    EXPECT_EQ(Play("select 2\nexpand 2\nclick mnuLast\ncurrent\nclick mnuParent\ncollapse 1\n"
                   "click mnuLast\ncurrent\n"),
              "3\tOrca\n1\tAnimalia\n");
    EXPECT_EQ(Play("expand 4\n"), "line 1: taxon 4 has nothing below it\n");
    EXPECT_FALSE(played);
}

TEST_F(ScriptProgramTest, ClicksKeysOfTheToolbar) {
    EXPECT_EQ(Play("select 3\nclick moveparent\ncurrent\nclick addnew\nshow mode\nclick alpha\nshow alpha\n"
                   "click paste\n"),
              "2\tOrcidae\nmode\tINPUT\nalpha\ton\nline 8: paste is not enabled\n");
}

TEST_F(ScriptProgramTest, RefusesUnknownTaxa) {
    EXPECT_EQ(Play("select 99"), "line 1: there is no taxon 99\n");
    EXPECT_EQ(Play("expand 99"), "line 1: taxon 99 is not in the tree\n");
    EXPECT_EQ(Play("select x"), "line 1: 'x' is no number from 0\n");
    EXPECT_EQ(Play("select last"), "line 1: no new record has been saved\n");
}

TEST_F(ScriptProgramTest, ALineThatCannotBePlayedEndsTheRun) {
    EXPECT_EQ(Play("current\n\nset txtNone x\ncurrent"), "0\t\nline 3: RecView has no control 'txtNone'\n");
    EXPECT_FALSE(played);
    EXPECT_EQ(Play("dance"), "line 1: there is no action 'dance'\n");
    EXPECT_EQ(Play("row grdVernacular"), "line 1: the action takes 2 words\n");
    EXPECT_EQ(Play("check chkUnnamed maybe"), "line 1: 'maybe' is neither on nor off\n");
    EXPECT_EQ(Play("answer Perhaps"), "line 1: 'Perhaps' is no answer: it is one of Yes, No, OK, Cancel\n");
}

TEST_F(ScriptProgramTest, QuestionsTakeTheQueuedAnswersThenNo) {
    const std::string change = "select 4\nset cboCredibility unverified\n";
    EXPECT_EQ(Play(change + "answer No\nselect 5\ncurrent\nanswer yes\nselect 5\ncurrent\n"),
              std::string(kLoses) + " [No]\n4\tOrca  alpha\n" + std::string(kLoses) + " [Yes]\n5\tCetidae\n");
    EXPECT_EQ(Play(change + "select 5\ncurrent\nanswer Yes"),
              std::string(kLoses) + " [No]\n4\tOrca  alpha\n" + std::string(kLoses) + " [Yes]\n");
    ScriptOptions yes;
    yes.yes = true;
    EXPECT_EQ(Play(change + "select 5\ncurrent\n", yes), std::string(kLoses) + " [Yes]\n5\tCetidae\n");
}

TEST_F(ScriptProgramTest, TheEndAsksAboutAnUnsavedRecordAsQuitDoes) {
    EXPECT_EQ(Play("select 4\nset cboCredibility unverified\n"), std::string(kLoses) + " [No]\n");
    EXPECT_TRUE(played);
    EXPECT_EQ(Dump("SELECT taxonomic_credibility_rating FROM qb_taxonomic_units WHERE qb_id = 4"), "\\N\n");
}

TEST_F(ScriptProgramTest, ListsWhatNothingTook) {
    EXPECT_EQ(Play("answer Yes\nfile /tmp/a b.qln\nanswer cancel\n"),
              "unused: answer Yes\nunused: answer Cancel\nunused: file /tmp/a b.qln\n");
    EXPECT_TRUE(played);
}

TEST_F(ScriptProgramTest, PlaysModalFormsUntilTheyClose) {
    EXPECT_EQ(Play("click mnuFPreferences\nshow chkAuth OptAnimalia cboPRank\nselect 4\n"),
              "chkAuth\toff\nOptAnimalia\ton\ncboPRank\tSpecies\n"
              "line 3: another form is in front of the explorer\n");
    EXPECT_EQ(Play("click mnuFPreferences\ncheck chkAuth on\nset cboPRank genus\nclick cmdSave\n"
                   "click mnuAdd\nshow cboRank mode\nclick mnuFPreferences\nshow chkAuth\n"),
              "cboRank\tGenus\nmode\tINPUT\nchkAuth\ton\n");
    EXPECT_TRUE(played);
    EXPECT_FALSE(std::filesystem::exists("Qln.Ini"));
}

TEST_F(ScriptProgramTest, ReadsAndWritesThePreferencesFile) {
    ScriptOptions options;
    options.preferencesFile = data.dir.File("Qln.Ini");
    testkit::WriteFile(options.preferencesFile,
                       "[Taxonomic Quillon]\r\nKingdom=Animalia\r\nRank=Family\r\nSave Author=Yes\r\n");
    EXPECT_EQ(Play("show cboRank\nclick mnuFPreferences\nshow chkAuth\ncheck chkAuth off\nclick cmdSave\n",
                   options),
              "cboRank\tFamily\nchkAuth\ton\n");
    EXPECT_NE(testkit::ReadFile(options.preferencesFile).find("Save Author=No"), std::string::npos);
    EXPECT_EQ(testkit::ReadFile(options.preferencesFile).find("Last Run"), std::string::npos);
}

TEST_F(ScriptProgramTest, FileDialogsTakeTheQueuedPaths) {
    const std::string copy = data.dir.File("copy.mdb");
    Play("file " + copy + "\nclick mnuFSaveAs\n");
    EXPECT_TRUE(std::filesystem::exists(copy));
    EXPECT_EQ(Play("file " + copy + "\nclick mnuFSaveAs\nclick mnuFOpen\ncurrent\n"),
              "question: DataSet '" + copy + "' already exists.  Overwrite? [No]\n0\t\n");
    EXPECT_TRUE(played);
}

TEST_F(ScriptProgramTest, AnotherTabComesUpWithItsControl) {
    EXPECT_EQ(
        Play("set txtVName whale\nshow TabStrip1\nset cboCredibility unverified\nshow TabStrip1\n"
             "tab comments\nshow TabStrip1\n"),
        "TabStrip1\tvernacular\nTabStrip1\ttaxon\nTabStrip1\tcomments\n" + std::string(kLoses) + " [No]\n");
}

TEST_F(ScriptProgramTest, DropsOnlyWhereTheTreeAllowsIt) {
    EXPECT_EQ(Play("drop 2 3\ncurrent\nshow cboParentName\nclick mnuEUndo\n"),
              "2\tOrcidae\ncboParentName\tAnimalia  \nline 4: mnuEUndo is not enabled\n");
    EXPECT_EQ(Play("drop 3 5\ncurrent\nshow cboParentName mnuEUndo\n"),
              "3\tOrca\ncboParentName\tCetidae\nmnuEUndo\tUndo\n" + std::string(kLoses) + " [No]\n");
}

TEST_F(ScriptProgramTest, ADragEndsWhenTheUserStaysOnAnUnsavedRecord) {
    EXPECT_EQ(
        Play("select 4\nset cboCredibility unverified\ndrop 3 5\ncurrent\nanswer Yes\nclick mnuFQuit\n"),
        std::string(kLoses) + " [No]\n4\tOrca  alpha\n" + std::string(kLoses) + " [Yes]\n");
    EXPECT_EQ(Play("click mnuFQuit\ncurrent\n"), "line 2: the program has ended\n");
}

TEST_F(ScriptProgramTest, EndsWhenItIsCanceled) {
    canceled = true;
    EXPECT_EQ(Play("current\n"), "");
    EXPECT_FALSE(played);
}

}  // namespace
}  // namespace quillon::script
