// Parses a statement or criteria of the dialect into a tree. Checks the syntax only; names are resolved where
// the tree is used. Throws SyntaxError with the place.
#pragma once

#include <string_view>

#include "store/dialect/ast.h"

namespace quillon::store::dialect {

Statement ParseStatement(std::string_view sql);
// Parses a condition, as after WHERE.
ExpressionPtr ParseCriteria(std::string_view criteria);

}  // namespace quillon::store::dialect
