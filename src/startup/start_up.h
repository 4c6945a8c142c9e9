// The start of the program, up to a main window with a DataSet or without one, and its end. It shows windows
// through Stage only: the desktop program implements that, and tests record its calls.
#pragma once

#include "core/application_state.h"
#include "core/ini_profile.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "startup/places.h"

namespace quillon::startup {

// What the start asks of the windows.
class Stage {
public:
    virtual ~Stage() = default;
    // Returns at once.
    virtual void ShowSplash() = 0;
    virtual void CloseSplash() = 0;
    // The explorer, the taxon list and the form of the DataSet that is open, or of none; the root is current.
    virtual void ShowDataSet() = 0;
    virtual void ShowMainForm() = 0;
};

class StartUp {
public:
    // An empty place is left out: no preferences are found, or the current directory stays. All references
    // must outlive this object.
    StartUp(ApplicationState& state, dataset::Lifecycle& lifecycle, IniProfile& profile, Prompter& prompter,
            Stage& stage, Places places);

    // The whole start. With gQuitRequested afterwards the program is to end; the main form was not shown.
    void Run();
    // The part of it from the preferences to the current node of the explorer.
    void LoadMainForm();
    // Opens the DataSet of the preferences, or the one that was open last, and asks the user where that
    // fails.
    void InitDB();
    // Notes which DataSet is open, for the next start without one in the preferences. Called before it is
    // closed at the end.
    void RememberDataSet() const;

private:
    std::string ReasonToAsk(int keys) const;
    void ChooseKingdom();
    void OpenPreferred();
    void Close();

    ApplicationState& state_;
    dataset::Lifecycle& lifecycle_;
    IniProfile& profile_;
    Prompter& prompter_;
    Stage& stage_;
    Places places_;
};

// The end, when the main form closes by any means and the question about an unsaved record has been answered:
// the DataSet is closed, with a pause for events before and after. False when the form must stay.
bool StopProgram(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter,
                 EventPump& events);

}  // namespace quillon::startup
