// The three commands of the sweep, each of which runs for one address.
#pragma once

#include "platform/shell.h"
#include "platform/text/text.h"

namespace hostsweep {

// Runs "ping -c 1 -t 1 " followed by the address, which sends one echo request. The reply makes no
// difference: to send the request the system has to resolve the hardware address, which is looked
// up afterwards.
void ProbeAddress(Shell& shell, const Text& address);

// Runs "/usr/bin/host " followed by the address. Returns `ParseHostName` of the output.
Text LookupHostName(Shell& shell, const Text& address);

// Runs "Arp " followed by the address. Returns `ParseHardwareAddress` of the output.
Text LookupHardwareAddress(Shell& shell, const Text& address);

}  // namespace hostsweep
