#include "core/controls.h"

#include <algorithm>

#include "core/text.h"

namespace quillon {

Control* Form::Find(std::string_view name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return control->Name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::SetTitle(std::string_view title) {
    if (title_ == title) return;
    ChangeScope scope(*this);
    title_ = title;
    titleChanged_ = true;
}

void Form::Close() {
    closed_();
}

void Form::UserClose() {
    if (!closeRule_) return Close();
    ChangeScope scope(*this);
    closeRule_();
}

void Form::End() {
    if (--depth_ > 0) return;
    TellChanges();
    if (Control* control = std::exchange(focus_, nullptr))
        for (const auto& observer : control->focusObservers_) observer();
}

// Changes made by an observer are reported in another round, so that no observer is called twice for one
// state.
void Form::TellChanges() {
    if (telling_) return;
    telling_ = true;
    while (titleChanged_ || !changed_.empty()) {
        if (std::exchange(titleChanged_, false)) titleObservers_();
        for (Control* control : std::exchange(changed_, {})) {
            control->touched_ = false;
            for (const auto& observer : control->observers_) observer();
        }
    }
    telling_ = false;
}

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
    form_.controls_.push_back(this);
}

void Control::Touch() {
    ChangeScope scope(form_);
    if (touched_) return;
    touched_ = true;
    form_.changed_.push_back(this);
}

void Control::TakeFocus() {
    ChangeScope scope(form_);
    form_.focus_ = this;
}

bool Control::ByUser(const std::function<bool()>& change) {
    if (!AcceptsUser()) return false;
    ChangeScope scope(form_);
    if (!change()) return false;
    for (const auto& rule : rules_) rule();
    return true;
}

void Control::Run(const Rules& rules) {
    ChangeScope scope(form_);
    for (const auto& rule : rules) rule();
}

LabelControl::LabelControl(Form& form, std::string name, std::string_view caption)
    : Control(form, std::move(name)) {
    SetCaption(caption);
}

TextControl::TextControl(Form& form, std::string name, std::size_t maxLength)
    : Control(form, std::move(name)), maxLength_(maxLength) {}

bool TextControl::UserSetText(std::string_view text) {
    if (maxLength_ != 0) text = LeftCharacters(text, maxLength_);
    return ByUser([&] { return Assign(text_, std::string(text)); });
}

CheckControl::CheckControl(Form& form, std::string name, std::string_view caption)
    : Control(form, std::move(name)) {
    SetCaption(caption);
}

bool CheckControl::UserSetValue(bool value) {
    return ByUser([&] { return Assign(value_, value); });
}

OptionControl::OptionControl(Form& form, std::string name, std::string group, std::string_view caption)
    : Control(form, std::move(name)), group_(std::move(group)) {
    SetCaption(caption);
}

void OptionControl::SetValue(bool value) {
    ChangeScope scope(form_);
    Assign(value_, value);
    if (!value) return;
    for (Control* control : form_.Controls()) {
        auto* other = dynamic_cast<OptionControl*>(control);
        if (other != nullptr && other != this && other->group_ == group_) other->SetValue(false);
    }
}

// A window may have moved its mark already: it shows the group again.
void OptionControl::TouchGroup() {
    for (Control* control : form_.Controls()) {
        auto* option = dynamic_cast<OptionControl*>(control);
        if (option != nullptr && option->group_ == group_) option->Touch();
    }
}

bool OptionControl::UserChoose() {
    return ByUser([&] {
        if (value_) return false;
        if (mayChoose_ && !mayChoose_()) {
            TouchGroup();
            return false;
        }
        SetValue(true);
        return true;
    });
}

ButtonControl::ButtonControl(Form& form, std::string name, std::string_view caption)
    : Control(form, std::move(name)) {
    SetCaption(caption);
}

bool ButtonControl::UserClick() {
    return ByUser([] { return true; });
}

GaugeControl::GaugeControl(Form& form, std::string name, int minimum, int maximum)
    : Control(form, std::move(name)), minimum_(minimum), maximum_(maximum), value_(minimum) {}

void GaugeControl::SetMin(int minimum) {
    ChangeScope scope(form_);
    Assign(minimum_, minimum);
    Assign(maximum_, std::max(minimum, maximum_));
    SetValue(value_);
}

void GaugeControl::SetMax(int maximum) {
    ChangeScope scope(form_);
    Assign(maximum_, maximum);
    Assign(minimum_, std::min(minimum_, maximum));
    SetValue(value_);
}

void GaugeControl::SetValue(int value) {
    if (Assign(value_, std::clamp(value, minimum_, maximum_))) form_.TellChanges();
}

TabStripControl::TabStripControl(Form& form, std::string name, std::initializer_list<Tab> tabs)
    : Control(form, std::move(name)), tabs_(tabs) {}

int TabStripControl::IndexOf(std::string_view key) const {
    const auto found =
        std::find_if(tabs_.begin(), tabs_.end(), [&](const Tab& tab) { return tab.key == key; });
    return found == tabs_.end() ? 0 : static_cast<int>(found - tabs_.begin()) + 1;
}

void TabStripControl::SetSelectedIndex(int index) {
    if (HasTab(index)) Assign(selected_, index);
}

bool TabStripControl::UserSelect(int index) {
    return ByUser([&] { return HasTab(index) && Assign(selected_, index); });
}

}  // namespace quillon
