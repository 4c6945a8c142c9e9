// The modes and commands of the main form, without its window.
#include "editor/rec_view.h"

#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

constexpr const char* kQuestion =
    "A new or modified record was not saved.  Continuing will lose that record!  Continue?";
constexpr const char* kTabDisabled =
    "You cannot enter any geographical and/or jurisdictional data when editing ranks above the species "
    "level.  This screen is currently disabled!";

class RecViewModes : public RecViewFixture {
protected:
    // What stands on the first tab, and the rest of a record that is kept or dropped.
    std::string Kept() const {
        std::string kept;
        if (!tab.cboAuth.Text().empty()) kept += "author;";
        if (!tab.cboDPRank.Text().empty() || !tab.cboParentName.Text().empty()) kept += "parent;";
        if (!tab.cboName1.Text().empty() || tab.optValid.Value()) kept += "fields;";
        if (form.vernaculars.grdVernacular.Rows().size() > 1) kept += "vernaculars;";
        if (form.comments.grdComments.Rows().size() > 1) kept += "comments;";
        if (form.experts.grid.Rows().size() > 1) kept += "references;";
        return kept;
    }
    void ShowFullSpecies() {
        Make();
        Execute("UPDATE qb_taxonomic_units SET qb_taxon_author_id = 2 WHERE qb_id = 3");
        Execute(
            "INSERT INTO qb_vernaculars (qb_vern_id, qb_id, vernacular_name, [language], approved_ind) "
            "VALUES (1, 3, 'orca', 'English', True)");
        Execute("INSERT INTO qb_comments (qb_comment_id, commentator, comment_detail) VALUES (1, 'A', 'B')");
        Execute("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (3, 1)");
        Execute(
            "INSERT INTO qb_experts (qb_expert_id, expert_id_prefix, expert) VALUES (1, 'EXP', 'Dr. Who')");
        Execute(
            "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
            "VALUES (3, 'EXP', 1)");
        Select(3);
        ASSERT_EQ(Kept(), "author;parent;fields;vernaculars;comments;references;");
    }
};

TEST_F(RecViewModes, CommandsRefuseWithoutADataSet) {
    EXPECT_EQ(form.form.Title(), "Taxonomic Quillon - No Open DataSet");
    EXPECT_EQ(Panels(), "||");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_TRUE(form.hierarchy.Value());
    for (ButtonControl* command :
         {&form.mnuFSaveAs, &form.mnuFValidate, &form.mnuFExport, &form.mnuAdd, &form.mnuCopy, &form.mnuECut,
          &form.mnuParent, &form.mnuFirst, &form.mnuPrev, &form.mnuNext, &form.mnuLast}) {
        command->UserClick();
    }
    EXPECT_EQ(data.prompter.messages, Messages(11, "No DataSet is Open"));
    form.mnuFPreferences.UserClick();
    EXPECT_EQ(data.prompter.messages.back(), "A DataSet must be open before you can select Preferences!");
}

TEST_F(RecViewModes, CommandsThatWriteAreNotThereYet) {
    Make();
    Select(3);
    for (const ButtonControl* command :
         {&form.mnuMerge, &form.mnuSplit, &form.mnuFReports, &form.mnuTaxonomy, &form.mnuFullRecord}) {
        EXPECT_FALSE(command->Enabled()) << command->Name();
    }
}

TEST_F(RecViewModes, ADataSetBeginsReadyForInput) {
    Make();
    EXPECT_EQ(form.form.Title(), "Taxonomic Quillon - " + data.state.gDataSetPath);
    EXPECT_EQ(Panels(), "|TAXA: 6|INPUT");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_EQ(tab.txtKingdom.Text(), "Animalia");
    EXPECT_EQ(tab.cboRank.Text(), "Kingdom");
    EXPECT_EQ(tab.lblName1.Caption(), "Kingdom");
    EXPECT_FALSE(tab.optValid.Value() || tab.optInvalid.Value());
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_TRUE(recView.Editing().firstWarning);
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_FALSE(data.prompter.waitCursor);
    recView.ShowDataSet();
    EXPECT_EQ(progress.log, "task Loading Taxon Data;status Loading...;end;");
}

TEST_F(RecViewModes, TheFormBeginsWithThePreferredRank) {
    Make();
    data.state.gPrefRank = "Species";
    Show();
    EXPECT_EQ(tab.cboRank.Text(), "Species");
    EXPECT_TRUE(tab.cboName1.Visible() && tab.txtName2.Visible());
    EXPECT_EQ(Texts(tab.cboName1), "Cetus|Gladiator|Orca");
    EXPECT_TRUE(form.distribution.RVPanel4.Enabled());
}

TEST_F(RecViewModes, AnotherKingdomThanThePreferenceIsReported) {
    Make();
    data.state.gKingdomName = "Plantae";
    data.state.gPrefRank = "Variety";
    Show();
    EXPECT_EQ(data.prompter.messages,
              (Messages{"Warning:  The 'Preference' kingdom does not match what is in the " +
                            data.state.gDataSetPath + " dataset!  Dataset Kingdom will be used.",
                        "The 'Preference' rank is not valid for the " + data.state.gDataSetPath +
                            " dataset!  Defaulting to 'Kingdom'."}));
    EXPECT_EQ(data.state.gKingdomName + "|" + data.state.gOldKingdomName, "Animalia|Plantae");
    EXPECT_EQ(data.state.gPrefRank + "|" + data.state.gOldPrefRank, "Kingdom|Variety");
    EXPECT_EQ(data.state.gKingdomId, 5);
    EXPECT_EQ(data.state.gRankGenus, 180);
    EXPECT_EQ(data.state.gRankSpecies, 220);
}

TEST_F(RecViewModes, CaptionsFollowTheKingdom) {
    data.Make("Fungi");
    Show();
    EXPECT_EQ(tab.fraUsage.Caption() + "|" + tab.optValid.Caption() + "|" + tab.optInvalid.Caption(),
              "Accepted Name|Accepted|Not Accepted");
    EXPECT_EQ(form.synonyms.lblSRName.Caption(), "Accepted Name");
    EXPECT_TRUE(tab.chkUnnamed.Visible() && tab.lblUnnamed.Visible());
    data.Make("Animalia", "animals.mdb");
    Show();
    EXPECT_EQ(tab.fraUsage.Caption() + "|" + tab.optValid.Caption() + "|" + tab.optInvalid.Caption(),
              "Valid Name|Valid|Invalid");
    EXPECT_EQ(form.synonyms.lblSRName.Caption(), "Valid Name");
    EXPECT_FALSE(tab.chkUnnamed.Visible() || tab.lblUnnamed.Visible());
}

TEST_F(RecViewModes, AnotherDataSetBeginsWithAnEmptyForm) {
    ShowFullSpecies();
    tab.optInvalid.UserChoose();
    form.distribution.cboMexico.UserSetText("Native");
    form.vernaculars.grdVernacular.UserSelectRow(0);
    Show();
    EXPECT_EQ(Kept(), "");
    EXPECT_FALSE(tab.optValid.Value() || tab.optInvalid.Value());
    EXPECT_EQ(form.distribution.cboMexico.Text(), "None Selected");
    EXPECT_EQ(form.vernaculars.txtVName.Text(), "");
    EXPECT_EQ(form.publications.association.picker.ListCount(), 0U) << "the vernaculars of the last record";
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecViewModes, AddNewWithoutPreferencesShowsAnEmptyForm) {
    ShowFullSpecies();
    form.mnuAdd.UserClick();
    EXPECT_EQ(Kept(), "");
}

TEST_F(RecViewModes, AddNewKeepsWhatThePreferencesKeep) {
    ShowFullSpecies();
    KeepAll();
    tab.chkParentUn.SetValue(true);
    form.mnuAdd.UserClick();
    EXPECT_EQ(Kept(), "author;parent;fields;vernaculars;comments;references;");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_EQ(data.state.currentTaxon.tsn, 0);
    EXPECT_EQ(data.state.currentTaxon.unit_name1, "");
    EXPECT_FALSE(tab.chkParentUn.Value());
    EXPECT_FALSE(data.state.RecordDirty);
    EXPECT_EQ(recView.CurrentTaxonName(), "Orca alpha");
}

TEST_F(RecViewModes, AddNewDropsWhatThePreferencesDoNotKeep) {
    struct Case {
        std::string ApplicationState::*preference;
        const char* kept;
    };
    const Case cases[] = {
        {&ApplicationState::gPrefSaveReferences, "author;parent;fields;vernaculars;comments;"},
        {&ApplicationState::gPrefSaveAuthor, "parent;fields;vernaculars;comments;references;"},
        {&ApplicationState::gPrefSaveParent, "author;fields;vernaculars;comments;references;"},
        {&ApplicationState::gPrefSaveComments, "author;parent;fields;vernaculars;references;"},
        {&ApplicationState::gPrefSaveOtherFields, "author;parent;comments;references;"},
    };
    ShowFullSpecies();
    data.state.gPrefRank = "Species";
    KeepAll();
    for (const Case& row : cases) {
        for (const char* dropped : {"No", ""}) {
            data.state.currentTaxon.qb_id = 3;
            recView.Reset();
            data.state.*row.preference = dropped;
            form.mnuAdd.UserClick();
            EXPECT_EQ(Kept(), row.kept) << dropped;
        }
        data.state.*row.preference = "Yes";
    }
}

TEST_F(RecViewModes, AddNewAsksForAnUnsavedRecord) {
    Make();
    Select(3);
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    form.mnuAdd.UserClick();
    EXPECT_EQ(data.state.currentTaxon.qb_id, 3);
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    EXPECT_EQ(data.prompter.questions, Messages{kQuestion});
    EXPECT_EQ(data.prompter.titles, Messages{"Losing new/modified record"});
    EXPECT_TRUE(data.state.RecordDirty);
    data.prompter.yesNo = {true};
    form.mnuAdd.UserClick();
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecViewModes, ACopyOfAPublishedRecordHasNoTsn) {
    Make();
    explorer.NodeClick(Node(3));
    EXPECT_EQ(tab.txtTSN.Text(), "7001");
    form.mnuCopy.UserClick();
    EXPECT_EQ(data.state.currentTaxon.qb_id, 0);
    EXPECT_EQ(data.state.currentTaxon.tsn, 0);
    EXPECT_EQ(tab.txtTSN.Text(), "0");
    EXPECT_EQ(tab.cboName1.Text() + " " + tab.txtName2.Text(), "Orca alpha");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
    EXPECT_EQ(Disabled(), "cut copy paste undo moveprev movenext addnew");
    explorer.NodeClick(Node(3));
    EXPECT_EQ(Disabled(), "paste undo");
    EXPECT_EQ(tab.txtTSN.Text(), "7001");
}

TEST_F(RecViewModes, CopyAsksForAnUnsavedRecord) {
    Make();
    Select(3);
    data.state.RecordDirty = true;
    data.prompter.yesNo = {false};
    form.mnuCopy.UserClick();
    EXPECT_EQ(form.mode.Caption(), "EDIT");
    EXPECT_EQ(data.state.currentTaxon.tsn, 7001);
}

// Changes a control as a user would; false for one that takes nothing.
bool Touch(Control& control) {
    if (auto* combo = dynamic_cast<ComboControl*>(&control)) {
        if (combo->GetStyle() == ComboControl::Style::Editable)
            return combo->UserSetText(combo->Text() == "a" ? "b" : "a");
        return combo->UserChoose(combo->ListIndex() == 0 ? 1 : 0);
    }
    if (auto* text = dynamic_cast<TextControl*>(&control)) return text->UserSetText(text->Text() + "a");
    if (auto* check = dynamic_cast<CheckControl*>(&control)) return check->UserSetValue(!check->Value());
    if (auto* option = dynamic_cast<OptionControl*>(&control)) return option->UserChoose();
    return false;
}

TEST_F(RecViewModes, TheControlsOfARecordMakeItDirty) {
    const Messages expected = {
        "cboADate",        "cboAuth",        "cboAuth2",         "cboAuthor",        "cboCoverage",
        "cboCredibility",  "cboDPRank",      "cboInvalidReason", "cboName1",         "cboName2",
        "cboParentName",   "cboPublication", "cboRank",          "cboSource",        "cboTitle",
        "chkHybrid1",      "chkHybrid2",     "chkHybrid3",       "chkQuad",          "chkUnnamed",
        "txtCurrency",     "txtName1",       "txtName2",         "txtName3",         "txtName4",
        "optValid",        "optInvalid",     "chkNorthAmerica",  "chkMiddleAmerica", "chkCaribbean",
        "chkSouthAmerica", "chkEurasia",     "chkAfrica",        "chkAsia",          "chkAustralia",
        "chkOceaniania",   "chkAntarctica",  "chkEAtlantic",     "chkWAtlantic",     "chkIndoWestPacific",
        "chkEastPacific",  "chkParentUn",    "cboExpert",        "cboContinentalUS", "cboAlaska",
        "cboHawaii",       "cboCenPacTerr",  "cboCarrTerr",      "cboCanada",        "cboMexico"};
    Make();
    for (const std::string& name : expected) {
        Select(name == "optInvalid" ? 4 : 3);  // a name with children stays valid
        data.state.RecordDirty = false;
        Control* control = form.form.Find(name);
        ASSERT_NE(control, nullptr) << name;
        // The one option of two that is not on yet.
        if (name == "optValid") tab.optInvalid.SetValue(true);
        EXPECT_FALSE(data.state.RecordDirty) << name;
        EXPECT_TRUE(Touch(*control)) << name;
        EXPECT_TRUE(data.state.RecordDirty) << name;
        data.state.RecordDirty = false;
        recView.SelectExplorerItem(2, false);
    }
}

TEST_F(RecViewModes, FieldsThatAwaitACommandDoNotMakeItDirty) {
    Make();
    Select(3);
    for (const char* name : {"txtVName", "txtComment"}) {
        EXPECT_TRUE(Touch(*form.form.Find(name))) << name;
        EXPECT_FALSE(data.state.RecordDirty) << name;
    }
}

TEST_F(RecViewModes, FocusingAControlShowsItsTab) {
    Make();
    Select(3);
    const auto tabOf = [this](Control& control) {
        control.TakeFocus();
        return form.TabStrip1.SelectedKey();
    };
    EXPECT_EQ(tabOf(form.comments.txtComment), "comments");
    EXPECT_EQ(tabOf(form.publications.Field(0)), "publications");
    EXPECT_EQ(tabOf(form.otherSources.Field(4)), "othersources");
    EXPECT_EQ(tabOf(form.distribution.chkAfrica), "distribution");
    EXPECT_EQ(tabOf(form.vernaculars.txtVName), "vernacular");
    EXPECT_EQ(tabOf(form.synonyms.cboSSciName), "synonyms");
    EXPECT_EQ(tabOf(form.experts.qbId), "experts");
    EXPECT_EQ(tabOf(tab.cboRank), "taxon");
    EXPECT_EQ(tabOf(form.cmdOK), "taxon") << "a control of no tab";
}

TEST_F(RecViewModes, TheDistributionIsForSpeciesAndBelow) {
    Make();
    form.TabStrip1.UserSelect(4);
    EXPECT_EQ(data.prompter.messages, Messages{kTabDisabled});
    Select(3);
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    EXPECT_TRUE(form.distribution.RVPanel4.Enabled());
    Select(2);
    EXPECT_EQ(data.prompter.messages.size(), 1u) << "once a visit";
    EXPECT_FALSE(form.distribution.RVPanel4.Enabled());
    EXPECT_EQ(form.TabStrip1.SelectedKey(), "distribution");
    form.TabStrip1.UserSelect(4);
    EXPECT_EQ(data.prompter.messages.size(), 1u) << "a click on the tab that is shown";
    form.TabStrip1.UserSelect(3);
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    form.TabStrip1.UserSelect(4);
    EXPECT_EQ(data.prompter.messages, Messages(2, kTabDisabled)) << "another visit";
}

TEST_F(RecViewModes, PreferencesThatChangeAreAppliedAgain) {
    Make();
    recView.PreferencesCommand = [this] {
        data.state.gPreferencesChanging = true;
        data.state.gPrefRank = "Species";
        data.state.gOldPrefRank = data.state.gOldKingdomName = "";
    };
    form.mnuFPreferences.UserClick();
    EXPECT_FALSE(data.state.gPreferencesChanging);
    EXPECT_EQ(tab.cboRank.Text(), "Species");
    EXPECT_EQ(form.mode.Caption(), "INPUT");
    EXPECT_EQ(events, "");
}

TEST_F(RecViewModes, CanceledPreferencesLeaveANewRecordAlone) {
    Make();
    KeepAll();
    recView.PreferencesCommand = [this] { data.state.gPreferencesChanging = true; };
    Select(3);
    form.mnuAdd.UserClick();
    tab.optValid.UserChoose();
    tab.chkHybrid1.UserSetValue(true);
    form.mnuFPreferences.UserClick();
    EXPECT_EQ(data.state.gPrefRank, "Kingdom");
    EXPECT_EQ(tab.cboRank.Text() + "|" + tab.cboDPRank.Text() + "|" + tab.cboParentName.Text(),
              "Species|Genus|Orca");
    EXPECT_TRUE(tab.optValid.Value() && tab.chkHybrid1.Value());
}

TEST_F(RecViewModes, PreferencesLeaveTheHeadingOfTheSynonymsAlone) {
    Make();
    recView.PreferencesCommand = [this] { data.state.gPreferencesChanging = true; };
    Select(3);
    EXPECT_EQ(form.synonyms.lblSynonyms.Caption(), "Synonyms");
    form.mnuFPreferences.UserClick();
    EXPECT_EQ(form.synonyms.lblSynonyms.Caption(), "Synonyms");
}

TEST_F(RecViewModes, AnotherPreferredRankLeavesTheUsageOfANewRecordAlone) {
    Make();
    recView.PreferencesCommand = [this] {
        data.state.gPreferencesChanging = true;
        data.state.gPrefRank = "Genus";
    };
    Select(3);
    form.mnuAdd.UserClick();
    tab.optInvalid.UserChoose();
    form.mnuFPreferences.UserClick();
    EXPECT_EQ(tab.cboRank.Text(), "Genus");
    EXPECT_EQ(tab.lblName1.Caption(), "Genus");
    EXPECT_EQ(tab.cboDPRank.Text(), "") << "no genus stands under a genus";
    EXPECT_EQ(Texts(tab.cboParentName), "");
    EXPECT_TRUE(tab.optInvalid.Value());
    tab.cboRank.SetText("Species");
    form.mnuFPreferences.UserClick();
    EXPECT_EQ(tab.cboRank.Text(), "Species") << "the preferred rank is the same as before";
}

TEST_F(RecViewModes, PreferencesThatChangeLeaveTheRecordOnTheForm) {
    Make();
    Select(2);
    data.state.RecordDirty = true;
    tab.cboAuth.SetText("Nobody");
    data.state.gPreferencesChanging = true;
    data.state.gKingdomName = "Plantae";
    data.state.gPrefRank = "Species";
    recView.Reset();
    EXPECT_EQ(tab.cboRank.Text() + "|" + tab.txtName1.Text() + "|" + tab.cboAuth.Text(), "Genus|Orca|Nobody");
    EXPECT_TRUE(data.state.RecordDirty);
    EXPECT_EQ(data.state.gKingdomName, "Animalia") << "the DataSet's kingdom is used";
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    EXPECT_EQ(tab.optValid.Caption(), "Valid");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
}

TEST_F(RecViewModes, AResetShowsTheRecordThatIsCurrent) {
    Make();
    Select(2);
    tab.txtName1.SetText("Orka");
    recView.Reset();
    EXPECT_EQ(tab.txtName1.Text(), "Orca");
    data.state.currentTaxon.qb_id = 0;
    recView.Reset();
    EXPECT_EQ(Panels(), "|TAXA: 6|INPUT");
    EXPECT_EQ(tab.txtName1.Text(), "");
}

TEST_F(RecViewModes, OtherCommandsAreHandedOn) {
    Make();
    recView.ValidateCommand = [this] { events += "validate;"; };
    recView.ExportCommand = [this] { events += "export;"; };
    recView.HelpContentsCommand = [this] { events += "contents;"; };
    recView.HelpSearchCommand = [this] { events += "search;"; };
    for (ButtonControl* command :
         {&form.mnuFValidate, &form.mnuFExport, &form.mnuHContents, &form.mnuHSearch, &form.mnuHAbout}) {
        command->UserClick();
    }
    EXPECT_EQ(events, "validate;export;contents;search;");
    EXPECT_EQ(data.prompter.forms, Messages{"FrmAbout"});
}

}  // namespace
}  // namespace quillon::editor
