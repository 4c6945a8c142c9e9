// What the lists of a filter's frame offer: every column of a taxon and every operator. frmValidate and the
// export form fill their combo boxes here.
#pragma once

#include "core/controls.h"

namespace quillon::selection {

// Fills the three lists of a condition and chooses the first of each: the credibility rating, equality, and
// the rating that meets the standards.
void FillFilterChoices(ComboControl& fields, ComboControl& operators, ComboControl& values);

}  // namespace quillon::selection
