#include "store/engine/open_results.h"

#include <algorithm>

#include "store/engine/result_set.h"

namespace quillon::store {

void OpenResults::Remove(const ResultSet* result) noexcept {
    const auto found = std::find(results_.rbegin(), results_.rend(), result);
    if (found == results_.rend()) return;
    *found = results_.back();
    results_.pop_back();
}

void OpenResults::Freeze() {
    for (ResultSet* result : results_) result->Freeze();
}

void OpenResults::FreezeOrBreak() noexcept {
    for (ResultSet* result : results_) {
        try {
            result->Freeze();
        } catch (...) {
            result->Break();
        }
    }
}

// Closing a result removes it from the list and moves the last one to its index.
void OpenResults::CloseOf(const Handle& handle) noexcept {
    for (std::size_t i = results_.size(); i-- > 0;)
        if (results_[i]->IsOf(handle)) results_[i]->Close();
}

void OpenResults::CloseAll() noexcept {
    while (!results_.empty()) results_.back()->Close();
}

}  // namespace quillon::store
