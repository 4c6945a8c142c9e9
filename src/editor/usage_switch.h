// The user's choice between a name that is accepted and one that is not: optValid and optInvalid. A name with
// children stays accepted; one that is not accepted has no parent.
//
// TaxonTab connects it. It changes only what the form shows, and CurrentTaxon.
#pragma once

#include <optional>
#include <string>

#include "core/application_state.h"
#include "core/outside.h"
#include "core/signal.h"
#include "editor/taxon_controls.h"

namespace quillon::editor {

class UsageSwitch {
public:
    // Attaches the rules to the options. All references outlive the object.
    UsageSwitch(ApplicationState& state, Prompter& prompter, TaxonControls& tab);

    // The usage has changed on the form; true when the name is not accepted now. Its synonyms, or accepted
    // names, are no longer those of the record.
    Signal<bool> Changed;

    // The choices as the program makes them for the user. Reject() is refused, with a message, for a name
    // that has children.
    void Accept();
    void Reject();
    // Empties the parent on the form and in CurrentTaxon.
    void ClearParent();
    // Another record is on the form: there is no parent to bring back.
    void Forget() { cleared_.reset(); }

private:
    // The parent that Reject() has cleared.
    struct Parent {
        ChoiceControl::Choice shown;
        std::string name, rankName;
        int tsn, qb_id, direct_parent_rank_id, required_parent_rank_id;
    };

    bool MayBeRejected();
    void BecomeRejected();
    void BecomeAccepted();

    ApplicationState& state_;
    Prompter& prompter_;
    TaxonControls& tab_;
    std::optional<Parent> cleared_;
};

}  // namespace quillon::editor
