// The open results of a connection. Before any write each of them reads its remaining rows, so that it keeps
// the rows of the moment when it was opened.
#pragma once

#include <vector>

namespace quillon::store {

class ResultSet;
struct Handle;

class OpenResults {
public:
    void Add(ResultSet* result) { results_.push_back(result); }
    void Remove(const ResultSet* result) noexcept;
    // Throws before anything is written when a result cannot read its rows.
    void Freeze();
    // Like Freeze, for a rollback, which must not fail: a result that cannot read its rows reports the error
    // at its next move.
    void FreezeOrBreak() noexcept;
    void CloseOf(const Handle& handle) noexcept;
    void CloseAll() noexcept;

private:
    std::vector<ResultSet*> results_;
};

}  // namespace quillon::store
