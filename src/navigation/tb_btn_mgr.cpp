#include "navigation/tb_btn_mgr.h"

namespace quillon::navigation {

namespace {

void SetEnabled(const TBBtnMgr::Toolbar& controls, std::string_view key, bool enabled) {
    const auto found = controls.find(key);
    if (found != controls.end() && found->second != nullptr) found->second->SetEnabled(enabled);
}

}  // namespace

void TBBtnMgr::Init(Toolbar toolbar, std::span<const std::string_view> keys, bool initialState) {
    toolbar_ = std::move(toolbar);
    states_.clear();
    keys_.clear();
    menus_.clear();
    isMasked_ = false;
    for (const std::string_view key : keys) Add(key, initialState);
}

void TBBtnMgr::Add(std::string_view key, bool initialState, Control* menuItem) {
    if (!states_.emplace(key, TBBtnState{initialState}).second) return;
    keys_.emplace_back(key);
    if (menuItem != nullptr) menus_.emplace(key, menuItem);
}

void TBBtnMgr::Show(std::string_view key, bool enabled, bool withMenuItem) {
    SetEnabled(toolbar_, key, enabled);
    if (withMenuItem) SetEnabled(menus_, key, enabled);
}

void TBBtnMgr::SetMaskTo(bool mask) {
    if (mask == isMasked_) return;
    for (const std::string& key : keys_) {
        if (states_.find(key)->second.State) Show(key, !mask, true);
    }
    isMasked_ = mask;
}

void TBBtnMgr::ChangeStateTo(std::string_view key, bool state, const Control* menuItem) {
    const auto found = states_.find(key);
    if (found == states_.end()) return;
    if (!isMasked_) Show(key, state, menuItem != nullptr);
    found->second.State = state;
}

}  // namespace quillon::navigation
