// A combo box that fills its list when the user drops it down, and that distinguishes a click on an item from
// typed text.
//
// The documentation tabs use it for the fields that narrow one another, the taxon tab for the parent's rank.
// A window calls the three User... procedures in addition to those of every combo.
#pragma once

#include "core/controls.h"

namespace quillon::documentation {

class PickListControl : public ComboControl {
public:
    // `maxLength` limits typed text, in characters; 0 for no limit.
    PickListControl(Form& form, std::string name, std::size_t maxLength = 0)
        : ComboControl(form, std::move(name), Style::Editable, maxLength) {}
    PickListControl(Form& form, std::string name, Style style) : ComboControl(form, std::move(name), style) {}

    // Runs each time before the list is shown.
    void OnDropDown(std::function<void()> rule) { dropDownRules_.push_back(std::move(rule)); }
    // Runs after a click on an item, with the item's text in the control; OnEdit rules have run before.
    void OnPick(std::function<void()> rule) { pickRules_.push_back(std::move(rule)); }

    // False when the control is disabled or locked; then nothing runs.
    bool UserDropDown();
    // Also false when there is no such item.
    bool UserPick(int index);
    void UserLeave() override {
        left_ = true;
        ComboControl::UserLeave();
    }

    // True when the field has lost the focus since Refilled(), and before the first call of Refilled().
    bool LeftSinceRefill() const { return left_; }
    void Refilled() { left_ = false; }
    void NeverFilled() { left_ = true; }

private:
    std::vector<std::function<void()>> dropDownRules_, pickRules_;
    bool left_ = true;
};

}  // namespace quillon::documentation
