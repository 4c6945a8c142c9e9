// The vernaculars of a record: what the load shows, and what goes into the fields and the pickers.
#include "editor/vernacular_tab.h"

#include "documentation/association.h"
#include "tab_fixture.h"

namespace quillon::editor {
namespace {

class VernacularTabTest : public TabTest {
protected:
    VernacularTabTest() { tab.Connect(data.state, data.prompter); }
    void AddName(std::string_view values) {
        Run("INSERT INTO qb_vernaculars (qb_id, qb_vern_id, vern_id, vernacular_name, language, "
            "approved_ind) "
            "VALUES (" +
            std::string(values) + ")");
    }
    void AddNames() {
        AddName("2, 5, 77, 'killer whale', 'English', True");
        AddName("2, 6, Null, 'orca', Null, False");
        AddName("3, 7, 78, 'beluga', 'English', True");
        AddName("2, 8, Null, 'orque', 'French', True");
    }
    void Load(int qb_id) { tab.Load(qb_id); }
    std::string Fields() const {
        return tab.txtVName.Text() + "|" + tab.cboLanguage.Text() + "|" +
               (tab.chkApproved.Value() ? "on" : "off");
    }

    VernacularTab tab{form};
};

TEST_F(VernacularTabTest, BeginsWithTheEmptyRowAndWithoutCommands) {
    EXPECT_EQ(HeadingsOf(tab.grdVernacular),
              "Name;Language;Approved;ID(hidden);QB VERN ID(hidden);VERN ID(hidden);");
    EXPECT_EQ(RowsOf(tab.grdVernacular), "|||||\n");
    for (const ButtonControl* command : {&tab.cmdVAdd, &tab.cmdVModify, &tab.cmdVDelete})
        EXPECT_FALSE(command->Enabled()) << command->Name();
    EXPECT_EQ(tab.txtVName.MaxLength(), 80U);
    EXPECT_EQ(tab.cboLanguage.MaxLength(), 15U);
}

TEST_F(VernacularTabTest, ShowsTheNamesOfTheTaxon) {
    AddNames();
    Load(2);
    EXPECT_EQ(RowsOf(tab.grdVernacular),
              "killer whale|English|Yes|2|5|77\n"
              "orca||No|2|6|0\n"
              "orque|French|Yes|2|8|0\n"
              "|||||\n");
    EXPECT_EQ(tab.grdVernacular.SelectedRow(), -1);
    EXPECT_EQ(Fields(), "||off");
}

TEST_F(VernacularTabTest, ALoadForgetsTheRecordBefore) {
    AddNames();
    Load(2);
    tab.grdVernacular.UserSelectRow(0);
    tab.removed = {6};
    Load(4);
    EXPECT_EQ(RowsOf(tab.grdVernacular), "|||||\n");
    EXPECT_EQ(tab.removed, std::vector<int>());
    EXPECT_EQ(Fields(), "||off");
}

TEST_F(VernacularTabTest, ARowThatIsChosenIsShown) {
    AddNames();
    Load(2);
    tab.grdVernacular.UserSelectRow(2);
    EXPECT_EQ(Fields(), "orque|French|on");
    tab.grdVernacular.UserSelectRow(1);
    EXPECT_EQ(Fields(), "orca||off");
    tab.grdVernacular.UserSelectRow(0);
    EXPECT_EQ(Fields(), "killer whale|English|on");
    tab.grdVernacular.UserSelectRow(3);
    EXPECT_EQ(Fields(), "||off") << "the empty row";
}

TEST_F(VernacularTabTest, OffersTheLanguagesOfTheDataSetWhenTheListIsOpened) {
    AddNames();
    tab.OfferLists();
    EXPECT_TRUE(tab.cboLanguage.ChoicesPending());
    AddName("3, 9, Null, 'ballena', 'unspecified', False");
    EXPECT_EQ(ChoicesOf(tab.cboLanguage), "English=0\nFrench=0\nunspecified=0\n");
}

TEST_F(VernacularTabTest, WithoutADataSetThereAreNoLanguages) {
    AddNames();
    tab.OfferLists();
    data.state.gDatabase.reset();
    EXPECT_EQ(ChoicesOf(tab.cboLanguage), "");
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>());
}

TEST_F(VernacularTabTest, LanguagesThatCannotBeReadAreReported) {
    tab.OfferLists();
    data.db().DeleteTable("qb_vernaculars");
    EXPECT_EQ(ChoicesOf(tab.cboLanguage), "");
    EXPECT_EQ(data.prompter.messages.size(), 1U);
}

class VernSelectors : public VernacularTabTest {
protected:
    VernSelectors() {
        for (documentation::Association* each : {&publications, &experts})
            tab.NamesChanged.Connect([each](const auto& names) { each->Offer(names); });
    }

    documentation::Association publications{form, documentation::Publications()};
    documentation::Association experts{form, documentation::Experts()};
    ComboControl &cboVernPub = publications.picker, &cboVernExp = experts.picker;
};

TEST_F(VernSelectors, ListEachNameWithItsLanguageAndId) {
    AddNames();
    Load(2);
    const std::string names = "killer whale [English]=5\norca []=6\norque [French]=8\n";
    EXPECT_EQ(ChoicesOf(cboVernPub), names);
    EXPECT_EQ(ChoicesOf(cboVernExp), names);
}

TEST_F(VernSelectors, KeepTheirText) {
    AddNames();
    Load(2);
    cboVernPub.SetText("beluga [English]");
    cboVernExp.SetText("orque [French]");
    tab.grdVernacular.RemoveRow(0);
    tab.OfferNames();
    EXPECT_EQ(cboVernPub.Text(), "beluga [English]");
    EXPECT_EQ(cboVernPub.ListIndex(), -1);
    EXPECT_EQ(cboVernExp.Text(), "orque [French]");
    EXPECT_EQ(cboVernExp.ListIndex(), 1);
}

TEST_F(VernSelectors, ReportThatThereIsNoNameOnlyOnRequest) {
    AddNames();
    Load(2);
    Load(4);
    EXPECT_EQ(ChoicesOf(cboVernPub), "");
    EXPECT_EQ(data.prompter.messages, std::vector<std::string>());
    tab.OfferNames(true);
    EXPECT_EQ(
        data.prompter.messages,
        std::vector<std::string>{"There are no associated vernaculars!  Please enter a vernacular first."});
}

}  // namespace
}  // namespace quillon::editor
