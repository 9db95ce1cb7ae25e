// Linux: the kernel's ARP cache as a file, and its list of devices.
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <net/if_arp.h>
#include <netinet/in.h>
#include <netpacket/packet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <memory>

#include "tools/arp_cache.h"

namespace hostsweep {
namespace {

constexpr const char* CacheFile = "/proc/net/arp";

// The first complete entry for the address, or else the last incomplete one: an address can have
// one on each device.
std::optional<ArpEntry> FindInCacheFile(const std::string& address) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(CacheFile, "re"),
                                                             std::fclose);
  std::optional<ArpEntry> found;
  if (file == nullptr) return found;
  std::array<char, 256> line{};
  while (std::fgets(line.data(), line.size(), file.get()) != nullptr) {
    // Columns, from proc(5): address, hardware type, flags, hardware address, mask, device.
    std::array<char, 16> entryAddress{};
    std::array<char, 64> hardwareAddress{};
    std::array<char, 64> device{};
    unsigned int flags = 0;
    const int columns = std::sscanf(line.data(), "%15s %*s %x %63s %*s %63s", entryAddress.data(),
                                    &flags, hardwareAddress.data(), device.data());
    if (columns != 4 || address != entryAddress.data()) continue;
    const bool isComplete = (flags & ATF_COM) != 0;
    found = ArpEntry{isComplete ? hardwareAddress.data() : "", device.data()};
    if (isComplete) return found;
  }
  return found;
}

std::string AddressOf(const ifaddrs& device) {
  sockaddr_in address{};
  std::memcpy(&address, device.ifa_addr, sizeof address);
  std::array<char, INET_ADDRSTRLEN> text{};
  inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size());
  return text.data();
}

std::string HardwareAddressOf(const ifaddrs& device) {
  sockaddr_ll address{};
  std::memcpy(&address, device.ifa_addr, sizeof address);
  std::string text;
  for (std::size_t i = 0; i < address.sll_halen && i < sizeof address.sll_addr; ++i) {
    std::array<char, 4> group{};
    std::snprintf(group.data(), group.size(), ":%02x", address.sll_addr[i]);
    text += group.data();
  }
  return text.empty() ? text : text.substr(1);
}

bool IsOfFamily(const ifaddrs& device, int family) {
  return device.ifa_addr != nullptr && device.ifa_addr->sa_family == family;
}

// The name of a device without the ":" and label that one of its addresses can carry.
std::string NameOf(const ifaddrs& device) {
  const std::string name = device.ifa_name;
  return name.substr(0, name.find(':'));
}

std::optional<ArpEntry> FindInDevices(const std::string& address) {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return {};
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> devices(list, freeifaddrs);
  for (const ifaddrs* owner = list; owner != nullptr; owner = owner->ifa_next) {
    if (!IsOfFamily(*owner, AF_INET) || AddressOf(*owner) != address) continue;
    if ((owner->ifa_flags & (IFF_LOOPBACK | IFF_POINTOPOINT)) != 0) continue;
    for (const ifaddrs* device = list; device != nullptr; device = device->ifa_next) {
      if (!IsOfFamily(*device, AF_PACKET) || NameOf(*device) != NameOf(*owner)) continue;
      const std::string hardwareAddress = HardwareAddressOf(*device);
      if (!hardwareAddress.empty()) return ArpEntry{hardwareAddress, NameOf(*device), true};
    }
  }
  return {};
}

}  // namespace

bool CanReadArpCache() { return access(CacheFile, R_OK) == 0; }

std::optional<ArpEntry> FindArpEntry(const std::string& address) {
  std::optional<ArpEntry> cached = FindInCacheFile(address);
  if (cached && !cached->HardwareAddress.empty()) return cached;
  const std::optional<ArpEntry> own = FindInDevices(address);
  return own ? own : cached;
}

}  // namespace hostsweep
