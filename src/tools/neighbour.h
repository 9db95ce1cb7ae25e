// Linux: the kernel's entry in the ARP cache for one address.
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

// The entry for an IPv4 address: the first complete one in the order of the devices, else an
// incomplete one, else nothing; nothing also for text that is no address. Each device is asked for
// its one entry, so the cost does not depend on how many entries there are. Needs Linux 5.0; throws
// `std::system_error` if the kernel does not answer.
std::optional<ArpEntry> FindNeighbour(const std::string& address);

}  // namespace hostsweep
