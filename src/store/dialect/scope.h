// The visible names while a select is translated: its sources, and those of enclosing selects.
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
    std::vector<std::string> aliases;  // aliases of output columns, for ORDER BY
};

struct FoundColumn {
    const Source* source = nullptr;
    const OutputColumn* column = nullptr;
};

const Source* FindSource(const Scope& scope, std::string_view alias);
// Searches the scopes from the inside out; both members are null when nothing is found. Throws StoreError for
// an ambiguous name in one scope.
FoundColumn FindColumn(const Scope* scope, std::string_view qualifier, std::string_view name);

ValueType TypeOf(FieldType type);

}  // namespace quillon::store::dialect
