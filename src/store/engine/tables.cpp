#include "store/engine/tables.h"

#include <fmt/format.h>

#include <utility>

#include "store/error.h"

namespace quillon::store {

const PhysicalTable* Tables::Find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
}

const PhysicalTable& Tables::Require(std::string_view name) const {
    const PhysicalTable* table = Find(name);
    if (table == nullptr)
        throw StoreError(ErrorNumber::UnknownTable,
                         fmt::format("There is no table '{}' in the DataSet.", name));
    return *table;
}

void Tables::Replace(std::vector<PhysicalTable> own, const std::vector<PhysicalTable>& links) {
    std::vector<std::unique_ptr<PhysicalTable>> tables;
    NameMap<const PhysicalTable*> byName;
    const auto add = [&](PhysicalTable table) {
        tables.push_back(std::make_unique<PhysicalTable>(std::move(table)));
        byName.emplace(tables.back()->def.name, tables.back().get());
    };
    for (PhysicalTable& table : own) add(std::move(table));
    for (const PhysicalTable& link : links) add(link);
    tables_.swap(tables);
    byName_.swap(byName);
}

}  // namespace quillon::store
