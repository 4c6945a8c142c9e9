// How the experts tab shows what is stored of a taxon.
#include "documentation/documentation_fixture.h"

namespace quillon::documentation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEmptyRow = "||||||||\n";
constexpr const char* kNoFields = "||||Scientific Name||hidden|hidden";

class ExpertTabTest : public DocumentationTest {
protected:
    ExpertTabTest() {
        tab.Connect(data.state, data.prompter);
        Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert, exp_comment) "
            "VALUES ('EXP', 7, 70, 'Dale Rice', 'adviser')");
        Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert) VALUES ('EXP', 8, 'Dale Rice')");
        Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert, exp_comment) "
            "VALUES ('EXP', 9, 'James \"Jim\" Mead', 'whales')");
    }
    void Link(const std::string& document, const std::string& changeTrack = "NULL") {
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "qb_change_track_id) VALUES (2, 'EXP', " +
            document + ", " + changeTrack + ")");
    }
    void LinkVernacular(const std::string& document, const std::string& vernacular, const std::string& name) {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, vernacular_name) VALUES (2, " +
            vernacular + ", 'EXP', " + document + ", '" + name + "')");
    }
    void Load() { tab.Load(2); }
    std::string Fields() const {
        return TextOf({tab.cboExpert.Text(), tab.txtExpComments.Text(), tab.txtEQBID.Text(),
                       tab.txtEID.Text(), tab.cboVernExpSelect.Text(), tab.cboVernExp.Text(),
                       tab.cboVernExp.Visible() ? "shown" : "hidden",
                       tab.lblVernExpCbo.Visible() ? "shown" : "hidden"});
    }

    ExpertTab tab{form};
};

TEST_F(ExpertTabTest, BeginsWithAnEmptyRowAndEmptyFields) {
    EXPECT_EQ(HeadingsOf(tab.grdExperts),
              "Name|Expert|Comments|(QB EID)|(EID)|(CTID)|Assocociated With|(QB VERN ID)|(Orig QB EID)");
    EXPECT_EQ(TextOf(tab.grdExperts), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(TextOf(tab.cboVernExpSelect), "Scientific Name|Vernacular|Both");
    EXPECT_EQ(Disabled(), "");
}

TEST_F(ExpertTabTest, ShowsEachDocumentWithItsNameBeforeItsVernaculars) {
    Link("9");
    Link("7", "12");
    Link("8");
    LinkVernacular("8", "6", "Orque");
    LinkVernacular("7", "5", "Killer whale");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (2, 'PUB', 7)");
    Load();
    EXPECT_EQ(TextOf(tab.grdExperts),
              "Orcinus  orca|Dale Rice|adviser|7|70|12|Scientific Name|0|7\n"
              "Killer whale [English]|Dale Rice|adviser|7|70|0|Vernacular|5|7\n"
              "Orcinus  orca|Dale Rice||8|0|0|Scientific Name|0|8\n"
              "Orque [unspecified]|Dale Rice||8|0|0|Vernacular|6|8\n"
              "Orcinus  orca|James \"Jim\" Mead|whales|9|0|0|Scientific Name|0|9\n" +
                  std::string(kEmptyRow));
    EXPECT_EQ(tab.grdExperts.SelectedRow(), 0);
    EXPECT_EQ(Fields(), "Dale Rice|adviser|7|70|Scientific Name||hidden|hidden");
    tab.grdExperts.UserSelectRow(3);
    EXPECT_EQ(Fields(), "Dale Rice||8|0|Vernacular|Orque [unspecified]|shown|shown");
    tab.grdExperts.UserSelectRow(5);
    EXPECT_EQ(Fields(), kNoFields);
}

TEST_F(ExpertTabTest, TheRowOfAChangeTrackLeavesItsCommentEnabled) {
    Link("7", "12");
    Load();
    EXPECT_EQ(Disabled(), "cmdExpAdd cmdExpDelete cboExpert ");
    tab.grdExperts.UserSelectRow(1);
    EXPECT_EQ(Disabled(), "");
    Form other{"frmChgTrk"};
    ExpertTab tracked(other, FormPurpose::ChangeTracking);
    tracked.Connect(data.state, data.prompter);
    tracked.Load(2);
    EXPECT_TRUE(tracked.cboExpert.Enabled());
}

TEST_F(ExpertTabTest, ShowsIdsOf32Bits) {
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert) "
        "VALUES ('EXP', 6000001, 2147483647, 'A. Late')");
    Link("6000001");
    Load();
    EXPECT_EQ(Fields(), "A. Late||6000001|2147483647|Scientific Name||hidden|hidden");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(ExpertTabTest, ARecordThatIsNotStoredBeginsWithNothing) {
    Link("7", "12");
    Load();
    tab.Clear();
    EXPECT_EQ(TextOf(tab.grdExperts), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(Disabled(), "");
}

TEST_F(ExpertTabTest, TheListHasEachNameOnceAndKeepsTheText) {
    tab.cboExpert.SetText("Somebody");
    tab.OfferLists();
    EXPECT_TRUE(tab.cboExpert.ChoicesPending()) << "the list has not been opened yet";
    EXPECT_EQ(TextOf(tab.cboExpert), "Dale Rice|James \"Jim\" Mead");
    EXPECT_EQ(tab.cboExpert.Text(), "Somebody");
}

TEST_F(ExpertTabTest, APickFillsTheCommentAndTheIds) {
    tab.OfferLists();
    ASSERT_TRUE(tab.cboExpert.UserPick(1));
    EXPECT_EQ(Fields(), "James \"Jim\" Mead|whales|9||Scientific Name||hidden|hidden");
    ASSERT_TRUE(tab.cboExpert.UserPick(0));
    EXPECT_EQ(Fields(), "Dale Rice|adviser|7|70|Scientific Name||hidden|hidden") << "the first of two";
}

TEST_F(ExpertTabTest, AnUnknownExpertFillsNothing) {
    tab.txtExpComments.SetText("kept");
    tab.cboExpert.SetText("Somebody");
    tab.FillFromPick(0);
    EXPECT_EQ(Fields(), "Somebody|kept|||Scientific Name||hidden|hidden");
    data.state.gDatabase.reset();
    tab.cboExpert.SetText("Dale Rice");
    tab.FillFromPick(0);
    EXPECT_EQ(Fields(), "Dale Rice|kept|||Scientific Name||hidden|hidden");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(ExpertTabTest, ThePickerFollowsTheAssociation) {
    tab.cboVernExpSelect.UserSetText("Both");
    EXPECT_EQ(Fields(), "||||Both||shown|shown");
    tab.cboVernExpSelect.UserSetText("Scientific Name");
    EXPECT_EQ(Fields(), kNoFields);
}

}  // namespace
}  // namespace quillon::documentation
