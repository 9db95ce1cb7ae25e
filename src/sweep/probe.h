// The reachability probe, which fills the ARP cache.
#pragma once

#include "platform/shell.h"
#include "platform/text.h"

namespace hostsweep {

// Has "ping -c 1 -t 1 " send one echo request to the address. Whether a reply comes makes no
// difference: to send it, the system has to resolve the hardware address, and that is looked up
// afterwards.
void ProbeAddress(Shell& shell, const Text& address);

}  // namespace hostsweep
