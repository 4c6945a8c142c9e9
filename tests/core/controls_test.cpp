#include "core/controls.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/entry_grid.h"

namespace quillon {
namespace {

struct SampleForm {
    Form form{"FrmSample"};
    TextControl txtName1{form, "txtName1", 5};
    ComboControl cboRank{form, "cboRank", ComboControl::Style::ListOnly};
    ComboControl cboAuth{form, "cboAuth"};
    CheckControl chkUnnamed{form, "chkUnnamed", "Unnamed"};
    OptionControl optValid{form, "optValid", "fraUsage", "Valid"};
    OptionControl optInvalid{form, "optInvalid", "fraUsage", "Invalid"};
    OptionControl optOther{form, "optOther", "fraOther"};
    ButtonControl cmdOK{form, "cmdOK", "&Save"};
    ListControl lstNames{form, "lstNames"};
    GridControl grdComments{form, "grdComments", {{"Comment"}, {"ID", true}}};
    GaugeControl Gauge1{form, "Gauge1"};
    TabStripControl TabStrip1{form, "TabStrip1", {{"taxon", "Taxon"}, {"synonyms", "Synonyms"}}};
};

// Counts how often a control notifies.
std::shared_ptr<int> CountOf(Control& control) {
    auto count = std::make_shared<int>(0);
    control.Observe([count] { ++*count; });
    return count;
}

TEST(Form, KnowsItsControlsByName) {
    SampleForm sample;
    EXPECT_EQ(sample.form.Controls().size(), 12u);
    EXPECT_EQ(sample.form.Find("cboRank"), &sample.cboRank);
    EXPECT_EQ(sample.form.Find("cborank"), nullptr);
}

TEST(Control, NotifiesOnceForEachChangeAndNotForAnEqualValue) {
    SampleForm sample;
    const auto count = CountOf(sample.txtName1);
    sample.txtName1.SetText("Puma");
    EXPECT_EQ(*count, 1);
    sample.txtName1.SetText("Puma");
    sample.txtName1.SetEnabled(true);
    sample.txtName1.SetCaption("");
    EXPECT_EQ(*count, 1);
    sample.txtName1.SetEnabled(false);
    EXPECT_EQ(*count, 2);
}

TEST(ChangeScope, NotifiesOnceAtTheEndOfTheOutermost) {
    SampleForm sample;
    const auto text = CountOf(sample.txtName1);
    const auto button = CountOf(sample.cmdOK);
    {
        ChangeScope outer(sample.form);
        {
            ChangeScope inner(sample.form);
            sample.txtName1.SetText("a");
            sample.txtName1.SetLocked(true);
        }
        sample.txtName1.SetText("b");
        sample.cmdOK.SetCaption("&Save Changes");
        EXPECT_EQ(*text, 0);
    }
    EXPECT_EQ(*text, 1);
    EXPECT_EQ(*button, 1);
}

TEST(ChangeScope, NotifiesOfAnObserversChangesInASecondRound) {
    SampleForm sample;
    const auto button = CountOf(sample.cmdOK);
    sample.txtName1.Observe([&] { sample.cmdOK.SetEnabled(!sample.txtName1.Text().empty()); });
    sample.txtName1.SetText("");
    EXPECT_EQ(*button, 0);
    sample.cmdOK.SetEnabled(false);
    sample.txtName1.SetText("a");
    EXPECT_EQ(*button, 2);
    EXPECT_TRUE(sample.cmdOK.Enabled());
}

TEST(Control, RunsRulesOnlyForTheUser) {
    SampleForm sample;
    int edits = 0;
    sample.txtName1.OnEdit([&] { ++edits; });
    sample.txtName1.SetText("program");
    EXPECT_EQ(edits, 0);
    EXPECT_TRUE(sample.txtName1.UserSetText("user"));
    EXPECT_EQ(edits, 1);
    EXPECT_FALSE(sample.txtName1.UserSetText("user"));
    EXPECT_EQ(edits, 1);
}

TEST(Control, RulesRunBeforeObserversAreNotified) {
    SampleForm sample;
    std::string order;
    sample.txtName1.OnEdit([&] {
        order += "rule ";
        sample.chkUnnamed.SetValue(true);
    });
    sample.txtName1.Observe(
        [&] { order += sample.chkUnnamed.Value() ? "notified-after" : "notified-before"; });
    sample.txtName1.UserSetText("x");
    EXPECT_EQ(order, "rule notified-after");
}

TEST(Control, DisabledAndLockedOnesIgnoreTheUserButNotTheProgram) {
    SampleForm sample;
    sample.txtName1.SetLocked(true);
    EXPECT_FALSE(sample.txtName1.UserSetText("x"));
    sample.txtName1.SetText("set");
    EXPECT_EQ(sample.txtName1.Text(), "set");
    sample.cmdOK.SetEnabled(false);
    bool clicked = false;
    sample.cmdOK.OnClick([&] { clicked = true; });
    EXPECT_FALSE(sample.cmdOK.UserClick());
    EXPECT_FALSE(clicked);
}

TEST(TextControl, BoundsWhatTheUserTypesInCharacters) {
    SampleForm sample;
    sample.txtName1.UserSetText("éééééé");
    EXPECT_EQ(sample.txtName1.Text(), "ééééé");
    sample.txtName1.SetText("longer by the program");
    EXPECT_EQ(sample.txtName1.Text(), "longer by the program");
}

TEST(Control, TheFocusRunsRulesOfItsOwn) {
    SampleForm sample;
    std::string log;
    sample.txtName1.OnEnter([&] { log += "entered;"; });
    sample.txtName1.OnLeave([&] { log += "left;"; });
    sample.txtName1.UserEnter();
    sample.txtName1.UserLeave();
    EXPECT_EQ(log, "entered;left;");
}

TEST(OptionControl, ARefusedChoiceChangesNothing) {
    SampleForm sample;
    sample.optValid.SetValue(true);
    bool allows = false;
    int edits = 0, shown = 0;
    sample.optInvalid.OnChoosing([&] { return allows; });
    sample.optInvalid.OnEdit([&] { ++edits; });
    sample.optValid.Observe([&] { ++shown; });
    EXPECT_FALSE(sample.optInvalid.UserChoose());
    EXPECT_TRUE(sample.optValid.Value());
    EXPECT_EQ(edits, 0);
    EXPECT_EQ(shown, 1) << "a window shows the group as it is";
    allows = true;
    EXPECT_TRUE(sample.optInvalid.UserChoose());
    EXPECT_EQ(edits, 1);
}

TEST(ComboControl, KnowsWhichOfEqualTextsWasTaken) {
    SampleForm sample;
    sample.cboAuth.SetChoices({{"Cetus", 6}, {"Cetus", 7}});
    EXPECT_TRUE(sample.cboAuth.UserSetText("Cetus"));
    EXPECT_EQ(sample.cboAuth.PickedData(), 0);
    EXPECT_TRUE(sample.cboAuth.UserChoose(0)) << "the first one, not just its text";
    EXPECT_EQ(sample.cboAuth.PickedData(), 6);
    EXPECT_FALSE(sample.cboAuth.UserChoose(0));
    EXPECT_TRUE(sample.cboAuth.UserChoose(1));
    EXPECT_EQ(sample.cboAuth.PickedData(), 7);
    EXPECT_TRUE(sample.cboAuth.UserSetText("Cetu"));
    EXPECT_EQ(sample.cboAuth.PickedData(), 0);
    sample.cboAuth.SetChoice({"Orca", 9});
    EXPECT_EQ(sample.cboAuth.Text() + std::to_string(sample.cboAuth.PickedData()), "Orca9");
}

TEST(OptionControl, ChoosingOneClearsTheOthersOfItsGroup) {
    SampleForm sample;
    sample.optValid.SetValue(true);
    sample.optOther.SetValue(true);
    const auto valid = CountOf(sample.optValid);
    EXPECT_TRUE(sample.optInvalid.UserChoose());
    EXPECT_FALSE(sample.optValid.Value());
    EXPECT_TRUE(sample.optInvalid.Value());
    EXPECT_TRUE(sample.optOther.Value());
    EXPECT_EQ(*valid, 1);
    EXPECT_FALSE(sample.optInvalid.UserChoose());
}

TEST(CheckControl, TurnsByTheUser) {
    SampleForm sample;
    EXPECT_TRUE(sample.chkUnnamed.UserSetValue(true));
    EXPECT_TRUE(sample.chkUnnamed.Value());
    EXPECT_FALSE(sample.chkUnnamed.UserSetValue(true));
}

TEST(ComboControl, AListOnlyOneHoldsAChoiceOrNothing) {
    SampleForm sample;
    sample.cboRank.AddItem("Genus", 180);
    sample.cboRank.AddItem("Species", 220);
    sample.cboRank.SetText("Species");
    EXPECT_EQ(sample.cboRank.ListIndex(), 1);
    EXPECT_EQ(sample.cboRank.ItemData(sample.cboRank.ListIndex()), 220);
    sample.cboRank.SetText("species");
    EXPECT_EQ(sample.cboRank.ListIndex(), -1);
    EXPECT_EQ(sample.cboRank.Text(), "");
    EXPECT_FALSE(sample.cboRank.UserSetText("Order"));
    EXPECT_TRUE(sample.cboRank.UserChoose(0));
    EXPECT_EQ(sample.cboRank.Text(), "Genus");
    sample.cboRank.Clear();
    EXPECT_EQ(sample.cboRank.Text(), "");
    EXPECT_EQ(sample.cboRank.ListIndex(), -1);
}

TEST(ComboControl, AnEditableOneTakesAnyText) {
    SampleForm sample;
    sample.cboAuth.SetTexts({"Linnaeus, 1758", "Gray, 1821"});
    EXPECT_TRUE(sample.cboAuth.UserSetText("Gray, 1821"));
    EXPECT_EQ(sample.cboAuth.ListIndex(), 1);
    EXPECT_TRUE(sample.cboAuth.UserSetText("Gray"));
    EXPECT_EQ(sample.cboAuth.ListIndex(), -1);
    EXPECT_EQ(sample.cboAuth.Text(), "Gray");
    sample.cboAuth.Clear();
    EXPECT_EQ(sample.cboAuth.Text(), "Gray");
    EXPECT_EQ(sample.cboAuth.ListCount(), 0u);
}

TEST(ComboControl, RemovingAChoiceKeepsTheChosenOneChosen) {
    SampleForm sample;
    sample.cboRank.SetTexts({"Order", "Family", "Genus"});
    sample.cboRank.SetListIndex(2);
    sample.cboRank.RemoveItem(0);
    EXPECT_EQ(sample.cboRank.ListIndex(), 1);
    EXPECT_EQ(sample.cboRank.Text(), "Genus");
    sample.cboRank.RemoveItem(1);
    EXPECT_EQ(sample.cboRank.ListIndex(), -1);
    EXPECT_EQ(sample.cboRank.Text(), "");
    EXPECT_EQ(sample.cboRank.ItemData(5), 0);
}

TEST(ListControl, ActivationSelectsFirst) {
    SampleForm sample;
    sample.lstNames.SetChoices({{"Orca", 1}, {"Tursiops", 2}});
    std::int64_t activated = 0;
    sample.lstNames.OnActivate([&] { activated = sample.lstNames.ItemData(sample.lstNames.ListIndex()); });
    EXPECT_TRUE(sample.lstNames.UserActivate(1));
    EXPECT_EQ(activated, 2);
    EXPECT_EQ(sample.lstNames.Text(), "Tursiops");
    EXPECT_FALSE(sample.lstNames.UserActivate(2));
    EXPECT_EQ(sample.lstNames.FindItemData(1), 0);
}

TEST(GridControl, FillsShortRowsAndKeepsTheSelection) {
    SampleForm sample;
    EXPECT_TRUE(sample.grdComments.Columns()[1].hidden);
    sample.grdComments.AddRow({"first"});
    sample.grdComments.AddRow({"second", "2"});
    EXPECT_EQ(sample.grdComments.Cell(0, 1), "");
    EXPECT_TRUE(sample.grdComments.UserSelectRow(1));
    sample.grdComments.RemoveRow(0);
    EXPECT_EQ(sample.grdComments.SelectedRow(), 0);
    EXPECT_EQ(sample.grdComments.Cell(0, 0), "second");
    sample.grdComments.SetCell(0, 0, "changed");
    EXPECT_EQ(sample.grdComments.Rows(), (std::vector<GridControl::Row>{{"changed", "2"}}));
    sample.grdComments.Clear();
    EXPECT_EQ(sample.grdComments.SelectedRow(), -1);
    EXPECT_FALSE(sample.grdComments.UserActivateRow(0));
}

TEST(GridControl, InsertsAndReplacesRowsUnderTheSelection) {
    SampleForm sample;
    sample.grdComments.SetRows({{"first"}, {"third"}});
    sample.grdComments.SetSelectedRow(1);
    sample.grdComments.InsertRow(1, {"second", "2"});
    EXPECT_EQ(sample.grdComments.SelectedRow(), 2);
    sample.grdComments.InsertRow(9, {"last"});
    EXPECT_EQ(sample.grdComments.SelectedRow(), 2);
    sample.grdComments.ReplaceRow(2, {"changed"});
    EXPECT_EQ(sample.grdComments.SelectedRow(), 2);
    EXPECT_EQ(sample.grdComments.Rows(),
              (std::vector<GridControl::Row>{{"first", ""}, {"second", "2"}, {"changed", ""}, {"last", ""}}));
    const auto notified = CountOf(sample.grdComments);
    sample.grdComments.ReplaceRow(3, {"last"});
    EXPECT_EQ(*notified, 0) << "an equal row is no change";
}

TEST(EntryGridControl, KeepsTheEmptyRowLast) {
    Form form("RecView");
    EntryGridControl grid(form, "grdVernacular", {{"Name"}});
    grid.SetSelectedRow(0);
    grid.AddDataRow({"orca"});
    EXPECT_EQ(grid.SelectedRow(), 1) << "the empty row";
    grid.AddDataRow({"orque"});
    EXPECT_EQ(grid.Rows(), (std::vector<GridControl::Row>{{"orca"}, {"orque"}, {""}}));
    EXPECT_EQ(grid.DataCount(), 2U);
    EXPECT_FALSE(grid.RemoveSelectedData()) << "the empty row stays";
    grid.SetSelectedRow(0);
    EXPECT_TRUE(grid.RemoveSelectedData());
    EXPECT_EQ(grid.Rows(), (std::vector<GridControl::Row>{{"orque"}, {""}}));
    EXPECT_EQ(grid.SelectedRow(), 0);
    EXPECT_TRUE(grid.RemoveSelectedData());
    EXPECT_EQ(grid.SelectedRow(), 0) << "the empty row";
    grid.SetSelectedRow(-1);
    EXPECT_FALSE(grid.RemoveSelectedData());
    EXPECT_EQ(grid.Rows(), (std::vector<GridControl::Row>{{""}}));
}

TEST(GaugeControl, StaysWithinItsLimits) {
    SampleForm sample;
    sample.Gauge1.SetValue(150);
    EXPECT_EQ(sample.Gauge1.Value(), 100);
    sample.Gauge1.SetValue(-1);
    EXPECT_EQ(sample.Gauge1.Value(), 0);
    sample.Gauge1.SetValue(80);
    sample.Gauge1.SetMax(50);
    EXPECT_EQ(sample.Gauge1.Value(), 50);
    sample.Gauge1.SetMin(60);
    EXPECT_EQ(sample.Gauge1.Value(), 60);
    EXPECT_EQ(sample.Gauge1.Max(), 60);
}

TEST(GaugeControl, NotifiesAtOnceDuringAJob) {
    SampleForm sample;
    const auto gauge = CountOf(sample.Gauge1);
    const auto button = CountOf(sample.cmdOK);
    ChangeScope job(sample.form);
    sample.cmdOK.SetEnabled(false);
    EXPECT_EQ(*button, 0);
    sample.Gauge1.SetValue(1);
    EXPECT_EQ(*gauge, 1);
    EXPECT_EQ(*button, 1);
    sample.Gauge1.SetValue(1);
    EXPECT_EQ(*gauge, 1);
}

TEST(ChoiceControl, ReadsExpensiveChoicesOnlyOnDemand) {
    SampleForm sample;
    int reads = 0;
    const auto fetch = [&reads]() -> std::vector<ChoiceControl::Choice> {
        ++reads;
        return {{"Gray", 7}, {"Gill", 8}};
    };
    sample.cboAuth.SetText("Gill");
    sample.cboAuth.SetChoicesLater(fetch);
    sample.cboAuth.SetText("Gray");
    sample.cboAuth.SetText("Gill");
    EXPECT_TRUE(sample.cboAuth.ChoicesPending());
    EXPECT_EQ(sample.cboAuth.Text(), "Gill");
    EXPECT_EQ(reads, 0);
    EXPECT_EQ(sample.cboAuth.ListIndex(), 1);
    EXPECT_EQ(sample.cboAuth.ItemData(1), 8);
    EXPECT_EQ(sample.cboAuth.ListCount(), 2u);
    EXPECT_FALSE(sample.cboAuth.ChoicesPending());
    EXPECT_EQ(reads, 1);
    sample.cboAuth.SetChoicesLater(fetch);
    sample.cboAuth.SetChoices({{"Owen", 9}});
    EXPECT_EQ(sample.cboAuth.Choices().front().text, "Owen");
    EXPECT_EQ(reads, 1);
}

TEST(ChoiceControl, AListOnlyComboReadsThemForItsText) {
    SampleForm sample;
    sample.cboRank.SetTexts({"Genus"});
    sample.cboRank.SetText("Genus");
    sample.cboRank.SetChoicesLater([]() -> std::vector<ChoiceControl::Choice> { return {{"Species", 0}}; });
    EXPECT_EQ(sample.cboRank.Text(), "");
    sample.cboRank.SetText("Species");
    EXPECT_EQ(sample.cboRank.Text(), "Species");
    EXPECT_EQ(sample.cboRank.ListIndex(), 0);
}

TEST(ChoiceControl, CountsTheChangesOfItsChoices) {
    SampleForm sample;
    const auto count = CountOf(sample.cboAuth);
    const auto first = sample.cboAuth.ChoicesRevision();
    sample.cboAuth.SetTexts({"Gray"});
    const auto second = sample.cboAuth.ChoicesRevision();
    EXPECT_NE(second, first);
    sample.cboAuth.SetTexts({"Gray"});
    sample.cboAuth.SetText("Gill");
    EXPECT_EQ(sample.cboAuth.ChoicesRevision(), second);
    sample.cboAuth.SetChoicesLater([]() -> std::vector<ChoiceControl::Choice> { return {}; });
    EXPECT_NE(sample.cboAuth.ChoicesRevision(), second);
    EXPECT_EQ(*count, 3);
}

TEST(Control, TheFocusMovesOnceTheActionIsShown) {
    SampleForm sample;
    std::string events;
    sample.cboAuth.Observe([&] { events += "shown;"; });
    sample.cboAuth.OnTakeFocus([&] { events += "author;"; });
    sample.cboRank.OnTakeFocus([&] { events += "rank;"; });
    {
        ChangeScope action(sample.form);
        sample.cboRank.TakeFocus();
        sample.cboAuth.TakeFocus();
        sample.cboAuth.SetText("Gray");
        EXPECT_EQ(events, "");
    }
    EXPECT_EQ(events, "shown;author;") << "the last request counts";
    sample.cboRank.TakeFocus();
    EXPECT_EQ(events, "shown;author;rank;");
}

TEST(TabStripControl, IgnoresTheTabThatIsShown) {
    SampleForm sample;
    int clicks = 0;
    sample.TabStrip1.OnEdit([&] { ++clicks; });
    EXPECT_FALSE(sample.TabStrip1.UserSelect(1));
    EXPECT_TRUE(sample.TabStrip1.UserSelect(2));
    EXPECT_FALSE(sample.TabStrip1.UserSelect(3));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(sample.TabStrip1.SelectedKey(), "synonyms");
    EXPECT_EQ(sample.TabStrip1.IndexOf("taxon"), 1);
    EXPECT_EQ(sample.TabStrip1.IndexOf("experts"), 0);
}

TEST(Form, ReportsItsTitleAndAsksItsRuleBeforeItCloses) {
    SampleForm sample;
    int titles = 0;
    int closed = 0;
    sample.form.OnTitle([&] { ++titles; });
    sample.form.OnClosed([&] { ++closed; });
    sample.form.SetTitle("Sample");
    sample.form.SetTitle("Sample");
    EXPECT_EQ(titles, 1);
    bool mayClose = false;
    sample.form.OnUserClose([&] {
        if (mayClose) sample.form.Close();
    });
    sample.form.UserClose();
    EXPECT_EQ(closed, 0);
    mayClose = true;
    sample.form.UserClose();
    EXPECT_EQ(closed, 1);
}

}  // namespace
}  // namespace quillon
