// What a script shows of a control: its name, its value, and its state where that is not the usual one.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace quillon::script {

// The lines of the action show, without their ends: one, or one for each row of a grid. Texts are escaped;
// the cells of hidden columns are left out, and "; " separates several selected items.
std::vector<std::string> LinesOf(const Control& control);

}  // namespace quillon::script
