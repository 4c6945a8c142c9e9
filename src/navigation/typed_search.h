// The search in the alphabetical list for a typed text without wildcards: the first row, from the beginning
// or from a taxon on, whose line is Like the text and an asterisk. It does not need the rows of the list: a
// line begins with the first unit of the name, so the names that can match are adjacent in the index on the
// names, where they are read and tested one by one. A key is therefore fast, however much of the list is
// loaded. PatternSearch handles texts with wildcards.
//
// Functions throw StoreError.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "navigation/name_walk.h"

namespace quillon::navigation {

class TypedSearch {
public:
    // `query` is the named query behind the list, `from` the first taxon, or nullptr. All arguments must
    // outlive the search.
    TypedSearch(store::Database& database, std::string_view query, std::string_view typed,
                const NameKey* from);

    // Empty when no row matches.
    std::optional<NameKey> Run();

private:
    // The rows to search: those of the list, or those with one mark before the first unit.
    struct Rows;
    struct Range {
        std::string_view where;
        std::string name = {}, first = {}, last = {}, mark = {};
    };

    void SearchFirstUnit(const Rows& rows, std::string_view rest);
    void SearchFirstUnitBetween(const Rows& rows, std::string_view first, std::string_view last);
    void SearchSecondUnit(std::string_view name, std::string_view rest);
    void SearchSecondUnitBetween(std::string_view name, std::string_view first, std::string_view last);
    void SearchMarks(std::string_view typed);
    void ScanAmong(const Rows& rows, Range range);
    void Scan(const Range& range);
    void ScanMarked(const Range& range);
    std::unique_ptr<store::Recordset> Open(const std::string& sql, const Range& range);
    bool IsBehindBest(const NameKey& key) const;
    void Test(const NameKey& key, std::string_view line);
    std::string LineOf(int qb_id);

    store::Database& database_;
    std::string_view query_;
    const NameKey* from_;
    std::string typed_, pattern_;
    bool withMarks_;
    std::optional<NameKey> best_;
};

}  // namespace quillon::navigation
