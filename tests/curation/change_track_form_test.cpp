// The form of one change track: what it requires, stores and shows.
#include "curation/change_track_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dataset/unsaved_record.h"
#include "testkit/testkit.h"

namespace quillon::curation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ChangeTrackFormTest : public testing::Test {
protected:
    ChangeTrackFormTest() {
        data.Make();
        data.state.currentTaxon.qb_id = 2;
        data.state.currentTaxon.unit_name1 = "Orcinus";
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "publication_name) VALUES ('PUB', 3, 17, 'Notes')");
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "publication_name) VALUES ('PUB', 4, 18, 'Whales')");
        Open();
    }
    void Open() {
        track.reset();
        track = std::make_unique<FrmChgTrk>(data.state, data.engine, data.prompter);
        closed = 0;
        stored = 0;
        track->form.OnClosed([this] { ++closed; });
        track->Stored.Connect([this] { ++stored; });
        for (Control* control : track->form.Controls())
            control->OnTakeFocus([this, control] { focused = control->Name(); });
    }
    void Run(const std::string& sql) { data.db().Execute(sql); }
    // A stored track with a comment, and the publication 3 as its document; 4 belongs to the taxon alone.
    void StoreTrack() {
        Run("INSERT INTO qb_change_tracks (qb_change_track_id, change_track_id, qb_id, change_reason, "
            "change_initiator) VALUES (9, 90, 2, 'Lumping', 'Rice')");
        Run("INSERT INTO qb_change_operations (qb_change_track_id, chg_op_id) VALUES (9, 3)");
        Run("INSERT INTO qb_change_comments (qb_change_track_id, qb_chg_cmt_id, chg_cmt_id, change_detail) "
            "VALUES (9, 5, 1, 'It''s one species')");
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "qb_change_track_id) VALUES (2, 'PUB', 3, 9)");
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) VALUES "
            "(2, 'PUB', 4)");
    }
    void Fill() {
        track->cboOperation.UserSetText("Name Change");
        track->cboReason.UserSetText("Taxonomic revision");
    }
    void AddExpert(const std::string& name) {
        track->experts.SetText(0, name);
        track->experts.add.UserClick();
    }
    std::string Tracks() {
        return data.Dump(
            "SELECT qb_change_track_id, change_track_id, qb_id, tsn, change_reason, change_initiator, "
            "change_reviewer, change_certifier FROM qb_change_tracks");
    }
    std::string Operations() {
        return data.Dump("SELECT qb_change_track_id, chg_op_id FROM qb_change_operations");
    }
    std::string Comments() {
        return data.Dump(
            "SELECT qb_change_track_id, change_track_id, chg_cmt_id, change_detail FROM qb_change_comments "
            "ORDER BY qb_chg_cmt_id");
    }
    std::string Links() {
        return data.Dump(
            "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, qb_change_track_id FROM "
            "qb_reference_links ORDER BY qb_documentation_id_prefix, qb_documentation_id");
    }

    testkit::DataSetFixture data;
    std::unique_ptr<FrmChgTrk> track;
    int closed = 0, stored = 0;
    std::string focused;
};

TEST_F(ChangeTrackFormTest, OffersReasonsAndOperations) {
    std::string reasons, operations;
    for (const auto& choice : track->cboReason.Choices()) reasons += choice.text + ";";
    for (const auto& choice : track->cboOperation.Choices())
        operations += choice.text + " " + std::to_string(choice.itemData) + ";";
    EXPECT_EQ(reasons,
              "Taxonomic description;Taxonomic revision;Nomenclatural ruling;Data entry correction;"
              "New record information (non-taxonomic);");
    EXPECT_EQ(operations,
              "Authority Change 1;Hybrid Authority Change 2;Name Change 3;Parent Change 4;Rank Change 5;"
              "Usage Change 6;");
    EXPECT_EQ(track->form.Title(), "Change Tracking");
}

TEST_F(ChangeTrackFormTest, RequiresAnOperationAndThenAReason) {
    track->TabStrip1.SetSelectedIndex(2);
    track->cmdOK.UserClick();
    EXPECT_EQ(focused, "cboOperation");
    EXPECT_EQ(track->TabStrip1.SelectedKey(), "track");
    track->cboOperation.UserSetText("Name Change");
    track->cmdOK.UserClick();
    EXPECT_EQ(focused, "cboReason");
    EXPECT_THAT(data.prompter.messages,
                ElementsAre("A Change Operation is required!", "A Change Reason is required!"));
    EXPECT_EQ(Tracks(), "");
    EXPECT_EQ(closed, 0);
}

TEST_F(ChangeTrackFormTest, StoresANewTrackWithItsDocumentsAndComments) {
    Fill();
    track->txtReviewer.UserSetText("O'Brien \"Jim\" | 1");
    AddExpert("Dale Rice");
    track->txtComment.UserSetText("It's one species");
    track->cmdCAdd.UserClick();
    data.state.currentTaxon.tsn = 7001;
    track->cmdOK.UserClick();
    EXPECT_EQ(Tracks(), "1\t\\N\t2\t7001\tTaxonomic revision\t\\N\tO'Brien \"Jim\" | 1\t\\N\n");
    EXPECT_EQ(Operations(), "1\t3\n");
    EXPECT_EQ(Comments(), "1\t\\N\t\\N\tIt's one species\n");
    EXPECT_EQ(Links(), "2\tEXP\t1\t1\n");
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(stored, 1);
    EXPECT_THAT(data.state.gNewChangeTrackIds, ElementsAre(1));
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(ChangeTrackFormTest, ShowsAStoredTrackWithItsOwnDocuments) {
    StoreTrack();
    EXPECT_FALSE(track->Load(8)) << "there is no such track";
    ASSERT_TRUE(track->Load(9));
    EXPECT_EQ(track->cboOperation.Text(), "Name Change");
    EXPECT_EQ(track->cboReason.Text(), "Lumping") << "a word that the list did not have";
    EXPECT_EQ(track->txtInitiator.Text(), "Rice");
    EXPECT_EQ(track->txtID.Text() + " " + track->txtQBID.Text() + " " + track->txtCTID.Text(), "2 9 90");
    EXPECT_EQ(track->grdComments.Rows()[0], GridControl::Row({"It's one species", "5", "1"}));
    ASSERT_EQ(track->publications.grid.DataCount(), 1U);
    EXPECT_EQ(track->publications.qbId.Text(), "3");
    EXPECT_TRUE(track->publications.Field(0).Enabled()) << "such rows are edited here";
}

TEST_F(ChangeTrackFormTest, StoresTheChangesOfATrack) {
    StoreTrack();
    track->Load(9);
    track->cboOperation.UserSetText("Rank Change");
    track->txtInitiator.UserSetText("");
    track->txtCertifier.UserSetText("Mead");
    track->publications.SetText(4, "New notes");
    track->publications.modify.UserClick();
    AddExpert("Dale Rice");
    track->grdComments.UserSelectRow(0);
    track->cmdCDelete.UserClick();
    track->txtComment.UserSetText("They are two");
    track->cmdCAdd.UserClick();
    track->cmdOK.UserClick();
    EXPECT_EQ(Tracks(), "9\t90\t2\t\\N\tLumping\t\\N\t\\N\tMead\n");
    EXPECT_EQ(Operations(), "9\t5\n");
    EXPECT_EQ(Comments(), "9\t90\t\\N\tThey are two\n");
    EXPECT_EQ(Links(), "2\tEXP\t1\t9\n2\tPUB\t3\t9\n2\tPUB\t4\t\\N\n");
    EXPECT_EQ(data.Dump("SELECT publication_name FROM qb_publications"), "New notes\nWhales\n");
    EXPECT_EQ(closed, 1);
    EXPECT_THAT(data.state.gNewChangeTrackIds, IsEmpty());
}

TEST_F(ChangeTrackFormTest, ACommentThatIsStoredIsNotStoredAgain) {
    StoreTrack();
    track->Load(9);
    track->cmdOK.UserClick();
    EXPECT_EQ(Comments(), "9\t\\N\t1\tIt's one species\n");
    EXPECT_EQ(Operations(), "9\t3\n");
}

TEST_F(ChangeTrackFormTest, ADeletedDocumentLosesItsLink) {
    StoreTrack();
    track->Load(9);
    track->publications.remove.UserClick();
    track->cmdOK.UserClick();
    EXPECT_EQ(Links(), "2\tPUB\t4\t\\N\n");
    EXPECT_EQ(data.Dump("SELECT publication_name FROM qb_publications"), "Whales\n")
        << "it was its last link";
}

TEST_F(ChangeTrackFormTest, AFailedInsertLeavesTheFormOpen) {
    Fill();
    track->txtInitiator.SetText(std::string(101, 'x'));
    track->cmdOK.UserClick();
    ASSERT_EQ(data.prompter.messages.size(), 2U);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_EQ(data.prompter.messages[1], "Error inserting Change Track");
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Tracks(), "");
    track->txtInitiator.SetText("Rice");
    track->cmdOK.UserClick();
    EXPECT_EQ(Tracks(), "2\t\\N\t2\t\\N\tTaxonomic revision\tRice\t\\N\t\\N\n");
    EXPECT_EQ(closed, 1);
}

TEST_F(ChangeTrackFormTest, AFailedDocumentEndsTheSteps) {
    Fill();
    AddExpert("Dale Rice");
    track->publications.grid.AddDataRow(GridControl::Row(19));
    track->publications.grid.SetCell(0, 9, "an ISBN that is too long");
    track->cmdOK.UserClick();
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Operations(), "1\t3\n");
    EXPECT_EQ(Links(), "");
    track->publications.grid.SetCell(0, 9, "1-1");
    track->cmdOK.UserClick();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Operations(), "1\t3\n") << "the same track";
    EXPECT_EQ(Links(), "2\tEXP\t1\t1\n2\tPUB\t6\t1\n");
    EXPECT_THAT(data.state.gNewChangeTrackIds, ElementsAre(1));
}

TEST_F(ChangeTrackFormTest, AnAbandonedRecordTakesItsTracksAway) {
    Fill();
    AddExpert("Dale Rice");
    track->txtComment.UserSetText("new");
    track->cmdCAdd.UserClick();
    track->cmdOK.UserClick();
    dataset::RemoveChangeTracks(data.state, data.engine, data.prompter);
    EXPECT_EQ(Tracks() + Operations() + Comments() + Links(), "");
    EXPECT_EQ(data.Dump("SELECT expert FROM qb_experts"), "");
    EXPECT_THAT(data.state.gNewChangeTrackIds, IsEmpty());
}

TEST_F(ChangeTrackFormTest, TheListOfTracksNamesTheirOperations) {
    StoreTrack();
    Run("INSERT INTO qb_change_tracks (qb_change_track_id, qb_id, change_reason) VALUES (10, 2, "
        "'Splitting')");
    EXPECT_THAT(ReadChangeTracks(data.db(), 2),
                ElementsAre(GridControl::Row{"Name Change", "Lumping", "Rice", "", "9", "90"},
                            GridControl::Row{"Not Found", "Splitting", "", "", "10", "0"}));
}

}  // namespace
}  // namespace quillon::curation
