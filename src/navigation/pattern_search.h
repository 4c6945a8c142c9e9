// The search in the alphabetical list for a typed text with wildcards: the first row in the order of the list
// whose line is Like the text and an asterisk. No index can be used, so lines are read one after the other,
// in steps of a bounded number of rows, which TaxonList runs while the window is idle.
//
// Names whose first letter cannot match are skipped. Nothing is held open between two steps. Functions throw
// StoreError.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "navigation/name_walk.h"

namespace quillon::navigation {

class PatternSearch {
public:
    // True when the typed text needs this search: it has a wildcard, or is empty.
    static bool IsNeededFor(std::string_view typed);

    // `query` is the named query behind the list. Searches the rows from the taxon `from` on, up to but not
    // including the taxon `before`; nullptr for no limit.
    PatternSearch(std::shared_ptr<store::Database> database, std::string_view query, std::string_view typed,
                  const NameKey* from, const NameKey* before);

    // Checks about `rows` more rows; true when the search has ended.
    bool Step(std::size_t rows);
    std::optional<int> Found() const { return found_; }

private:
    bool CanMatch(const std::string& firstUnit) const;
    std::size_t Walk(std::size_t rows);
    void PassOver(std::string_view letter);
    void CutToRange(const NameWalk::Units& name, std::vector<std::int32_t>& ids);
    void TestLines(const std::vector<std::int32_t>& ids);

    std::shared_ptr<store::Database> database_;
    std::string query_, pattern_;
    std::string first_;  // the element for the first letter of a line; empty for any
    std::optional<NameKey> from_, before_;
    std::optional<NameWalk::Units> at_;  // the name from which the next step continues
    NameWalk::Begin begin_ = NameWalk::Begin::With;
    bool reachedBefore_ = false;
    bool ended_ = false;
    std::optional<int> found_;
};

}  // namespace quillon::navigation
