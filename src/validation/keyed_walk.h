// Walks over rows in ascending order of a number in their first column, in step with another walk in the same
// order. Replaces a look-up for each row.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "selection/selected_taxa.h"
#include "store/row_stream.h"

namespace quillon::validation {

class KeyedWalk {
public:
    // The key is the first column, and the rows are ordered by it. Each row that is skipped is a turn. Throws
    // StoreError.
    KeyedWalk(store::Database& database, std::string_view table, const std::vector<std::string_view>& columns,
              const store::TableRows& rows, Turns turns);
    // The same for the rows of a select in the dialect.
    KeyedWalk(store::Database& database, std::string_view select, Turns turns);

    // Moves to the first row of the key; false when there is none, or the job is canceled. Keys must be
    // ascending but may have gaps.
    bool MoveTo(std::int64_t key);
    // Moves to the next row if it has the same key.
    bool MoveNext();
    // The current row, after either has returned true.
    const store::RowStream& Row() const { return rows_; }
    // True when the job was canceled before the key was reached.
    bool Stopped() const { return stopped_; }

private:
    void Advance();

    store::RowStream rows_;
    Turns turns_;
    std::int64_t key_ = 0;
    bool ended_ = false, stopped_ = false;
};

}  // namespace quillon::validation
