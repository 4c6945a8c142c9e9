// The change tracks of a record that is thrown away: what goes with them, in which order, and where it stops.
#include <gtest/gtest.h>

#include "dataset/unsaved_record.h"
#include "testkit/testkit.h"

namespace quillon::dataset {
namespace {

class Discard : public ::testing::Test {
protected:
    Discard() {
        f.Make();
        f.state.currentTaxon.qb_id = 1;
        Execute("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) SELECT 'EXP', 5");
        Execute("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) SELECT 'EXP', 6");
        Execute("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) SELECT 'SRC', 5");
        Execute("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id) SELECT 'SRC', 6");
    }
    void AddTrack(int track, const std::string& prefix, int document) {
        const std::string id = std::to_string(track);
        Execute("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id) SELECT " + id + ", 1");
        Execute(
            "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "qb_change_track_id) SELECT 1, '" +
            prefix + "', " + std::to_string(document) + ", " + id);
    }
    store::Database& db() { return f.db(); }
    void Execute(const std::string& sql) { db().Execute(sql); }
    std::string Dump(std::string_view sql) { return f.Dump(sql); }
    std::string Tracks() { return Dump("SELECT qb_change_track_id FROM qb_change_tracks ORDER BY 1"); }
    std::string Links() { return Dump("SELECT qb_change_track_id FROM qb_reference_links ORDER BY 1"); }
    std::string Experts() { return Dump("SELECT qb_expert_id FROM qb_experts ORDER BY 1"); }
    std::string Sources() { return Dump("SELECT qb_source_id FROM qb_other_sources ORDER BY 1"); }

    testkit::DataSetFixture f;
};

TEST_F(Discard, RemovesExpertsAndOtherSourcesOfEachTrack) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "SRC", 6);
    AddTrack(9, "EXP", 6);
    f.state.gNewChangeTrackIds = {7, 8};
    RemoveChangeTracks(f.state, f.engine, f.prompter);
    EXPECT_EQ(Tracks(), "9\n");
    EXPECT_EQ(Links(), "9\n");
    EXPECT_EQ(Experts(), "6\n");
    EXPECT_EQ(Sources(), "5\n");
    EXPECT_TRUE(f.state.gNewChangeTrackIds.empty());
}

TEST_F(Discard, FollowsThePositionAndStopsAtATrackThatCannotBeDeleted) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "ODD", 1);
    AddTrack(9, "SRC", 6);
    f.state.gNewChangeTrackIds = {9, 8, 7};
    RemoveChangeTracks(f.state, f.engine, f.prompter);
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Error deleting Change Tracks"});
    EXPECT_EQ(Tracks(), "7\n8\n");
    EXPECT_EQ(Links(), "7\n8\n");
    EXPECT_EQ(Experts(), "5\n6\n");
    EXPECT_EQ(Sources(), "5\n");
    EXPECT_EQ(f.state.gNewChangeTrackIds, (std::vector<int>{9, 8, 7}));
}

TEST_F(Discard, ReportsAnErrorAndStops) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "SRC", 6);
    db().DeleteTable("qb_experts");
    std::string failure;
    try {
        Execute("DELETE * FROM qb_experts WHERE (qb_expert_id = 5);");
    } catch (const store::StoreError& error) {
        failure = error.Description();
    }
    ASSERT_NE(failure, "");
    f.state.gNewChangeTrackIds = {7, 8};
    RemoveChangeTracks(f.state, f.engine, f.prompter);
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Failed " + failure});
    EXPECT_FALSE(f.engine.InTransaction());
    EXPECT_EQ(Tracks(), "7\n8\n");
    EXPECT_EQ(Links(), "7\n8\n");
    EXPECT_EQ(Sources(), "5\n6\n");
}

using testkit::DataSetFixture;

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
    RemoveChangeTracks(f.state, f.engine, f.prompter);
    EXPECT_EQ(f.Dump("SELECT qb_change_track_id FROM qb_change_tracks"), "8\n");
    for (const std::string table :
         {"qb_change_comments", "qb_change_operations", "qb_publications", "qb_reference_links"})
        EXPECT_EQ(f.Dump("SELECT count(*) FROM " + table), "0\n") << table;
    EXPECT_TRUE(f.state.gNewChangeTrackIds.empty());
}

TEST(DiscardUnsavedRecord, IsReportedOnlyAfterYesAndOnceTheTracksAreDeleted) {
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
    RemoveChangeTracks(f.state, f.engine, f.prompter);
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Error deleting Change Tracks"});
    EXPECT_EQ(f.Dump("SELECT count(*) FROM qb_reference_links"), "1\n");
}

}  // namespace
}  // namespace quillon::dataset
