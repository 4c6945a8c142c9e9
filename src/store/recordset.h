// The rows of a table or a query, visited one at a time, and updatable if they come from one table.
//
// After opening, a recordset is on its first row; both Bof() and Eof() are true when there is none. It shows
// the rows of the moment when it was opened: writes of other handles appear only after Requery(), but its own
// Update() at once. Rows are read as they are visited, so opening a large result is cheap.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/value.h"
#include "store/recordset_type.h"

namespace quillon::store {

class ResultSet;

class Recordset {
public:
    // The position of a row; valid for the recordset that returned it and its clones, until Requery() or
    // Close().
    using RowBookmark = std::ptrdiff_t;

    explicit Recordset(std::shared_ptr<ResultSet> rows);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Eof() const;
    bool Bof() const;
    void MoveFirst();
    void MoveLast();      // 3251 when ForwardOnly
    void MoveNext();      // 3021 at the end
    void MovePrevious();  // 3021 at the beginning
    // The number of rows visited so far: 0 when empty, otherwise at least 1, and all of them after
    // MoveLast(). Rows added here count as visited, deleted ones do not.
    std::size_t RecordCount() const;
    // From 0; -1 without a current row. The merge will walk by it.
    std::ptrdiff_t AbsolutePosition() const;
    RowBookmark Bookmark() const;
    void SetBookmark(RowBookmark bookmark);
    // A second position on the same rows, without a current row until moved; it shows later Update()s.
    // For the merge, which walks two positions of one table.
    std::unique_ptr<Recordset> Clone() const;

    // Criteria in the dialect, as after WHERE. NoMatch() returns the result; without a match the position is
    // unchanged.
    void FindFirst(std::string_view criteria);
    void FindNext(std::string_view criteria);
    void FindPrevious(std::string_view criteria);  // for a list that is bound to a recordset
    // Tables only. Seek("=", ...) also takes "<", "<=", ">", ">=".
    void SetIndex(std::string_view indexName);
    void Seek(std::string_view comparison, const std::vector<Value>& key);
    bool NoMatch() const;

    // By name, ignoring case; 3265 for an unknown column, 3021 without a current row. While AddNew() or
    // Edit() is pending they return the new values.
    Value Get(std::string_view column) const;
    Value operator[](std::string_view column) const { return Get(column); }
    Value At(std::size_t column) const;  // by index, from 0
    std::size_t ColumnCount() const;
    const std::string& ColumnName(std::size_t column) const;

    // AddNew assigns an AutoNumber immediately. Update stores the row; after a failed Update it is unchanged.
    // Update and Delete fail with 3167 when another handle has deleted the row.
    void AddNew();
    void Edit();
    void Set(std::string_view column, const Value& value);
    void Update();
    void CancelUpdate();  // for the merge, which gives up rows that turn out to be duplicates
    void Delete();
    void Requery();
    // Every other call fails with 3420 afterwards; clones stay open.
    void Close();

private:
    enum class Pending { None, Add, Edit };
    ResultSet& Rows() const;  // 3420 once closed
    void RequireRow() const;
    void Find(std::string_view criteria, std::ptrdiff_t from, std::ptrdiff_t step);
    bool LandOn(std::ptrdiff_t row, std::ptrdiff_t step);

    std::shared_ptr<ResultSet> rows_;
    std::ptrdiff_t position_ = 0;
    std::size_t visited_ = 0;
    bool noMatch_ = false;
    Pending pending_ = Pending::None;
    std::vector<Value> staged_;
};

}  // namespace quillon::store
