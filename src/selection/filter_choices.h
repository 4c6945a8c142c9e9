// The choices of the filter frame: every column of a taxon and every operator. For frmValidate and the export
// form.
#pragma once

#include "core/controls.h"

namespace quillon::selection {

// Fills the three lists of a condition and selects the first choice of each: the credibility rating,
// equality, and the rating that meets the standards.
void FillFilterChoices(ComboControl& fields, ComboControl& operators, ComboControl& values);

}  // namespace quillon::selection
