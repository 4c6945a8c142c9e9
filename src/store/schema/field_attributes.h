// How a field was declared: attributes and size, as a table's description shows them beside name and type.
// Both follow from the type, but for a few ids whose declared size is smaller than they are.
#pragma once

#include "store/schema/table_def.h"

namespace quillon::store {

// The documented values of DAO; they add up.
enum class FieldAttribute : int { Fixed = 1, Variable = 2, AutoIncrement = 16 };

// Fixed or Variable, plus AutoIncrement.
int AttributesOf(const FieldDef& field);
inline bool Has(int attributes, FieldAttribute attribute) {
    return (attributes & static_cast<int>(attribute)) != 0;
}

// Characters of a Text, 0 for a Memo, bytes of any other type. A few ids of the authority are declared with 2
// bytes though they are Long: the type decides, and they hold 32 bits.
int DeclaredSizeOf(const FieldDef& field);

}  // namespace quillon::store
