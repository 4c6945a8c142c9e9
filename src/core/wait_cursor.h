// The wait cursor for as long as an object lives. Scopes nest: the cursor goes back with the outermost one.
// Message boxes and dialogs show the ordinary cursor by themselves.
#pragma once

#include "core/outside.h"

namespace quillon {

class WaitCursor {
public:
    explicit WaitCursor(Prompter& prompter) : prompter_(prompter) { prompter_.WaitCursor(true); }
    ~WaitCursor() { prompter_.WaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Prompter& prompter_;
};

}  // namespace quillon
