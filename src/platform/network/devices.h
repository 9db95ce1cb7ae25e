// The IPv4 addresses of this machine and the devices that have them. Addresses are numbers in host
// byte order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hostsweep {

// One address of a device, and the network that it puts the device on. On a device with a peer that
// is the peer's network, which need not contain the address.
struct DeviceAddress {
  std::string Device;
  int Index = 0;  // the system's number of the device
  std::uint32_t Address = 0;
  std::uint32_t Network = 0;  // any address of that network
  std::uint32_t PrefixLength = 0;
  std::string HardwareAddress;  // bytes; empty for a loopback, a tunnel, and a device without one
  bool UsesArp = false;         // it broadcasts, and is neither a loopback nor a tunnel
  bool IsUp = false;            // it is set up, and has a link
};

// All addresses of this machine, in the system's order. Throws `std::system_error` if they cannot
// be listed.
std::vector<DeviceAddress> DeviceAddresses();

// The system's number of the device with this name; 0 if there is none.
int DeviceIndex(const std::string& name);

// The name of the device with this number of the system's; "?" if there is none.
std::string DeviceName(int index);

// True if the address is in the network that `device` is on.
bool IsInNetwork(const DeviceAddress& device, std::uint32_t address);

// True if the address is the first or the last of that network, and the network has more than two
// addresses: the network's own address or its broadcast address.
bool IsReserved(const DeviceAddress& device, std::uint32_t address);

// The first of the devices that has the address and a hardware address; null if no device has both.
const DeviceAddress* FindOwner(const std::vector<DeviceAddress>& devices, std::uint32_t address);

}  // namespace hostsweep
