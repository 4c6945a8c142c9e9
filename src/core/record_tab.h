// The contract of the eight tabs of a record. RecView walks a list of them and knows none by name; each tab
// is one class that holds its controls and their rules.
//
// A tab shows what is stored and takes what the user enters. Its commands change only what it shows; SaveNew
// and SaveChanges write that to the DataSet, and only the save of the record calls them.
#pragma once

#include <initializer_list>
#include <string_view>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"

namespace quillon {

namespace records {
struct RecordStore;
}

// Whether the form holds a record that is stored, a new one, or none because no DataSet is open.
enum class EditorMode { None, Input, Edit };

class RecordTab {
public:
    RecordTab() = default;
    virtual ~RecordTab() = default;
    RecordTab(const RecordTab&) = delete;
    RecordTab& operator=(const RecordTab&) = delete;

    // Attaches the rules to the controls. Once, before any other procedure; both arguments outlive the tab.
    virtual void Connect(ApplicationState& state, Prompter& prompter) {
        state_ = &state;
        prompter_ = &prompter;
    }

    // The first of the tab's controls in the form's order. The others follow it, up to those of the next tab.
    virtual const Control& FirstControl() const = 0;

    // The lists and words of the DataSet that has been opened. The errors of the store pass through.
    virtual void OfferLists() = 0;

    // The tab as it is for a record that is not stored: no rows, empty fields, nothing pending.
    virtual void Clear() = 0;

    // Clears what the preferences do not keep for the next new record.
    virtual void ClearForNextEntry() = 0;

    // Shows what is stored of the taxon `qb_id`, which CurrentTaxon holds, on a cleared tab. What cannot be
    // read is reported and stays empty.
    virtual void Load(int qb_id) = 0;

    // The form has turned to a new record, or to a stored one that is about to be loaded.
    virtual void EnterMode(EditorMode) {}

    // The preferences have changed while a record is on the form: what is offered follows, what is entered
    // stays.
    virtual void ApplyPreferences(EditorMode) {}

    // Stores what the tab shows for CurrentTaxon, a new taxon whose row is stored already. A failed row is
    // reported; false when the tabs that follow must not be stored then.
    virtual bool SaveNew(const records::RecordStore&) { return true; }
    // Stores the changes of CurrentTaxon, which was loaded: what the user has removed, then the rows.
    // Failures are reported.
    virtual void SaveChanges(const records::RecordStore&) {}
    // A save has ended: lists that are read from the DataSet are out of date. Reads nothing by itself.
    virtual void RefreshLists() {}

    // The page of the tab is on show: it has come up, or another record has been loaded into it.
    virtual void Shown() {}
    // Another page has come up instead.
    virtual void Hidden() {}

protected:
    ApplicationState& State() const { return *state_; }
    Prompter& Outside() const { return *prompter_; }

private:
    ApplicationState* state_ = nullptr;
    Prompter* prompter_ = nullptr;
};

// True when a "Save ..." preference keeps its fields for the next new record. One that was never set does
// not.
inline bool KeptForNextEntry(std::string_view preference) {
    return !preference.empty() && preference != "No";
}

// Every change of these controls by the user makes the record one that has not been saved.
inline void TrackChanges(ApplicationState& state, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->OnEdit([&state] { state.RecordDirty = true; });
}

}  // namespace quillon
