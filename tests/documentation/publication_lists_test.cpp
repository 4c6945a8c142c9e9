// The pick lists of the publications tab, which narrow one another, and what a pick fills in.
#include "documentation/documentation_fixture.h"

namespace quillon::documentation {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class PublicationListsTest : public DocumentationTest {
protected:
    PublicationListsTest() {
        tab.Connect(data.state, data.prompter);
        Add("'Gray'", "'01/01/1846'", "'Annals'", "'On the British Cetacea'");
        Add("'Gray'", "'01/01/1850'", "'Catalogue'", "'Catalogue'");
        Add("'Owen'", "'01/01/1846'", "'A history'", "'A history'");
        Add("'d''Orbigny'", "'01/01/1834'", "'Annals'", "NULL");
        Add("NULL", "'01/01/1850'", "'Annals'", "'Notes | remarks'");
    }
    void Add(const std::string& author, const std::string& date, const std::string& name,
             const std::string& title) {
        Run("INSERT INTO qb_publications (publication_id_prefix, publication_id, reference_author, "
            "actual_pub_date, publication_name, title, pages, pub_comment) VALUES ('PUB', 8, " +
            author + ", " + date + ", " + name + ", " + title + ", '7', 'c')");
    }
    void Set(const std::string& author, const std::string& date, const std::string& name,
             const std::string& title) {
        tab.cboAuthor.SetText(author);
        tab.cboADate.SetText(date);
        tab.cboPublication.SetText(name);
        tab.cboTitle.SetText(title);
    }
    std::string Fields() const {
        return TextOf({tab.cboAuthor.Text(), tab.cboADate.Text(), tab.cboPublication.Text(),
                       tab.cboTitle.Text(), tab.txtLDate.Text(), tab.txtPublisher.Text(),
                       tab.txtLocation.Text(), tab.txtISBN.Text(), tab.txtISSN.Text(), tab.txtPages.Text(),
                       tab.txtPubComments.Text(), tab.txtPQBID.Text(), tab.txtPID.Text()});
    }
    std::string Authors() {
        tab.Narrow(0);
        return TextOf(tab.cboAuthor);
    }
    std::string Names() {
        tab.Narrow(4);
        return TextOf(tab.cboPublication);
    }
    std::string Titles() {
        tab.Narrow(3);
        return TextOf(tab.cboTitle);
    }

    PublicationTab tab{form};
};

TEST_F(PublicationListsTest, AllValuesAreOfferedWhileTheOtherFieldsAreEmpty) {
    EXPECT_EQ(Authors(), "d'Orbigny|Gray|Owen");
    EXPECT_EQ(Names(), "A history|Annals|Catalogue");
    EXPECT_EQ(Titles(), "A history|Catalogue|Notes | remarks|On the British Cetacea");
    EXPECT_FALSE(data.prompter.waitCursor);
}

TEST_F(PublicationListsTest, EachOtherFieldNarrowsTheList) {
    Set("Owen", "01/01/1846", "", "");
    EXPECT_EQ(Authors(), "Gray|Owen");
    EXPECT_EQ(tab.cboAuthor.Text(), "") << "empty until the user picks";
    Set("", "01/01/1846", "Annals", "");
    EXPECT_EQ(Authors(), "Gray");
    Set("", "", "", "Notes | remarks");
    EXPECT_EQ(Authors(), "");
    Set("Gray", "", "Annals", "");
    EXPECT_EQ(Names(), "Annals|Catalogue");
    Set("Gray", "01/01/1850", "", "Catalogue");
    EXPECT_EQ(Names(), "Catalogue");
    Set("Gray", "", "", "Catalogue");
    EXPECT_EQ(Titles(), "Catalogue|On the British Cetacea");
    Set("Gray", "01/01/1846", "Annals", "");
    EXPECT_EQ(Titles(), "On the British Cetacea");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(PublicationListsTest, QuotesAndBarsInAValueAreQuoted) {
    Set("d'Orbigny", "", "", "");
    EXPECT_EQ(Names(), "Annals");
    Set("", "", "", "Notes | remarks");
    EXPECT_EQ(Names(), "Annals");
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

TEST_F(PublicationListsTest, AQuoteInADateBreaksTheStatement) {
    Authors();
    Set("", "1'1", "", "");
    EXPECT_EQ(Authors(), "");
    EXPECT_THAT(data.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_FALSE(data.prompter.waitCursor);
    Set("", "1'1", "", "");
    tab.FillFromPick(2);
    EXPECT_EQ(data.prompter.messages.size(), 2U);
    EXPECT_EQ(Fields(), "|1'1|||||||||||");
}

TEST_F(PublicationListsTest, AListIsRefilledOnlyAfterItsFieldLostTheFocus) {
    tab.cboTitle.UserDropDown();
    EXPECT_EQ(tab.cboTitle.ListCount(), 4U);
    tab.cboAuthor.SetText("Owen");
    tab.cboTitle.SetText("A history");
    tab.cboTitle.UserDropDown();
    EXPECT_EQ(tab.cboTitle.ListCount(), 4U);
    EXPECT_EQ(tab.cboTitle.Text(), "A history");
    tab.cboTitle.UserLeave();
    tab.cboTitle.UserDropDown();
    EXPECT_EQ(TextOf(tab.cboTitle), "A history");
    EXPECT_EQ(tab.cboTitle.Text(), "");
}

TEST_F(PublicationListsTest, EachFieldDropsDownItsOwnList) {
    tab.cboAuthor.UserDropDown();
    tab.cboPublication.UserDropDown();
    tab.cboADate.UserDropDown();
    EXPECT_EQ(TextOf(tab.cboAuthor), "d'Orbigny|Gray|Owen");
    EXPECT_EQ(TextOf(tab.cboPublication), "A history|Annals|Catalogue");
    EXPECT_EQ(TextOf(tab.cboADate), "");
    tab.cboTitle.SetEnabled(false);
    EXPECT_FALSE(tab.cboTitle.UserDropDown());
    EXPECT_EQ(TextOf(tab.cboTitle), "");
}

TEST_F(PublicationListsTest, ReloadingTakesAllAuthorsAndKeepsTheText) {
    tab.cboAuthor.SetText("Gill");
    tab.cboADate.SetText("01/01/1846");
    tab.ReloadList();
    EXPECT_TRUE(tab.cboAuthor.ChoicesPending()) << "the list has not been opened yet";
    EXPECT_EQ(TextOf(tab.cboAuthor), "|d'Orbigny|Gray|Owen");
    EXPECT_EQ(tab.cboAuthor.Text(), "Gill");
    tab.cboAuthor.UserDropDown();
    EXPECT_EQ(TextOf(tab.cboAuthor), "|d'Orbigny|Gray|Owen") << "the focus has not left since";
    tab.cboAuthor.UserLeave();
    tab.cboAuthor.UserDropDown();
    EXPECT_EQ(TextOf(tab.cboAuthor), "Gray|Owen");
}

TEST_F(PublicationListsTest, AnotherDataSetEmptiesTheLists) {
    Names();
    Titles();
    tab.OfferLists();
    EXPECT_EQ(TextOf(tab.cboPublication), "");
    EXPECT_EQ(TextOf(tab.cboTitle), "");
    tab.cboTitle.UserDropDown();
    EXPECT_EQ(tab.cboTitle.ListCount(), 4U);
}

TEST_F(PublicationListsTest, APickFillsTheFieldsFromTheOneRecord) {
    Run("UPDATE qb_publications SET listed_pub_date = '02/01/1846', publisher = 'P', pub_place = 'L', "
        "isbn = 'I', issn = 'S' WHERE reference_author = 'Owen'");
    tab.ReloadList();
    ASSERT_TRUE(tab.cboAuthor.UserPick(3));
    EXPECT_EQ(Fields(), "Owen|01/01/1846|A history|A history|02/01/1846|P|L|I|S|7|c|3|8");
}

TEST_F(PublicationListsTest, APickThatSeveralRecordsMatchFillsNothing) {
    tab.ReloadList();
    ASSERT_TRUE(tab.cboAuthor.UserPick(2));
    EXPECT_EQ(Fields(), "Gray||||||||||||");
}

TEST_F(PublicationListsTest, OnlyTheFieldThatWasPickedCounts) {
    Names();
    tab.cboAuthor.SetText("Gray");
    ASSERT_TRUE(tab.cboPublication.UserPick(0));
    EXPECT_EQ(Fields(), "Owen|01/01/1846|A history|A history||||||7|c|3|8");
    Set("", "", "", "");
    Titles();
    ASSERT_TRUE(tab.cboTitle.UserPick(1));
    EXPECT_EQ(Fields(), "Gray|01/01/1850|Catalogue|Catalogue||||||7|c|2|8");
    Set("", "", "", "");
    tab.cboADate.AddItem("01/01/1834");
    ASSERT_TRUE(tab.cboADate.UserPick(0));
    EXPECT_EQ(Fields(), "d'Orbigny|01/01/1834|Annals|||||||7|c|4|8");
}

TEST_F(PublicationListsTest, AnEmptyFieldMatchesAllRecords) {
    tab.FillFromPick(3);
    EXPECT_EQ(Fields(), "||||||||||||");
    Run("DELETE * FROM qb_publications WHERE qb_publication_id <> 5");
    tab.FillFromPick(3);
    EXPECT_EQ(Fields(), "|01/01/1850|Annals|Notes | remarks||||||7|c|5|8");
}

TEST_F(PublicationListsTest, ATypedTextFillsNothing) {
    tab.ReloadList();
    tab.cboAuthor.UserSetText("Owen");
    EXPECT_EQ(Fields(), "Owen||||||||||||");
    EXPECT_FALSE(tab.cboAuthor.UserPick(9));
}

TEST_F(PublicationListsTest, TheListsAreEmptyWithoutADataSet) {
    data.state.gDatabase.reset();
    EXPECT_EQ(Authors(), "");
    tab.FillFromPick(0);
    EXPECT_THAT(data.prompter.messages, IsEmpty());
}

}  // namespace
}  // namespace quillon::documentation
