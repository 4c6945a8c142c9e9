#include "store/dialect/scope.h"

#include <fmt/format.h>

#include "store/dialect/token_stream.h"
#include "store/error.h"

namespace quillon::store::dialect {

namespace {

const OutputColumn* ColumnOf(const Source& source, std::string_view name) {
    for (const OutputColumn& column : source.columns)
        if (SameWord(column.name, name)) return &column;
    return nullptr;
}

FoundColumn FindInOne(const Scope& scope, std::string_view qualifier, std::string_view name) {
    FoundColumn found;
    for (const Source& source : scope.sources) {
        if (!qualifier.empty() && !SameWord(source.alias, qualifier)) continue;
        const OutputColumn* column = ColumnOf(source, name);
        if (column == nullptr) continue;
        if (found.column != nullptr)
            throw StoreError(
                ErrorNumber::SyntaxError,
                fmt::format("The field '{}' could refer to more than one table of the statement.", name));
        found = {&source, column};
    }
    return found;
}

}  // namespace

const Source* FindSource(const Scope& scope, std::string_view alias) {
    for (const Source& source : scope.sources)
        if (SameWord(source.alias, alias)) return &source;
    return nullptr;
}

FoundColumn FindColumn(const Scope* scope, std::string_view qualifier, std::string_view name) {
    for (; scope != nullptr; scope = scope->outer) {
        const FoundColumn found = FindInOne(*scope, qualifier, name);
        if (found.column != nullptr) return found;
    }
    return {};
}

ValueType TypeOf(FieldType type) {
    if (HasText(type)) return ValueType::Text;
    if (type == FieldType::Boolean) return ValueType::Boolean;
    return type == FieldType::DateTime ? ValueType::Date : ValueType::Number;
}

}  // namespace quillon::store::dialect
