// Finds authors that are the same but for case, blanks, punctuation, accents and the parentheses of the year:
// the groups that an author clean-up offers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"

namespace quillon::curation {

// The letters and digits of the text, as bytes that are equal for texts that are alike. Empty for a text
// without letters and digits.
std::string LikenessKey(std::string_view text);

// The authors that are alike to another one, group after group, the groups in the order of their keys; within
// a group the order stays.
std::vector<ChoiceControl::Choice> AlikeOnly(std::vector<ChoiceControl::Choice> authors);

}  // namespace quillon::curation
