// How the other sources tab shows what is stored of a taxon.
#include "documentation/documentation_fixture.h"

namespace quillon::documentation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEmptyRow = "|||||||||||\n";
constexpr const char* kNoFields = "|||||||Scientific Name||hidden|hidden";

class OtherSourceTabTest : public DocumentationTest {
protected:
    OtherSourceTabTest() {
        tab.Connect(data.state, data.prompter);
        Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_id, source, source_type, "
            "version, acquisition_date, source_comment) VALUES ('SRC', 4, 40, 'Marine list', 'website', "
            "'2023', "
            "'06/15/2023', 'a list')");
        Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source, acquisition_date) "
            "VALUES ('SRC', 5, 'Marine list', '06/16/2023')");
        Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source) "
            "VALUES ('SRC', 6, 'Catalogue')");
    }
    void Link(const std::string& document, const std::string& changeTrack = "NULL") {
        Run("INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id, "
            "qb_change_track_id) VALUES (2, 'SRC', " +
            document + ", " + changeTrack + ")");
    }
    void LinkVernacular(const std::string& document, const std::string& vernacular, const std::string& name) {
        Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, "
            "qb_documentation_id, vernacular_name) VALUES (2, " +
            vernacular + ", 'SRC', " + document + ", '" + name + "')");
    }
    void Load() { tab.Load(2); }
    std::string Fields() const {
        return TextOf({tab.cboSource.Text(), tab.txtSourceType.Text(), tab.txtVersion.Text(),
                       tab.txtADate.Text(), tab.txtOSComments.Text(), tab.txtOSQBID.Text(),
                       tab.txtOSID.Text(), tab.cboVernSrcSelect.Text(), tab.cboVernSrc.Text(),
                       tab.cboVernSrc.Visible() ? "shown" : "hidden",
                       tab.lblVernSrcCbo.Visible() ? "shown" : "hidden"});
    }

    OtherSourceTab tab{form};
};

TEST_F(OtherSourceTabTest, BeginsWithAnEmptyRowAndEmptyFields) {
    EXPECT_EQ(HeadingsOf(tab.grdOtherSources),
              "Name|Source|Srce Type|Version|Acquis Date|Comments|(QB OSID)|(OSID)|(CTID)|Associated With|"
              "(QB VERN ID)|(Orig QB OSID)");
    EXPECT_EQ(TextOf(tab.grdOtherSources), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(TextOf(tab.cboVernSrcSelect), "Scientific Name|Vernacular|Both");
    EXPECT_EQ(Disabled(), "");
}

TEST_F(OtherSourceTabTest, ShowsEachDocumentWithItsNameBeforeItsVernaculars) {
    Link("5");
    Link("4", "12");
    LinkVernacular("6", "6", "Orque");
    LinkVernacular("4", "5", "Killer whale");
    Run("INSERT INTO qb_vern_ref_links (qb_id, qb_vern_id, qb_documentation_id_prefix, qb_documentation_id, "
        "vernacular_name) VALUES (3, 5, 'SRC', 6, 'Killer whale')");
    Load();
    EXPECT_EQ(TextOf(tab.grdOtherSources),
              "Orcinus  orca|Marine list|website|2023|06/15/2023|a list|4|40|12|Scientific Name|0|4\n"
              "Killer whale [English]|Marine list|website|2023|06/15/2023|a list|4|40|0|Vernacular|5|4\n"
              "Orcinus  orca|Marine list|||06/16/2023||5|0|0|Scientific Name|0|5\n"
              "Orque [unspecified]|Catalogue|||||6|0|0|Vernacular|6|6\n" +
                  std::string(kEmptyRow));
    EXPECT_EQ(tab.grdOtherSources.SelectedRow(), 0);
    EXPECT_EQ(Fields(), "Marine list|website|2023|06/15/2023|a list|4|40|Scientific Name||hidden|hidden");
    tab.grdOtherSources.UserSelectRow(1);
    EXPECT_EQ(
        Fields(),
        "Marine list|website|2023|06/15/2023|a list|4|40|Vernacular|Killer whale [English]|shown|shown");
    tab.grdOtherSources.UserSelectRow(4);
    EXPECT_EQ(Fields(), kNoFields);
}

TEST_F(OtherSourceTabTest, TheRowOfAChangeTrackIsReadOnly) {
    Link("4", "12");
    Load();
    EXPECT_EQ(Disabled(), "cmdOSAdd cmdOSDelete cboSource txtSourceType txtVersion txtADate txtOSComments ");
    tab.grdOtherSources.UserSelectRow(1);
    EXPECT_EQ(Disabled(), "");
    Form other{"frmChgTrk"};
    OtherSourceTab tracked(other, FormPurpose::ChangeTracking);
    tracked.Connect(data.state, data.prompter);
    tracked.Load(2);
    EXPECT_TRUE(tracked.cboSource.Enabled());
}

TEST_F(OtherSourceTabTest, ShowsIdsOf32Bits) {
    Run("INSERT INTO qb_other_sources (source_id_prefix, qb_source_id, source_id, source) "
        "VALUES ('SRC', 2147483646, 2147483647, 'Late list')");
    Link("2147483646");
    Load();
    EXPECT_EQ(Fields(), "Late list|||||2147483646|2147483647|Scientific Name||hidden|hidden");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(OtherSourceTabTest, ARecordThatIsNotStoredBeginsWithNothing) {
    Link("4", "12");
    Load();
    tab.Clear();
    EXPECT_EQ(TextOf(tab.grdOtherSources), kEmptyRow);
    EXPECT_EQ(Fields(), kNoFields);
    EXPECT_EQ(Disabled(), "");
}

TEST_F(OtherSourceTabTest, TheListHasEachSourceOnceAndKeepsTheText) {
    tab.cboSource.SetText("Something");
    tab.OfferLists();
    EXPECT_TRUE(tab.cboSource.ChoicesPending()) << "the list has not been opened yet";
    EXPECT_EQ(TextOf(tab.cboSource), "Catalogue|Marine list");
    EXPECT_EQ(tab.cboSource.Text(), "Something");
}

TEST_F(OtherSourceTabTest, APickFillsTheOtherFields) {
    tab.OfferLists();
    ASSERT_TRUE(tab.cboSource.UserPick(1));
    EXPECT_EQ(Fields(), "Marine list|website|2023|06/15/2023|a list|4|40|Scientific Name||hidden|hidden")
        << "the first of two";
    ASSERT_TRUE(tab.cboSource.UserPick(0));
    EXPECT_EQ(Fields(), "Catalogue|||||6||Scientific Name||hidden|hidden");
}

TEST_F(OtherSourceTabTest, AnUnknownSourceFillsNothing) {
    tab.txtVersion.SetText("kept");
    tab.cboSource.SetText("Something");
    tab.FillFromPick(0);
    EXPECT_EQ(Fields(), "Something||kept|||||Scientific Name||hidden|hidden");
    data.state.gDatabase.reset();
    tab.cboSource.SetText("Catalogue");
    tab.FillFromPick(0);
    EXPECT_EQ(Fields(), "Catalogue||kept|||||Scientific Name||hidden|hidden");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(OtherSourceTabTest, ThePickerFollowsTheAssociation) {
    tab.cboVernSrcSelect.UserSetText("Vernacular");
    EXPECT_EQ(Fields(), "|||||||Vernacular||shown|shown");
    tab.cboVernSrcSelect.UserSetText("Scientific Name");
    EXPECT_EQ(Fields(), kNoFields);
}

}  // namespace
}  // namespace quillon::documentation
