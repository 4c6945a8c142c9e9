// Loading a record into the main form: CurrentTaxon, the controls of the first tab, their lists, the tabs.
#include "editor/rec_view_load.h"

#include "rec_view_fixture.h"

namespace quillon::editor {
namespace {

class RecViewLoad : public RecViewFixture {
protected:
    static std::string On(const CheckControl& check) { return check.Value() ? "1" : "0"; }
    // What ShowTaxon fills, in its order.
    std::string Shown() const {
        return tab.cboRank.Text() + "|" + tab.cboName1.Text() + "," + tab.txtName1.Text() + "|" +
               tab.cboName2.Text() + "," + tab.txtName2.Text() + "|" + tab.txtTSN.Text() + "|" +
               tab.txtName3.Text() + "|" + tab.txtName4.Text() + "|" + On(tab.chkHybrid1) +
               On(tab.chkHybrid2) + On(tab.chkHybrid3) + "|" + On(tab.chkUnnamed) + "|" + Usage() + "|" +
               tab.cboCredibility.Text() + "|" + tab.cboCoverage.Text() + "|" + tab.txtCurrency.Text() + "|" +
               On(tab.chkParentUn) + "|" + tab.cboDPRank.Text() + "|" + tab.cboParentName.Text() + "|" +
               tab.cboAuth.Text() + "|" + tab.cboAuth2.Text() + "|" + tab.txtKingdom.Text();
    }
    std::string Usage() const {
        return std::string(tab.optValid.Value() ? "valid" : "") + (tab.optInvalid.Value() ? "invalid" : "") +
               "<" + tab.cboInvalidReason.Text() + ">";
    }
    std::string Synonyms() const {
        std::string rows;
        for (const auto& row : form.synonyms.grdSynonyms.Rows()) {
            for (const std::string& cell : row) rows += cell + ",";
            rows += ";";
        }
        return rows;
    }
};

TEST_F(RecViewLoad, ARecordFillsTheFirstTab) {
    Make();
    Execute(
        "UPDATE qb_taxonomic_units SET unit_ind1 = 'X', taxonomic_credibility_rating = 'KSP standards met', "
        "taxonomic_completeness_rating = 'partial', currency_rating = '1999', uncertain_parent_ind = True, "
        "hybrid_author_id = 2, unnamed_taxon_ind = 'Yes' WHERE qb_id = 2");
    Select(2);
    EXPECT_EQ(Shown(),
              "Genus|Orca,Orca|,|0|||100|1|valid< >|KSP standards met|partial|1999|1|Kingdom|"
              "Animalia  |Gray, 1846|Brown|Animalia");
    EXPECT_EQ(Panels(), "X Orca|TAXA: 6|EDIT");
    EXPECT_EQ(form.cmdOK.Caption(), "&Save Changes");
    EXPECT_EQ(tab.rankAsLoaded, "Genus");
    EXPECT_FALSE(data.state.RecordDirty);
}

TEST_F(RecViewLoad, MarksThatAreNullAreOff) {
    Make();
    Select(3);
    EXPECT_FALSE(tab.chkHybrid1.Value());
    Execute("UPDATE qb_taxonomic_units SET unit_ind1 = 'X' WHERE qb_id = 2");
    Select(2);
    EXPECT_TRUE(tab.chkHybrid1.Value());
    Select(3);
    EXPECT_FALSE(tab.chkHybrid1.Value());
}

TEST_F(RecViewLoad, ARecordWithoutUsageHasNeitherOptionAndNoSynonyms) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET usage = Null WHERE qb_id = 2");
    Select(2);
    EXPECT_EQ(Usage(), "< >");
    EXPECT_EQ(Synonyms(), ",,,,,;");
}

TEST_F(RecViewLoad, AnAcceptedNameListsItsSynonyms) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'junior synonym' WHERE qb_id = 5");
    Select(2);
    EXPECT_EQ(Usage(), "valid< >");
    EXPECT_EQ(Synonyms(), "Gladiator,junior synonym,5,,S,;,,,,,;");
    EXPECT_EQ(form.synonyms.lblSynonyms.Caption(), "Synonyms");
}

TEST_F(RecViewLoad, AnInvalidNameListsItsAcceptedNames) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET unacceptability_reason = 'junior synonym' WHERE qb_id = 5");
    Select(5);
    EXPECT_EQ(Usage(), "invalid<junior synonym>");
    EXPECT_EQ(form.synonyms.grdSynonyms.Cell(0, SynonymColumn::kQbId), "2");
    EXPECT_EQ(form.synonyms.grdSynonyms.Cell(0, SynonymColumn::kType), "A");
    EXPECT_EQ(form.synonyms.lblSynonyms.Caption() + "|" + form.synonyms.lblSRName.Caption(),
              "Valid Names|Valid Name");
    EXPECT_EQ(tab.cboDPRank.Text() + tab.cboParentName.Text(), "");
}

TEST_F(RecViewLoad, TheKingdomLoadsLikeAnyOtherRecord) {
    Make();
    Select(1);
    EXPECT_EQ(Shown(),
              "Kingdom|Animalia  ,Animalia  |,|202423|||000|0|valid< >|KSP standards met|unknown|"
              "unknown|0|Kingdom|Animalia  |||Animalia");
    EXPECT_EQ(Panels(), "Animalia|TAXA: 6|EDIT");
}

TEST_F(RecViewLoad, ASubspeciesShowsItsNamesBesideTheirLists) {
    Make();
    Select(6);
    Select(4);
    EXPECT_EQ(Texts(tab.cboName1), "Cetus|Gladiator|Orca");
    EXPECT_EQ(tab.cboName1.ListIndex(), 2);
    EXPECT_EQ(tab.cboName1.Text() + "|" + tab.cboName2.Text() + "|" + tab.txtName3.Text(),
              "Orca|alpha|minor");
    EXPECT_EQ(tab.cboDPRank.Text() + "|" + tab.cboParentName.Text(), "Species|Orca alpha");
    EXPECT_EQ(Texts(tab.cboParentName), "Orca alpha");
    EXPECT_EQ(tab.cboParentName.ItemData(0), 3);
    EXPECT_FALSE(tab.cboName1.Locked() || tab.cboName2.Locked());
}

TEST_F(RecViewLoad, TheListOfSpeciesHasThoseOfTheGenusThatHaveAParent) {
    Make();
    AddTaxon(7, "2", 220, "'Orca', 'gamma', Null", "'valid'");
    AddTaxon(8, "Null", 220, "'Orca', 'delta', Null", "'invalid'");
    AddTaxon(9, "6", 220, "'Cetus', 'beta', Null", "'valid'");
    Select(4);
    EXPECT_TRUE(tab.cboName2.ChoicesPending());
    EXPECT_EQ(Texts(tab.cboName2), "alpha|gamma");
    EXPECT_EQ(tab.cboName2.Text(), "alpha");
}

TEST_F(RecViewLoad, TheNameOnTheStatusBarKeepsTheBlanksOfMissingMarks) {
    Make();
    Select(4);
    EXPECT_EQ(form.name.Caption(), "Orca  alpha  minor");
}

TEST_F(RecViewLoad, TheTimeStampSurvivesAlsoAsNull) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET initial_time_stamp = '1996-06-13 14:51:08' WHERE qb_id = 2");
    Select(2);
    EXPECT_EQ(data.state.currentTaxon.initial_time_stamp, Value("1996-06-13 14:51:08"));
    Select(3);
    EXPECT_TRUE(data.state.currentTaxon.initial_time_stamp.IsNull());
}

TEST_F(RecViewLoad, FillsCurrentTaxonFromItsTables) {
    Make();
    Execute("INSERT INTO qb_nodc_ids (nodc_id, qb_id) VALUES ('9218', 3)");
    Select(3);
    const CurrentTaxon& taxon = data.state.currentTaxon;
    EXPECT_EQ(taxon.nodc_id, "9218");
    EXPECT_EQ(taxon.tsn, 7001);
    EXPECT_EQ(taxon.parent_qb_id, 2);
    EXPECT_EQ(taxon.parent_name, "Orca");
    EXPECT_EQ(taxon.parent_rank_name, "Genus");
    EXPECT_EQ(taxon.rank_name, "Species");
    EXPECT_EQ(taxon.required_parent_rank_id, 180);
    EXPECT_EQ(taxon.kingdom_id, 5);
}

TEST_F(RecViewLoad, AMissingTaxonIsReportedAndTheFormIsEmpty) {
    Make();
    Select(3);
    Select(77);
    EXPECT_EQ(data.prompter.messages, Messages{"Not Found, qb_id: 77"});
    EXPECT_EQ(Shown(), "|,|,|0|||000|0|< >||||0|||||");
    EXPECT_EQ(data.state.currentTaxon.qb_id, 77);
    EXPECT_EQ(data.state.gKingdomName, "Animalia");
    EXPECT_EQ(form.mode.Caption(), "EDIT");
}

TEST_F(RecViewLoad, AMissingAuthorIsReportedAndTheRestIsShown) {
    Make();
    Execute("UPDATE qb_taxonomic_units SET hybrid_author_id = 9 WHERE qb_id = 2");
    Execute("DELETE * FROM qb_taxon_authors_lookup");
    Select(2);
    EXPECT_EQ(data.prompter.messages, (Messages{"No Author name in dataset for author id '1'!",
                                                "No Author name in dataset for author id '9'!"}));
    EXPECT_EQ(tab.txtName1.Text() + "|" + tab.cboAuth.Text() + "|" + tab.cboParentName.Text(),
              "Orca||Animalia  ");
}

TEST_F(RecViewLoad, TheCurrentRecordIsNotLoadedAgain) {
    Make();
    Select(3);
    Execute("UPDATE qb_taxonomic_units SET usage = 'invalid' WHERE qb_id = 3");
    recView.Editing().FieldGroupLeft = 3;
    Select(3);
    EXPECT_TRUE(tab.optValid.Value());
    EXPECT_EQ(recView.Editing().FieldGroupLeft, 0);
}

TEST_F(RecViewLoad, ListsHoldTheValuesOfTheDataSet) {
    Make();
    Execute(
        "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (3, 'gray, 1846')");
    Select(3);
    EXPECT_EQ(Texts(tab.cboRank),
              "Kingdom|Subkingdom|Phylum|Subphylum|Superclass|Class|Subclass|Infraclass|Superorder|Order|"
              "Suborder|Infraorder|Superfamily|Family|Subfamily|Tribe|Subtribe|Genus|Subgenus|Species|"
              "Subspecies");
    EXPECT_EQ(Texts(tab.cboDPRank),
              "Kingdom|Subkingdom|Phylum|Subphylum|Superclass|Class|Subclass|Infraclass|Superorder|Order|"
              "Suborder|Infraorder|Superfamily|Family|Subfamily|Tribe|Subtribe|Genus|Subgenus");
    EXPECT_EQ(Texts(tab.cboAuth), "Brown|Gray, 1846") << "case does not count";
    EXPECT_EQ(Texts(tab.cboAuth2), "Brown|Gray, 1846");
    EXPECT_EQ(Texts(tab.cboCredibility),
              "No review; non-peer reviewed source|No review; untreated NODC data|Minimum "
              "taxonomic/nomenclature review|KSP standards met");
    EXPECT_EQ(Texts(tab.cboCoverage), "unknown|partial|complete");
    EXPECT_EQ(Texts(tab.cboInvalidReason),
              "homonym & junior synonym|junior homonym|junior synonym|misapplied|nomen dubium|nomen "
              "oblitum|original name/combination|other, see comments|pro parte|subsequent "
              "name/combination|unavailable, database artifact|unavailable, incorrect orig. "
              "spelling|unavailable, literature misspelling|unavailable, nomen nudum|unavailable, "
              "other|unavailable, suppressed by ruling|unjustified emendation|unnecessary replacement");
}

TEST_F(RecViewLoad, GrowingListsAreReadWhenTheyAreLookedAt) {
    Make();
    Select(3);
    EXPECT_TRUE(tab.cboAuth.ChoicesPending() && tab.cboAuth2.ChoicesPending());
    EXPECT_TRUE(tab.cboName1.ChoicesPending() && tab.cboParentName.ChoicesPending());
    Execute("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (3, 'Abel')");
    EXPECT_EQ(Texts(tab.cboAuth), "Abel|Brown|Gray, 1846");
    EXPECT_EQ(tab.cboAuth.Text(), "");
}

TEST_F(RecViewLoad, ParentsAreNamesThatCanBeParents) {
    Make();
    AddTaxon(7, "1", 180, "'Balaena', Null, Null", "Null");
    Select(3);
    EXPECT_EQ(Texts(tab.cboParentName), "Balaena|Cetus|Orca") << "not the invalid Gladiator";
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Kingdom"));
    EXPECT_EQ(Texts(tab.cboParentName), "Animalia");
    EXPECT_EQ(data.state.currentTaxon.direct_parent_rank_id, 10);
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(RecViewLoad, ParentsBelongToTheRecordThatIsShown) {
    Make();
    Select(3);
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus|Orca");
    Select(2);
    EXPECT_EQ(tab.cboDPRank.Text(), "Kingdom");
    EXPECT_EQ(Texts(tab.cboParentName), "Animalia");
    EXPECT_EQ(data.Dump("SELECT direct_parent_rank_id FROM taxonomic_unit_types WHERE rank_id = 180"),
              std::to_string(data.state.currentTaxon.direct_parent_rank_id) + "\n")
        << "showing a record changes nothing of it";
    Select(5);
    EXPECT_EQ(tab.cboDPRank.Text(), "");
    EXPECT_EQ(Texts(tab.cboParentName), "") << "a name without a parent";
}

TEST_F(RecViewLoad, PickingTheSameParentRankReloadsTheParents) {
    Make();
    Select(3);
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus|Orca");
    AddTaxon(7, "1", 180, "'Balaena', Null, Null", "'valid'");
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus|Orca");
    tab.cboDPRank.UserPick(tab.cboDPRank.ListIndex());
    EXPECT_EQ(Texts(tab.cboParentName), "Balaena|Cetus|Orca");
    EXPECT_EQ(tab.cboParentName.Text(), "Orca");
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(RecViewLoad, SpeciesThatCanBeParentsAreThoseOfTheGenusOnTheForm) {
    Make();
    AddTaxon(7, "6", 220, "'Cetus', 'beta', Null", "'valid'");
    AddTaxon(8, "2", 220, "'Orca', 'gamma', Null", "'valid'");
    Select(4);
    EXPECT_EQ(Texts(tab.cboParentName), "Orca alpha|Orca gamma");
    tab.cboName1.UserSetText("Cetus");
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus beta");
    tab.cboName1.UserSetText("Cet");
    EXPECT_EQ(Texts(tab.cboParentName), "") << "no genus of that name";
    tab.cboName1.SetText("Orca");
    EXPECT_EQ(Texts(tab.cboParentName), "Orca alpha|Orca gamma") << "also when the program sets the genus";
}

TEST_F(RecViewLoad, ARecordIsNotItsOwnParent) {
    Make();
    KeepAll();
    Select(2);
    tab.cboDPRank.AddItem("Genus");
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Genus"));
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus");
    data.state.RecordDirty = false;
    form.mnuAdd.UserClick();
    EXPECT_EQ(Texts(tab.cboParentName), "Cetus|Orca") << "a new record may be any name";
}

TEST_F(RecViewLoad, ARecordIsNotItsOwnAcceptedName) {
    Make();
    for (ButtonControl* command : {&form.mnuAdd, &form.mnuCopy}) {
        Select(2);
        EXPECT_EQ(Texts(form.synonyms.cboSRName), "Cetus");
        command->UserClick();
        EXPECT_EQ(Texts(form.synonyms.cboSRName), "Cetus|Orca Gray, 1846") << "a new record may be any name";
    }
}

TEST_F(RecViewLoad, EveryTabShowsTheRecord) {
    Make();
    Execute(
        "INSERT INTO qb_vernaculars (qb_vern_id, qb_id, vernacular_name, [language], approved_ind) "
        "VALUES (1, 3, 'orca', 'English', True)");
    Execute("INSERT INTO qb_comments (qb_comment_id, commentator, comment_detail) VALUES (1, 'A', 'B')");
    Execute("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (3, 1)");
    Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (3, 'Africa')");
    Execute("INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) VALUES (3, 'Mexico', 'Native')");
    Select(3);
    EXPECT_EQ(form.vernaculars.grdVernacular.Cell(0, 0), "orca");
    EXPECT_EQ(form.comments.grdComments.Cell(0, 0), "A");
    EXPECT_TRUE(form.distribution.chkAfrica.Value());
    EXPECT_EQ(form.distribution.cboMexico.Text(), "Native");
    EXPECT_EQ(Texts(form.publications.association.picker), "orca [English]");
    EXPECT_EQ(Texts(form.experts.association.picker), "orca [English]");
    EXPECT_EQ(Texts(form.otherSources.association.picker), "orca [English]");
    Select(2);
    EXPECT_EQ(form.vernaculars.grdVernacular.Rows().size(), 1u);
    EXPECT_EQ(form.comments.grdComments.Rows().size(), 1u);
    EXPECT_FALSE(form.distribution.chkAfrica.Value());
    EXPECT_EQ(form.distribution.cboMexico.Text(), "None Selected");
    EXPECT_EQ(Texts(form.publications.association.picker), "");
    EXPECT_TRUE(data.prompter.messages.empty());
}

// Two records with something on every tab, and a store that fails in one step of the load.
class RecViewLoadFailing : public RecViewLoad {
protected:
    void MakeFull() {
        Make();
        for (const std::string id : {"2", "3"}) {
            Execute(
                "INSERT INTO qb_vernaculars (qb_vern_id, qb_id, vernacular_name, [language], approved_ind) "
                "VALUES (" +
                id + ", " + id + ", 'orca " + id + "', 'English', True)");
            Execute("INSERT INTO qb_comments (qb_comment_id, commentator, comment_detail) VALUES (" + id +
                    ", 'A" + id + "', 'B')");
            Execute("INSERT INTO qb_tu_comments_link (qb_id, qb_comment_id) VALUES (" + id + ", " + id + ")");
        }
        Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (3, 'Africa')");
        Execute("INSERT INTO qb_geographic_division (qb_id, geographic_value) VALUES (2, 'Caribbean')");
        Execute(
            "INSERT INTO qb_jurisdiction (qb_id, jurisdiction_value, origin) VALUES (2, 'Mexico', 'Native')");
    }
    std::string OnTheTabs() const {
        return tab.cboRank.Text() + "|" + tab.txtName1.Text() + "|" + tab.txtKingdom.Text() + "|" +
               form.vernaculars.grdVernacular.Cell(0, 0) + "|" + form.synonyms.grdSynonyms.Cell(0, 0) + "|" +
               form.synonyms.cboSRank.Text() + "|" + form.comments.grdComments.Cell(0, 0) + "|" +
               (form.distribution.chkAfrica.Value() ? "Africa" : "") +
               (form.distribution.chkCaribbean.Value() ? "Caribbean" : "") + "|" +
               form.distribution.cboMexico.Text();
    }
    // Shows the species, then the genus without the query.
    std::string WithoutQuery(const std::string& query) {
        Select(3);
        const std::string sql = data.db().OpenQueryDef(query).SQL();
        data.db().DeleteQueryDef(query);
        data.prompter.messages.clear();
        Select(2);
        data.db().CreateQueryDef(query, sql);
        return OnTheTabs();
    }
};

TEST_F(RecViewLoadFailing, AStepThatFailsIsReportedAndTheOthersAreShown) {
    struct Case {
        const char* query;
        const char* shown;
    };
    const Case cases[] = {
        {"Get Vernaculars", "Genus|Orca|Animalia||Gladiator|Genus|A2|Caribbean|Native"},
        {"Get Synonyms of Accepted Name", "Genus|Orca|Animalia|orca 2||Genus|A2|Caribbean|Native"},
        {"Get Comments", "Genus|Orca|Animalia|orca 2|Gladiator|Genus||Caribbean|Native"},
        {"Get Distrib Data", "Genus|Orca|Animalia|orca 2|Gladiator|Genus|A2||None Selected"},
        {"Get Jurisdiction Data", "Genus|Orca|Animalia|orca 2|Gladiator|Genus|A2|Caribbean|None Selected"},
        {"Get Kingdom Name", "Genus|Orca||orca 2|Gladiator|Genus|A2|Caribbean|Native"},
        {"Get Rank ID", "Genus|Orca|Animalia|orca 2|Gladiator|Genus|A2|Caribbean|Native"},
    };
    MakeFull();
    for (const Case& row : cases) {
        EXPECT_EQ(WithoutQuery(row.query), row.shown) << row.query;
        ASSERT_EQ(data.prompter.messages.size(), 1u) << row.query;
        EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ") << row.query;
        EXPECT_EQ(form.mode.Caption(), "EDIT");
        EXPECT_FALSE(tab.cboName1.Locked() || tab.cboName2.Locked()) << row.query;
        EXPECT_FALSE(data.state.RecordDirty);
    }
}

TEST_F(RecViewLoadFailing, ARecordThatCannotBeReadLeavesNothingOfTheOneBefore) {
    MakeFull();
    EXPECT_EQ(WithoutQuery("Get Taxon Data"), "|||orca 2|||A2|Caribbean|Native");
    EXPECT_EQ(Shown(), "|,|,|0|||000|0|< >||||0|||||");
    EXPECT_EQ(Texts(tab.cboDPRank) + Texts(tab.cboParentName), "");
    EXPECT_EQ(data.prompter.messages.size(), 1u);
    EXPECT_FALSE(tab.cboName1.Locked() || tab.cboName2.Locked());
}

TEST_F(RecViewLoadFailing, AListThatCannotBeReadIsReportedOnceAndStaysEmpty) {
    Make();
    data.db().DeleteTable("qb_taxon_authors_lookup");
    data.db().DeleteTable("qb_vernaculars");
    EXPECT_TRUE(data.prompter.messages.empty());
    for (const ComboControl* list : {&tab.cboAuth, &form.vernaculars.cboLanguage}) {
        data.prompter.messages.clear();
        EXPECT_EQ(Texts(*list), "");
        EXPECT_EQ(Texts(*list), "");
        ASSERT_EQ(data.prompter.messages.size(), 1u) << list->Name();
        EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ") << list->Name();
    }
}

TEST_F(RecViewLoadFailing, AParentRankThatCannotBeLookedUpIsReportedOnce) {
    Make();
    Select(3);
    data.db().DeleteQueryDef("Get Rank ID");
    tab.cboDPRank.UserPick(tab.cboDPRank.FindText("Kingdom"));
    ASSERT_EQ(data.prompter.messages.size(), 1u);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
}

TEST_F(RecViewLoad, LooksUpRanksTsnsAndTheKingdom) {
    Make();
    EXPECT_EQ(GetRankName(data.db(), 180), "Genus");
    EXPECT_EQ(GetRankName(data.db(), 77), "<unknown>");
    EXPECT_EQ(GetTSN(data.db(), 3), 7001);
    EXPECT_EQ(GetTSN(data.db(), 2), 0);
    EXPECT_EQ(GetTSN(data.db(), 77), 0);
    EXPECT_EQ(GetKingdomId(data.db()), 1);
}

}  // namespace
}  // namespace quillon::editor
