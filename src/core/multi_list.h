// A list of which any number of items may be selected.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/controls.h"

namespace quillon {

class MultiListControl : public ChoiceControl {
public:
    MultiListControl(Form& form, std::string name) : ChoiceControl(form, std::move(name)) {}

    // The selected items from 0, in ascending order.
    const std::vector<int>& SelectedItems() const { return selected_; }
    // Numbers that are no item are left out.
    void SetSelectedItems(std::vector<int> items);
    // The user selects exactly these. False when the control is disabled or locked.
    bool UserSelect(std::vector<int> items);
    // Replaces all items; none is selected then.
    void Refill(std::vector<Choice> choices);

private:
    std::vector<int> Valid(std::vector<int> items) const;

    std::vector<int> selected_;
};

}  // namespace quillon
