// The taxa that a filter selects, with their authors and, through their reference links, documents. Read
// once, when a validation or an export begins.
//
// A million names are read row by row and never joined or sorted by the engine: each row is a turn at which
// the user may cancel, and a full scan is faster than many look-ups. A small number of taxa is looked up by
// key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/turns.h"
#include "selection/id_set.h"
#include "store/engine.h"
#include "store/row_stream.h"

namespace quillon::selection {

// The rows of a table that have one of the ids in `column`: looked up one by one for few ids, or all rows of
// the table for many. The caller must skip rows with other ids.
store::TableRows RowsAmong(std::string_view column, const IdSet& ids,
                           store::TableRows::Order order = store::TableRows::Order::Key);

class SelectedTaxa {
public:
    // `filter` must have been checked. Each row that is read is a turn. Throws StoreError.
    SelectedTaxa(store::Database& database, std::string_view filter, Turns turns);

    // True without a filter: every row of every table is selected, and nothing below is read.
    bool All() const { return all_; }
    bool Has(std::int64_t qb_id) const { return all_ || ids_.Has(static_cast<std::int32_t>(qb_id)); }
    const IdSet& Ids() const { return ids_; }
    // The ids of the journal, including those of deleted taxa, or else of the taxa that meet the condition.
    const IdSet& Listed() const { return listed_; }
    const IdSet& Authors() const { return authors_; }
    // The number of selected taxa with that author.
    std::int32_t CountOfAuthor(std::int32_t authorId) const { return taxaOfAuthor_.Find(authorId); }

    // Reads the reference links of the taxa, once.
    void ReachDocuments(store::Database& database, Turns turns);
    const DocumentLinks& Documents() const { return documents_; }

private:
    void ReadJournal(store::Database& database, Turns turns);
    void ReadMatching(store::Database& database, std::string_view filter, Turns turns);
    void Add(const store::RowStream& taxon);

    bool all_ = false;
    bool reached_ = false;
    IdSet ids_, listed_, authors_;
    IdMap taxaOfAuthor_;
    DocumentLinks documents_;
};

}  // namespace quillon::selection
