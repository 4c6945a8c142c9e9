// The rows of a table or a query, visited one at a time, and written where they come from one table.
//
// After opening, a recordset is on its first row; both Bof() and Eof() are true when there is none. It shows
// the rows as they were when it was opened: what another handle writes appears after Requery(), never before.
// A dynaset sees its own Update() at once. Rows are read as they are visited, so opening a large result costs
// nothing until it is walked.
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
    // The place of a row; valid for the recordset that gave it, and its clones, until Requery() or Close().
    using RowBookmark = std::ptrdiff_t;

    explicit Recordset(std::shared_ptr<ResultSet> rows);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Eof() const;
    bool Bof() const;
    void MoveFirst();
    void MoveLast();      // 3251 where only MoveNext() is
    void MoveNext();      // 3021 past the end
    void MovePrevious();  // 3021 before the beginning
    // Rows visited so far: 0 when empty, at least 1 otherwise, all of them after MoveLast(). A row added here
    // counts as visited, a row deleted here does not.
    std::size_t RecordCount() const;
    // From 0; -1 without a current row.
    std::ptrdiff_t AbsolutePosition() const;
    RowBookmark Bookmark() const;
    void SetBookmark(RowBookmark bookmark);
    // A second position on the same rows, on no row until moved; it shares later Update()s.
    std::unique_ptr<Recordset> Clone() const;

    // Criteria in the dialect, as after WHERE. NoMatch() reports the result; without a match the position
    // stays.
    void FindFirst(std::string_view criteria);
    void FindNext(std::string_view criteria);
    void FindPrevious(std::string_view criteria);
    // Tables only. Seek("=", ...) also takes "<", "<=", ">", ">=".
    void SetIndex(std::string_view indexName);
    void Seek(std::string_view comparison, const std::vector<Value>& key);
    bool NoMatch() const;

    // By name without regard to case; 3265 for no such column, 3021 without a current row. While AddNew() or
    // Edit() is pending they return what has been set.
    Value Get(std::string_view column) const;
    Value operator[](std::string_view column) const { return Get(column); }
    Value At(std::size_t column) const;  // by place, from 0
    std::size_t ColumnCount() const;
    const std::string& ColumnName(std::size_t column) const;

    // AddNew assigns an AutoNumber immediately. Update stores; a failed Update leaves the row as it
    // was. Update and Delete fail with 3167 when another handle has deleted the row.
    void AddNew();
    void Edit();
    void Set(std::string_view column, const Value& value);
    void Update();
    void CancelUpdate();
    void Delete();
    void Requery();
    // Every other call fails with 3420 afterwards; clones go on.
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
