// How the stages of an import take turns: a Cancel unwinds them all, from whatever loop it is heard in.
//
// Everything in this folder that may take long takes turns, so that no stage is deaf to the user.
#pragma once

#include "core/turns.h"

namespace quillon::importing {

// Thrown at the turn that hears the Cancel. TaggedImport catches it; it never leaves the folder.
struct ImportCanceled {};

inline void TakeTurn(Turns& turns) {
    if (!turns.Next()) throw ImportCanceled();
}

}  // namespace quillon::importing
