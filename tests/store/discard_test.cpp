// The change tracks of a record that is thrown away: what goes with them, in which order, and where it stops.
#include <gtest/gtest.h>

#include "store_fixture.h"

namespace quillon::store {
namespace {

class Discard : public StoreTest {
protected:
    Discard() {
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
    std::string Tracks() { return Dump("SELECT qb_change_track_id FROM qb_change_tracks ORDER BY 1"); }
    std::string Links() { return Dump("SELECT qb_change_track_id FROM qb_reference_links ORDER BY 1"); }
    std::string Experts() { return Dump("SELECT qb_expert_id FROM qb_experts ORDER BY 1"); }
    std::string Sources() { return Dump("SELECT qb_source_id FROM qb_other_sources ORDER BY 1"); }
};

TEST_F(Discard, RemovesExpertsAndOtherSourcesOfEachTrack) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "SRC", 6);
    AddTrack(9, "EXP", 6);
    f.state.gNewChangeTrackIds = {7, 8};
    f.lifecycle.DiscardUnsavedRecord();
    EXPECT_EQ(Tracks(), "9\n");
    EXPECT_EQ(Links(), "9\n");
    EXPECT_EQ(Experts(), "6\n");
    EXPECT_EQ(Sources(), "5\n");
    EXPECT_TRUE(f.state.gNewChangeTrackIds.empty());
}

TEST_F(Discard, GoesByPositionAndStopsWhereATrackCannotGo) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "ODD", 1);
    AddTrack(9, "SRC", 6);
    f.state.gNewChangeTrackIds = {9, 8, 7};
    f.lifecycle.DiscardUnsavedRecord();
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Error deleting Change Tracks"});
    EXPECT_EQ(Tracks(), "7\n8\n");
    EXPECT_EQ(Links(), "7\n8\n");
    EXPECT_EQ(Experts(), "5\n6\n");
    EXPECT_EQ(Sources(), "5\n");
    EXPECT_EQ(f.state.gNewChangeTrackIds, (std::vector<int>{9, 8, 7}));
}

TEST_F(Discard, TellsAnErrorAndStops) {
    AddTrack(7, "EXP", 5);
    AddTrack(8, "SRC", 6);
    db().DeleteTable("qb_experts");
    const Failure failure = FailureOf([&] { Execute("DELETE * FROM qb_experts WHERE (qb_expert_id = 5);"); });
    ASSERT_EQ(failure.number, 3078);
    f.state.gNewChangeTrackIds = {7, 8};
    f.lifecycle.DiscardUnsavedRecord();
    EXPECT_EQ(f.prompter.messages, std::vector<std::string>{"Failed " + failure.description});
    EXPECT_FALSE(f.engine.InTransaction());
    EXPECT_EQ(Tracks(), "7\n8\n");
    EXPECT_EQ(Links(), "7\n8\n");
    EXPECT_EQ(Sources(), "5\n6\n");
}

}  // namespace
}  // namespace quillon::store
