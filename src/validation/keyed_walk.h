// A walk over rows in ascending order of a number in their first column, in step with another walk in the
// same order: the place of a look-up for each row.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "store/engine.h"

namespace quillon::validation {

class KeyedWalk {
public:
    // `select` gives the key in its first column and is ordered by it. Throws StoreError.
    KeyedWalk(store::Database& database, std::string_view select);

    // Goes on to the first row of the key; false when there is none. Keys may be left out, but never go back.
    bool MoveTo(std::int64_t key);
    // The next row, if it has the same key still.
    bool MoveNext();
    // The row at hand, after a true from either.
    const store::Recordset& Row() const { return *rows_; }

private:
    bool Advance();

    std::unique_ptr<store::Recordset> rows_;
    std::int64_t key_ = 0;
    bool ended_ = false;
};

}  // namespace quillon::validation
