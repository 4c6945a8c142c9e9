// Reads the rows of one of the tables that validation visits, under a filter, in the order of the table's
// key. The result is that of BuildValidationSelect's statement.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "selection/selected_taxa.h"
#include "store/row_stream.h"

namespace quillon::selection {

class SelectedRows {
public:
    // `columns` is a comma-separated list that begins with the columns that link a row to the taxa: the
    // taxon's qb_id, the author's id, or prefix and id of a document. A column may occur twice. Throws
    // StoreError.
    SelectedRows(store::Database& database, std::string_view table, std::string_view columns,
                 const SelectedTaxa& taxa);

    // Moves to the next row of the table, whether it is selected or not; false after the last.
    bool Next() { return rows_.Next(); }
    // How often the current row is visited: 0 times when it is not selected, an author once per taxon, any
    // other row once.
    int Visits() const;
    const store::RowStream& Row() const { return rows_; }

private:
    enum class Reach { Taxon, Listed, Author, Document };
    static Reach ReachOf(std::string_view table);
    static store::TableRows RowsOf(std::string_view table, const std::vector<std::string_view>& columns,
                                   const SelectedTaxa& taxa);

    SelectedRows(store::Database& database, std::string_view table,
                 const std::vector<std::string_view>& columns, const SelectedTaxa& taxa);

    const SelectedTaxa& taxa_;
    Reach reach_;
    store::RowStream rows_;
};

}  // namespace quillon::selection
