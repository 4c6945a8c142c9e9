// The usage as the user switches it, and the parent that a save takes.
#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

class UsageAndParent : public RecViewFixture {
protected:
    std::string Parent() const {
        const CurrentTaxon& taxon = data.state.currentTaxon;
        return tab.cboParentName.Text() + "|" + taxon.parent_name + "|" + taxon.parent_rank_name + "|" +
               std::to_string(taxon.parent_qb_id) + "|" + std::to_string(taxon.direct_parent_rank_id) + "|" +
               std::to_string(taxon.required_parent_rank_id);
    }
    std::string Synonyms() const {
        std::string text = form.synonyms.lblSynonyms.Caption() + ":";
        for (const auto& row : form.synonyms.grdSynonyms.Rows()) text += row[0] + ";";
        return text;
    }
    std::string Focus() {
        focus.clear();
        for (Control* control : form.form.Controls())
            control->OnTakeFocus([this, control] { focus = control->Name(); });
        tab.cboParentName.UserEnter();
        return focus;
    }
    std::string focus;
};

TEST_F(UsageAndParent, ANameWithChildrenStaysValid) {
    Make();
    Select(3);
    EXPECT_FALSE(tab.optInvalid.UserChoose());
    EXPECT_EQ(data.prompter.messages,
              Messages{"This record has children and you cannot change the usage to invalid/not accepted!"});
    EXPECT_TRUE(tab.optValid.Value());
    EXPECT_FALSE(tab.optInvalid.Value());
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(Parent(), "Orca|Orca|Genus|2|180|180");
}

TEST_F(UsageAndParent, AnInvalidNameHasNoParent) {
    Make();
    Select(4);
    EXPECT_TRUE(tab.optInvalid.UserChoose());
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(Parent(), "|||0|0|0");
    EXPECT_EQ(Synonyms(), "Valid Names:;");
    EXPECT_EQ(form.synonyms.lblSRName.Caption(), "Valid Name");
    EXPECT_TRUE(form.synonyms.cboSRName.Enabled());
    EXPECT_EQ(data.Dump("SELECT parent_qb_id FROM qb_taxonomic_units WHERE qb_id = 4"), "3\n");
}

TEST_F(UsageAndParent, TheRanksOfAParentAreOfferedAgainAfterAddNew) {
    Make();
    data.state.gPrefRank = "Family";
    form.mnuAdd.UserClick();
    EXPECT_EQ(tab.cboRank.Text(), "Family");
    EXPECT_EQ(tab.cboDPRank.ListCount(), 0U);
    tab.cboDPRank.UserDropDown();
    EXPECT_GE(tab.cboDPRank.FindText("Order"), 0);
    EXPECT_EQ(tab.cboDPRank.FindText("Family"), -1);
    EXPECT_EQ(tab.cboDPRank.Text(), "");
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(UsageAndParent, PlantsAreAccepted) {
    data.state.gPrefRank = "Kingdom";
    data.Make("Plantae");
    Show();
    AddTaxon(2, "1", 180, "'Rosa', Null, Null", "'accepted'");
    Select(2);
    tab.optInvalid.UserChoose();
    EXPECT_EQ(Synonyms() + form.synonyms.lblSRName.Caption(), "Accepted Names:;Accepted Name");
}

TEST_F(UsageAndParent, ValidAgainBringsTheStoredParentAndSynonymsBack) {
    Make();
    Execute("UPDATE qb_synonym_links SET qb_id_accepted = 4");
    Select(4);
    const std::string parent = Parent(), synonyms = Synonyms();
    EXPECT_EQ(synonyms, "Synonyms:Gladiator;;");
    tab.optInvalid.UserChoose();
    tab.cboInvalidReason.UserSetText("homonym");
    tab.optValid.UserChoose();
    EXPECT_EQ(Parent(), parent);
    EXPECT_EQ(Synonyms(), synonyms);
    EXPECT_EQ(tab.cboInvalidReason.Text(), "");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(tab.ChosenParent(), 0) << "the stored one";
}

TEST_F(UsageAndParent, AnInvalidNameThatBecomesValidLosesItsAcceptedNamesAndReason) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'homonym' WHERE qb_id = 5");
    Select(5);
    EXPECT_EQ(Synonyms(), "Valid Names:Orca Gray, 1846;;");
    form.synonyms.grdSynonyms.UserSelectRow(0);
    tab.optValid.UserChoose();
    EXPECT_EQ(Synonyms(), "Synonyms:;");
    EXPECT_EQ(tab.cboInvalidReason.Text() + form.synonyms.cboSSciName.Text(), "");
    EXPECT_FALSE(form.synonyms.cboSRName.Enabled());
}

TEST_F(UsageAndParent, AnotherRecordHasNoParentToBringBack) {
    Make();
    Select(4);
    tab.optInvalid.UserChoose();
    recView.SelectExplorerItem(5, false);
    tab.optValid.UserChoose();
    EXPECT_EQ(Parent(), "|||0|170|140") << "the ranks are those of the record";
}

TEST_F(UsageAndParent, NoParentsWithoutTheirRank) {
    Make();
    Select(5);
    EXPECT_FALSE(tab.cboParentName.TabStop());
    EXPECT_EQ(Focus(), "cboDPRank");
    EXPECT_EQ(data.prompter.messages,
              Messages{"Rank of the Direct Parent must be entered before a pick list of "
                       "Parent names can be supplied!"});
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Kingdom"));
    EXPECT_TRUE(tab.cboParentName.TabStop());
    EXPECT_EQ(Focus(), "");
    EXPECT_EQ(data.prompter.messages.size(), 1u);
}

TEST_F(UsageAndParent, NoParentsWithoutADataSet) {
    EXPECT_EQ(Focus(), "");
    EXPECT_EQ(data.prompter.messages, Messages{"No DataSet is Open"});
}

TEST_F(UsageAndParent, ASaveTakesTheParentThatWasChosen) {
    Make();
    AddTaxon(7, "1", 180, "'Cetus', Null, Null", "'valid'");
    Execute("UPDATE qb_taxonomic_units SET parent_qb_id = 7 WHERE qb_id = 3");
    Select(3);
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus|Cetus|Orca");
    EXPECT_EQ(tab.ChosenParent(), 0) << "untouched";
    tab.cboParentName.UserSetText("Orc");
    EXPECT_EQ(tab.ChosenParent(), 0) << "no name of the list";
    tab.cboParentName.UserSetText("orca");
    EXPECT_EQ(tab.ChosenParent(), 2);
    tab.cboParentName.UserSetText("Cetus");
    EXPECT_EQ(tab.ChosenParent(), 0) << "reads as the stored one";
    tab.cboParentName.UserChoose(0);
    EXPECT_EQ(tab.ChosenParent(), 6);
    tab.cboParentName.UserChoose(1);
    EXPECT_EQ(tab.ChosenParent(), 0) << "the stored one itself";
    tab.cboParentName.UserSetText("");
    EXPECT_EQ(tab.ChosenParent(), 0);
}

TEST_F(UsageAndParent, AKeptParentIsStillTheOneThatWasChosen) {
    Make();
    KeepAll();
    AddTaxon(7, "1", 180, "'Cetus', Null, Null", "'valid'");
    Select(3);
    tab.cboParentName.UserChoose(1);
    EXPECT_EQ(tab.ChosenParent(), 7);
    recView.ClearForNextEntry();
    EXPECT_EQ(tab.cboParentName.Text(), "Cetus");
    EXPECT_EQ(tab.ChosenParent(), 7);
}

TEST_F(UsageAndParent, AParentOfAnotherRankIsLookedUpAnew) {
    Make();
    AddTaxon(7, "1", 140, "'Orca', Null, Null", "'valid'");
    Select(3);
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Family"));
    EXPECT_EQ(tab.cboParentName.Text(), "Orca");
    EXPECT_EQ(tab.ChosenParent(), 7);
}

TEST_F(UsageAndParent, LeavingAChangedGroupClearsTheChangeTrack) {
    Make();
    Select(3);
    const auto leave = [this](Control& from, Control& to) {
        data.state.ChangeTrackApplied = true;
        from.UserEnter();
        from.UserLeave();
        to.UserEnter();
        return std::to_string(data.state.ChangeTrackApplied) +
               std::to_string(recView.Editing().FieldGroupEntered);
    };
    EXPECT_EQ(leave(tab.cboAuth, tab.cboRank), "15") << "nothing has changed";
    EXPECT_EQ(leave(tab.cboParentName, tab.cboRank), "00") << "a parent always counts";
    tab.cboAuth.SetText("Brown");
    EXPECT_EQ(leave(tab.cboAuth, tab.cboRank), "00");
    EXPECT_EQ(leave(tab.cboAuth, tab.cboCoverage), "10") << "no group";
    tab.cboAuth.SetText("");
    tab.txtName2.SetText(" ALPHA ");
    EXPECT_EQ(leave(tab.cboName1, tab.cboRank), "15");
    tab.txtName2.SetText("beta");
    EXPECT_EQ(leave(tab.cboName1, tab.txtName2), "13") << "the same group";
    EXPECT_EQ(leave(tab.txtName2, tab.cboRank), "00");
    tab.chkParentUn.SetValue(true);
    EXPECT_EQ(leave(tab.optValid, tab.cboRank), "00");
    EXPECT_EQ(leave(tab.chkUnnamed, tab.cboRank), "15");
    EXPECT_EQ(recView.Editing().FieldGroupLeft, 0);
    data.state.currentTaxon.tsn = 0;
    EXPECT_EQ(leave(tab.cboAuth, tab.cboRank), "15") << "not published";
}

}  // namespace
}  // namespace quillon::editor
