// The wait cursor for as long as the object lives.
#pragma once

#include "core/outside.h"

namespace quillon::navigation {

class WaitCursor {
public:
    explicit WaitCursor(Prompter& prompter) : prompter_(prompter) { prompter_.WaitCursor(true); }
    ~WaitCursor() { prompter_.WaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Prompter& prompter_;
};

}  // namespace quillon::navigation
