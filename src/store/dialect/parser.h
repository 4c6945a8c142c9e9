// Reads a statement, or a criteria, of the dialect into its tree. Checks the form only; whether the names
// exist is decided where the tree is used. What the dialect does not have is a SyntaxError naming the place.
#pragma once

#include <string_view>

#include "store/dialect/ast.h"

namespace quillon::store::dialect {

Statement ParseStatement(std::string_view sql);
// A condition as after WHERE, alone.
ExpressionPtr ParseCriteria(std::string_view criteria);

}  // namespace quillon::store::dialect
