// The life of a DataSet: made, seeded, opened, refused, copied, discarded.
#include <gtest/gtest.h>

#include <filesystem>

#include "testkit/testkit.h"

namespace quillon::store {

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

TEST(NewDataSet, SeedingTwiceFailsOnTheKeys) {
    DataSetFixture f;
    f.Make();
    try {
        f.lifecycle.SeedDataSet();
        FAIL() << "a second seeding passed";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.Number(), 3022);
    }
    EXPECT_EQ(f.Dump("SELECT count(*) FROM taxonomic_unit_types"), "21\n");
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

TEST(DataSetVersion, ComparesAsText) {
    DataSetFixture f;
    const auto compare = [&](std::string_view version) { return f.lifecycle.CompareDataSetVersion(version); };
    EXPECT_EQ(compare("4.0.6"), "EQ");
    EXPECT_EQ(compare("1.3"), "EQ");
    EXPECT_EQ(compare("1.31"), "EQ");
    EXPECT_EQ(compare("3.6.0"), "LT");
    EXPECT_EQ(compare("4.0.5"), "LT");
    EXPECT_EQ(compare("5.0"), "LT");
    EXPECT_EQ(compare("Gamma 2"), "LT");
    EXPECT_EQ(compare("3"), "LT");
    f.state.gVersion = "3.1";
    EXPECT_EQ(compare("3"), "EQ");
    EXPECT_EQ(compare("3.2"), "GT");
    EXPECT_EQ(compare("2"), "LT");
}

TEST(DataSetVersion, IsValidWhenItBeginsWithADigitOrGamma) {
    DataSetFixture f;
    f.Make();
    std::string version;
    EXPECT_TRUE(f.lifecycle.IsDataSetVersionValid(version));
    EXPECT_EQ(version, "4.0.6");
    const auto with = [&](std::string_view text) {
        f.db().Execute("DELETE * FROM db_control");
        f.db().Execute("INSERT INTO db_control (attribute, [value]) SELECT 'Version', '" + std::string(text) +
                       "'");
        return f.lifecycle.IsDataSetVersionValid(version);
    };
    EXPECT_TRUE(with("Gamma 1"));
    EXPECT_FALSE(with("abc"));
    EXPECT_EQ(version, "abc");
    f.db().Execute("DELETE * FROM db_control");
    EXPECT_FALSE(f.lifecycle.IsDataSetVersionValid(version));
    EXPECT_EQ(version, "");
    f.db().DeleteTable("db_control");
    EXPECT_FALSE(f.lifecycle.IsDataSetVersionValid(version));
}

TEST(DataSetVersion, OfAFileIsReadWithoutOpeningItForGood) {
    DataSetFixture f;
    f.Make();
    const std::string path = f.state.gDataSetPath;
    f.lifecycle.CloseDataSet();
    std::string version;
    EXPECT_TRUE(f.lifecycle.IsFileDataSetVersionValid(path, version));
    EXPECT_EQ(version, "4.0.6");
    EXPECT_FALSE(f.state.gDataSetOpen);
    EXPECT_FALSE(f.lifecycle.IsFileDataSetVersionValid(f.dir.File("none.mdb"), version));
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
    EXPECT_EQ(testkit::ReadFile(other), "keep me");
}

TEST(DiscardUnsavedRecord, RemovesWhatTheTrackWrote) {
    DataSetFixture f;
    f.Make();
    f.db().Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT 7, 1");
    f.db().Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT 8, 1");
    f.db().Execute("INSERT INTO qb_change_comments (qb_change_track_id, change_detail) SELECT 7, 'x'");
    f.db().Execute("INSERT INTO qb_change_operations (qb_change_track_id, chg_op_id) SELECT 7, 3");
    f.db().Execute("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) SELECT 'PUB', 4");
    f.db().Execute(
        "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
        "qb_change_track_id) SELECT 1, 'PUB', 4, 7");
    f.state.currentTaxon.qb_id = 1;
    f.state.gNewChangeTrackIds = {7};
    f.lifecycle.DiscardUnsavedRecord();
    EXPECT_EQ(f.Dump("SELECT qb_change_track_id FROM qb_change_tracks"), "8\n");
    for (const std::string table :
         {"qb_change_comments", "qb_change_operations", "qb_publications", "qb_reference_links"})
        EXPECT_EQ(f.Dump("SELECT count(*) FROM " + table), "0\n") << table;
    EXPECT_TRUE(f.state.gNewChangeTrackIds.empty());
}

TEST(DiscardUnsavedRecord, IsHeardOfOnlyAfterYesAndWhenTheTracksAreGone) {
    DataSetFixture f;
    f.Make();
    f.db().Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT 7, 1");
    std::string heard;
    f.lifecycle.RecordDiscarded = [&] { heard += f.Dump("SELECT count(*) FROM qb_change_tracks"); };
    f.state.gNewChangeTrackIds = {7};
    EXPECT_FALSE(f.lifecycle.AskLoseChanges());
    EXPECT_EQ(heard, "") << "nothing is unsaved";
    f.state.RecordDirty = true;
    f.prompter.yesNo = {false, true};
    EXPECT_TRUE(f.lifecycle.AskLoseChanges());
    EXPECT_EQ(heard, "");
    EXPECT_FALSE(f.lifecycle.AskLoseChanges());
    EXPECT_EQ(heard, "0\n");
    EXPECT_TRUE(f.state.RecordDirty) << "the next load clears it";
}

TEST(DiscardUnsavedRecord, NeedsNoDataSetToBeAskedFor) {
    DataSetFixture f;
    f.state.RecordDirty = true;
    f.prompter.yesNo = {true};
    EXPECT_FALSE(f.lifecycle.AskLoseChanges());
    EXPECT_TRUE(f.prompter.messages.empty());
}

TEST(DiscardUnsavedRecord, StopsAtAnUnknownPrefix) {
    DataSetFixture f;
    f.Make();
    f.db().Execute(
        "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
        "qb_change_track_id) SELECT 1, 'ODD', 4, 7");
    f.state.currentTaxon.qb_id = 1;
    f.state.gNewChangeTrackIds = {7};
    f.lifecycle.DiscardUnsavedRecord();
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Error deleting Change Tracks"});
    EXPECT_EQ(f.Dump("SELECT count(*) FROM qb_reference_links"), "1\n");
}

}  // namespace quillon::store
