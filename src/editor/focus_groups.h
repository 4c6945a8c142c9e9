// Follows the keyboard focus through the groups of fields that a change track is about: author, hybrid
// author, name, parent, rank and usage. When a group is left whose fields differ from CurrentTaxon,
// ChangeTrackApplied is cleared, so that the form for change tracks asks again.
//
// The main form connects it once. Nothing else depends on it.
#pragma once

#include "core/application_state.h"
#include "editor/editor_state.h"
#include "editor/taxon_controls.h"

namespace quillon::editor {

// The groups, as FieldGroupEntered and FieldGroupLeft hold them.
struct FieldGroup {
    static constexpr int kNone = 0, kAuthor = 1, kHybridAuthor = 2, kName = 3, kParent = 4, kRank = 5,
                         kUsage = 6;
};

class FocusGroups {
public:
    // Attaches to the fields and to the button that saves. All references outlive the object.
    FocusGroups(ApplicationState& state, EditorState& editing, TaxonControls& tab, Control& save);

    // True when the fields of the group show something else than CurrentTaxon. Those of kParent always do,
    // those of kNone never.
    bool Differs(int group) const;

private:
    void Entered(int group);
    bool NameDiffers() const;
    bool UsageDiffers() const;

    ApplicationState& state_;
    EditorState& editing_;
    TaxonControls& tab_;
};

}  // namespace quillon::editor
