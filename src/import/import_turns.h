// The turns of the stages of an import. A Cancel at any turn throws, which unwinds them all.
//
// Every loop in this folder that may take long takes turns.
#pragma once

#include "core/turns.h"

namespace quillon::importing {

// Thrown at the first turn after a Cancel. TaggedImport catches it; it never leaves the folder.
struct ImportCanceled {};

inline void TakeTurn(Turns& turns) {
    if (!turns.Next()) throw ImportCanceled();
}

}  // namespace quillon::importing
