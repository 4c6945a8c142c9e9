// The check of a name before it is saved: no unit may be missing, a genus begins with a capital letter, and a
// subgenus is in parentheses. The checks of a save call it.
//
// It checks the trimmed texts of the fields and changes no field.
#pragma once

#include "core/outside.h"
#include "editor/taxon_controls.h"

namespace quillon::editor {

// Brings up the tab of the name. True when the name is valid; otherwise reports the first fault and moves the
// focus to its field.
bool CheckNameSyntax(TaxonControls& tab, Prompter& prompter);

}  // namespace quillon::editor
