// Enters the move of a name to another place in the tree: a new parent for an accepted name, a new accepted
// name for any other. RecView calls it when the explorer reports a drop or a paste.
//
// A move writes nothing: the new place is on the form until the record is saved.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/rec_view_form.h"
#include "navigation/bio_list.h"

namespace quillon::editor {

class RecordMove {
public:
    RecordMove(ApplicationState& state, Prompter& prompter, RecViewForm& form)
        : state_(state), prompter_(prompter), form_(form) {}

    // Asks before a name moves under one of the same or a lower rank. False when the user declines. Throws
    // StoreError.
    bool ConfirmRanks(const navigation::cBioList& moved, const navigation::cBioList& target);
    // Enters `newParent` as the new place of `moved`, the record on the form; nullptr is the root of the
    // tree. Throws StoreError.
    void Enter(const navigation::cBioList& moved, const navigation::cBioList* newParent,
               const navigation::cBioList* oldParent);

private:
    void ChangeTaxonParent(const navigation::cBioList* newParent);
    void UpdateSynonymLink(const navigation::cBioList* newAccepted, const navigation::cBioList* oldAccepted);

    ApplicationState& state_;
    Prompter& prompter_;
    RecViewForm& form_;
};

}  // namespace quillon::editor
