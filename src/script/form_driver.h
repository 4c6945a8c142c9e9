// Plays the actions of a script on the controls of the form in front: what a person does with mouse and
// keyboard, without a window.
//
// A procedure throws CannotPlay, and changes nothing, when the form has no such control or a person could not
// use it. Before it acts, it moves the keyboard focus to the control, as a mouse does.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"

namespace quillon::script {

class FormDriver {
public:
    FormDriver() = default;
    FormDriver(const FormDriver&) = delete;
    FormDriver& operator=(const FormDriver&) = delete;

    // The button of a key of the form's toolbar; nullptr when there is none.
    using OfKey = std::function<Control*(std::string_view key)>;

    // Puts a form in front of the others. The driver must outlive it. A form is shown only once.
    void Push(Form& form, OfKey ofKey = {});
    // Removes the form in front.
    void Pop() { shown_.pop_back(); }

    // The new text of a text box; in a combo the choice of this text, in any letter case if need be, or else
    // the text typed. Does nothing when the control has this text.
    void Set(const std::string& name, const std::string& text);
    void Check(const std::string& name, bool on);
    void Option(const std::string& name);
    void Tab(const std::string& key);
    // Rows and items count from 1.
    void Row(const std::string& name, int row);
    void Item(const std::string& name, int item);
    // Selects exactly these items of a list that allows several.
    void Items(const std::string& name, std::vector<int> items);
    // A button, an option, a menu item, or a key of the toolbar.
    void Click(const std::string& name);
    void Enter(const std::string& name);
    void Leave(const std::string& name);
    // The lines that describe the controls; those of every control without a name.
    std::vector<std::string> Show(const std::vector<std::string>& names) const;

private:
    struct Shown {
        Form* form = nullptr;
        Control* focus = nullptr;
        OfKey ofKey = {};
    };

    Control& Find(const std::string& name) const;
    Control& Ready(const std::string& name) const;
    template <typename Model>
    Model& ReadyAs(const std::string& name, std::string_view purpose) const;
    bool MoveFocusTo(Control& control);
    void FocusMoved(const Form& form, Control& control);
    void LeaveFocus();
    void SetCombo(ComboControl& combo, const std::string& text);

    std::vector<Shown> shown_;
};

}  // namespace quillon::script
