// The run around the reader: the log, the gauge, the Cancel, what ends a file.
#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "import_fixture.h"

namespace quillon::importing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;
using namespace std::string_literals;

constexpr std::string_view kTsns = "SELECT tsn FROM qb_taxonomic_units WHERE qb_id > 1 ORDER BY qb_id";

// A line whose length does not matter, for taxon `tsn`.
std::string Line(const std::string& tsn) {
    return TaxonLine{.tsn = tsn};
}

class Reading : public ImportTest {};

TEST_F(Reading, ABlankLineEndsTheFileWithoutAFinding) {
    Import({Line("100"), "", Line("200")});
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kTsns), "100\n");
}

TEST_F(Reading, ALineOfBlanksDoesNotEndTheFile) {
    Import({Line("100"), "   ", Line("200")});
    EXPECT_EQ(findings, (Findings{{"Invalid Table Tag in the following line of import file!", "   "}}));
    EXPECT_EQ(Dump(kTsns), "100\n200\n");
}

TEST_F(Reading, TheLastLineNeedsNoLineEnd) {
    ImportText(Line("100") + "\r\n" + Line("200"));
    EXPECT_EQ(Dump(kTsns), "100\n200\n");
}

TEST_F(Reading, AFileOfLineFeedsIsReadByThem) {
    ImportText(Line("100") + "\n" + Line("200") + "\n");
    EXPECT_EQ(findings, Findings{});
    EXPECT_EQ(Dump(kTsns), "100\n200\n");
}

TEST_F(Reading, Cp1252AndUtf8GiveTheSameName) {
    ImportText("[TU]5|||Caf\xE9||||||||valid||||||||||||5|220|\r\n");
    ImportText("\xEF\xBB\xBF[TU]5|||Caf\u00e9||||||||valid||||||||||||5|220|\r\n");
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units WHERE qb_id > 1"), "Caf\u00e9\nCaf\u00e9\n");
}

TEST_F(Reading, AnOverlongLineIsReportedByItsBeginningAndTheRunContinues) {
    const std::string longLine = "[CM]3||" + std::string(20 * 1024 * 1024, 'c') + "||";
    ImportText(Line("100") + "\r\n" + longLine + "\r\n" + Line("200") + "\r\n");
    EXPECT_EQ(
        findings,
        (Findings{{"Line too long in the following data line of import file!", longLine.substr(0, 200)}}));
    EXPECT_EQ(Dump(kTsns), "100\n200\n");
}

TEST_F(Reading, TheGaugeFollowsTheBytesReadPlusOneFiftieth) {
    // Two lines of 40 bytes, 84 with their line ends: a fiftieth is 2 to the nearest, so 86 are the whole.
    const std::string line = "[XX]" + std::string(36, 'x');
    Import({line, line});
    ASSERT_EQ(gauge.size(), 4U);
    EXPECT_DOUBLE_EQ(gauge[0], 40.0 / 86 * 100);
    EXPECT_DOUBLE_EQ(gauge[1], 80.0 / 86 * 100);
    EXPECT_EQ(gauge[2], 98);
    EXPECT_EQ(gauge[3], 100);
}

TEST_F(Reading, EventsAreLetThroughAtEachLine) {
    Import({"[RV]1|"});
    const int forOne = pump.turns;
    Import({"[RV]1|", "[RV]2|", "[RV]3|"});
    EXPECT_EQ(pump.turns, 2 * forOne + 2);
}

class Running : public ImportTest {
protected:
    ImportResult Run(std::string_view text) {
        testkit::WriteFile(set.dir.File("in.qln"), text);
        return RunFile(set.dir.File("in.qln"));
    }
    ImportResult RunFile(const std::string& path) { return RunWith(path, pump); }
    ImportResult RunWith(const std::string& path, EventPump& events) {
        TaggedImport tagged(set.state, set.engine, set.prompter, events, [](double) {});
        return tagged.Run(path, set.dir.path());
    }
    std::vector<std::string> FilesBeside() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(set.dir.path()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string Log() { return testkit::ReadFile(set.dir.File("import.err")); }
};

TEST_F(Running, CompletesWithoutErrors) {
    const ImportResult result = Run(Line("100") + "\r\n");
    EXPECT_TRUE(result.found);
    EXPECT_TRUE(result.completed);
    EXPECT_FALSE(result.errors);
    EXPECT_FALSE(result.canceled);
    EXPECT_EQ(result.logPath, set.dir.File("import.err"));
    EXPECT_EQ(Log(), "");
    EXPECT_FALSE(set.state.gDataSetIsNew);
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.prompter.waitCursor);
}

TEST_F(Running, TheLogHasTwoLinesForAFindingAndOneForTheClosingPass) {
    const ImportResult result = Run("[XX]caf\xE9\r\n[GD]|Africa|100|\r\n");
    EXPECT_TRUE(result.completed);
    EXPECT_TRUE(result.errors);
    EXPECT_EQ(Log(),
              "Invalid Table Tag in the following line of import file!\r\n"
              "     [XX]caf\u00e9\r\n"
              "The taxonomic unit record for Imported record <100> was not found!\r\n");
}

TEST_F(Running, EachRunWritesTheLogAnew) {
    Run("[XX]\r\n");
    Run(Line("100"));
    EXPECT_EQ(Log(), "");
}

TEST_F(Running, AMissingFileIsReportedAndLeavesTheDataSetNew) {
    const ImportResult result = RunFile(set.dir.File("none.qln"));
    EXPECT_FALSE(result.found);
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre("File " + set.dir.File("none.qln") + " not found!"));
    EXPECT_TRUE(set.state.gDataSetIsNew);
    EXPECT_FALSE(set.state.gBatchRunning);
    EXPECT_FALSE(set.prompter.waitCursor);
}

TEST_F(Running, AFolderIsNotReadAndTheRunNotCompleted) {
    const ImportResult result = RunFile(set.dir.path());
    EXPECT_TRUE(result.found);
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre("File " + set.dir.path() + " cannot be read!"));
    EXPECT_TRUE(set.state.gDataSetIsNew);
}

TEST_F(Running, ALogThatCannotBeWrittenIsReportedAndNothingIsRead) {
    std::filesystem::create_directory(set.dir.File("import.err"));
    const ImportResult result = Run(Line("100"));
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre(set.dir.File("import.err") + " is not an ordinary file."));
    EXPECT_EQ(Dump(kTsns), "");
}

TEST_F(Running, CancelAtAnyTurnLeavesTheDataSetAsItWas) {
    const std::string text = "[TA]|70|Linnaeus|5|\r\n" + Line("100") + "\r\n[GD]|Africa|100|\r\n" +
                             "[GD]|Africa|300|\r\n" + std::string(TaxonLine{.tsn = "9", .rank_id = "10"}) +
                             "\r\n";
    testkit::WriteFile(set.dir.File("in.qln"), text);
    set.db().Execute("INSERT INTO qb_taxonomic_units (unit_name1, parent_qb_id) VALUES ('Old', 1)");
    const std::string before = Dump("SELECT * FROM qb_taxonomic_units ORDER BY qb_id");
    const auto* const handle = set.state.gDatabase.get();
    for (int turn = 1;; ++turn) {
        set.state.gBatchCancel = false;
        testkit::CancelingPump cancel(set.state, turn);
        const ImportResult result = RunWith(set.dir.File("in.qln"), cancel);
        if (result.completed) {
            EXPECT_GT(turn, 10);
            break;
        }
        ASSERT_TRUE(result.canceled) << turn;
        EXPECT_THAT(set.prompter.messages, ::testing::IsEmpty());
        EXPECT_EQ(set.state.gDatabase.get(), handle);
        EXPECT_EQ(Dump("SELECT * FROM qb_taxonomic_units ORDER BY qb_id"), before);
        EXPECT_EQ(Dump("SELECT * FROM qb_taxon_authors_lookup"), "");
        EXPECT_TRUE(set.state.gDataSetIsNew);
    }
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1, parent_qb_id FROM qb_taxonomic_units ORDER BY qb_id"),
              "2\tOld\t5\n3\tAlpha\t\\N\n5\tAlpha\t5\n");
    EXPECT_THAT(FilesBeside(), ElementsAre("import.err", "in.qln", "test.mdb"));
}

TEST_F(Running, AnImportThatFailsLateLeavesTheDataSetAsItWas) {
    testkit::WriteFile(set.dir.File("in.qln"), Line("100") + "\r\n");
    const std::string path = set.state.gDataSetPath;
    testkit::ActingPump replacing([&](int turn) {
        if (turn == 1) std::filesystem::rename(path, path + ".moved");
    });
    const ImportResult result = RunWith(set.dir.File("in.qln"), replacing);
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed The DataSet ")));
    EXPECT_EQ(Dump(kTsns), "");
    EXPECT_THAT(FilesBeside(), ElementsAre("import.err", "in.qln", "test.mdb.moved"));
}

TEST_F(Running, TheNewFileHasThePermissionsOfTheOldAndNumbersGoOn) {
    std::filesystem::permissions(set.state.gDataSetPath, std::filesystem::perms(0640));
    set.db().Execute("INSERT INTO qb_taxonomic_units (unit_name1) VALUES ('Old')");
    set.db().Execute("DELETE FROM qb_taxonomic_units WHERE unit_name1 = 'Old'");
    EXPECT_TRUE(Run(Line("100") + "\r\n").completed);
    EXPECT_EQ(std::filesystem::status(set.state.gDataSetPath).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units ORDER BY qb_id"), "1\n3\n");
}

TEST_F(Running, WhatAKilledImportLeftIsRemoved) {
    testkit::WriteFile(set.state.gDataSetPath + "~new-aaaabbbb22", "SQLite format 3\0 and half a copy"s);
    testkit::WriteFile(set.state.gDataSetPath + "~new-ccccdddd22", "text of the user");
    EXPECT_TRUE(Run(Line("100") + "\r\n").completed);
    EXPECT_THAT(FilesBeside(), ElementsAre("import.err", "in.qln", "test.mdb", "test.mdb~new-ccccdddd22"));
}

TEST_F(Running, ClosingTheDataSetDuringTheRunEndsIt) {
    testkit::WriteFile(set.dir.File("in.qln"), Line("100") + "\r\n" + Line("200") + "\r\n");
    testkit::ActingPump closing([&database = set.db()](int) { database.Close(); });
    const ImportResult result = RunWith(set.dir.File("in.qln"), closing);
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
}

TEST_F(Running, LookUpsWorkAfterALoadIntoANewDataSet) {
    Run(Line("100") + "\r\n[TA]|70|Linnaeus|5|\r\n");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE unit_name1 = 'ALPHA'"), "2\n");
    EXPECT_FALSE(set.engine.InTransaction());
    set.db().Execute("INSERT INTO qb_taxonomic_units (unit_name1) VALUES ('Next')");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE unit_name1 = 'Next'"), "3\n");
}

TEST_F(Running, AFileOfAnotherKingdomIsRefusedAndNothingIsStored) {
    const ImportResult result = Run("[TA]|70|Linnaeus|3|\r\n[TU]|99|\r\n" +
                                    std::string("[TU]|100||A||||||||valid|||||||||||||220|\r\n") +
                                    "[TU]|101||B||||||||valid||||||||||||3|220|\r\n");
    EXPECT_FALSE(result.completed);
    EXPECT_FALSE(result.found);
    EXPECT_THAT(set.prompter.messages, ElementsAre("The file holds names of the kingdom Plantae, this "
                                                   "DataSet of the kingdom Animalia."));
    EXPECT_EQ(Dump(kTsns), "");
    EXPECT_EQ(Dump("SELECT taxon_author FROM qb_taxon_authors_lookup"), "");
    EXPECT_TRUE(set.state.gDataSetIsNew);
}

TEST_F(Running, AFileThatNamesNoKingdomIsImported) {
    EXPECT_TRUE(Run("[TU]|100||A||||||||valid|||||||||||||220|\r\n").completed);
    EXPECT_EQ(Dump(kTsns), "100\n");
}

TEST_F(Running, LinesAfterTheEmptyLineAreAnErrorAndCounted) {
    const ImportResult result =
        Run(Line("100") + "\r\n\r\n" + Line("200") + "\r\n\r\n" + Line("300") + "\r\n\r\n\r\n");
    EXPECT_TRUE(result.completed);
    EXPECT_TRUE(result.errors);
    EXPECT_FALSE(result.findings);
    EXPECT_THAT(result.notes,
                ElementsAre("Reading ended at the empty line 2; 3 lines after it were not read."));
    EXPECT_EQ(Dump(kTsns), "100\n");
}

TEST_F(Running, EmptyLinesAtTheEndAreNothing) {
    const ImportResult result = Run(Line("100") + "\r\n\r\n\r\n");
    EXPECT_FALSE(result.errors);
    EXPECT_THAT(result.notes, ::testing::IsEmpty());
}

TEST_F(Running, OddLinesAndPlaceholdersThatStayAreCounted) {
    const ImportResult result =
        Run(Line("100") + "\r\n" + Line("200") + "more|\r\n" + Line("300") + "  \r\n[RV]\0\r\n"s +
            "[JR]|Alaska||100|\x81\r\n[RF]|PUB|7|100||||||||\r\n[RF]|PUB|7|200||||||||\r\n");
    EXPECT_TRUE(result.completed);
    EXPECT_THAT(
        result.notes,
        ElementsAre("2 lines have fields behind the last one that is read; the first is line 2.",
                    "1 line has NUL bytes; the first is line 4.",
                    "1 line has bytes that CP1252 leaves open; the first is line 5.",
                    "1 placeholder stays in the DataSet for records that the file names but does not hold."));
}

TEST_F(Running, NumbersThatAreNotReadAsTheyAreWrittenAreCounted) {
    const ImportResult result = Run(Line("100") +
                                    "\r\n[JR]|Alaska||100|\r\n[JR]|Hawaii||100.4|\r\n"
                                    "[GD]5x|Africa|100|\r\n[GD]5x|Asia|2147483648|\r\n");
    EXPECT_THAT(
        result.notes,
        ElementsAre("3 lines have a number field that is not a whole number in range; the first is line 3."));
    EXPECT_EQ(Dump("SELECT geographic_value, tsn FROM qb_geographic_division"), "Africa\t100\n");
    EXPECT_EQ(Dump("SELECT jurisdiction_value, tsn FROM qb_jurisdiction ORDER BY jurisdiction_value"),
              "Alaska\t100\nHawaii\t100\n");
}

TEST_F(Running, AFailureIsAnErrorAndComesWithItsLine) {
    testkit::WriteFile(set.dir.File("in.qln"), Line("100") + "\r\n[GD]|Africa|100|\r\n[GD]|Africa|100|\r\n");
    TaggedImport tagged(set.state, set.engine, set.prompter, pump, [](double) {});
    std::vector<std::string> failures;
    tagged.Failed = [&](const Failure& failure) { failures.push_back(TextOf(failure)); };
    const ImportResult result = tagged.Run(set.dir.File("in.qln"), set.dir.path());
    EXPECT_TRUE(result.completed);
    EXPECT_TRUE(result.errors);
    EXPECT_FALSE(result.findings);
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_THAT(failures[0], StartsWith("Failed "));
    EXPECT_THAT(failures[0], ::testing::EndsWith(" (line 3: [GD]|Africa|100|)"));
    EXPECT_EQ(Dump("SELECT geographic_value FROM qb_geographic_division"), "Africa\n");
}

TEST_F(Running, APipeIsReadToItsEndAndImported) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const std::string text = Line("100") + "\r\n" + Line("200") + "\r\n";
    ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(ends[1]);
    const ImportResult result = RunFile("/dev/fd/" + std::to_string(ends[0]));
    EXPECT_TRUE(result.completed);
    EXPECT_FALSE(result.errors);
    EXPECT_EQ(Dump(kTsns), "100\n200\n");
    close(ends[0]);
}

TEST_F(Running, CancelWorksWhileAPipeIsIdle) {
    ASSERT_EQ(mkfifo(set.dir.File("pipe").c_str(), 0600), 0);
    testkit::CancelingPump cancel(set.state, 3);
    const ImportResult result = RunWith(set.dir.File("pipe"), cancel);
    EXPECT_TRUE(result.canceled);
}

TEST_F(Running, TheDataSetItselfIsNotImported) {
    std::filesystem::create_symlink(set.state.gDataSetPath, set.dir.File("link.qln"));
    EXPECT_FALSE(RunFile(set.dir.File("link.qln")).found);
    EXPECT_THAT(set.prompter.messages,
                ElementsAre(set.dir.File("link.qln") + " is the open DataSet, and cannot be imported."));
    EXPECT_FALSE(std::filesystem::exists(set.dir.File("import.err")));
}

TEST_F(Running, TheFileToImportIsNeverTheLog) {
    testkit::WriteFile(set.dir.File("import.err"), Line("100") + "\r\n");
    const ImportResult result = RunFile(set.dir.File("import.err"));
    EXPECT_FALSE(result.completed);
    EXPECT_THAT(set.prompter.messages, ElementsAre(set.dir.File("import.err") + " is in use by this job."));
    EXPECT_EQ(testkit::ReadFile(set.dir.File("import.err")), Line("100") + "\r\n");
    EXPECT_EQ(Dump(kTsns), "");
}

}  // namespace
}  // namespace quillon::importing
