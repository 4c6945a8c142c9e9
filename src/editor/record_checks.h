// The checks of a record before it is saved, in their order. The first one that fails reports the reason and
// moves the focus to the field; nothing is stored, and the input is kept.
//
// The checks also fill CurrentTaxon with what the form shows: kingdom, rank, parent and author.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/editor_state.h"
#include "editor/rec_view_form.h"

namespace quillon::editor {

class RecordChecks {
public:
    // All references must outlive the object.
    RecordChecks(ApplicationState& state, Prompter& prompter, RecViewForm& form, EditorState& editing)
        : state_(state), prompter_(prompter), form_(form), editing_(editing) {}

    // True when the record may be saved. Throws StoreError when the DataSet cannot be read.
    bool CheckFields();

private:
    bool IsNew() const { return editing_.mode != EditorMode::Edit; }
    // True when the two warnings are enabled for this save by the preferences.
    bool Warns() const;
    bool CheckRank();
    void SurroundSubgenus();
    void TakeParent();
    void TakeAuthor();
    bool CheckReason();
    void WarnOfMissingAccepted();
    bool CheckDuplicate();

    ApplicationState& state_;
    Prompter& prompter_;
    RecViewForm& form_;
    EditorState& editing_;
};

// The rank whose names every record below `rankName` (in any case) must have among its ancestors; "" for an
// unknown rank.
std::string_view MajorRank(std::string_view rankName);

}  // namespace quillon::editor
