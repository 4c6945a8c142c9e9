// The interface of the eight tabs of a record. RecView uses them through a list; each tab is one class with
// its controls and their logic.
//
// A tab shows stored rows and accepts the user's input. Its commands change only what it shows; SaveNew and
// SaveChanges write that to the DataSet, and only the save of the record calls them.
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

    // Attaches the rules to the controls. Call it once, before any other procedure. Both arguments must
    // outlive the tab.
    virtual void Connect(ApplicationState& state, Prompter& prompter) {
        state_ = &state;
        prompter_ = &prompter;
    }

    // The first of the tab's controls in the form's order. The others follow it, up to those of the next tab.
    virtual const Control& FirstControl() const = 0;

    // Offers the lists and words of the open DataSet. Throws StoreError.
    virtual void OfferLists() = 0;

    // Sets the tab up for a record that is not stored: no rows, empty fields, nothing pending.
    virtual void Clear() = 0;

    // Clears what the preferences do not keep for the next new record.
    virtual void ClearForNextEntry() = 0;

    // Clears the tab and shows what is stored of the taxon `qb_id`, which is in CurrentTaxon. Reports what
    // cannot be read and leaves it empty.
    virtual void Load(int qb_id) = 0;

    // The form now holds a new record, or a stored one that is about to be loaded.
    virtual void EnterMode(EditorMode) {}

    // The preferences have changed while a record is on the form: updates the lists and keeps the input.
    virtual void ApplyPreferences(EditorMode) {}

    // Stores what the tab shows for CurrentTaxon, a new taxon whose row is stored already. A failed row is
    // reported; returns false when the tabs that follow must not be stored.
    virtual bool SaveNew(const records::RecordStore&) { return true; }
    // Stores the changes of CurrentTaxon, which was loaded: removals first, then the rows. Failures are
    // reported.
    virtual void SaveChanges(const records::RecordStore&) {}
    // A save has ended: lists that are read from the DataSet are out of date. Does not read them yet.
    virtual void RefreshLists() {}

    // The page of the tab is visible: it has come up, or another record has been loaded into it.
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

// True when a "Save ..." preference keeps its fields for the next new record. An unset preference does not.
inline bool KeptForNextEntry(std::string_view preference) {
    return !preference.empty() && preference != "No";
}

// Makes every change of these controls by the user set RecordDirty.
inline void TrackChanges(ApplicationState& state, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->OnEdit([&state] { state.RecordDirty = true; });
}

}  // namespace quillon
