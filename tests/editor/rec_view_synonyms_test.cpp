// The usage of a record and its synonym links, through the form and its save.
#include "rec_view_fixture.h"

namespace quillon::editor {

// Gladiator (5) is a synonym of Orca (2) and of Cetus (6), which are published.
class RecordSynonyms : public RecViewFixture {
protected:
    RecordSynonyms() {
        Make();
        Execute("UPDATE qb_taxonomic_units SET tsn = 7002 WHERE qb_id = 2");
        Execute("UPDATE qb_taxonomic_units SET tsn = 7006 WHERE qb_id = 6");
        Execute("UPDATE qb_taxonomic_units SET tsn = 7005 WHERE qb_id = 5");
        Execute("UPDATE qb_synonym_links SET tsn = 7005, tsn_accepted = 7002 WHERE qb_id = 5");
        Execute(
            "INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) "
            "VALUES (5, 6, 7005, 7006)");
    }
    std::string Links() {
        return data.Dump(
            "SELECT qb_id, qb_id_accepted, tsn, tsn_accepted FROM qb_synonym_links "
            "ORDER BY qb_id, qb_id_accepted");
    }
    std::string Tombstones() { return data.Dump("SELECT table_name, pk1, pk2 FROM db_tombstone"); }
    void Sink(int qb_id, std::string_view accepted) {
        Select(qb_id);
        tab.optInvalid.UserChoose();
        tab.cboInvalidReason.UserSetText("junior synonym");
        form.synonyms.cboSRName.UserSetText(accepted);
        form.synonyms.cmdSAdd.UserClick();
        form.cmdOK.UserClick();
    }
    const std::string gladiator = "5\t2\t7005\t7002\n5\t6\t7005\t7006\n";
};

TEST_F(RecordSynonyms, ANameThatIsSunkLosesItsOwnSynonyms) {
    Sink(6, "Orca Gray, 1846");
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Links(), "5\t2\t7005\t7002\n6\t2\t7006\t7002\n");
    EXPECT_EQ(Tombstones(), "synonym_links\t7005\t7006\n");
}

TEST_F(RecordSynonyms, ANameThatIsAcceptedAgainLosesItsLinks) {
    Sink(6, "Orca Gray, 1846");
    tab.optValid.UserChoose();
    EXPECT_FALSE(form.synonyms.cmdSAdd.Enabled());
    form.cmdOK.UserClick();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Links(), "5\t2\t7005\t7002\n");
    EXPECT_EQ(Tombstones(), "synonym_links\t7005\t7006\nsynonym_links\t7006\t7002\n");
}

TEST_F(RecordSynonyms, AcceptedNamesAreTakenOffAndPutBack) {
    Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'junior synonym' WHERE qb_id = 5");
    Select(5);
    form.synonyms.grdSynonyms.UserSelectRow(1);
    form.synonyms.cmdSDelete.UserClick();
    form.cmdOK.UserClick();
    EXPECT_EQ(Links(), "5\t2\t7005\t7002\n");
    EXPECT_EQ(Tombstones(), "synonym_links\t7005\t7006\n");
    form.synonyms.cboSRName.UserSetText("Cetus");
    form.synonyms.cmdSAdd.UserClick();
    form.cmdOK.UserClick();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Links(), gladiator);
    EXPECT_EQ(Tombstones(), "");
}

TEST_F(RecordSynonyms, AnAcceptedNameKeepsItsSynonyms) {
    Select(6);
    form.comments.txtCommentator.UserSetText("Smith");
    form.comments.txtComment.UserSetText("Seen in May");
    form.comments.cmdCAdd.UserClick();
    form.cmdOK.UserClick();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Links(), gladiator);
    EXPECT_EQ(data.Dump("SELECT * FROM qb_comments"), "1\t\\N\tSmith\tSeen in May\t01062024123456\n");
}

}  // namespace quillon::editor
