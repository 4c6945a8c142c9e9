#include "documentation/pick_list.h"

namespace quillon::documentation {

bool PickListControl::UserDropDown() {
    if (!AcceptsUser()) return false;
    ChangeScope scope(form_);
    if (dropDownRule_) dropDownRule_();
    return true;
}

bool PickListControl::UserPick(int index) {
    if (!AcceptsUser() || !Has(index)) return false;
    ChangeScope scope(form_);
    UserChoose(index);
    if (pickRule_) pickRule_();
    return true;
}

}  // namespace quillon::documentation
