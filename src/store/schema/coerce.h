// Converts a value to the type of the field that stores it, or refuses it. Every write passes through here.
#pragma once

#include "core/value.h"
#include "store/error.h"
#include "store/schema/table_def.h"

namespace quillon::store {

// Null stays Null (a required field is checked where the whole row is known). Text fields take the text of
// any value: an empty one is EmptyText, one over the size FieldTooSmall. Number fields take numbers and
// numeric texts: others are ConversionError, values out of range NumericOverflow. Boolean takes "True",
// "False", "Yes", "No", "-1", "0" and numbers. DateTime takes "yyyy-mm-dd" with or without " hh:mm:ss".
Value Coerce(const FieldDef& field, const Value& value);
// The error of a field that may not be Null.
StoreError RequiredError(const FieldDef& field, bool inKey);

}  // namespace quillon::store
