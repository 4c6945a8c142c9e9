// The turns of the stages of an import. A Cancel at any turn throws, which unwinds them all.
//
// Every loop in this folder that may take long takes turns.
#pragma once

#include <algorithm>

#include "core/turns.h"

namespace quillon::importing {

// Thrown at the first turn after a Cancel. TaggedImport catches it; it never leaves the folder.
struct ImportCanceled {};

inline void TakeTurn(Turns& turns) {
    if (!turns.Next()) throw ImportCanceled();
}

// std::sort with turns between its comparisons.
template <typename Values, typename Less>
void SortWithTurns(Values& values, Turns& turns, const Less& less) {
    constexpr unsigned kComparisons = 1024;  // of a turn
    unsigned comparisons = 0;
    std::sort(values.begin(), values.end(), [&](const auto& left, const auto& right) {
        if (++comparisons % kComparisons == 0) TakeTurn(turns);
        return less(left, right);
    });
}

}  // namespace quillon::importing
