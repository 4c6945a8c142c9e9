// Converts a value to the type of the field that stores it, or throws. Every write uses it.
#pragma once

#include "core/value.h"
#include "store/error.h"
#include "store/schema/table_def.h"

namespace quillon::store {

// Null stays Null (required fields are checked with the whole row). Text fields accept the text of any value:
// EmptyText for an empty text, FieldTooSmall for one over the size. Number fields accept numbers and numeric
// texts: ConversionError for others, NumericOverflow for values out of range. Boolean accepts "True",
// "False", "Yes", "No", "-1", "0" and numbers. DateTime accepts "yyyy-mm-dd" with or without " hh:mm:ss".
Value Coerce(const FieldDef& field, const Value& value);
// The error of a Null in a required field.
StoreError RequiredError(const FieldDef& field, bool inKey);

}  // namespace quillon::store
