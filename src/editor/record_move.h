// The move of a name to another place in the tree, as the form enters it: another parent for an accepted
// name, another accepted name for one that is not. RecView calls it when the explorer reports a drop or a
// paste.
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

    // False when the user does not want a name under one of the same or a lower rank. The errors of the store
    // pass through.
    bool ConfirmRanks(const navigation::cBioList& moved, const navigation::cBioList& target);
    // Enters the place below `newParent` for `moved`, which is the record on the form; nullptr is the root of
    // the tree. The errors of the store pass through.
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
