#include "platform/network/devices.h"

#include <net/if.h>

#include <algorithm>
#include <array>

namespace hostsweep {
namespace {

// The bits of an address that tell the hosts of the network apart.
std::uint32_t HostBits(const DeviceAddress& device) {
  return static_cast<std::uint32_t>((1ULL << (32 - device.PrefixLength)) - 1);
}

}  // namespace

int DeviceIndex(const std::string& name) {
  // Linux would pass over a colon and what follows, as in the label of an address.
  if (name.find(':') != std::string::npos) return 0;
  return static_cast<int>(if_nametoindex(name.c_str()));
}

std::string DeviceName(int index) {
  std::array<char, IF_NAMESIZE> name{};
  const bool isThere = if_indextoname(static_cast<unsigned int>(index), name.data()) != nullptr;
  return isThere ? name.data() : "?";
}

bool IsInNetwork(const DeviceAddress& device, std::uint32_t address) {
  return ((address ^ device.Network) & ~HostBits(device)) == 0;
}

bool IsReserved(const DeviceAddress& device, std::uint32_t address) {
  constexpr std::uint32_t LongestPrefix = 30;
  const std::uint32_t hosts = HostBits(device);
  const bool isAtEnd = (address & hosts) == 0 || (address & hosts) == hosts;
  return device.PrefixLength <= LongestPrefix && isAtEnd && IsInNetwork(device, address);
}

const DeviceAddress* FindOwner(const std::vector<DeviceAddress>& devices, std::uint32_t address) {
  const auto found = std::find_if(devices.begin(), devices.end(), [&](const DeviceAddress& device) {
    return device.Address == address && !device.HardwareAddress.empty();
  });
  return found == devices.end() ? nullptr : &*found;
}

}  // namespace hostsweep
