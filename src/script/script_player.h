// Plays the lines of a script: finds the driver of each action, and keeps the place in the script while a
// command shows modal forms.
//
// A line that cannot be played ends the script: Failed() is then true, and a remark has given its number and
// the reason. Nothing is thrown through the procedures of the program.
#pragma once

#include <functional>
#include <istream>
#include <map>
#include <string>
#include <string_view>

#include "core/controls.h"
#include "script/form_driver.h"
#include "script/script_line.h"
#include "script/script_prompter.h"
#include "script/transcript.h"
#include "script/tree_driver.h"

namespace quillon::script {

// What the actions reach. All references must outlive the player.
struct Stage {
    FormDriver& forms;
    TreeDriver& tree;
    ScriptPrompter& prompter;
    Transcript& transcript;
    std::function<int()> lastSaved;        // for "select last"; 0 for none
    std::function<std::string()> current;  // the line of the action current
    std::function<void()> settle;          // what a window does when it is idle; runs after each action
    FormDriver::OfKey ofKey;               // the toolbar of the main form
    std::function<bool()> interrupted;     // true when no further line is to be played
};

class ScriptPlayer {
public:
    ScriptPlayer(std::istream& input, Stage stage);
    ScriptPlayer(const ScriptPlayer&) = delete;
    ScriptPlayer& operator=(const ScriptPlayer&) = delete;

    // Plays the script on the main form.
    void Play(Form& form);
    // Plays the lines that follow on a form in front of the others, until it closes or the script ends. A
    // form that is still open then closes as the user closes it.
    void PlayModal(Form& form);

    bool Failed() const { return failed_; }
    bool Interrupted() const { return interrupted_; }

private:
    using Action = std::function<void(const std::string& rest)>;

    void AddFieldActions();
    void AddRowActions();
    void AddTreeActions();
    void AddAnswerActions();
    bool PlayNext();
    void PlayLine(const ScriptLine& line);
    void OnMainForm() const;
    void Select(const std::string& rest);
    void Show(const std::string& rest);

    ScriptReader lines_;
    Stage stage_;
    std::map<std::string, Action, std::less<>> actions_;
    int modalForms_ = 0;
    bool closed_ = false;  // the main form
    bool failed_ = false, interrupted_ = false;
};

}  // namespace quillon::script
