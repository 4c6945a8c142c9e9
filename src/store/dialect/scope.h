// The names in sight while a select is translated: its sources, and those of the selects around it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/translation.h"

namespace quillon::store::dialect {

struct Source {
    std::string alias;
    std::vector<OutputColumn> columns;
    const PhysicalTable* table = nullptr;  // nullptr for a stored query
};

struct Scope {
    const Scope* outer = nullptr;
    std::vector<Source> sources;
    std::vector<std::string> aliases;  // of output columns, for ORDER BY
};

struct FoundColumn {
    const Source* source = nullptr;
    const OutputColumn* column = nullptr;
};

const Source* FindSource(const Scope& scope, std::string_view alias);
// Walks outward through the scopes; nothing found leaves both members null. A name that two sources of one
// scope have is an error, thrown as StoreError naming it.
FoundColumn FindColumn(const Scope* scope, std::string_view qualifier, std::string_view name);

ValueType TypeOf(FieldType type);

}  // namespace quillon::store::dialect
