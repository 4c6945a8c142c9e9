// The alphabetical list of all taxa, as the stored query "Get Data" or "Get Animal Data" returns it: each row
// has a qb_id and a line. It is designed for a million names: only the ids are kept in memory, in the order
// of the list; lines are read when a row is needed, and the typed search uses the index on the names.
//
// The ids are read by Load(), which a window calls while it is idle, so that the first rows appear at once.
// Until all are loaded, the visible rows are the first ones, or those around a requested taxon. The stored
// query makes the lines. A line that cannot be read is empty.
#pragma once

#include <chrono>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/outside.h"
#include "navigation/list_order.h"
#include "navigation/pattern_search.h"

namespace quillon::navigation {

// Notified of changes of the visible rows.
class ListObserver {
public:
    virtual ~ListObserver() = default;
    // All rows change.
    virtual void BeforeReset() = 0;
    virtual void AfterReset() = 0;
    // Rows were added at the end.
    virtual void RowsAdded() = 0;
    virtual void BeforeInsert(std::size_t row) = 0;
    virtual void AfterInsert() = 0;
    virtual void BeforeRemove(std::size_t row) = 0;
    virtual void AfterRemove() = 0;
    // The rows are the same, but their lines must be read again.
    virtual void LinesChanged() = 0;
};

class TaxonList {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    // The named query whose lines begin with the mark before the first unit.
    static constexpr std::string_view kMarkedQuery = "Get Data";

    // Starts over with `database` and the named query; nullptr empties the list.
    void Open(std::shared_ptr<store::Database> database, std::string_view query);
    void Close() { Open(nullptr, {}); }
    // The same DataSet has been closed and opened again. Keeps the rows.
    void Reattach(std::shared_ptr<store::Database> database);
    // Reads more rows for about `slice`; true when all rows are loaded.
    bool Load(std::chrono::microseconds slice);
    void LoadAll() {
        while (!Load(std::chrono::hours(1))) continue;
    }
    // The same with a turn after each slice.
    void LoadAll(EventPump& events, std::chrono::microseconds slice = std::chrono::milliseconds(10)) {
        while (!Load(slice)) events.Yield();
    }
    bool IsComplete() const { return !order_ || order_->IsComplete() || stopped_; }

    // The number of visible rows.
    std::size_t RowCount() const { return order_ ? Shown().size() : 0; }
    int IdAt(std::size_t row) const { return Shown().at(row); }
    // "" for the row of a deleted taxon.
    const std::string& Line(std::size_t row);
    // kNone when the taxon is not among the visible rows.
    std::size_t RowOf(int qb_id) const;
    // Shows the rows around a taxon that is not loaded yet. Does nothing when all rows are loaded or the
    // taxon was deleted.
    void ShowAround(int qb_id);

    // The ends of the list, and the neighbours of a row; 0 when there is none. The row that is returned
    // becomes visible.
    int FirstId();
    int LastId();
    int NextId(int qb_id);
    int PreviousId(int qb_id);

    // The first taxon whose line is Like the typed text and an asterisk: of all rows, from a row on, or
    // before a row. Empty when there is none.
    std::optional<int> Find(std::string_view typed) { return RunSearch(typed, Among::All, 0); }
    std::optional<int> FindFrom(std::string_view typed, int qb_id) {
        return RunSearch(typed, Among::From, qb_id);
    }
    std::optional<int> FindBefore(std::string_view typed, int qb_id) {
        return RunSearch(typed, Among::Before, qb_id);
    }

    // The same in steps, for a window that must not block: Begin, then SearchOn until it returns true, then
    // Found. A text without wildcards needs one step. A new search replaces the previous one; opening the
    // list ends it.
    enum class Among { All, From, Before };
    void BeginSearch(std::string_view typed, Among among, int qb_id = 0);
    // Checks about `rows` more rows.
    bool SearchOn(std::size_t rows);
    std::optional<int> Found() const { return found_; }

    // Moves the row of a new or renamed taxon to its place, and removes that of a deleted one.
    void Update(int qb_id);
    // Lines are read again when they are needed next.
    void ForgetLines();

    // At most one observer; nullptr removes it.
    void SetObserver(ListObserver* observer) { observer_ = observer; }

private:
    const std::vector<std::int32_t>& Shown() const { return around_.empty() ? order_->Ids() : around_; }
    void ForgetAll();
    void ShowInstead(std::vector<std::int32_t> around);
    void AddBeside(const NameKey& key, NameWalk::Direction direction, std::vector<std::int32_t>& ids);
    int EndOf(NameWalk::Direction direction) const;
    int Neighbour(int qb_id, int step);
    std::optional<NameKey> KeyFrom(int qb_id);
    std::optional<int> RunSearch(std::string_view typed, Among among, int qb_id);
    void Search(std::string_view typed, Among among, int qb_id);
    void RemoveRow(std::size_t row);

    std::shared_ptr<store::Database> database_;
    std::string query_;
    std::unique_ptr<ListOrder> order_;  // nullptr without a DataSet
    std::vector<std::int32_t> around_;  // visible instead of the first rows, while not all are loaded
    bool stopped_ = false;              // the DataSet was closed while the list was read

    std::unique_ptr<PatternSearch> search_;  // while it has not ended
    std::optional<int> found_;

    std::optional<store::QueryDef> lineQuery_;
    using Cached = std::list<std::pair<int, std::string>>;
    Cached recent_;  // the last lines used, newest first
    std::unordered_map<int, Cached::iterator> cache_;
    ListObserver* observer_ = nullptr;
};

}  // namespace quillon::navigation
