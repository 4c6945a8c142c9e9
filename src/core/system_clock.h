// The time of this machine, in its own time zone.
#pragma once

#include "core/outside.h"

namespace quillon {

class SystemClock : public Clock {
public:
    std::string Now() const override;
};

}  // namespace quillon
