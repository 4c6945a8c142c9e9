// How the publications tab shows what is stored of a taxon.
#include "documentation/documentation_fixture.h"

namespace quillon::documentation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEmptyRow = "||||||||||||||||||\n";
constexpr const char* kSystema =
    "Linnaeus, C.|Yes|01/01/1758|Systema naturae|Editio decima|02/01/1758|Salvius|Stockholm|I1|S1|1-824|"
    "Tomus I.|3|17|";

class PublicationTabTest : public DocumentationTest {
protected:
    PublicationTabTest() {
        tab.Connect(data.state, data.prompter);
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "reference_author, title, publication_name, listed_pub_date, actual_pub_date, publisher, "
            "pub_place, "
            "isbn, issn, pages, pub_comment) VALUES ('PUB', 3, 17, 'Linnaeus, C.', 'Systema naturae', "
            "'Editio decima', '02/01/1758', '01/01/1758', 'Salvius', 'Stockholm', 'I1', 'S1', '1-824', "
            "'Tomus I.')");
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_name) "
            "VALUES ('PUB', 4, 'Notes')");
    }
    void Link(const std::string& document, const std::string& original = "false",
              const std::string& changeTrack = "NULL") {
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "original_desc_ind, qb_change_track_id) VALUES (2, 'PUB', " +
            document + ", " + original + ", " + changeTrack + ")");
    }
    void LinkVernacular(const std::string& document, const std::string& vernacular, const std::string& name) {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, vernacular_name) VALUES (2, " +
            vernacular + ", 'PUB', " + document + ", '" + name + "')");
    }
    void Load() { tab.Load(2); }
    // What the edit controls hold; the picker with its visibility.
    std::string Fields() const {
        return TextOf({tab.cboAuthor.Text(), tab.chkPOD.Value() ? "x" : "", tab.cboADate.Text(),
                       tab.cboTitle.Text(), tab.cboPublication.Text(), tab.txtLDate.Text(),
                       tab.txtPublisher.Text(), tab.txtLocation.Text(), tab.txtISBN.Text(),
                       tab.txtISSN.Text(), tab.txtPages.Text(), tab.txtPubComments.Text(),
                       tab.txtPQBID.Text(), tab.txtPID.Text(), tab.cboVernPubSelect.Text(),
                       tab.cboVernPub.Text(), tab.cboVernPub.Visible() ? "shown" : "hidden",
                       tab.lblVernPubCbo.Visible() ? "shown" : "hidden"});
    }

    PublicationTab tab{form};
};

constexpr const char* kNoFields = "||||||||||||||Scientific Name||hidden|hidden";

TEST_F(PublicationTabTest, BeginsWithAnEmptyRowAndEmptyFields) {
    EXPECT_EQ(HeadingsOf(tab.grdPublications),
              "Name|Author|Org. Desc.|Act. Date|Title|Publication|Listed Date|Publisher|Location|ISBN|ISSN|"
              "Pages|Comments|(QB PID)|(PID)|(CT ID)|Associated With|(QB VERN ID)|(Orig QB PID)");
    EXPECT_EQ(TextOf(tab.grdPublications), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(TextOf(tab.cboVernPubSelect), "Scientific Name|Vernacular|Both");
    EXPECT_EQ(Disabled(), "");
    EXPECT_FALSE(tab.txtPQBID.UserSetText("1"));
    EXPECT_FALSE(tab.txtPID.UserSetText("1"));
}

TEST_F(PublicationTabTest, ShowsEachDocumentWithItsNameBeforeItsVernaculars) {
    Link("4");
    Link("3", "true", "9");
    LinkVernacular("3", "6", "Orque");
    LinkVernacular("3", "5", "Killer whale");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (3, 'PUB', 4)");
    Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (2, 'EXP', 3)");
    Load();
    const std::string systema(kSystema);
    const std::string ofVernacular =
        "Linnaeus, C.|No|01/01/1758|Systema naturae|Editio decima|02/01/1758|Salvius|Stockholm|I1|S1|1-824|"
        "Tomus I.|3|17|0|Vernacular|";
    EXPECT_EQ(TextOf(tab.grdPublications),
              "Orcinus  orca|" + systema + "9|Scientific Name|0|3\n" + "Killer whale [English]|" +
                  ofVernacular + "5|3\n" + "Orque [unspecified]|" + ofVernacular + "6|3\n" +
                  "Orcinus  orca||No|||Notes||||||||4|0|0|Scientific Name|0|4\n" + kEmptyRow);
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(PublicationTabTest, LoadingShowsTheFirstRow) {
    Link("3", "true");
    Link("4");
    Load();
    EXPECT_EQ(tab.grdPublications.SelectedRow(), 0);
    EXPECT_EQ(
        Fields(),
        "Linnaeus, C.|x|01/01/1758|Systema naturae|Editio decima|02/01/1758|Salvius|Stockholm|I1|S1|1-824|"
        "Tomus I.|3|17|Scientific Name||hidden|hidden");
    EXPECT_EQ(Disabled(), "");
}

TEST_F(PublicationTabTest, ATaxonWithoutLinksLeavesEmptyFieldsToTypeInto) {
    Link("3", "true", "9");
    Load();
    tab.Load(7);
    EXPECT_EQ(TextOf(tab.grdPublications), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(Disabled(), "");
}

TEST_F(PublicationTabTest, ACommentComesWhole) {
    const std::string comment(60000, 'c');
    Run("UPDATE qb_publications SET pub_comment = '" + comment + "' WHERE qb_publication_id = 4");
    Link("4");
    Load();
    EXPECT_EQ(tab.grdPublications.Cell(0, 12), comment);
    EXPECT_EQ(tab.txtPubComments.Text(), comment);
}

TEST_F(PublicationTabTest, ShowsIdsOf32Bits) {
    Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id) "
        "VALUES ('PUB', 32768, 2147483647)");
    Link("32768");
    LinkVernacular("32768", "5", "Killer whale");
    Load();
    EXPECT_EQ(tab.txtPQBID.Text() + "|" + tab.txtPID.Text(), "32768|2147483647");
    EXPECT_EQ(tab.grdPublications.Cell(1, 13) + "|" + tab.grdPublications.Cell(1, 18), "32768|32768");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(PublicationTabTest, WhatCannotBeReadLeavesNoRows) {
    Link("3");
    Load();
    data.db().DeleteTable("qb_vern_ref_links");
    Load();
    ASSERT_EQ(data.prompter.messages.size(), 1U);
    EXPECT_EQ(data.prompter.messages[0].substr(0, 7), "Failed ");
    EXPECT_EQ(TextOf(tab.grdPublications), kEmptyRow) << "no half of it either";
    EXPECT_EQ(Fields(), kNoFields);
}

TEST_F(PublicationTabTest, AClickShowsTheRowAndOnTheEmptyRowClears) {
    Link("3");
    LinkVernacular("4", "5", "Killer whale");
    Load();
    const std::string systema = Fields();
    ASSERT_TRUE(tab.grdPublications.UserSelectRow(1));
    EXPECT_EQ(Fields(), "||||Notes||||||||4|0|Vernacular|Killer whale [English]|shown|shown");
    ASSERT_TRUE(tab.grdPublications.UserSelectRow(2));
    EXPECT_EQ(Fields(), kNoFields);
    ASSERT_TRUE(tab.grdPublications.UserSelectRow(0));
    tab.cboPublication.UserSetText("Other notes");
    ASSERT_TRUE(tab.grdPublications.UserActivateRow(0));
    EXPECT_EQ(Fields(), systema) << "what was typed is gone";
}

TEST_F(PublicationTabTest, TheRowOfAChangeTrackIsReadOnly) {
    Link("3", "true", "9");
    Link("4");
    Load();
    EXPECT_EQ(
        Disabled(),
        "cmdPubAdd cmdPubModify cmdPubDelete cboAuthor chkPOD cboADate cboTitle cboPublication txtLDate "
        "txtPublisher txtLocation txtISBN txtISSN txtPages txtPubComments ");
    tab.grdPublications.UserSelectRow(1);
    EXPECT_EQ(Disabled(), "");
    tab.grdPublications.UserSelectRow(0);
    tab.grdPublications.UserSelectRow(2);
    EXPECT_EQ(Disabled(), "") << "a new row is typed here";
}

TEST_F(PublicationTabTest, OnTheChangeTrackingFormNothingIsDisabled) {
    Link("3", "true", "9");
    Form other{"frmChgTrk"};
    PublicationTab tracked(other, FormPurpose::ChangeTracking);
    tracked.Connect(data.state, data.prompter);
    tracked.Load(2);
    EXPECT_EQ(tracked.txtPQBID.Text(), "3");
    EXPECT_TRUE(tracked.cboAuthor.Enabled());
    EXPECT_TRUE(tracked.txtPages.Enabled());
}

TEST_F(PublicationTabTest, ThePickerFollowsTheAssociation) {
    const auto visible = [&] { return tab.cboVernPub.Visible() && tab.lblVernPubCbo.Visible(); };
    tab.cboVernPubSelect.UserSetText("Vernacular");
    EXPECT_TRUE(visible());
    tab.cboVernPubSelect.UserSetText("Both");
    EXPECT_TRUE(visible());
    tab.cboVernPubSelect.UserSetText("Scientific Name");
    EXPECT_FALSE(tab.cboVernPub.Visible());
    EXPECT_FALSE(tab.lblVernPubCbo.Visible());
}

TEST_F(PublicationTabTest, ARecordThatIsNotStoredBeginsWithNothing) {
    Link("3", "true", "9");
    Load();
    tab.Clear();
    EXPECT_EQ(TextOf(tab.grdPublications), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(Disabled(), "");
}

TEST_F(PublicationTabTest, ShowsNothingWithoutADataSet) {
    Link("3");
    Load();
    data.state.gDatabase.reset();
    Load();
    EXPECT_EQ(TextOf(tab.grdPublications), kEmptyRow);
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(PublicationTabTest, ShowingARowDoesNotCountAsAnEdit) {
    int edits = 0;
    for (ComboControl* field : {static_cast<ComboControl*>(&tab.cboAuthor),
                                static_cast<ComboControl*>(&tab.cboADate), &tab.cboVernPubSelect})
        field->OnEdit([&] { ++edits; });
    Link("3");
    Load();
    EXPECT_EQ(edits, 0);
}

}  // namespace
}  // namespace quillon::documentation
