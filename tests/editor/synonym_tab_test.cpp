// The synonyms and accepted names of a record, and the candidates that can be added.
#include "editor/synonym_tab.h"

#include "tab_fixture.h"

namespace quillon::editor {
namespace {

class SynonymTabTest : public TabTest {
protected:
    SynonymTabTest() {
        Run("INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author) VALUES (1, 'Gray')");
        AddTaxon(2, "unit_name2, usage, qb_taxon_author_id, tsn", "'beta', 'valid', 1, 100");
        AddTaxon(3, "unit_name2, usage, unacceptability_reason", "'gamma', 'invalid', 'junior synonym'");
        AddTaxon(4, "unit_ind1, unit_name2, usage, qb_taxon_author_id", "'X', 'delta', 'invalid', 1");
        AddTaxon(5, "unit_name2, unit_ind3, unit_name3, usage", "'alpha', 'ssp.', 'minor', 'valid'");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted, tsn, tsn_accepted) VALUES (3, 2, Null, "
            "100)");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (3, 5)");
        Run("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (4, 2)");
        tab.Connect(data.state, data.prompter);
    }
    std::string FieldsEnabled() const {
        std::string enabled;
        for (const ComboControl* field : {&tab.cboSRank, &tab.cboSRName, &tab.cboSSciName})
            enabled += field->Enabled() ? "1" : "0";
        return enabled;
    }
    std::string Captions() const { return tab.lblSynonyms.Caption() + ", " + tab.lblSRName.Caption(); }
    void Offer(std::string_view rank) {
        data.state.gPrefRank = rank;
        tab.OfferLists();
    }
    void Load(int qb_id, const char* usage) {
        data.state.currentTaxon.usage = usage;
        data.state.currentTaxon.rank_name = "Species";
        tab.Load(qb_id);
    }

    SynonymTab tab{form};
};

TEST_F(SynonymTabTest, BeginsWithTheEmptyRowAndDisabledFields) {
    EXPECT_EQ(HeadingsOf(tab.grdSynonyms),
              "Scientific Name / Author;Invalid Reason;ID(hidden);TSN(hidden);Type(hidden);");
    EXPECT_EQ(RowsOf(tab.grdSynonyms), "||||\n");
    EXPECT_EQ(Captions(), "Synonyms, Valid Name");
    EXPECT_EQ(FieldsEnabled(), "000");
    EXPECT_FALSE(tab.cmdSAdd.Enabled());
    EXPECT_FALSE(tab.cmdSDelete.Enabled());
}

TEST_F(SynonymTabTest, AnAcceptedNameShowsItsSynonymsForReading) {
    Load(3, "invalid");
    Load(2, "valid");
    EXPECT_EQ(RowsOf(tab.grdSynonyms),
              "X Orca delta Gray||4||S\n"
              "Orca gamma|junior synonym|3||S\n"
              "||||\n");
    EXPECT_EQ(Captions(), "Synonyms, Valid Name");
    EXPECT_EQ(FieldsEnabled(), "000");
}

TEST_F(SynonymTabTest, ASynonymShowsItsAcceptedNames) {
    Load(3, "invalid");
    EXPECT_EQ(RowsOf(tab.grdSynonyms),
              "Orca beta Gray||2|100|A\n"
              "Orca alpha ssp. minor||5||A\n"
              "||||\n");
    EXPECT_EQ(FieldsEnabled(), "111");
}

TEST_F(SynonymTabTest, TheKingdomDecidesTheCaptions) {
    for (const char* kingdom : {"Plantae", "Fungi", "Chromista"}) {
        data.state.gKingdomName = kingdom;
        Load(3, "invalid");
        EXPECT_EQ(Captions(), "Accepted Names, Accepted Name") << kingdom;
    }
    for (const char* kingdom : {"Monera", "Protozoa", "Animalia"}) {
        data.state.gKingdomName = kingdom;
        Load(3, "invalid");
        EXPECT_EQ(Captions(), "Valid Names, Valid Name") << kingdom;
    }
}

TEST_F(SynonymTabTest, ARecordWithoutLinksHasTheEmptyRowAlone) {
    Load(3, "invalid");
    Load(2, "invalid");
    EXPECT_EQ(RowsOf(tab.grdSynonyms), "||||\n");
    Load(3, "valid");
    EXPECT_EQ(RowsOf(tab.grdSynonyms), "||||\n");
}

TEST_F(SynonymTabTest, AChosenRowFillsTheNameField) {
    Load(3, "invalid");
    tab.grdSynonyms.UserSelectRow(1);
    EXPECT_EQ(tab.cboSSciName.Text(), "Orca alpha ssp. minor");
    EXPECT_EQ(tab.cboSSciName.ItemData(tab.cboSSciName.ListIndex()), 5);
    tab.grdSynonyms.UserSelectRow(2);
    EXPECT_EQ(tab.cboSSciName.Text(), "") << "the empty row";
    EXPECT_EQ(tab.cboSSciName.ListCount(), 0U);
    tab.grdSynonyms.UserSelectRow(0);
    tab.Clear();
    EXPECT_EQ(tab.cboSSciName.Text(), "");
}

TEST_F(SynonymTabTest, OffersTheRanksOfTheKingdom) {
    Offer("Species");
    EXPECT_EQ(tab.cboSRank.Text(), "Species");
    EXPECT_EQ(tab.cboSRank.Choices().front().text, "Kingdom");
    EXPECT_EQ(tab.cboSRank.FindText("Division"), -1) << "a rank of plants";
    EXPECT_NE(tab.cboSRank.FindText("Phylum"), -1);
}

TEST_F(SynonymTabTest, OffersTheAcceptedNamesOfTheRank) {
    AddTaxon(6, "unit_name2, usage", "'epsilon', Null");
    AddTaxon(7, "unit_name2, usage", "'Aster', 'accepted'");
    Offer("Species");
    EXPECT_TRUE(tab.cboSRName.ChoicesPending());
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca alpha ssp. minor=5\nOrca Aster=7\nOrca beta Gray=2\n");
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(SynonymTabTest, LeavesTheRecordItselfOut) {
    data.state.currentTaxon.qb_id = 2;
    Offer("Species");
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca alpha ssp. minor=5\n");
    Offer("Species");
    data.state.currentTaxon.qb_id = 5;
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca beta Gray=2\n") << "the record when the list is looked at";
    Offer("Species");
    data.state.currentTaxon.qb_id = 0;
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca alpha ssp. minor=5\nOrca beta Gray=2\n") << "a new record";
}

TEST_F(SynonymTabTest, AnotherRankOffersOtherCandidates) {
    Load(3, "invalid");
    Offer("Species");
    tab.cboSRName.UserSetText("Orca b");
    tab.cboSRank.UserSetText("Kingdom");
    EXPECT_EQ(tab.cboSRName.Text(), "");
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Animalia=1\n");
}

TEST_F(SynonymTabTest, AChosenCandidateFillsTheNameField) {
    Load(3, "invalid");
    Offer("Species");
    tab.cboSRName.UserSetText("Orca");
    EXPECT_EQ(tab.cboSSciName.Text(), "") << "no candidate yet";
    tab.cboSRName.UserSetText("Orca beta Gray");
    EXPECT_EQ(tab.cboSSciName.Text(), "Orca beta Gray");
    EXPECT_EQ(tab.cboSSciName.ItemData(tab.cboSSciName.ListIndex()), 2);
}

TEST_F(SynonymTabTest, NamesThatWereWrittenSinceAreOfferedToo) {
    Offer("Species");
    EXPECT_EQ(tab.cboSRName.ListCount(), 2U);
    AddTaxon(6, "unit_name2, usage", "'zeta', 'valid'");
    tab.OfferCandidates();
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca alpha ssp. minor=5\nOrca beta Gray=2\nOrca zeta=6\n");
    Run("DELETE * FROM qb_taxonomic_units WHERE qb_id = 5");
    tab.OfferCandidates();
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "Orca beta Gray=2\nOrca zeta=6\n");
}

TEST_F(SynonymTabTest, WithoutARankOrADataSetThereAreNoCandidates) {
    Offer("");
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "");
    Offer("Species");
    data.state.gDatabase.reset();
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "");
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>());
}

TEST_F(SynonymTabTest, CandidatesThatCannotBeReadAreReported) {
    data.db().DeleteQueryDef("Get Accepted Names");
    Offer("Species");
    EXPECT_EQ(ChoicesOf(tab.cboSRName), "");
    ASSERT_EQ(data.prompter.messages.size(), 1U);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_FALSE(data.prompter.waitCursor);
}

}  // namespace
}  // namespace quillon::editor
