// The actions on the controls of a form, on a small form without rules of its own.
#include "script/form_driver.h"

#include <gtest/gtest.h>

#include "core/entry_grid.h"
#include "core/multi_list.h"
#include "documentation/pick_list.h"
#include "script/script_line.h"

namespace quillon::script {
namespace {

struct SmallForm {
    Form form{"Small"};
    TabStripControl strip{form, "strip", {{"one", "One"}, {"two", "Two"}}};
    TextControl text{form, "text", 5};
    ComboControl editable{form, "editable"};
    ComboControl listOnly{form, "listOnly", ComboControl::Style::ListOnly};
    documentation::PickListControl pickList{form, "pickList"};
    CheckControl check{form, "check", "&Check"};
    OptionControl first{form, "first", "group"}, second{form, "second", "group"};
    ListControl list{form, "list"};
    MultiListControl several{form, "several"};
    EntryGridControl grid{form, "grid", {{"Id", true}, {"Name"}, {"Year"}}};
    ButtonControl button{form, "button", "&Go && Stop"};
    ButtonControl mnuItem{form, "mnuItem", "&Item"};
    LabelControl label{form, "label", "&Label"};

    SmallForm() {
        editable.SetTexts({"Genus", "Species", "species"});
        listOnly.SetTexts({"Genus", "Species"});
        list.SetTexts({"a", "b"});
        first.SetValue(true);
        grid.AddDataRow({"7", "Orca\tminor", "1846"});
        for (Control* control : form.Controls())
            control->OnEdit([this, control] { events += control->Name() + ";"; });
        pickList.OnDropDown([this] {
            events += "drop-down;";
            pickList.SetTexts({"1846", "1758"});
        });
        pickList.OnPick([this] { events += "pick;"; });
    }
    std::string events;
};

class FormDriverTest : public testing::Test {
protected:
    FormDriverTest() { driver.Push(f.form); }

    // The events of the rules since the last call.
    std::string Events() { return std::exchange(f.events, ""); }
    // Why the action cannot be played.
    template <typename Action>
    std::string Refusal(const Action& action) {
        try {
            action();
        } catch (const CannotPlay& reason) {
            return reason.what();
        }
        return "";
    }
    std::string Shown(const std::vector<std::string>& names) {
        std::string shown;
        for (const std::string& line : driver.Show(names)) shown += line + "\n";
        return shown;
    }

    SmallForm f;
    FormDriver driver;
};

TEST_F(FormDriverTest, SetEntersATextAsTyped) {
    driver.Set("text", "abcdefg");
    EXPECT_EQ(f.text.Text(), "abcde");
    EXPECT_EQ(Events(), "text;");
    driver.Set("text", "abcde");
    EXPECT_EQ(Events(), "");
    driver.Set("text", "");
    EXPECT_EQ(f.text.Text(), "");
    EXPECT_EQ(Events(), "text;");
}

TEST_F(FormDriverTest, SetChoosesTheExactTextThenOneInAnotherCase) {
    driver.Set("editable", "species");
    EXPECT_EQ(f.editable.ListIndex(), 2);
    driver.Set("editable", "SPECIES");
    EXPECT_EQ(f.editable.ListIndex(), 1);
    EXPECT_EQ(f.editable.Text(), "Species");
    driver.Set("editable", "Form");
    EXPECT_EQ(f.editable.ListIndex(), -1);
    EXPECT_EQ(f.editable.Text(), "Form");
    EXPECT_EQ(Events(), "editable;editable;editable;");
    driver.Set("editable", "Form");
    EXPECT_EQ(Events(), "");
}

TEST_F(FormDriverTest, AListOnlyComboRefusesOtherTexts) {
    driver.Set("listOnly", "GENUS");
    EXPECT_EQ(f.listOnly.Text(), "Genus");
    EXPECT_EQ(Refusal([&] { driver.Set("listOnly", "Form"); }), "listOnly has no choice 'Form'");
    EXPECT_EQ(f.listOnly.Text(), "Genus");
}

TEST_F(FormDriverTest, APickListIsDroppedDownBeforeItsChoice) {
    driver.Set("pickList", "1758");
    EXPECT_EQ(Events(), "drop-down;pickList;pick;");
    driver.Set("pickList", "1758");
    EXPECT_EQ(Events(), "");
    driver.Set("pickList", "1900");
    EXPECT_EQ(Events(), "drop-down;pickList;");
    driver.Item("pickList", 1);
    EXPECT_EQ(f.pickList.Text(), "1846");
}

TEST_F(FormDriverTest, ChecksOptionsRowsAndItems) {
    driver.Check("check", true);
    driver.Check("check", true);
    driver.Option("second");
    driver.Row("grid", 2);
    driver.Item("list", 2);
    driver.Item("editable", 1);
    driver.Click("button");
    EXPECT_EQ(Events(), "check;second;grid;list;editable;button;");
    EXPECT_EQ(f.grid.SelectedRow(), 1);
    EXPECT_EQ(f.list.Text(), "b");
    EXPECT_FALSE(f.first.Value());
    EXPECT_EQ(Refusal([&] { driver.Row("grid", 3); }), "grid has no row 3");
    EXPECT_EQ(Refusal([&] { driver.Item("list", 3); }), "list has no item 3");
}

TEST_F(FormDriverTest, TabsHaveKeys) {
    driver.Tab("two");
    driver.Tab("two");
    EXPECT_EQ(Events(), "strip;");
    EXPECT_EQ(f.strip.SelectedKey(), "two");
    EXPECT_EQ(Refusal([&] { driver.Tab("three"); }), "there is no tab 'three'");
}

TEST_F(FormDriverTest, RefusesWhatAPersonCannotUse) {
    EXPECT_EQ(Refusal([&] { driver.Click("cmdNone"); }), "Small has no control 'cmdNone'");
    EXPECT_EQ(Refusal([&] { driver.Click("text"); }), "text is no button");
    EXPECT_EQ(Refusal([&] { driver.Check("text", true); }), "text is no check box");
    EXPECT_EQ(Refusal([&] { driver.Option("check"); }), "check is no option");
    EXPECT_EQ(Refusal([&] { driver.Row("list", 1); }), "list is no grid");
    EXPECT_EQ(Refusal([&] { driver.Set("button", "x"); }), "button takes no text");
    EXPECT_EQ(Refusal([&] { driver.Enter("label"); }), "label takes no focus");
    f.text.SetLocked(true);
    EXPECT_EQ(Refusal([&] { driver.Set("text", "x"); }), "text is locked");
    f.text.SetEnabled(false);
    EXPECT_EQ(Refusal([&] { driver.Set("text", "x"); }), "text is not enabled");
    f.text.SetVisible(false);
    EXPECT_EQ(Refusal([&] { driver.Set("text", "x"); }), "text is not visible");
    EXPECT_EQ(Events(), "");
}

TEST_F(FormDriverTest, ShowsNameValueAndState) {
    driver.Check("check", true);
    f.text.SetText("a\tb\\");
    f.text.SetLocked(true);
    f.button.SetEnabled(false);
    f.label.SetVisible(false);
    EXPECT_EQ(Shown({"strip", "text", "check", "second", "button", "label"}),
              "strip\tone\n"
              "text\ta\\tb\\\\\tlocked\n"
              "check\ton\n"
              "second\toff\n"
              "button\tGo & Stop\tdisabled\n"
              "label\tLabel\thidden\n");
    f.grid.SetEnabled(false);
    EXPECT_EQ(Shown({"grid"}), "grid\tOrca\\tminor\t1846\tdisabled\ngrid\t\t\tdisabled\n");
    EXPECT_EQ(driver.Show({}).size(), f.form.Controls().size() + 1);  // the grid has two rows
    EXPECT_EQ(Refusal([&] { driver.Show({"none"}); }), "Small has no control 'none'");
}

TEST_F(FormDriverTest, ActionsMoveTheFocusExceptThoseOfMenus) {
    std::string focus;
    for (Control* control : f.form.Controls())
        control->OnTakeFocus([&focus, control] { focus += control->Name() + ";"; });
    driver.Set("text", "a");
    driver.Set("text", "b");
    driver.Click("mnuItem");
    driver.Tab("two");
    driver.Check("check", true);
    EXPECT_EQ(focus, "text;text;check;");
}

TEST_F(FormDriverTest, APickListKnowsThatItWasLeft) {
    driver.Set("pickList", "1758");
    f.pickList.Refilled();
    driver.Click("mnuItem");
    EXPECT_FALSE(f.pickList.LeftSinceRefill());
    driver.Set("text", "a");
    EXPECT_TRUE(f.pickList.LeftSinceRefill());

    driver.Enter("pickList");
    f.pickList.Refilled();
    f.text.TakeFocus();  // the program moves the focus
    EXPECT_TRUE(f.pickList.LeftSinceRefill());

    driver.Enter("pickList");
    f.pickList.Refilled();
    driver.Leave("pickList");
    EXPECT_TRUE(f.pickList.LeftSinceRefill());
}

TEST_F(FormDriverTest, EnterAndLeaveRunTheirRules) {
    for (Control* control : std::initializer_list<Control*>{&f.text, &f.check}) {
        control->OnEnter([this, control] { f.events += "enter " + control->Name() + ";"; });
        control->OnLeave([this, control] { f.events += "leave " + control->Name() + ";"; });
    }
    driver.Set("text", "a");
    driver.Set("text", "b");
    driver.Check("check", true);
    driver.Leave("check");
    driver.Enter("text");
    driver.Tab("two");
    EXPECT_EQ(Events(),
              "enter text;text;text;leave text;enter check;check;leave check;enter text;leave text;strip;");
}

TEST_F(FormDriverTest, ARuleThatMovesTheFocusOnKeepsTheInputAway) {
    f.editable.OnEnter([this] { f.text.TakeFocus(); });
    driver.Set("editable", "Genus");
    EXPECT_EQ(f.editable.Text(), "");
    EXPECT_EQ(Events(), "");
}

TEST_F(FormDriverTest, SelectsSeveralItems) {
    f.several.Refill({{"a"}, {"b"}, {"c"}});
    driver.Items("several", {3, 1});
    EXPECT_EQ(Shown({"several"}), "several\ta; c\n");
    EXPECT_EQ(Refusal([&] { driver.Items("several", {1, 4}); }), "several has no item 4");
    EXPECT_EQ(Refusal([&] { driver.Items("list", {1}); }), "list is no list of several items");
    driver.Item("several", 2);
    EXPECT_EQ(Shown({"several"}), "several\tb\n");
}

TEST_F(FormDriverTest, WorksOnTheFormInFront) {
    Form modal("Modal");
    ButtonControl cmdOK(modal, "cmdOK");
    driver.Push(modal);
    EXPECT_EQ(Refusal([&] { driver.Set("text", "x"); }), "Modal has no control 'text'");
    driver.Click("cmdOK");
    driver.Pop();
    driver.Set("text", "x");
    EXPECT_EQ(f.text.Text(), "x");
}

}  // namespace
}  // namespace quillon::script
