// The results that are open on one connection. Before anything is written each of them reads the rows that it
// has not visited yet, so that it keeps showing what was there when it was opened.
#pragma once

#include <vector>

namespace quillon::store {

class ResultSet;
struct Handle;

class OpenResults {
public:
    void Add(ResultSet* result) { results_.push_back(result); }
    void Remove(const ResultSet* result) noexcept;
    // Throws when a result cannot read its rows; nothing has been written then.
    void Freeze();
    // As Freeze, before a rollback, which must not fail: a result that cannot read its rows reports the error
    // when it is walked further.
    void FreezeOrBreak() noexcept;
    void CloseOf(const Handle& handle) noexcept;
    void CloseAll() noexcept;

private:
    std::vector<ResultSet*> results_;
};

}  // namespace quillon::store
