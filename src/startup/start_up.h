// The start of the program, up to a main window with or without a DataSet, and its end. It shows windows only
// through Stage, which the desktop program implements and tests record.
#pragma once

#include "core/application_state.h"
#include "core/ini_profile.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "startup/places.h"

namespace quillon::startup {

// The windows that the start needs.
class Stage {
public:
    virtual ~Stage() = default;
    // Returns at once.
    virtual void ShowSplash() = 0;
    virtual void CloseSplash() = 0;
    // Shows the open DataSet, or none, in the explorer, the taxon list and the form; the root is current.
    virtual void ShowDataSet() = 0;
    virtual void ShowMainForm() = 0;
};

class StartUp {
public:
    // Without a preferences file none are read; without a folder the current directory is kept. All
    // references must outlive this object.
    StartUp(ApplicationState& state, dataset::Lifecycle& lifecycle, IniProfile& profile, Prompter& prompter,
            Stage& stage, Places places);

    // The whole start. When it sets gQuitRequested, the program must end without the main form.
    void Run();
    // The part of Run from the preferences to the current node of the explorer.
    void LoadMainForm();
    // Opens the DataSet of the preferences, or the one that was open last, and asks the user if that fails.
    void InitDB();
    // Stores the path of the open DataSet for a next start without one in the preferences. Call it before the
    // DataSet is closed at the end.
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

// The end of the program, after the question about an unsaved record: closes the DataSet, with a pause for
// events before and after. False when the form must stay.
bool StopProgram(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter,
                 EventPump& events);

}  // namespace quillon::startup
