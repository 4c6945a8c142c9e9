// The save of a record: the checks in their order, the row, the authors, the journal, and what follows on the
// form. The rows of the tabs have tests of their own.
#include "rec_view_fixture.h"

namespace quillon::editor {

class RecordSaveTest : public RecViewFixture {
protected:
    RecordSaveTest() {
        Make();
        data.state.gPrefRank = "Species";
        Show();
    }

    // A species under Orca, ready to be saved.
    void EnterSpecies(std::string_view epithet) {
        tab.cboRank.UserSetText("Species");
        tab.cboName1.UserSetText("Orca");
        tab.txtName2.UserSetText(epithet);
        tab.optValid.UserChoose();
        tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Genus"));
        tab.cboParentName.UserSetText("Orca");
    }
    void Save() { form.cmdOK.UserClick(); }
    std::string Row(int qb_id) {
        return data.Dump(
            "SELECT tsn, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, "
            "unit_name4, unnamed_taxon_ind, usage, unacceptability_reason, parent_tsn, parent_qb_id, "
            "qb_taxon_author_id, hybrid_author_id, kingdom_id, rank_id, uncertain_parent_ind FROM "
            "qb_taxonomic_units WHERE qb_id = " +
            std::to_string(qb_id));
    }
    std::string Names() {
        return data.Dump("SELECT qb_id, unit_name1, unit_name2 FROM qb_taxonomic_units ORDER BY qb_id");
    }
    std::string Authors() {
        return data.Dump(
            "SELECT qb_taxon_author_id, taxon_author, kingdom_id FROM qb_taxon_authors_lookup ORDER BY "
            "qb_taxon_author_id");
    }
    std::string Journal() { return data.Dump("SELECT qb_id FROM journal ORDER BY qb_id"); }
};

TEST_F(RecordSaveTest, TheSecondGenusOfAFormulaIsNoSubspecies) {
    EnterSpecies("beta");
    tab.chkHybrid3.UserSetValue(true);
    tab.txtName3.UserSetText("Cetus");
    tab.txtName4.UserSetText("gamma");
    tab.cboRank.UserSetText("Subspecies");
    EXPECT_EQ(tab.txtName3.Text(), "");
    tab.cboName2.UserSetText("beta");
    Save();
    EXPECT_EQ(data.prompter.messages, (Messages{"The Subspecies is a required field!"}));
    EXPECT_EQ(Journal(), "");
}

TEST_F(RecordSaveTest, StoresANewSpeciesWithItsAuthor) {
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Dall, 1877");
    Save();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(
        Row(7),
        "\\N\t\\N\tOrca\t\\N\tbeta\t\\N\t\\N\t\\N\t\\N\tNo\tvalid\t\\N\t\\N\t2\t3\t\\N\t5\t220\tFalse\n");
    EXPECT_EQ(Authors(), "1\tGray, 1846\t\\N\n2\tBrown\t\\N\n3\tDall, 1877\t5\n");
    EXPECT_EQ(Journal(), "7\n");
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_EQ(recView.LastSaved(), 7);
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_EQ(form.taxa.Caption(), "TAXA: 7");
}

TEST_F(RecordSaveTest, TakesAnAuthorThatIsThereByItsExactText) {
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Brown");
    Save();
    EnterSpecies("gamma");
    tab.cboAuth.UserSetText("brown");
    Save();
    EXPECT_EQ(data.Dump("SELECT qb_id, qb_taxon_author_id FROM qb_taxonomic_units WHERE qb_id > 6"),
              "7\t2\n8\t3\n");
    EXPECT_EQ(Authors(), "1\tGray, 1846\t\\N\n2\tBrown\t\\N\n3\tbrown\t5\n");
}

TEST_F(RecordSaveTest, RefusesARecordWithoutARank) {
    tab.cboRank.SetText("");
    tab.txtName1.UserSetText("Orca");
    Save();
    EXPECT_EQ(data.prompter.messages, (Messages{"Rank is a required field!"}));
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(tab.txtName1.Text(), "Orca");
    EXPECT_EQ(Journal(), "");
}

TEST_F(RecordSaveTest, RefusesANewKingdom) {
    tab.cboRank.UserSetText("Kingdom");
    tab.txtName1.UserSetText("Plantae");
    Save();
    EXPECT_EQ(data.prompter.messages, (Messages{"A new Kingdom cannot be created!"}));
}

TEST_F(RecordSaveTest, LeavesTheKingdomRecordAlone) {
    Select(1);
    tab.cboAuth.UserSetText("Linnaeus");
    Save();
    EXPECT_EQ(data.prompter.warnings, (Messages{"You can't modify the Kingdom record."}));
    EXPECT_EQ(tab.cboAuth.Text(), "");
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(Journal(), "");
}

TEST_F(RecordSaveTest, RefusesTheSameNameAgain) {
    EnterSpecies("beta");
    Save();
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Brown");
    Save();
    EXPECT_EQ(data.prompter.warnings,
              (Messages{"A Record with an identical Scientific Name, rank, and author already exists!  This "
                        "record will not be saved!"}));
    EXPECT_EQ(data.prompter.titles, (Messages{"Duplicate Record"}));
    EXPECT_EQ(tab.txtName2.Text(), "beta");
    EXPECT_EQ(Journal(), "7\n");
}

TEST_F(RecordSaveTest, TakesTheSameNameOfAnotherAuthor) {
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Brown");
    Save();
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Gray, 1846");
    Save();
    EXPECT_EQ(Journal(), "7\n8\n");
}

TEST_F(RecordSaveTest, RequiresAReasonForAnInvalidName) {
    EnterSpecies("beta");
    tab.optInvalid.UserChoose();
    tab.cboInvalidReason.UserSetText("  ");
    Save();
    EXPECT_EQ(data.prompter.messages,
              (Messages{"A reason is required if the usage is Not Accepted or Invalid!  The record will not "
                        "be saved."}));
    EXPECT_EQ(Journal(), "");
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecordSaveTest, WarnsAtTheFirstSaveOnly) {
    data.state.gPrefWarnings = "First";
    EnterSpecies("beta");
    Save();
    EnterSpecies("gamma");
    Save();
    EXPECT_EQ(data.prompter.messages, (Messages{"Taxon Author will be required for exporting QLN data!"}));
    EXPECT_EQ(Journal(), "7\n8\n");
}

TEST_F(RecordSaveTest, WarnsOfAnInvalidNameWithoutAnAcceptedOne) {
    data.state.gPrefWarnings = "All";
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Brown");
    tab.optInvalid.UserChoose();
    tab.cboInvalidReason.UserSetText("synonym");
    Save();
    EXPECT_EQ(data.prompter.messages,
              (Messages{"This invalid name will require an association with\nat least one valid name before "
                        "it will be exported!"}));
    EXPECT_EQ(data.Dump("SELECT usage, unacceptability_reason FROM qb_taxonomic_units WHERE qb_id = 7"),
              "invalid\tsynonym\n");
}

TEST_F(RecordSaveTest, RewritesAStoredRecord) {
    Select(3);
    tab.txtName2.UserSetText("delta");
    tab.cboAuth.UserSetText("Brown");
    tab.chkParentUn.UserSetValue(true);
    Save();
    EXPECT_EQ(
        Row(3),
        "7001\t\\N\tOrca\t\\N\tdelta\t\\N\t\\N\t\\N\t\\N\t\\N\tvalid\t\\N\t\\N\t2\t2\t\\N\t5\t220\tTrue\n");
    EXPECT_EQ(Journal(), "3\n");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    EXPECT_EQ(tab.txtName2.Text(), "delta");
    EXPECT_FALSE(data.state.RecordDirty);
    Save();
    EXPECT_EQ(Journal(), "3\n");
}

TEST_F(RecordSaveTest, DeletesAnAuthorThatNobodyHasAnyMore) {
    Execute(
        "UPDATE qb_taxon_authors_lookup SET taxon_author_id = 77, kingdom_id = 5 WHERE qb_taxon_author_id = "
        "1");
    Select(2);
    tab.cboAuth.UserSetText("Brown");
    Save();
    EXPECT_EQ(Authors(), "2\tBrown\t\\N\n");
    EXPECT_EQ(data.Dump("SELECT table_name, pk1, pk2, pk3, pk4 FROM db_tombstone"),
              "taxon_authors_lookup\t77\t5\t\\N\t\\N\n");
}

TEST_F(RecordSaveTest, AsksBeforeARankChangesAboveChildren) {
    Select(2);
    tab.cboRank.UserSetText("Subgenus");
    tab.cboName1.SetText("Orca");
    tab.txtName2.UserSetText("(Orca)");
    data.prompter.yesNo = {false};
    Save();
    EXPECT_EQ(data.prompter.questions,
              (Messages{"This record has children and you are changing the rank.  This may cause data "
                        "integrity problems.  Continue?"}));
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(tab.cboRank.Text(), "Subgenus");
    EXPECT_EQ(Journal(), "");
    data.prompter.yesNo = {true};
    Save();
    EXPECT_EQ(data.Dump("SELECT rank_id FROM qb_taxonomic_units WHERE qb_id = 2"), "190\n");
}

TEST_F(RecordSaveTest, KeepsWhatWasTypedWhenTheRowCannotBeStored) {
    EnterSpecies("beta");
    tab.cboAuth.UserSetText("Dall, 1877");
    tab.txtName2.SetText(std::string(60, 'b'));
    const std::string before = Names();
    Save();
    ASSERT_EQ(data.prompter.messages.size(), 1U);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(Authors(), "1\tGray, 1846\t\\N\n2\tBrown\t\\N\n");
    EXPECT_EQ(Journal(), "");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(tab.txtName2.Text(), std::string(60, 'b'));
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_EQ(recView.LastSaved(), 0);
}

TEST_F(RecordSaveTest, CountsTheAcceptedNamesOfAnInvalidNameAsChanged) {
    Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'synonym' WHERE qb_id = 5");
    Select(5);
    Save();
    EXPECT_EQ(data.prompter.messages, Messages());
    EXPECT_EQ(Journal(), "2\n5\n");
    EXPECT_EQ(data.Dump("SELECT qb_id, qb_id_accepted FROM qb_synonym_links"), "5\t2\n");
}

TEST_F(RecordSaveTest, SaysWhatItSaved) {
    std::string noted;
    recView.Note.Connect([&](const std::string& text) { noted += text + ";"; });
    EnterSpecies("beta");
    Save();
    Select(6);
    Save();
    EXPECT_EQ(noted, "Saved Orca beta;Saved Cetus;");
}

}  // namespace quillon::editor
