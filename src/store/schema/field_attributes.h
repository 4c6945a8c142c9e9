// How a field was declared, in the engine's terms: what a table's description tells beside name and type.
// Both follow from the type, but for a few ids whose declared size is smaller than they are.
#pragma once

#include "store/table_def.h"

namespace quillon::store {

// The engine's documented values; they add up.
enum class FieldAttribute : int { Fixed = 1, Variable = 2, AutoIncrement = 16 };

// Fixed or Variable, and AutoIncrement beside it.
int AttributesOf(const FieldDef& field);
inline bool Has(int attributes, FieldAttribute attribute) {
    return (attributes & static_cast<int>(attribute)) != 0;
}

// Characters of a Text, 0 for a Memo, bytes of any other type. A few ids of the authority are declared with 2
// bytes though they are Long: the type decides, and they hold 32 bits.
int DeclaredSizeOf(const FieldDef& field);

}  // namespace quillon::store
