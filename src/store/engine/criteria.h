// Evaluates the criteria of FindFirst and the other searches for a row in memory. Values are compared as in
// statements: texts by the collation; a comparison with Null is neither true nor false.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/value.h"
#include "store/dialect/ast.h"

namespace quillon::store {

using ColumnReader = std::function<Value(const std::string& column)>;

// Returns the value of an expression; a function that searches do not support is a SyntaxError.
Value Evaluate(const dialect::Expression& expression, const ColumnReader& column);
// -1, 0 or 1: Null before numbers before texts; texts by the collation.
int CompareValues(const Value& left, const Value& right);

}  // namespace quillon::store
