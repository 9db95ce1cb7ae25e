// The network devices of this machine, and whether it can reach an address. Addresses are numbers
// in host byte order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hostsweep {

// One IPv4 address of a device that uses ARP: one that broadcasts and is not a loopback.
struct DeviceAddress {
  std::string Device;
  std::uint32_t Address = 0;
  std::uint32_t Netmask = 0;
  bool IsUp = false;  // set up, and its link too
};

// Those of all such devices, in the system's order. Throws `std::system_error` if they cannot be
// listed.
std::vector<DeviceAddress> DeviceAddresses();

// False if the system says that it has no route to the address, or one that refuses it. Sends
// nothing. Throws `std::system_error` if the system lacks what asking takes.
bool HasRoute(std::uint32_t address);

}  // namespace hostsweep
