// The expressions of the dialect, from Or down to a single name. Used by the parser of statements.
#pragma once

#include "store/dialect/ast.h"
#include "store/dialect/token_stream.h"

namespace quillon::store::dialect {

ExpressionPtr ParseExpression(TokenStream& tokens);
// Parses a select in parentheses or after INSERT; the stream is at its first word.
std::unique_ptr<Select> ParseSelect(TokenStream& tokens);

}  // namespace quillon::store::dialect
