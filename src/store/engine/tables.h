// The tables of an open DataSet in memory, including linked ones, by name.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "store/schema/names.h"
#include "store/schema/physical_table.h"

namespace quillon::store {

class Tables {
public:
    // nullptr when there is no such table. Valid until the next Replace().
    const PhysicalTable* Find(std::string_view name) const;
    // UnknownTable when there is no such table.
    const PhysicalTable& Require(std::string_view name) const;
    // In the order of creation.
    const std::vector<std::unique_ptr<PhysicalTable>>& All() const { return tables_; }
    // Keeps the old tables after an error.
    void Replace(std::vector<PhysicalTable> own, const std::vector<PhysicalTable>& links);

private:
    std::vector<std::unique_ptr<PhysicalTable>> tables_;
    NameMap<const PhysicalTable*> byName_;
};

}  // namespace quillon::store
