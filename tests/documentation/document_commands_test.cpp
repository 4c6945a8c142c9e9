// What the commands of the documentation tabs do to the grid.
#include "documentation/documentation_fixture.h"

namespace quillon::documentation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Author, original descriptor and the fields that follow, with the trailing row left out.
class DocumentCommandsTest : public DocumentationTest {
protected:
    DocumentCommandsTest() {
        for (DocumentationTab* tab :
             {static_cast<DocumentationTab*>(&publications), static_cast<DocumentationTab*>(&experts),
              static_cast<DocumentationTab*>(&sources)}) {
            tab->Connect(data.state, data.prompter);
            tab->OfferVernaculars({{"Killer whale [English]", 5}, {"Orque [French]", 6}});
        }
        WatchFocus(form);
    }
    // Publications 3 and 4 with their links to the name, to the vernacular 5, or both.
    void StorePublications() {
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "reference_author, publication_name, actual_pub_date) VALUES ('PUB', 3, 17, 'Linnaeus', "
            "'Systema', '1758')");
        Run("INSERT INTO qb_publications (publication_id_prefix, qb_publication_id, publication_id, "
            "reference_author, publication_name, actual_pub_date) VALUES ('PUB', 4, 18, 'Gray', 'Notes', "
            "'1846')");
    }
    void LinkName(int document, const std::string& original = "false") {
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "original_desc_ind) VALUES (2, 'PUB', " +
            std::to_string(document) + ", " + original + ")");
    }
    void LinkVernacular(int document) {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, vernacular_name) VALUES (2, 5, 'PUB', " +
            std::to_string(document) + ", 'Killer whale')");
    }
    void Type(const std::string& author, const std::string& date, const std::string& publication) {
        publications.cboAuthor.UserSetText(author);
        publications.cboADate.UserSetText(date);
        publications.cboPublication.UserSetText(publication);
    }
    void Associate(const std::string& word, const std::string& vernacular = "") {
        publications.cboVernPubSelect.UserSetText(word);
        publications.cboVernPub.UserSetText(vernacular);
    }
    void Add() { publications.add.UserClick(); }
    void Modify() { publications.modify.UserClick(); }
    void Delete() { publications.remove.UserClick(); }
    // Name, author, original descriptor, date, publication, the three ids, association, vernacular, the id as
    // loaded.
    std::string Rows() const {
        std::string text;
        for (int row = 0; publications.grid.IsDataRow(row); ++row) {
            const GridControl::Row& cells = publications.grid.Rows()[static_cast<std::size_t>(row)];
            text += TextOf({cells[0], cells[1], cells[2], cells[3], cells[5], cells[13], cells[14], cells[15],
                            cells[16], cells[17], cells[18]}) +
                    "\n";
        }
        return text;
    }

    PublicationTab publications{form};
    ExpertTab experts{form};
    OtherSourceTab sources{form};
};

constexpr const char* kGray = "Orcinus  orca|Gray|No|1846|Notes|0|0|0|Scientific Name|0|0\n";

TEST_F(DocumentCommandsTest, AddChecksTheRequiredFieldsInOrder) {
    Add();
    EXPECT_EQ(TakeMessages(), "A Publication is required!\n");
    EXPECT_EQ(focused, "cboPublication");
    EXPECT_TRUE(data.state.RecordDirty) << "a refused command counts as a change too";
    publications.cboPublication.UserSetText("Notes");
    Add();
    EXPECT_EQ(TakeMessages(), "An Author is required!\n");
    EXPECT_EQ(focused, "cboAuthor");
    publications.cboAuthor.UserSetText("Gray");
    Add();
    EXPECT_EQ(TakeMessages(), "An Actual Date is required!\n");
    EXPECT_EQ(focused, "cboADate");
    EXPECT_EQ(Rows(), "");
    publications.cboADate.UserSetText("1846");
    Add();
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_EQ(Rows(), kGray);
    EXPECT_EQ(publications.grid.SelectedRow(), 0);
}

TEST_F(DocumentCommandsTest, ThereIsOneOriginalDescriptor) {
    Type("Gray", "1846", "Notes");
    publications.chkPOD.UserSetValue(true);
    Add();
    Type("Brown", "1900", "Whales");
    publications.chkPOD.UserSetValue(true);
    Add();
    EXPECT_EQ(TakeMessages(), "Only one Publication can be designated the Original Descriptor.\n");
    publications.chkPOD.UserSetValue(false);
    Add();
    EXPECT_EQ(Rows(),
              "Orcinus  orca|Gray|Yes|1846|Notes|0|0|0|Scientific Name|0|0\n"
              "Orcinus  orca|Brown|No|1900|Whales|0|0|0|Scientific Name|0|0\n");
    publications.chkPOD.UserSetValue(true);
    Modify();
    EXPECT_EQ(TakeMessages(), "Only one Publication can be designated the Original Descriptor.\n");
}

TEST_F(DocumentCommandsTest, AVernacularMustBePickedAndIsNeverDescribedOriginally) {
    Type("Gray", "1846", "Notes");
    publications.chkPOD.UserSetValue(true);
    Associate("Vernacular");
    Add();
    EXPECT_EQ(TakeMessages(), "You must pick a vernacular!\n");
    EXPECT_EQ(focused, "cboVernPub");
    Associate("Vernacular", "Orque [French]");
    Add();
    EXPECT_EQ(TakeMessages(), "A vernacular cannot have an 'Original Description Indicator'\n");
    publications.chkPOD.UserSetValue(false);
    Add();
    EXPECT_EQ(Rows(), "Orque [French]|Gray|No|1846|Notes|0|0|0|Vernacular|6|0\n");
    publications.chkPOD.UserSetValue(true);
    Modify();
    EXPECT_EQ(TakeMessages(), "You cannot associate an 'original description indicator' to a vernacular\n");
    Associate("Both");
    Modify();
    EXPECT_EQ(TakeMessages(), "You must pick a vernacular!\n");
    EXPECT_EQ(Rows(), "Orque [French]|Gray|No|1846|Notes|0|0|0|Vernacular|6|0\n");
}

TEST_F(DocumentCommandsTest, BothAddsTwoRowsOfWhichOneMayBeOriginal) {
    Type("Gray", "1846", "Notes");
    publications.chkPOD.UserSetValue(true);
    Associate("Both", "Killer whale [English]");
    Add();
    EXPECT_EQ(Rows(),
              "Orcinus  orca|Gray|Yes|1846|Notes|0|0|0|Scientific Name|0|0\n"
              "Killer whale [English]|Gray|No|1846|Notes|0|0|0|Vernacular|5|0\n");
    EXPECT_EQ(publications.grid.SelectedRow(), 1);
}

TEST_F(DocumentCommandsTest, ADuplicateIsOneWhateverItsOriginalDescriptor) {
    Type("Gray", "1846", "Notes");
    Associate("Both", "Killer whale [English]");
    Add();
    Type("Gray", "1846", "Notes");
    Associate("Scientific Name");
    publications.chkPOD.UserSetValue(true);
    Add();
    EXPECT_EQ(TakeMessages(), "Attempting to insert a duplicate record for Scientific Name\n");
    publications.chkPOD.UserSetValue(false);
    Associate("Both", "Killer whale [English]");
    Add();
    EXPECT_EQ(TakeMessages(),
              "Attempting to insert a duplicate record for Scientific Name\n"
              "Attempting to insert a duplicate record for Vernacular\n");
    Associate("Vernacular", "Orque [French]");
    Add();
    EXPECT_EQ(TakeMessages(), "") << "another vernacular";
    EXPECT_EQ(publications.grid.DataCount(), 3U);
}

TEST_F(DocumentCommandsTest, ModifyMayEmptyWhatAddRequires) {
    Type("Gray", "1846", "Notes");
    Add();
    Type("", "", "");
    Modify();
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_EQ(Rows(), "Orcinus  orca||No|||0|0|0|Scientific Name|0|0\n");
}

TEST_F(DocumentCommandsTest, ModifyWithoutASelectedRowDoesNothing) {
    Modify();
    Type("Gray", "1846", "Notes");
    Add();
    publications.grid.UserSelectRow(1);
    Type("Brown", "1900", "Whales");
    Modify();
    Delete();
    EXPECT_EQ(Rows(), kGray);
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_TRUE(data.state.RecordDirty);
}

TEST_F(DocumentCommandsTest, ModifyKeepsTheIdsAndSharesTheDocument) {
    StorePublications();
    LinkName(3, "true");
    LinkVernacular(3);
    LinkName(4);
    publications.Load(2);
    publications.cboPublication.UserSetText("Systema naturae");
    Modify();
    EXPECT_EQ(Rows(),
              "Orcinus  orca|Linnaeus|Yes|1758|Systema naturae|3|17|0|Scientific Name|0|3\n"
              "Killer whale [English]|Linnaeus|No|1758|Systema naturae|3|17|0|Vernacular|5|3\n"
              "Orcinus  orca|Gray|No|1846|Notes|4|18|0|Scientific Name|0|4\n");
    EXPECT_EQ(publications.grid.SelectedRow(), 0);
    Type("Gray", "1846", "Notes");
    Modify();
    EXPECT_EQ(TakeMessages(), "Attempting to insert a duplicate record for Scientific Name\n");
}

TEST_F(DocumentCommandsTest, AModifiedAssociationKeepsTheIdOfTheStoredLink) {
    StorePublications();
    LinkVernacular(3);
    publications.Load(2);
    Associate("Vernacular", "Orque [French]");
    Modify();
    EXPECT_EQ(Rows(), "Orque [French]|Linnaeus|No|1758|Systema|3|17|0|Vernacular|5|3\n");
    Associate("Scientific Name");
    Modify();
    EXPECT_EQ(Rows(), "Orcinus  orca|Linnaeus|No|1758|Systema|3|17|0|Scientific Name|5|3\n");
}

TEST_F(DocumentCommandsTest, BothKeepsTheIdsInTheRowOfTheFormerAssociation) {
    StorePublications();
    LinkVernacular(3);
    publications.Load(2);
    publications.chkPOD.UserSetValue(true);
    Associate("Both", "Killer whale [English]");
    Modify();
    EXPECT_EQ(Rows(),
              "Killer whale [English]|Linnaeus|No|1758|Systema|3|17|0|Vernacular|5|3\n"
              "Orcinus  orca|Linnaeus|Yes|1758|Systema|0|0|0|Scientific Name|0|0\n");
}

TEST_F(DocumentCommandsTest, DeleteRemembersTheLinkAndSelectsTheRowBefore) {
    StorePublications();
    LinkName(3);
    LinkVernacular(3);
    LinkName(4);
    publications.Load(2);
    Type("Brown", "1900", "Whales");
    Add();
    Delete();
    EXPECT_EQ(publications.grid.SelectedRow(), 2);
    EXPECT_EQ(publications.cboAuthor.Text(), "Gray");
    publications.grid.UserSelectRow(1);
    Delete();
    EXPECT_EQ(publications.grid.SelectedRow(), 0);
    Delete();
    EXPECT_EQ(publications.grid.SelectedRow(), 0);
    EXPECT_EQ(publications.cboAuthor.Text(), "Gray");
    Delete();
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(publications.cboAuthor.Text(), "");
    EXPECT_THAT(publications.Pending().ofName, ElementsAre(0, 3, 4));
    EXPECT_THAT(publications.Pending().ofVernaculars, ElementsAre("3|5"));
    publications.Load(2);
    EXPECT_EQ(publications.Pending(), PendingDeletes());
}

TEST_F(DocumentCommandsTest, DeletingAModifiedRowRemovesTheStoredLink) {
    StorePublications();
    LinkName(3);
    LinkVernacular(4);
    publications.Load(2);
    Associate("Vernacular", "Orque [French]");
    Modify();
    Delete();
    Associate("Scientific Name");
    Modify();
    Delete();
    EXPECT_THAT(publications.Pending().ofName, ElementsAre(3));
    EXPECT_THAT(publications.Pending().ofVernaculars, ElementsAre("4|5"));
}

TEST_F(DocumentCommandsTest, OnTheChangeTrackingFormDeletesHaveAListOfTheirOwn) {
    StorePublications();
    LinkName(3);
    Form other{"frmChgTrk"};
    PublicationTab tracked(other, FormPurpose::ChangeTracking);
    ExpertTab trackedExperts(other, FormPurpose::ChangeTracking);
    tracked.Connect(data.state, data.prompter);
    tracked.Load(2);
    tracked.remove.UserClick();
    EXPECT_THAT(tracked.Pending().ofChangeTrack, ElementsAre(3));
    EXPECT_THAT(tracked.Pending().ofName, IsEmpty());
    EXPECT_TRUE(tracked.modify.Visible());
    EXPECT_FALSE(trackedExperts.modify.Visible());
}

TEST_F(DocumentCommandsTest, TheSnapshotIsTheRowShownLast) {
    StorePublications();
    LinkName(3);
    publications.Load(2);
    ASSERT_EQ(publications.FieldSnapshot().size(), 20U);
    EXPECT_EQ(TextOf(publications.FieldSnapshot()),
              "Orcinus  orca|Linnaeus|No|1758||Systema||||||||3|17|0|Scientific Name|0|3|");
    publications.cboAuthor.UserSetText("typed");
    EXPECT_EQ(publications.FieldSnapshot()[1], "Linnaeus");
}

TEST_F(DocumentCommandsTest, ADeletedVernacularTakesItsRowsOutOfTheGrid) {
    StorePublications();
    LinkName(3);
    LinkVernacular(3);
    LinkVernacular(4);
    publications.Load(2);
    publications.grid.UserSelectRow(2);
    publications.OfferVernaculars({{"Orque [French]", 6}});
    publications.RemoveVernacularRows("Killer whale [English]");
    EXPECT_EQ(Rows(), "Orcinus  orca|Linnaeus|No|1758|Systema|3|17|0|Scientific Name|0|3\n");
    EXPECT_EQ(publications.grid.SelectedRow(), 0);
    EXPECT_EQ(publications.cboVernPub.Text(), "");
    EXPECT_EQ(publications.Pending(), PendingDeletes()) << "its links go with it";
}

TEST_F(DocumentCommandsTest, ARowModifiedToADeletedVernacularLosesItsStoredLink) {
    StorePublications();
    LinkName(3);
    publications.Load(2);
    Associate("Vernacular", "Orque [French]");
    Modify();
    publications.RemoveVernacularRows("Orque [French]");
    EXPECT_EQ(Rows(), "");
    EXPECT_THAT(publications.Pending().ofName, ElementsAre(3));
}

TEST_F(DocumentCommandsTest, ARenamedVernacularIsRenamedWhereItIsShown) {
    StorePublications();
    LinkVernacular(3);
    LinkVernacular(4);
    publications.Load(2);
    Associate("Vernacular", "Orque [French]");
    Modify();
    publications.RenameVernacular(5, "Grampus [English]");
    EXPECT_EQ(Rows(),
              "Orque [French]|Linnaeus|No|1758|Systema|3|17|0|Vernacular|5|3\n"
              "Grampus [English]|Gray|No|1846|Notes|4|18|0|Vernacular|5|4\n");
    publications.OfferVernaculars({{"Grampus [English]", 5}, {"Epaulard [French]", 6}});
    publications.RenameVernacular(6, "Epaulard [French]");
    EXPECT_EQ(publications.grid.Cell(0, 0), "Epaulard [French]");
    EXPECT_EQ(publications.cboVernPub.Text(), "Epaulard [French]");
}

TEST_F(DocumentCommandsTest, ARenamedVernacularThatIsNotStoredKeepsItsRows) {
    publications.OfferVernaculars({{"Killer whale [English]", 5}, {"Orka [German]", 0}});
    Type("Gray", "1846", "Notes");
    Associate("Vernacular", "Orka [German]");
    Add();
    publications.RenameNewVernacular("Orka [German]", "Orca [German]");
    EXPECT_EQ(publications.grid.Cell(0, 0), "Orca [German]");
    EXPECT_EQ(publications.cboVernPub.Text(), "Orca [German]");
    publications.OfferVernaculars({{"Killer whale [English]", 5}});
    publications.RemoveVernacularRows("Orca [German]");
    EXPECT_EQ(Rows(), "");
}

TEST_F(DocumentCommandsTest, ExpertsAndOtherSourcesRequireTheirFirstField) {
    experts.add.UserClick();
    sources.add.UserClick();
    EXPECT_EQ(TakeMessages(), "An Expert is required!\nA Source is required!\n");
    EXPECT_EQ(focused, "cboSource");
    experts.cboExpert.UserSetText("Dale Rice");
    experts.cboVernExpSelect.UserSetText("Both");
    experts.add.UserClick();
    EXPECT_EQ(TakeMessages(), "You must pick a vernacular!\n");
    experts.cboVernExp.UserSetText("Orque [French]");
    experts.add.UserClick();
    experts.cboVernExpSelect.UserSetText("Both");
    experts.add.UserClick();
    EXPECT_EQ(TakeMessages(),
              "Attempting to insert a duplicate record for Scientific Name\n"
              "Attempting to insert a duplicate record for Vernacular\n");
    EXPECT_EQ(TextOf(experts.grid),
              "Orcinus  orca|Dale Rice||0|0|0|Scientific Name|0|0\n"
              "Orque [French]|Dale Rice||0|0|0|Vernacular|6|0\n"
              "||||||||\n");
    sources.cboSource.UserSetText("Marine list");
    sources.txtADate.UserSetText("06/15/2023");
    sources.add.UserClick();
    sources.txtADate.UserSetText("06/16/2023");
    sources.add.UserClick();
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_EQ(TextOf(sources.grid),
              "Orcinus  orca|Marine list|||06/15/2023||0|0|0|Scientific Name|0|0\n"
              "Orcinus  orca|Marine list|||06/16/2023||0|0|0|Scientific Name|0|0\n"
              "|||||||||||\n");
}

TEST_F(DocumentCommandsTest, ANewRecordKeepsRowsThatBelongToNoChangeTrack) {
    StorePublications();
    LinkName(3);
    Run("UPDATE qb_reference_links SET qb_change_track_id = 9");
    publications.Load(2);
    EXPECT_NE(Disabled(), "");
    publications.EnterMode(EditorMode::Input);
    EXPECT_EQ(Rows(), "Orcinus  orca|Linnaeus|No|1758|Systema|3|17|0|Scientific Name|0|3\n");
    EXPECT_EQ(Disabled(), "");
    publications.EnterMode(EditorMode::None);
    EXPECT_EQ(Disabled(), "cmdPubAdd cmdPubModify cmdPubDelete ");
}

}  // namespace
}  // namespace quillon::documentation
