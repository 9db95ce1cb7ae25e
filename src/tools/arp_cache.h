// The parts of Arp that differ between operating systems: reading the ARP cache, and recognising
// other programs of the name.
#pragma once

#include <string>

namespace hostsweep {

// The Arp after the running one on its search path, if that is a program of the caller's own and
// not the system's arp under another spelling of its name; empty if there is none.
std::string OtherArp();

// Prints the entry for an IPv4 address in the words of arp(8) on macOS, or has arp(8) print it.
// Returns the exit status: 0, or 1 if there is no entry or it cannot be printed.
int PrintArpEntry(const std::string& address);

}  // namespace hostsweep
