// Keeps the states of a toolbar's buttons separate from their appearance: a mask disables all buttons while
// other code still sets the states of single buttons, which show again without the mask. RecView has two, one
// for navigation and one for editing.
//
// Unknown keys are ignored; nothing fails. The buttons and menu items must outlive the manager, or the next
// Init().
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"

namespace quillon::navigation {

// The state of one button.
struct TBBtnState {
    bool State = false;
};

class TBBtnMgr {
public:
    // The buttons of a toolbar by their keys.
    using Toolbar = std::map<std::string, Control*, std::less<>>;

    // Starts over, with the mask off.
    void Init(Toolbar toolbar, std::span<const std::string_view> keys = {}, bool initialState = false);
    // Adds a state and changes no button. An existing key keeps its state.
    void Add(std::string_view key, bool initialState, Control* menuItem = nullptr);

    // RecView masks nothing when its tab changes: users step through the names on any tab, so the move
    // buttons keep their states.
    bool IsMasked() const { return isMasked_; }
    void MaskAll() { SetMaskTo(true); }
    void UnmaskAll() { SetMaskTo(false); }
    // Buttons whose state is false are already disabled and are left alone.
    void SetMaskTo(bool mask);

    void Enable(std::string_view key, const Control* menuItem = nullptr) {
        ChangeStateTo(key, true, menuItem);
    }
    void Disable(std::string_view key, const Control* menuItem = nullptr) {
        ChangeStateTo(key, false, menuItem);
    }
    // Takes effect at once, or when the mask is removed. With any menu item given, the one added with the key
    // follows its button.
    void ChangeStateTo(std::string_view key, bool state, const Control* menuItem = nullptr);

private:
    void Show(std::string_view key, bool enabled, bool withMenuItem);

    Toolbar toolbar_;
    std::map<std::string, TBBtnState, std::less<>> states_;
    std::vector<std::string> keys_;  // in the order of Add()
    std::map<std::string, Control*, std::less<>> menus_;
    bool isMasked_ = false;
};

// The keys of the two managers of RecView. All are enabled at first except "paste" and "undo".
inline constexpr std::string_view kNavigationKeys[] = {"moveparent", "movefirst", "moveprev",
                                                       "movenext",   "movelast",  "addnew"};
inline constexpr std::string_view kEditKeys[] = {"cut", "copy", "paste", "undo", "delete"};

}  // namespace quillon::navigation
