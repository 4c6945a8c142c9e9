#include "core/multi_list.h"

#include <algorithm>

namespace quillon {

std::vector<int> MultiListControl::Valid(std::vector<int> items) const {
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
    std::erase_if(items, [this](int item) { return !Has(item); });
    return items;
}

void MultiListControl::SetSelectedItems(std::vector<int> items) {
    Assign(selected_, Valid(std::move(items)));
}

bool MultiListControl::UserSelect(std::vector<int> items) {
    return ByUser([&] { return Assign(selected_, Valid(std::move(items))); });
}

void MultiListControl::Refill(std::vector<Choice> choices) {
    const ChangeScope scope(form_);
    SetSelectedItems({});
    SetChoices(std::move(choices));
}

}  // namespace quillon
