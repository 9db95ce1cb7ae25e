// Linux: the kernel's entry in the ARP cache for one address.
#pragma once

#include <optional>
#include <string>

namespace hostsweep {

// An entry without a hardware address is incomplete: the hardware address has been asked for, and
// nothing has answered.
struct ArpEntry {
  std::string HardwareAddress;  // groups of two hexadecimal digits joined by ":"; can be empty
  std::string Device;
  bool IsPermanent = false;
};

// The entry for an IPv4 address: the first complete entry in the order of the devices, or else an
// incomplete entry. Nothing if there is no entry, or the text is not an address. Each device is
// asked for its one entry, so the cost does not depend on how many entries there are. Needs Linux
// 5.0; throws `std::system_error` if the kernel does not answer.
std::optional<ArpEntry> FindNeighbour(const std::string& address);

}  // namespace hostsweep
