// What the operating system's own interfaces say about an address's entry in the ARP cache.
#pragma once

#include <optional>
#include <string>

namespace hostsweep {

// A complete entry has a hardware address. In an incomplete one it is empty: the address has been
// asked for, and nothing has answered.
struct ArpEntry {
  std::string HardwareAddress;  // groups of two hexadecimal digits joined by ":"
  std::string Device;
  bool IsPermanent = false;
};

// True if the interfaces are there. Where they are not, arp(8) has to be asked.
bool CanReadArpCache();

// The entry for an IPv4 address: a complete one if there is one, else an incomplete one, else
// nothing. An address of this machine itself has a permanent entry with its device's hardware
// address, unless that device is a loopback, a tunnel, or has no hardware address.
std::optional<ArpEntry> FindArpEntry(const std::string& address);

}  // namespace hostsweep
