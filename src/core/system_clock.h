// The local time of this machine.
#pragma once

#include "core/outside.h"

namespace quillon {

class SystemClock : public Clock {
public:
    std::string Now() const override;
};

}  // namespace quillon
