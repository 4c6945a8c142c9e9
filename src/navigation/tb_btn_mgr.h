// The states that a toolbar's buttons should have, kept apart from what is shown: a mask disables all
// buttons, other code goes on enabling and disabling single ones, and without the mask each shows its own
// state again. RecView makes two, one for navigation and one for editing.
//
// A key that is not known is passed over; nothing here is an error. The buttons and menu items must outlive
// the manager, or the next Init().
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"

namespace quillon::navigation {

// The state that one button should have.
struct TBBtnState {
    bool State = false;
};

class TBBtnMgr {
public:
    // The buttons of a toolbar by their keys.
    using Toolbar = std::map<std::string, Control*, std::less<>>;

    // Starts again, with the mask off.
    void Init(Toolbar toolbar, std::span<const std::string_view> keys = {}, bool initialState = false);
    // Remembers a state and changes no button. A key that is there already stays as it is.
    void Add(std::string_view key, bool initialState, Control* menuItem = nullptr);

    // RecView masks nothing when its tab changes: stepping through the names while a tab such as the
    // publications is on show is what people do, so the move buttons stay as they are on every tab.
    bool IsMasked() const { return isMasked_; }
    void MaskAll() { SetMaskTo(true); }
    void UnmaskAll() { SetMaskTo(false); }
    // Buttons whose own state is false are disabled anyway, and are left alone.
    void SetMaskTo(bool mask);

    void Enable(std::string_view key, const Control* menuItem = nullptr) {
        ChangeStateTo(key, true, menuItem);
    }
    void Disable(std::string_view key, const Control* menuItem = nullptr) {
        ChangeStateTo(key, false, menuItem);
    }
    // Shown at once, or under the mask when that comes off. With a menu item given, whichever, the one that
    // the key was added with follows its button.
    void ChangeStateTo(std::string_view key, bool state, const Control* menuItem = nullptr);

private:
    void Show(std::string_view key, bool enabled, bool withMenuItem);

    Toolbar toolbar_;
    std::map<std::string, TBBtnState, std::less<>> states_;
    std::vector<std::string> keys_;  // in the order of Add()
    std::map<std::string, Control*, std::less<>> menus_;
    bool isMasked_ = false;
};

// The keys of the two managers of RecView. All begin enabled but "paste" and "undo".
inline constexpr std::string_view kNavigationKeys[] = {"moveparent", "movefirst", "moveprev",
                                                       "movenext",   "movelast",  "addnew"};
inline constexpr std::string_view kEditKeys[] = {"cut", "copy", "paste", "undo", "delete"};

}  // namespace quillon::navigation
