#include "script/form_driver.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "core/multi_list.h"
#include "core/text.h"
#include "documentation/pick_list.h"
#include "script/control_text.h"
#include "script/script_line.h"

namespace quillon::script {

namespace {

using documentation::PickListControl;

// Enough choices from a text on to have all of that text among them.
constexpr std::size_t kNamesakes = 50;

template <typename Model>
bool Is(const Control& control) {
    return dynamic_cast<const Model*>(&control) != nullptr;
}

// Menu items and the keys of a toolbar leave the focus where it is; a label cannot have it.
bool TakesFocus(const Control& control) {
    if (Is<LabelControl>(control) || Is<GaugeControl>(control) || Is<TabStripControl>(control)) return false;
    if (const auto* option = dynamic_cast<const OptionControl*>(&control))
        return option->Group().compare(0, 4, "TBar") != 0;
    return !(Is<ButtonControl>(control) && control.Name().compare(0, 3, "mnu") == 0);
}

// Enters a text in a combo whose list is read in slices. False for any other combo.
bool SetWithSource(ComboControl& combo, const std::string& text) {
    if (combo.Source() == nullptr || combo.GetStyle() == ComboControl::Style::ListOnly) return false;
    const Choices choices = combo.Source()->From(text, kNamesakes);
    const std::string wanted = UpperCase(text);
    const auto isExact = [&](const Choice& choice) { return choice.text == text; };
    const auto isAlike = [&](const Choice& choice) { return UpperCase(choice.text) == wanted; };
    auto found = std::find_if(choices.begin(), choices.end(), isExact);
    if (found == choices.end()) found = std::find_if(choices.begin(), choices.end(), isAlike);
    if (found != choices.end()) {
        combo.UserTake(*found);
    } else {
        combo.UserSetText(text);
    }
    return true;
}

// The choice of exactly this text, or else of this text in another letter case; -1 for none.
int ChoiceOf(const ComboControl& combo, const std::string& text) {
    if (const int exact = combo.FindText(text); exact >= 0) return exact;
    const std::string wanted = UpperCase(text);
    const auto& choices = combo.Choices();
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const auto& choice) { return UpperCase(choice.text) == wanted; });
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

}  // namespace

void FormDriver::Push(Form& form, OfKey ofKey) {
    shown_.push_back({&form, nullptr, std::move(ofKey)});
    for (Control* control : form.Controls())
        control->OnTakeFocus([this, &form, control] { FocusMoved(form, *control); });
}

Control& FormDriver::Find(const std::string& name) const {
    const Form& form = *shown_.back().form;
    Control* control = form.Find(name);
    if (control == nullptr && shown_.back().ofKey) control = shown_.back().ofKey(name);
    if (control == nullptr) throw CannotPlay(fmt::format("{} has no control '{}'", form.Name(), name));
    return *control;
}

Control& FormDriver::Ready(const std::string& name) const {
    Control& control = Find(name);
    if (!control.Visible()) throw CannotPlay(name + " is not visible");
    if (!control.Enabled()) throw CannotPlay(name + " is not enabled");
    if (control.Locked()) throw CannotPlay(name + " is locked");
    return control;
}

template <typename Model>
Model& FormDriver::ReadyAs(const std::string& name, std::string_view purpose) const {
    auto* control = dynamic_cast<Model*>(&Ready(name));
    if (control == nullptr) throw CannotPlay(fmt::format("{} is no {}", name, purpose));
    return *control;
}

// The form brings up the control's tab when the control takes the focus. False when a rule has moved the
// focus on: what a person does then does not reach the control.
bool FormDriver::MoveFocusTo(Control& control) {
    if (!TakesFocus(control)) return true;
    control.TakeFocus();
    return shown_.back().focus == &control;
}

// The focus moves at the wish of the script or of the program, in any form that is shown.
void FormDriver::FocusMoved(const Form& form, Control& control) {
    const auto shown =
        std::find_if(shown_.begin(), shown_.end(), [&](const Shown& each) { return each.form == &form; });
    if (shown == shown_.end() || !control.Visible() || !control.Enabled() || shown->focus == &control) return;
    Control* left = std::exchange(shown->focus, &control);
    if (left != nullptr) left->UserLeave();
    control.UserEnter();
}

void FormDriver::LeaveFocus() {
    if (Control* left = std::exchange(shown_.back().focus, nullptr)) left->UserLeave();
}

void FormDriver::Set(const std::string& name, const std::string& text) {
    Control& control = Ready(name);
    if (auto* field = dynamic_cast<TextControl*>(&control)) {
        if (MoveFocusTo(control)) field->UserSetText(text);
    } else if (auto* combo = dynamic_cast<ComboControl*>(&control)) {
        if (MoveFocusTo(control) && combo->Text() != text) SetCombo(*combo, text);
    } else {
        throw CannotPlay(name + " takes no text");
    }
}

void FormDriver::SetCombo(ComboControl& combo, const std::string& text) {
    auto* pickList = dynamic_cast<PickListControl*>(&combo);
    if (pickList != nullptr) pickList->UserDropDown();
    if (SetWithSource(combo, text)) return;
    const int choice = ChoiceOf(combo, text);
    if (choice >= 0 && pickList != nullptr) {
        pickList->UserPick(choice);
    } else if (choice >= 0) {
        combo.UserChoose(choice);
    } else if (combo.GetStyle() == ComboControl::Style::Editable) {
        combo.UserSetText(text);
    } else {
        throw CannotPlay(fmt::format("{} has no choice '{}'", combo.Name(), text));
    }
}

void FormDriver::Check(const std::string& name, bool on) {
    auto& box = ReadyAs<CheckControl>(name, "check box");
    if (MoveFocusTo(box)) box.UserSetValue(on);
}

void FormDriver::Option(const std::string& name) {
    auto& option = ReadyAs<OptionControl>(name, "option");
    if (MoveFocusTo(option)) option.UserChoose();
}

void FormDriver::Tab(const std::string& key) {
    const auto& controls = shown_.back().form->Controls();
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [](const Control* each) { return Is<TabStripControl>(*each); });
    if (found == controls.end()) throw CannotPlay(shown_.back().form->Name() + " has no tabs");
    auto& strip = ReadyAs<TabStripControl>((*found)->Name(), "tab strip");
    const int tab = strip.IndexOf(key);
    if (tab == 0) throw CannotPlay(fmt::format("there is no tab '{}'", key));
    if (tab == strip.SelectedIndex()) return;
    LeaveFocus();
    strip.UserSelect(tab);
}

void FormDriver::Row(const std::string& name, int row) {
    auto& grid = ReadyAs<GridControl>(name, "grid");
    if (static_cast<std::size_t>(row) > grid.Rows().size())
        throw CannotPlay(fmt::format("{} has no row {}", name, row));
    if (MoveFocusTo(grid)) grid.UserSelectRow(row - 1);
}

void FormDriver::Item(const std::string& name, int item) {
    auto& choices = ReadyAs<ChoiceControl>(name, "list");
    auto* pickList = dynamic_cast<PickListControl*>(&choices);
    if (!MoveFocusTo(choices)) return;
    if (pickList != nullptr) pickList->UserDropDown();
    if (static_cast<std::size_t>(item) > choices.ListCount())
        throw CannotPlay(fmt::format("{} has no item {}", name, item));
    if (pickList != nullptr) {
        pickList->UserPick(item - 1);
    } else if (auto* combo = dynamic_cast<ComboControl*>(&choices)) {
        combo->UserChoose(item - 1);
    } else if (auto* list = dynamic_cast<ListControl*>(&choices)) {
        list->UserSelect(item - 1);
    } else if (auto* several = dynamic_cast<MultiListControl*>(&choices)) {
        several->UserSelect({item - 1});
    }
}

void FormDriver::Items(const std::string& name, std::vector<int> items) {
    auto& list = ReadyAs<MultiListControl>(name, "list of several items");
    for (int& item : items) {
        if (static_cast<std::size_t>(item) > list.ListCount())
            throw CannotPlay(fmt::format("{} has no item {}", name, item));
        --item;
    }
    if (MoveFocusTo(list)) list.UserSelect(std::move(items));
}

void FormDriver::Click(const std::string& name) {
    if (Is<OptionControl>(Ready(name))) return Option(name);
    auto& button = ReadyAs<ButtonControl>(name, "button");
    if (MoveFocusTo(button)) button.UserClick();
}

void FormDriver::Enter(const std::string& name) {
    Control& control = Ready(name);
    if (!TakesFocus(control)) throw CannotPlay(name + " takes no focus");
    MoveFocusTo(control);
}

void FormDriver::Leave(const std::string& name) {
    Control& control = Find(name);
    if (shown_.back().focus == &control) shown_.back().focus = nullptr;
    control.UserLeave();
}

std::vector<std::string> FormDriver::Show(const std::vector<std::string>& names) const {
    std::vector<Control*> controls;
    controls.reserve(names.size());
    for (const std::string& name : names) controls.push_back(&Find(name));
    if (names.empty()) controls = shown_.back().form->Controls();
    std::vector<std::string> lines;
    for (const Control* control : controls)
        for (std::string& line : LinesOf(*control)) lines.push_back(std::move(line));
    return lines;
}

}  // namespace quillon::script
