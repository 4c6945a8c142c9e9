// A walk over rows in ascending order of a number in their first column, in step with another walk in the
// same order: the place of a look-up for each row.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "selection/selected_taxa.h"
#include "store/row_stream.h"

namespace quillon::validation {

class KeyedWalk {
public:
    // The key is the first column, and the rows are ordered by it. Each row that is passed over is a turn.
    // Throws StoreError.
    KeyedWalk(store::Database& database, std::string_view table, const std::vector<std::string_view>& columns,
              const store::TableRows& rows, Turns turns);
    // The same over the rows of a select in the dialect.
    KeyedWalk(store::Database& database, std::string_view select, Turns turns);

    // Goes on to the first row of the key; false when there is none, or the job is canceled. Keys may be
    // left out, but never go back.
    bool MoveTo(std::int64_t key);
    // The next row, if it has the same key still.
    bool MoveNext();
    // The row at hand, after a true from either.
    const store::RowStream& Row() const { return rows_; }
    // The job was canceled before the key was reached.
    bool Stopped() const { return stopped_; }

private:
    void Advance();

    store::RowStream rows_;
    Turns turns_;
    std::int64_t key_ = 0;
    bool ended_ = false, stopped_ = false;
};

}  // namespace quillon::validation
