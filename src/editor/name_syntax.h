// The check of a name before it is saved: no unit may be missing, a genus begins with a capital letter, and a
// subgenus stands in parentheses. The checks of a save call it.
//
// It judges what the fields show, without the blanks around it, and changes no field.
#pragma once

#include "core/outside.h"
#include "editor/taxon_controls.h"

namespace quillon::editor {

// Brings up the tab of the name. True when the name passes; otherwise reports the first fault and moves the
// focus to its field.
bool CheckNameSyntax(TaxonControls& tab, Prompter& prompter);

}  // namespace quillon::editor
