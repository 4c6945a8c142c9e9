// A combo box whose list depends on what the user does with it: the rule that fills it runs when it is
// dropped down, and a click on one of its items is told apart from a text that was typed.
//
// The documentation tabs use it for the fields that narrow one another, the taxon tab for the parent's rank.
// What a window has to tell, beside what every combo tells, stands in the three User... procedures.
#pragma once

#include "core/controls.h"

namespace quillon::documentation {

class PickListControl : public ComboControl {
public:
    // `maxLength` in characters bounds what the user types; 0 for none.
    PickListControl(Form& form, std::string name, std::size_t maxLength = 0)
        : ComboControl(form, std::move(name), Style::Editable, maxLength) {}
    PickListControl(Form& form, std::string name, Style style) : ComboControl(form, std::move(name), style) {}

    // Runs each time before the list is shown.
    void OnDropDown(std::function<void()> rule) { dropDownRule_ = std::move(rule); }
    // Runs after a click on an item, with the item's text in the control; OnEdit rules have run before.
    void OnPick(std::function<void()> rule) { pickRule_ = std::move(rule); }

    // False when the control is disabled or locked; then nothing runs.
    bool UserDropDown();
    // False too when there is no such item.
    bool UserPick(int index);
    // The field has lost the focus.
    void UserLeave() { left_ = true; }

    // Whether the field has lost the focus since Refilled(); so it is before the first one, too.
    bool LeftSinceRefill() const { return left_; }
    void Refilled() { left_ = false; }
    void NeverFilled() { left_ = true; }

private:
    std::function<void()> dropDownRule_, pickRule_;
    bool left_ = true;
};

}  // namespace quillon::documentation
