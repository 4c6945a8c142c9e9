// A combo box whose list depends on what the user does with it: the rule that fills it runs when the list is
// dropped down, and a click on one of its items is distinguished from a text that was typed.
//
// The documentation tabs use it for the fields that narrow one another, the taxon tab for the parent's rank.
// A window calls the three User... procedures, beside those of every combo.
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
    void OnDropDown(std::function<void()> rule) { dropDownRules_.push_back(std::move(rule)); }
    // Runs after a click on an item, with the item's text in the control; OnEdit rules have run before.
    void OnPick(std::function<void()> rule) { pickRules_.push_back(std::move(rule)); }

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
    std::vector<std::function<void()>> dropDownRules_, pickRules_;
    bool left_ = true;
};

}  // namespace quillon::documentation
