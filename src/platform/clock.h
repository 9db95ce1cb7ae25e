// The clock that waits and ages are measured by. It never goes back.
#pragma once

#include <chrono>

namespace hostsweep {

using Clock = std::chrono::steady_clock;

}  // namespace hostsweep
