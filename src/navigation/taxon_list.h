// The alphabetical list of all taxa, as the stored query "Get Data" or "Get Animal Data" gives it: each row a
// qb_id and a line. It is made for a million names: only the ids are held, in the order of the list; lines
// are read when a row is looked at, and a typed text is found by searching the sorted names, not by walking
// the list.
//
// The ids come in through Load(), called again and again while the window is idle, so that the first rows
// show at once. Lines are those of the stored query itself. What the store refuses shows as an empty line.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "navigation/list_order.h"

namespace quillon::navigation {

class TaxonList {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // The named query whose lines begin with the mark before the first unit.
    static constexpr std::string_view kMarkedQuery = "Get Data";

    // Begins anew over `database` with the named query; nullptr empties the list.
    void Open(std::shared_ptr<store::Database> database, std::string_view query);
    void Close() { Open(nullptr, {}); }
    // The same DataSet has been closed and opened again: the rows stay.
    void Reattach(std::shared_ptr<store::Database> database);
    // Reads on for about `slice`; true when all rows are there.
    bool Load(std::chrono::microseconds slice);
    void LoadAll() {
        while (!Load(std::chrono::hours(1))) continue;
    }
    bool IsComplete() const { return !order_ || order_->IsComplete() || stopped_; }

    // The rows that are there so far.
    std::size_t RowCount() const { return order_ ? order_->Ids().size() : 0; }
    int IdAt(std::size_t row) const { return order_->Ids().at(row); }
    // "" for a row whose taxon is gone.
    const std::string& Line(std::size_t row);
    // Among the rows that are there so far; kNone when the taxon is not.
    std::size_t RowOf(int qb_id) const;

    // The first row at or after `from` whose line is Like the typed text and an asterisk; kNone when there is
    // none. Reads on as far as needed.
    std::size_t Find(std::string_view typed, std::size_t from);

    // Told after each Open() and each Load() that brought rows.
    void OnRows(std::function<void()> observer) { observer_ = std::move(observer); }

private:
    // Some of the rows, in the order of the list: a stretch of all, or of those with one mark before the
    // first unit.
    struct Rows;
    struct Search;

    const std::string& LineOf(int qb_id);
    // One of the first two name units, 0 or 1; "" for Null, nothing for a taxon that is gone.
    std::optional<std::string> Unit(int qb_id, std::size_t unit);
    std::size_t FindLoaded(std::string_view typed, std::size_t from);
    void LoadUpTo(std::string_view literal);
    void FindUnderMarks(std::string_view literal, Search& search);
    void FindAmong(const Rows& rows, std::size_t unit, std::string_view rest, Search& search);
    void FindBehindUnit(const Rows& rows, std::size_t unit, std::string_view rest, Search& search);
    void FindByReading(const Rows& rows, std::string_view firstUnit, Search& search);
    void FindIn(const Rows& rows, Search& search);
    void FindInAll(Search& search);
    std::size_t Bound(const Rows& rows, std::size_t unit, std::string_view name, bool after);

    std::shared_ptr<store::Database> database_;
    std::string query_;
    std::unique_ptr<ListOrder> order_;  // nullptr without a DataSet
    bool stopped_ = false;              // closed under the list: no more rows come

    std::optional<store::QueryDef> lineQuery_, unitsQuery_;
    using Cached = std::list<std::pair<int, std::string>>;
    Cached recent_;  // the lines looked at last, newest first
    std::unordered_map<int, Cached::iterator> cache_;
    std::function<void()> observer_;
};

}  // namespace quillon::navigation
