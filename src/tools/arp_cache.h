// The parts of Arp that differ between operating systems: reading the ARP cache, and recognising
// other programs of the name.
#pragma once

#include <string>

namespace hostsweep {

// The path of the Arp after the running one on the search path; empty if there is no such program,
// or if it is the system's arp under another spelling of its name.
std::string OtherArp();

// Prints the entry for an IPv4 address in the words of arp(8) on macOS, or has arp(8) print it.
// Returns the exit status: on Linux 0, or 1 if there is no entry or it cannot be printed; on macOS
// that of arp(8), or as sh(1) reports that it could not be run.
int PrintArpEntry(const std::string& address);

}  // namespace hostsweep
