// The sweep: host numbers in ascending order, each probed, looked up and reported.
#pragma once

#include <cstdint>

#include "platform/shell.h"
#include "sweep/sweep_range.h"

namespace hostsweep {

// Sweeps the host numbers of the range in ascending order.
void SweepHosts(const SweepRange& range, Shell& shell);

// Probes and looks up one address, prints its report line and waits 10 ms. Does nothing for a host
// number above 254.
void SweepHost(std::int64_t hostNumber, const SweepRange& range, Shell& shell);

}  // namespace hostsweep
