// One select over many ids: it is run for up to 32 of them at a time, which costs a fraction of a select for
// each. cBioList, the reader of children and the search in the list use it. It keeps no order: the rows of a
// run come as the DataSet has them.
//
// The errors of the store pass through.
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

    // In `sql`, {0} is replaced by the declarations of the parameters, {1} by the list of them, and {2} by
    // the name of a query.
    ManyIds(store::Database& database, std::string_view sql, std::string_view queryName = {});

    // The rows of at most kAtOnce ids.
    std::unique_ptr<store::Recordset> Open(std::span<const std::int32_t> ids);

private:
    store::QueryDef query_;
};

}  // namespace quillon::navigation
