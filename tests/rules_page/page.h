// The manual's page of the rules, made from the catalogue. `scripts/rules-page` writes it; a test compares.
#pragma once

#include <string>

namespace quillon::validation {

std::string RulesPage();

}  // namespace quillon::validation
