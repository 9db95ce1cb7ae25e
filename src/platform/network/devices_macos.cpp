// macOS: getifaddrs(3).
#include <ifaddrs.h>
#include <net/if.h>
#include <net/if_dl.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <memory>

#include "platform/network/devices.h"
#include "platform/network/socket_address.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

std::uint32_t PrefixLength(std::uint32_t netmask) {
  std::uint32_t length = 0;
  while (length < 32 && (netmask << length & 0x80000000U) != 0) ++length;
  return length;
}

bool IsOfFamily(const ifaddrs& entry, int family) {
  return entry.ifa_addr != nullptr && entry.ifa_addr->sa_family == family;
}

// The hardware addresses of the devices, by name.
std::map<std::string, std::string> HardwareAddresses(const ifaddrs* list) {
  std::map<std::string, std::string> addresses;
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (!IsOfFamily(*entry, AF_LINK)) continue;
    sockaddr_dl link{};
    std::memcpy(&link, entry->ifa_addr, offsetof(sockaddr_dl, sdl_data));
    const char* const data =
        reinterpret_cast<const char*>(entry->ifa_addr) + offsetof(sockaddr_dl, sdl_data);
    addresses[entry->ifa_name] = {data + link.sdl_nlen, link.sdl_alen};
  }
  return addresses;
}

}  // namespace

std::vector<DeviceAddress> DeviceAddresses() {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) ThrowSystemError("getifaddrs");
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, freeifaddrs);
  std::map<std::string, std::string> hardwareAddresses = HardwareAddresses(list);
  std::vector<DeviceAddress> addresses;
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (!IsOfFamily(*entry, AF_INET) || entry->ifa_netmask == nullptr) continue;
    const unsigned int flags = entry->ifa_flags;
    DeviceAddress address;
    address.Device = entry->ifa_name;
    address.Index = static_cast<int>(if_nametoindex(entry->ifa_name));
    address.Address = AddressIn(entry->ifa_addr);
    address.Network = address.Address;
    // The netmask can be shorter than the structure, but does not end before its address.
    address.PrefixLength = PrefixLength(AddressIn(entry->ifa_netmask));
    if ((flags & (IFF_LOOPBACK | IFF_POINTOPOINT)) == 0) {
      address.HardwareAddress = hardwareAddresses[address.Device];
    }
    address.UsesArp = (flags & IFF_BROADCAST) != 0 && (flags & (IFF_LOOPBACK | IFF_NOARP)) == 0;
    address.IsUp = (flags & IFF_UP) != 0 && (flags & IFF_RUNNING) != 0;
    addresses.push_back(address);
  }
  return addresses;
}

}  // namespace hostsweep
