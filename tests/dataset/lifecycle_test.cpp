// New, Open and Save As as a person uses them: what is asked, what is reported, and what is open then.
#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::dataset {

using testkit::DataSetFixture;

TEST(NewDataSet, SeedsTheKingdomsRows) {
    DataSetFixture f;
    f.Make("Animalia");
    EXPECT_EQ(f.Dump("SELECT * FROM kingdoms"), "5\tAnimalia\n");
    EXPECT_EQ(f.Dump("SELECT count(*) FROM taxonomic_unit_types WHERE kingdom_id = 5"), "21\n");
    EXPECT_EQ(f.Dump("SELECT * FROM taxonomic_unit_types WHERE rank_id >= 190"),
              "5\t190\tSubgenus\t180\t180\n5\t220\tSpecies\t190\t180\n5\t230\tSubspecies\t220\t180\n");
    EXPECT_EQ(f.Dump("SELECT qb_id, tsn, unit_name1, usage, taxonomic_credibility_rating, "
                     "taxonomic_completeness_rating, "
                     "currency_rating, initial_time_stamp, parent_tsn, parent_qb_id, kingdom_id, rank_id, "
                     "uncertain_parent_ind, unit_name2, phylo_sort_sequence FROM qb_taxonomic_units"),
              "1\t202423\tAnimalia  \tvalid\tKSP standards met\tunknown\tunknown\t1996-06-13 "
              "14:51:08\t0\t1\t5\t10\tFalse\t"
              "\\N\t\\N\n");
    EXPECT_EQ(f.Dump("SELECT * FROM db_control"), "Version\t4.0.6\n");
    EXPECT_EQ(
        f.Dump("SELECT * FROM change_operations_lookup"),
        "1\tAuthority Change\n2\tHybrid Authority Change\n3\tName Change\n4\tParent Change\n5\tRank Change\n"
        "6\tUsage Change\n");
    EXPECT_TRUE(f.state.gDataSetIsNew);
    EXPECT_EQ(f.state.gKingdomId, 5);
    EXPECT_EQ(f.state.title, "Taxonomic Quillon - " + f.dir.File("test.mdb"));
}

TEST(Title, SaysThatADataSetIsReadOnly) {
    EXPECT_EQ(TitleOf("/names/moths.mdb", false), "Taxonomic Quillon - /names/moths.mdb");
    EXPECT_EQ(TitleOf("/names/moths.mdb", true), "Taxonomic Quillon - /names/moths.mdb (read-only)");
}

TEST(NewDataSet, HasTheTablesAndQueriesOfTheSchema) {
    DataSetFixture f;
    f.Make("Plantae");
    EXPECT_EQ(f.db().TableDefs().size(), 25U);
    EXPECT_EQ(f.db().QueryDefs().size(), 146U);
    EXPECT_EQ(f.db().FindTableDef("taxunits"), nullptr);
    EXPECT_EQ(f.Dump("SELECT count(*) FROM taxonomic_unit_types"), "22\n");
    EXPECT_EQ(f.Dump("SELECT usage FROM qb_taxonomic_units"), "accepted\n");
}

TEST(NewDataSet, OfNoKnownKingdomHasEmptyRowsAndNoRanks) {
    DataSetFixture f;
    f.state.gKingdomName = "Viruses";
    f.state.gPrefRank = "Kingdom";
    f.prompter.filesToSave.push_back(f.dir.File("odd.mdb"));
    ASSERT_TRUE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.Dump("SELECT kingdom_id, kingdom_name FROM kingdoms"), "0\t\\N\n");
    EXPECT_EQ(f.Dump("SELECT count(*) FROM taxonomic_unit_types"), "0\n");
    EXPECT_EQ(f.Dump("SELECT unit_name1, usage, rank_id, parent_qb_id FROM qb_taxonomic_units"),
              "\\N\t\\N\t\\N\t\\N\n");
}

TEST(NewDataSet, RefusesTheNameOfTheOpenOneAndAsksAgain) {
    DataSetFixture f;
    f.Make();
    f.prompter.filesToSave = {f.dir.File("test.mdb"), std::nullopt};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{"New DataSet cannot have same name as the current one!"});
    EXPECT_EQ(f.prompter.fileTitles.size(), 2U);
    EXPECT_TRUE(f.state.gDataSetOpen);
}

TEST(NewDataSet, TakesAPointInTheFolderForAnExtension) {
    DataSetFixture f;
    f.Make();
    const std::string folder = f.dir.File("a.b");
    std::filesystem::create_directory(folder);
    f.prompter.filesToSave = {folder + "/noextension"};
    ASSERT_TRUE(f.lifecycle.NewDataSet());
    EXPECT_TRUE(std::filesystem::exists(folder + "/noextension"));
}

TEST(NewDataSet, SaysWhenThePreferenceRankIsUnknown) {
    DataSetFixture f;
    f.state.gKingdomName = "Animalia";
    f.state.gPrefRank = "Variety";
    const std::string path = f.dir.File("rank.mdb");
    f.prompter.filesToSave = {path};
    ASSERT_TRUE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"The 'Preference' rank is not valid for the " +
                                                            path + " dataset!  Defaulting to 'Kingdom'."});
    EXPECT_EQ(f.state.gPrefRank, "Kingdom");
    EXPECT_EQ(f.state.gOldPrefRank, "Variety");
}

TEST(NewDataSet, AsksBeforeLosingARecord) {
    DataSetFixture f;
    f.Make();
    f.state.RecordDirty = true;
    f.prompter.yesNo = {false};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_EQ(f.prompter.questions,
              std::vector<std::string>{
                  "A new or modified record was not saved.  Continuing will lose that record!  Continue?"});
    EXPECT_EQ(f.prompter.titles.back(), "Losing new/modified record");
}

TEST(OpenDataSet, ReopensTheOldOneAfterARefusal) {
    DataSetFixture f;
    f.Make("Animalia", "first.mdb");
    const std::string first = f.state.gDataSetPath;
    f.Make("Animalia", "second.mdb");
    const std::string second = f.state.gDataSetPath;
    f.db().Execute("UPDATE db_control SET [value] = 'abc'");
    f.prompter.filesToOpen = {first, second};
    ASSERT_TRUE(f.lifecycle.OpenDataSet());
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_EQ(
        f.prompter.messages,
        std::vector<std::string>{"Dataset " + second + " is incompatible with this version of the QLN!"});
    EXPECT_EQ(f.state.gDataSetPath, first);
    EXPECT_EQ(f.prompter.fileTitles,
              (std::vector<std::string>{"Open Taxonomic DataSet File", "Open Taxonomic DataSet File"}));
    EXPECT_EQ(f.prompter.fileFilters[0], "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*");
}

TEST(OpenDataSet, AsksToUpdateAnOlderOne) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath;
    f.db().Execute("UPDATE db_control SET [value] = '4.0.5'");
    f.lifecycle.CloseDataSet();
    f.prompter.filesToOpen = {path};
    f.prompter.yesNo = {false};
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_EQ(f.prompter.questions,
              std::vector<std::string>{
                  "Dataset " + path +
                  " is incompatible with this version of the QLN.  Do you wish to update the Dataset?"});
    EXPECT_EQ(f.prompter.titles.back(), "Update Dataset");
    EXPECT_FALSE(f.state.gDataSetOpen);
    EXPECT_EQ(f.state.title, "Taxonomic Quillon - No Open DataSet");
}

TEST(OpenDataSet, RefusesAFileWhoseVersionCannotBeRead) {
    DataSetFixture f;
    f.Make("Animalia", "odd.mdb");
    const std::string odd = f.state.gDataSetPath;
    f.db().DeleteTable("db_control");
    store::TableDef control;
    control.name = "db_control";
    control.fields = {{"other", store::FieldType::Long, 0, false, false}};
    f.db().AppendTable(control);
    f.db().Execute("INSERT INTO db_control (other) SELECT 1");
    f.Make("Animalia", "first.mdb");
    f.prompter.filesToOpen = {odd};
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{"Dataset " + odd + " is incompatible with this version of the QLN!"});
    EXPECT_EQ(f.state.gDataSetPath, f.dir.File("first.mdb"));
}

TEST(OpenDataSet, SendsForTheNewerProgramAndLeavesTheFile) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath;
    f.db().Execute("UPDATE db_control SET [value] = '4.0.10'");
    f.lifecycle.CloseDataSet();
    const std::string before = testkit::ReadFile(path);
    f.prompter.filesToOpen = {path};
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    EXPECT_EQ(f.prompter.messages,
              std::vector<std::string>{
                  "Dataset " + path +
                  " is incompatible with this version of the QLN!\nDownload the current version of the QLN "
                  "at:\nhttps://example.org/quillon"});
    EXPECT_EQ(testkit::ReadFile(path), before);
}

TEST(OpenDataSet, FindsABareName) {
    DataSetFixture f;
    f.Make("Animalia", "m1.mdb");
    f.lifecycle.CloseDataSet();
    f.prompter.filesToOpen = {f.dir.File("m1")};
    EXPECT_TRUE(f.lifecycle.OpenDataSet());
    EXPECT_EQ(f.state.gDataSetPath, f.dir.File("m1.mdb"));
}

TEST(OpenDataSet, TakesVersion131WithNoUpdate) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath;
    f.db().Execute("UPDATE db_control SET [value] = '1.31'");
    f.lifecycle.CloseDataSet();
    f.prompter.filesToOpen = {path};
    EXPECT_TRUE(f.lifecycle.OpenDataSet());
}

TEST(SaveDataSetAs, CopiesByteForByteAndKeepsTheOldOneOpen) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath, copy = f.dir.File("copy");
    f.prompter.filesToSave = {copy};
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(f.state.gDataSetPath, path);
    EXPECT_TRUE(f.state.gDataSetOpen);
    EXPECT_EQ(f.Dump("SELECT count(*) FROM qb_taxonomic_units"), "1\n");
    f.lifecycle.CloseDataSet();
    EXPECT_EQ(testkit::ReadFile(copy + ".MDB"), testkit::ReadFile(path));
    EXPECT_TRUE(f.prompter.messages.empty());
}

TEST(SaveDataSetAs, AsksBeforeOverwriting) {
    DataSetFixture f;
    f.Make();
    const std::string other = f.dir.File("other.txt");
    testkit::WriteFile(other, "keep me");
    f.prompter.filesToSave = {other};
    f.prompter.yesNo = {false};
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(f.prompter.questions,
              std::vector<std::string>{"DataSet '" + other + "' already exists.  Overwrite?"});
    EXPECT_EQ(f.prompter.titles.back(), "Duplicate DataSet Name");
    EXPECT_EQ(f.prompter.losses, f.prompter.questions) << "Return answers No";
    EXPECT_EQ(testkit::ReadFile(other), "keep me");
}

TEST(UnsavedRecord, IsDiscardedOnlyOnceTheFileDialogWasAnswered) {
    DataSetFixture f;
    f.Make();
    f.db().Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT 7, 1");
    f.state.RecordDirty = true;
    f.state.gNewChangeTrackIds = {7};
    int discarded = 0;
    f.lifecycle.RecordDiscarded = [&] { ++discarded; };
    f.prompter.yesNo = {true, true, true, true, false};
    f.prompter.filesToSave = {std::nullopt, std::nullopt, f.dir.File("test.mdb")};
    f.prompter.filesToOpen = {std::nullopt};
    EXPECT_FALSE(f.lifecycle.NewDataSet());
    EXPECT_FALSE(f.lifecycle.OpenDataSet());
    f.lifecycle.SaveDataSetAs();
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(discarded, 0);
    EXPECT_TRUE(f.state.RecordDirty);
    EXPECT_EQ(f.state.gNewChangeTrackIds, std::vector<int>{7});
    EXPECT_EQ(f.Dump("SELECT qb_change_track_id FROM qb_change_tracks"), "7\n");
    f.prompter.yesNo = {true};
    f.prompter.filesToSave = {f.dir.File("copy.mdb")};
    f.lifecycle.SaveDataSetAs();
    EXPECT_EQ(discarded, 1);
    EXPECT_EQ(f.Dump("SELECT qb_change_track_id FROM qb_change_tracks"), "");
}

}  // namespace quillon::dataset
