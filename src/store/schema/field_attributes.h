// The declared attributes and size of a field, for the description of a table. Both follow from the type,
// except for a few ids with a smaller declared size.
#pragma once

#include "store/schema/table_def.h"

namespace quillon::store {

// The documented values of DAO, which can be added.
enum class FieldAttribute : int { Fixed = 1, Variable = 2, AutoIncrement = 16 };

// For the upgrade of older DataSets, which compares the fields of a file with these. Fixed or Variable, plus
// AutoIncrement.
int AttributesOf(const FieldDef& field);
inline bool Has(int attributes, FieldAttribute attribute) {
    return (attributes & static_cast<int>(attribute)) != 0;
}

// Characters of a Text, 0 for a Memo, bytes of any other type. A few ids of the authority are declared with 2
// bytes but are Long: they hold 32 bits.
int DeclaredSizeOf(const FieldDef& field);

}  // namespace quillon::store
