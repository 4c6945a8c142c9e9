// How the editor goes on when the store fails in one of several steps: the failure is told in the words of
// the house, and the steps after it run all the same.
//
// RecView and the lists of its tabs use it. A writer that must undo something makes a Unit instead.
#pragma once

#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

// Runs `step`; false when the store failed in it, which is told then.
template <typename Step>
bool Attempt(Prompter& prompter, const Step& step) {
    try {
        step();
        return true;
    } catch (const store::StoreError& error) {
        prompter.Message("Failed " + error.Description());
        return false;
    }
}

}  // namespace quillon::editor
