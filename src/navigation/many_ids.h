// A select over many ids, run for up to 32 of them at a time, which is much faster than a select for each.
// Used by cBioList, the reader of children and the search in the list. The rows of a run come in any order.
//
// Functions throw StoreError.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "store/engine.h"

namespace quillon::navigation {

class ManyIds {
public:
    static constexpr std::size_t kAtOnce = 32;

    // In `sql`, {0} is replaced with the declarations of the parameters, {1} with their list, and {2} with
    // the name of a query.
    ManyIds(store::Database& database, std::string_view sql, std::string_view queryName = {});

    // The rows of at most kAtOnce ids.
    std::unique_ptr<store::Recordset> Open(std::span<const std::int32_t> ids);

private:
    store::QueryDef query_;
};

}  // namespace quillon::navigation
