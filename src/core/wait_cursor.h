// Shows the wait cursor for its lifetime. Scopes nest. Message boxes and dialogs show the normal cursor
// meanwhile.
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
