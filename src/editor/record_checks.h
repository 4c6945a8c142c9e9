// The checks that a record passes before it is saved, in their order. The first one that fails says why and
// puts the focus on the field; nothing is stored then, and what was entered stays.
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
    // All references outlive the object.
    RecordChecks(ApplicationState& state, Prompter& prompter, RecViewForm& form, EditorState& editing)
        : state_(state), prompter_(prompter), form_(form), editing_(editing) {}

    // True when the record may be saved. StoreError when the DataSet cannot be read.
    bool CheckFields();

private:
    bool IsNew() const { return editing_.mode != EditorMode::Edit; }
    // Whether the preference asks for the two warnings at this save.
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

// The rank whose names every record below `rankName` (in any case) must have among its ancestors; "" for a
// text that is no rank.
std::string_view MajorRank(std::string_view rankName);

}  // namespace quillon::editor
