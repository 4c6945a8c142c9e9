#include "documentation/pick_list.h"

namespace quillon::documentation {

bool PickListControl::UserDropDown() {
    if (!AcceptsUser()) return false;
    ChangeScope scope(form_);
    for (const auto& rule : dropDownRules_) rule();
    return true;
}

bool PickListControl::UserPick(int index) {
    if (!AcceptsUser() || !Has(index)) return false;
    ChangeScope scope(form_);
    UserChoose(index);
    for (const auto& rule : pickRules_) rule();
    return true;
}

}  // namespace quillon::documentation
