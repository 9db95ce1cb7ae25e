// The reachability probe, which makes the system fill its ARP cache.
#pragma once

#include "platform/shell.h"
#include "platform/text/text.h"

namespace hostsweep {

// The command line: "ping -c 1 -t 1 " followed by the address.
Text ProbeCommand(const Text& address);

// Runs `ProbeCommand`, which sends one echo request. The reply makes no difference: to send the
// request the system has to resolve the hardware address, which is looked up afterwards.
void ProbeAddress(Shell& shell, const Text& address);

}  // namespace hostsweep
